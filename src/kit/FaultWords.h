#pragma once

#include "base/RuntimeError.h"

namespace vorta::kit {

/// A failure in the program's own Portuguese words, whatever the engine said: a library's text never reaches the user.
QString FaultWords(const RuntimeError& error);

/// Why nothing can be written at a path, or why it has just failed.
QString WhyNotWritten(const QString& path);

} // namespace vorta::kit
