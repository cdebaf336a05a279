#pragma once

#include "base/Literals.h"
#include "firebird/BaseGuard.h"
#include "firebird/Client.h"
#include "firebird/ConnectionText.h"

#include <QString>

/// The engine that runs inside this process: its root folder, its lock place, and new databases.
namespace vorta::firebird {

/// Gives the engine its root folder (see EngineRoot.h), in mode Classic so that several programs open the same base at
/// once. Works once per process, before the first connection; later calls change nothing. -2147467259 when there is no
/// safe folder for it. A process whose bases come and go, as in tests, names a home that stays: its "firebird/lock" is
/// the lock place then, whatever base is opened.
void PrepareEmbeddedEngine(const QString& lockHome = {});
/// The same, and the lock place for a base that is about to be opened: the first such base of a process decides it.
/// Sets environment variables, which no other thread may be reading then.
void PrepareOpening(const QString& connectionString);

/// Takes part in the lock place of a base that the engine of this process is about to open; an empty guard for a base
/// of a server. Raises what `BaseGuard` raises.
BaseGuard GuardOf(const ConnectionText& base);
/// Puts right how the engine of this process has made its lock files (see LockFiles.h), once it has opened a base.
/// `Attach` does it by itself.
void SettleLocks(const ConnectionText& base);

/// How a new database is made: Windows-1252 with a collation that knows Portuguese letters, so that a search without
/// accents finds.
struct DatabaseOptions {
    int pageSize = 16384;
    QString characterSet = u"WIN1252"_s;
    QString collation = u"WIN_PTBR"_s;
    bool forcedWrites = true; ///< off only while a new base is filled
};

/// Creates an empty database at a connection string (a path, or a server's). -2147467259 when it cannot be made, also
/// when the file already exists.
void CreateDatabase(const QString& connectionString, const DatabaseOptions& options = {});
/// Turns forced writes of an existing database on or off; nobody else may have it open.
void SetForcedWrites(const QString& connectionString, bool on);

/// Lets go of a connection, and of the base's lock place behind it.
struct ReleaseGuarded {
    BaseGuard guard;
    void operator()(Firebird::IAttachment* attachment) {
        attachment->release();
        guard = {};
    }
};
using Attachment = std::unique_ptr<Firebird::IAttachment, ReleaseGuarded>;

/// True when the lock folder of this process has been removed or moved away. The engine then cannot close a base any
/// more without ending the process by an abort.
bool LocksAreGone();

/// Opens a database for the client interface itself: connections speak UTF8. -2147467259 when it cannot be opened, also
/// when the base is open with another lock place (see BaseGuard.h).
Attachment Attach(const QString& connectionString, int timeoutSeconds);

} // namespace vorta::firebird
