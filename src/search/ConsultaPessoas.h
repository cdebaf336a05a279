#pragma once

#include "search/frmBROWSE_PESSOAS.h"
#include "shared/Papeis.h"

#include <optional>
#include <vector>

/// The two halves of a person search: the statement that the options make, and the role filter that is applied to its
/// rows one by one.
namespace vorta {

/// The statement for the options and the text as they stand on the screen. Sets `VinculoAtual` to "S" when deactivated
/// persons are wanted, else to "N", so that the role lookups of the rows follow the same wish. The text goes into the
/// statement as it stands.
data::Statement MontaConsultaPessoas(ContextoExecucao& contexto, const frmBROWSE_PESSOAS& tela);

/// What the chosen role option asks of a row.
struct FiltroPapel {
    const Papel* papel = nullptr; ///< the person must have this link
    bool prospect = false;        ///< instead: the person must have no link at all
};
FiltroPapel FiltroEscolhido(const frmBROWSE_PESSOAS& tela);

/// The columns that the rows of a search are read for.
std::vector<data::Piece> ColunasLidas(const FiltroPapel& filtro);

/// The cells of the current row as the grid takes them; nothing when the filter skips the row. Sends one or two
/// lookups for a row with a role filter. A result without one of the grid's columns raises 3265.
std::optional<QStringList> LinhaPessoa(ContextoExecucao& contexto, const data::Recordset& registros,
                                       const FiltroPapel& filtro);

} // namespace vorta
