#pragma once

#include "data/Statement.h"

#include <optional>
#include <span>

namespace vorta::data {

/// A read of all columns of one table (`select * from t`, with or without a condition and an order), asking for these
/// columns alone: a wide table costs what is read of it. Nothing for no columns, and for a statement of any other form,
/// which is then sent as it is: with all columns the flow finds what it reads just as well.
std::optional<Statement> OnlyColumns(const Statement& statement, std::span<const Piece> columns);

} // namespace vorta::data
