#pragma once

/// The three addresses of a person, which are one block of fields three times, and the copies between fields of the
/// screen.
namespace vorta {

class frmPessoas;

/// Wires the handlers of the address blocks: city and country lists, municipal codes, copy buttons and postal-code
/// buttons, and the cloning of the name into the trade name.
void LigaBlocosEndereco(frmPessoas& tela);

/// Fills the three state lists: the company's own state first, a blank item, then all states. Runs once, when the
/// screen loads.
void PreencheCombosUFs(frmPessoas& tela);

} // namespace vorta
