#pragma once

namespace vorta {

class frmPessoas;

/// Wires the seven role buttons of the person screen: the direct link and the way into the role screens.
void LigaVinculos(frmPessoas& tela);

} // namespace vorta
