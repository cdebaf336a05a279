#pragma once

#include "shared/BlocoContatos.h"

/// Contact people and branches of activity of a person. The grids are a working copy: nothing reaches the database
/// before the save, which writes both lists anew.
namespace vorta {

class frmPessoas;

inline constexpr RegrasContatos contatosPessoa{.tabela = {"pess_cont", data::Piece("GEN_PESS_CONT")},
                                               .chaveDono = "idpess",
                                               .campoAniversario = "mskDtNascCont",
                                               .aniversario = ConfereAniversario::NaInclusao,
                                               .duploClique = true};

/// Wires the lists of types and of branches and the grid of branches.
void LigaContatos(frmPessoas& tela);

void PreparaGridAtividades(frmPessoas& tela);

/// Adds the stored branches of the person in `txtRowID` to their grid.
void CarregaAtividades(frmPessoas& tela);

// Statements of the two lists. `linha` is a row of the grid, from 1. An insert reads its table's generator first, where
// that gives the key; the one of a branch looks the branch's key up by its description.
data::Statement MontaInsertAtividade(const frmPessoas& tela, const QString& idpess, int linha);
data::Statement MontaDeleteAtividades(const frmPessoas& tela);

} // namespace vorta
