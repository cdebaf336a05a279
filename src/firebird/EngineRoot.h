#pragma once

#include <QString>

/// The folder from which the engine reads its configuration and loads its character sets: code that runs with the
/// user's rights. So nobody but the user, or the system's own administrator, may be able to write there.
namespace vorta::firebird {

/// The user's own folder for it, made, filled and renewed when needed. Where the user has none that is safe, one for
/// this process alone, which goes with it. Raises -2147467259, in words, when there is neither.
QString PrepareEngineRoot();

/// True when somebody else than the user and the administrator could change what stands at the path, or put something
/// else in its place.
bool OthersCanWrite(const QString& path);

} // namespace vorta::firebird
