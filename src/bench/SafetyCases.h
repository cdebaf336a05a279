#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// What the care for the bases costs: the guard at an opening, the watch over each call, the mutexes that outlive their
/// owner.
std::vector<Case> SafetyCases();

} // namespace vorta::bench
