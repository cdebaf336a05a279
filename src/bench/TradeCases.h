#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// The history tabs of a busy customer and supplier, and the product search, against their statements sent by the bare
/// client.
std::vector<Case> TradeCases();

} // namespace vorta::bench
