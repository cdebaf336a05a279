#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// The municipal codes of all persons looked up anew, against the same statements sent by the bare client, and what the
/// run adds to memory. `PESSOAS_BENCH_PERSONS` tells how many persons, 20,000 without it.
std::vector<Case> MaintenanceCases();

} // namespace vorta::bench
