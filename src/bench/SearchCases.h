#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// The searches of persons and of postal codes, on an installation of their own with 100,000 persons.
std::vector<Case> SearchCases();
/// The same searches on a base of a million persons.
std::vector<Case> MillionCases();

} // namespace vorta::bench
