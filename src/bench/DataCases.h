#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// The data layer against the bare client, on a database of its own with 100,000 persons that lives as long as the
/// cases.
std::vector<Case> DataCases();

} // namespace vorta::bench
