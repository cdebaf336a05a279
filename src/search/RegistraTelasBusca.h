#pragma once

#include "launch/ContextoExecucao.h"

namespace vorta {

/// Makes the four search screens known to the program: persons, duplicate check, products and postal codes.
void RegistraTelasBusca(ContextoExecucao& contexto);

} // namespace vorta
