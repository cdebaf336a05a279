#pragma once

#include "search/frmBROWSE_PESSOAS.h"

namespace vorta {

/// Hands the current row of the search over to the screen that `TelaChamadora` names, by the contract that the screens
/// of the ERP share: writes their fields by name, closes the search, and puts the focus where the caller wants it. A
/// caller that is no screen of this program raises 91, a caller without one of the fields 438, both before the search
/// closes. An unknown name only closes.
void RetornaPessoa(ContextoExecucao& contexto, frmBROWSE_PESSOAS& busca);

} // namespace vorta
