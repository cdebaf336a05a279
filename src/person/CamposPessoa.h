#pragma once

#include "data/Statement.h"

#include <span>

/// The fields of the person screen as tables: limits, tips, families, and where each value of a statement comes from.
namespace vorta {

/// Most characters that a field takes.
struct TamanhoCampo {
    const char* campo;
    int tamanho;
};
std::span<const TamanhoCampo> TamanhosPessoa();

struct DicaCampo {
    const char* campo;
    const char* dica;
};
std::span<const DicaCampo> DicasPessoa();

/// Fields that are locked while idle and free during inclusion and alteration.
std::span<const char* const> CamposBloqueaveis();
/// Buttons that follow the same rule by being disabled.
std::span<const char* const> BotoesBloqueaveis();
/// Fields that a clearing of the screen empties.
std::span<const char* const> CamposLimpos();
/// Input fields on which Enter does not move on.
std::span<const char* const> CamposSemEnter();
/// Fields on which a typed apostrophe becomes an acute accent.
std::span<const char* const> CamposComAcento();
/// Fields that select their text when they are entered.
std::span<const char* const> CamposComSelecao();

/// When a column of `PESS` takes a value.
enum class Teste {
    A, ///< the text has at least one character
    B, ///< the trimmed text has at least one character
    C, ///< the masked field has at least one character, which its blank form has too
    D, ///< the text is a date
    Sempre
};

/// What the value is.
enum class Forma {
    Texto,            ///< the text of the field
    Aparado,          ///< the text trimmed
    CodigoMunicipio,  ///< trimmed at inclusion, as it stands at alteration
    FisicaOuJuridica, ///< "F" or "J"
    IdVendedor,
    IdTipoCliente,
    IdTransportadora,
    Data ///< "yyyymmdd"
};

/// The source of a column: which field, when, and in which form.
struct OrigemColuna {
    const char* campo;
    Teste teste;
    Forma forma;
};
const OrigemColuna& OrigemDe(const char* campo);

/// A column of a statement and the field that feeds it, in the order in which the statement names them.
struct ColunaComando {
    data::Piece coluna;
    const char* campo;
};
std::span<const ColunaComando> ColunasInsert();
std::span<const ColunaComando> ColunasUpdate();

/// A column read as it is into a field, a null giving empty text.
struct ColunaCarga {
    const char* coluna;
    const char* campo;
};
std::span<const ColunaCarga> ColunasCarga();

} // namespace vorta
