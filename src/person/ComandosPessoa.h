#pragma once

#include "launch/ContextoExecucao.h"

namespace vorta {

/// Turns the fields of the person screen into the insert statement of `PESS` and leaves it in `SqlComando`. Only
/// columns with a value stand in it. The key `novoId` stands in it on Firebird only; other engines assign it. Asks the
/// three name-to-key lookups; a name that does not exist is stored as 0.
void MontaInsertPessoa(ContextoExecucao& contexto, const screen::Screen& tela, qint32 novoId);

/// The update statement for the person in `txtRowID`, likewise. All columns stand in it; one without a value is set to
/// null.
void MontaUpdatePessoa(ContextoExecucao& contexto, const screen::Screen& tela);

} // namespace vorta
