#pragma once

#include <QString>
#include <functional>

namespace vorta::screen {

class Program;

/// Asks the user for a file, beginning with that name, and lets it be written. A path that cannot be written (75) is
/// told in a box, and nothing else happens; so does nothing when the user gives up.
void AskAndWrite(Program& program, const QString& suggested, const std::function<void(const QString& path)>& write);

} // namespace vorta::screen
