#pragma once

#include <QString>

/// The files that the engine keeps in a lock folder while bases are open: shared memory of all programs on them. The
/// engine makes them sparse and, for the administrator, gives them to a user of its own; both are put right here, since
/// a full disk would end every program at its next write into them, and colleagues would be locked out.
namespace vorta::firebird {

/// Makes the folder where it is not there, for everybody of the group of the folder around it.
void MakeLockFolder(const QString& folder);

/// Raises -2147467259, in words, when the folder's disk cannot hold what the engine keeps there for one base.
void RequireRoomForLocks(const QString& folder);

/// Gives the engine's files in the folder their whole room on the disk and, where they are the administrator's, the
/// owner and the group of the folder. Raises -2147467259, in words, when the disk has no room for them.
void SettleLockFiles(const QString& folder);

} // namespace vorta::firebird
