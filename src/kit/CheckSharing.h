#pragma once

#include "kit/Check.h"

namespace vorta::kit {

/// Looks at what the programs of several users share beside an embedded base: whether all who may write it can use its
/// guard and its lock files, and nobody else can, and whether anything there leads to other locks: a second name of the
/// file, a configuration for the engine's own tools. Gives the faults alone.
std::vector<Finding> CheckSharing(const QString& what, const QString& database);

} // namespace vorta::kit
