#pragma once

#include "launch/ContextoExecucao.h"

#include <optional>
#include <span>

namespace vorta {

/// One engine tag of a configuration line: how its connection is opened.
struct EngineTag {
    const char* tag;
    data::Engine engine;
    std::optional<int> timeout; ///< seconds; none leaves the connection's default
    /// The connection string with %1 server, %2 user, %3 password, %4 database; empty takes the line's own Firebird
    /// string.
    const char* form;
    bool postalCode; ///< the postal-code file knows this tag too
};

std::span<const EngineTag> EngineTags();
/// The row of a tag, compared exactly; none for an unknown tag.
const EngineTag* FindEngineTag(const QString& tag);
/// The connection string of a tag from the connection fields of the context.
QString ConnectionStringOf(const EngineTag& tag, const ContextoExecucao& contexto);

} // namespace vorta
