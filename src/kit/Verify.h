#pragma once

#include "kit/Check.h"
#include "kit/Progress.h"

namespace vorta::kit {

/// Looks through a whole base: the engine's full validation (while others have the base open, the one that it offers
/// then), and rows of the register that refer to a person or a role that is not there. Changes nothing. The embedded
/// engine must have been prepared for `home`.
std::vector<Finding> VerifyBase(const QString& home, const QString& base, const Progress& progress = {});

} // namespace vorta::kit
