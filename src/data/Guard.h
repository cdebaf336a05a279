#pragma once

#include "data/Statement.h"

namespace vorta::data {

/// Lets a statement pass only when every value in it lies inside one text literal or is a plain number. A value that
/// ends its literal, adds a second statement, a comment or a condition is refused with -2147217900, in the words that
/// an engine uses for a stray apostrophe; so is one that holds a zero character or half of a surrogate pair, at which a
/// driver would stop reading. So a value can break its own statement and nothing else. An empty value stands anywhere.
void GuardStatement(const Statement& statement);

} // namespace vorta::data
