#pragma once

namespace vorta {

class frmPessoas;

/// Wires the deactivation and the reactivation of the person on the screen.
void LigaDesativacao(frmPessoas& tela);

} // namespace vorta
