#pragma once

#include <QString>

namespace vorta {

/// Tells a line to whoever looks after the program, where services and sessions collect such lines (the error output).
/// For reasons that no screen shows.
void Journal(const QString& line);

} // namespace vorta
