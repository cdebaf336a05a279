#pragma once

#include "person/frmPessoas.h"

/// The three addresses of a person, which are one block of fields three times, and the copies between fields of the
/// screen.
namespace vorta {

/// Wires the handlers of the address blocks: city and country lists, municipal codes, copy buttons and postal-code
/// buttons, and the cloning of the name into the trade name. The handlers live as long as the screen and keep a
/// reference to `contexto`.
void LigaBlocosEndereco(ContextoExecucao& contexto, frmPessoas& tela);

/// Fills the three state lists: the company's own state first, a blank item, then all states. Runs once, when the
/// screen loads.
void PreencheCombosUFs(ContextoExecucao& contexto, frmPessoas& tela);

} // namespace vorta
