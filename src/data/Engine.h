#pragma once

#include "base/Literals.h"

#include <QStringList>
#include <array>
#include <optional>

namespace vorta::data {

/// The database engines that the register runs on. What differs between them is told by a `switch` without `default`,
/// so that a new one is a compiler's warning wherever it is missing.
enum class Engine { Firebird, SqlServer };

/// An engine and its name in commands and scenarios.
struct EngineName {
    Engine engine;
    QStringView name;
};
inline constexpr std::array engineNames{
    EngineName{Engine::Firebird, u"firebird"},
    EngineName{Engine::SqlServer, u"sqlserver"},
};

/// The engine of that name; none for an unknown one.
inline std::optional<Engine> EngineNamed(const QString& name) {
    for (const EngineName& row : engineNames)
        if (name == row.name)
            return row.engine;
    return std::nullopt;
}
/// All names, divided by `separator`.
inline QString EngineNames(const QString& separator) {
    QStringList names;
    for (const EngineName& row : engineNames)
        names += row.name.toString();
    return names.join(separator);
}

} // namespace vorta::data
