#pragma once

#include "launch/ContextoExecucao.h"

namespace vorta {

/// Makes the seven role screens known to a register by their names. They reach the person screen, `frmPessoas`, by its
/// name.
void RegistraTelasPapeis(ContextoExecucao& contexto);

} // namespace vorta
