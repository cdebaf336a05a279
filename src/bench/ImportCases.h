#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// A person of a spreadsheet entered by the screens, with two contacts and a branch of activity, and undone again: what
/// the importer does for a person but for the waits for the disk, which are the same on both sides.
std::vector<Case> ImportCases();

} // namespace vorta::bench
