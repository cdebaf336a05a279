#pragma once

#include "base/Literals.h"
#include "firebird/Client.h"

#include <QString>

/// The engine that runs inside this process: its root folder, and new databases.
namespace vorta::firebird {

/// Makes `home`/firebird the root of the embedded engine (configuration, lock files), in mode Classic so that several
/// programs open the same base at once. Works once per process, before the first connection; later calls change
/// nothing. Without an argument the home is `VORTA_HOME`, or the standard place of an installation.
void PrepareEmbeddedEngine(const QString& home = {});

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

/// Opens a database for the client interface itself: connections speak UTF8. -2147467259 when it cannot be opened.
Handle<Firebird::IAttachment> Attach(const QString& connectionString, int timeoutSeconds);

} // namespace vorta::firebird
