#pragma once

#include "data/Adapter.h"

namespace vorta::data {

/// The adapter for Firebird databases, in this process or on a server, by the connection string (see ConnectionText.h).
std::unique_ptr<Adapter> MakeFirebirdAdapter();

} // namespace vorta::data
