#pragma once

#include "launch/ContextoExecucao.h"

/// Contact people and branches of activity of a person. The grids are a working copy: nothing reaches the database
/// before the save, which writes both lists anew.
namespace vorta {

class frmPessoas;

/// Wires the entry fields and the two grids.
void LigaContatos(frmPessoas& tela);

void PreparaGridContatos(frmPessoas& tela);
void PreparaGridAtividades(frmPessoas& tela);

/// Adds the stored branches and contacts of the person in `txtRowID` to the grids.
void CarregaAtividades(frmPessoas& tela);
void CarregaContatos(frmPessoas& tela);

// Statements of the two lists. `linha` is a row of the grid, from 1. An insert reads its table's generator first, where
// that gives the key; the one of a branch looks the branch's key up by its description.
data::Statement MontaInsertContato(const frmPessoas& tela, const QString& idpess, int linha);
data::Statement MontaInsertAtividade(const frmPessoas& tela, const QString& idpess, int linha);
data::Statement MontaDeleteContatos(const frmPessoas& tela);
data::Statement MontaDeleteAtividades(const frmPessoas& tela);

} // namespace vorta
