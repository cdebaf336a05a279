#pragma once

#include "base/RuntimeError.h"
#include "base/WhyNotWritten.h"

namespace vorta::kit {

/// A failure in the program's own Portuguese words, whatever the engine said: a library's text never reaches the user.
QString FaultWords(const RuntimeError& error);

} // namespace vorta::kit
