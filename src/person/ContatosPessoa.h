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

// Each leaves its statement in `SqlComando`. `linha` is a row of the grid, from 1.
void InsereContato(frmPessoas& tela, const QString& idpess, int linha);
void InsereAtividade(frmPessoas& tela, const QString& idpess, int linha);
void ApagaContatos(frmPessoas& tela);
void ApagaAtividades(frmPessoas& tela);

} // namespace vorta
