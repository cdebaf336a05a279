#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// The person screen: a person loaded, an alteration saved, and the start of the program up to its painted window.
std::vector<Case> PersonCases();

} // namespace vorta::bench
