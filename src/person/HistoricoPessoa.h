#pragma once

namespace vorta {

class frmPessoas;

/// The commercial history of the person on the screen: five grids with their statistics, read-only and computed at each
/// load.

/// Wires the reprocessing of the orders and the product filter.
void LigaHistorico(frmPessoas& tela);

/// Empties the five grids and sets their columns.
void MontaGradesHistorico(frmPessoas& tela);

/// Sets the statistics labels back. The labels of the quotations keep their text until the next load.
void LimpaHistorico(frmPessoas& tela);

/// All five grids, for a person found by its id.
void CarregaHistoricoPorId(frmPessoas& tela);

/// Orders and purchases only, for a person found by its external code.
void CarregaHistoricoPorCodigoExterno(frmPessoas& tela);

} // namespace vorta
