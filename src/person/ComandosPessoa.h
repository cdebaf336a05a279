#pragma once

#include "launch/ContextoExecucao.h"

#include <optional>

namespace vorta {

/// Turns the fields of the person screen into the insert statement of `PESS`. Only columns with a value stand in it;
/// without a key the database assigns it. Asks the three name-to-key lookups; a name that does not exist is stored as
/// 0.
data::Statement MontaInsertPessoa(ContextoExecucao& contexto, const screen::Screen& tela, std::optional<qint32> novoId);

/// The update statement for the person in `txtRowID`, likewise. All columns stand in it; one without a value is set to
/// null.
data::Statement MontaUpdatePessoa(ContextoExecucao& contexto, const screen::Screen& tela);

} // namespace vorta
