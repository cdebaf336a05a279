#pragma once

#include "data/Adapter.h"

#include <functional>

namespace vorta::data {

/// The adapter for Firebird databases, in this process or on a server, by the connection string (see ConnectionText.h).
/// `meanwhile` runs once, during the first opening: that takes the engine a while, which is no wait for something that
/// can be done already. What it raises is raised by the opening.
std::unique_ptr<Adapter> MakeFirebirdAdapter(std::function<void()> meanwhile = {});

} // namespace vorta::data
