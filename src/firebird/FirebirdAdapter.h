#pragma once

#include "data/Adapter.h"

namespace vorta::firebird {

/// The adapter for Firebird databases, in this process or on a server, by the connection string (see ConnectionText.h).
std::unique_ptr<data::Adapter> MakeFirebirdAdapter();

} // namespace vorta::firebird
