#pragma once

#include "base/ServerLine.h"
#include "data/Engine.h"

#include <optional>
#include <span>

namespace vorta::data {

/// One engine tag of a configuration line: how its connection is opened.
struct EngineTag {
    const char* tag;
    Engine engine;
    std::optional<int> timeout; ///< seconds; none leaves the connection's default
    /// The connection string with %1 server, %2 user, %3 password, %4 database; empty takes the line's own Firebird
    /// string.
    const char* form;
    bool postalCode; ///< the postal-code file knows this tag too

    /// The connection string is made of the line's fields.
    bool hasForm() const { return *form != 0; }
};

std::span<const EngineTag> EngineTags();
/// The row of a tag, compared exactly; none for an unknown tag.
const EngineTag* FindEngineTag(const QString& tag);
/// True for a tag whose connections this engine opens.
bool TagOpens(const QString& tag, Engine engine);
/// The connection string of a tag from the fields of a line.
QString ConnectionStringOf(const EngineTag& tag, const ServerLine& line);

} // namespace vorta::data
