#pragma once

#include "launch/ContextoExecucao.h"

namespace vorta {

/// Makes the search screens known to the program: `frmBROWSE_PESSOAS`, `frmBROWSE_PRODUTO`, `frmPESSOAS_INCL` and
/// `frmBROWSE_CEPS`.
void RegistraTelasBusca(ContextoExecucao& contexto);

} // namespace vorta
