#pragma once

#include <QString>

#include <firebird/Interface.h>

#include <optional>

namespace vorta::firebird {

/// The reason of a failed opening in the program's own words, where it has some: a database file of another version of
/// the engine, with the way to bring it over, and an engine that is not installed.
std::optional<QString> OpenFailureWords(const Firebird::IStatus& failure);

} // namespace vorta::firebird
