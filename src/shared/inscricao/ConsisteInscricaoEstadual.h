#pragma once

#include <QString>

namespace vorta {

/// Whether a state registration follows the published rule of its state: 0 when it does, 1 when not; no other code.
///
/// `inscricao` bare or masked (points, hyphens, slashes and blanks are no content), "P" in front for the rural
/// producers of São Paulo. "ISENTO" is right in every state. `uf` is the state's two letters; an unknown one gives 1.
/// Case does not matter. Nothing is raised. A registration that looks right is not thereby a registration that exists.
qint16 ConsisteInscricaoEstadual(const QString& inscricao, const QString& uf);

} // namespace vorta
