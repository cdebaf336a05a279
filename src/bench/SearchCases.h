#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// The searches of persons and of postal codes, on an installation of their own with 100,000 persons.
std::vector<Case> SearchCases();

} // namespace vorta::bench
