#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// A role screen with twenty contacts opened and saved, and the role buttons of a person painted, against their
/// statements sent by the bare client, on a database of its own.
std::vector<Case> RoleCases();

} // namespace vorta::bench
