#pragma once

namespace vorta {

class frmPessoas;

/// Wires the three address blocks of the person screen: cities, countries, municipal codes, copies between blocks,
/// postal-code buttons, and the cloning of the name.
void LigaBlocosEndereco(frmPessoas& tela);

/// Fills the three state lists: the company's own state, a blank item, then all active states.
void PreencheCombosUFs(frmPessoas& tela);

} // namespace vorta
