#pragma once

#include <QString>

namespace vorta::firebird {

/// A connection string taken apart: where the database is and who asks.
struct ConnectionText {
    QString database; ///< as the client library takes it: "path", "host:path" or "host/port:path"
    QString user;
    QString password;
    QString role;
    bool embedded = false; ///< a file opened by this process itself, without a server
    QString server;        ///< the part of `database` in front of the path, with its separator; empty without a server
    QString path;          ///< the rest of it: the file or alias as the machine knows it that has it

    /// Another thing at the same place, as the client library takes it.
    QString beside(const QString& name) const { return server + name; }
    /// The connection string of another database at the same place, for the same user.
    QString of(const QString& otherPath) const;
};

/// Reads "key=value;..." in the spellings that Firebird drivers know (Database, DBNAME, Data Source, Initial Catalog;
/// Server, Host; Port; User, UID, User ID; Password, PWD; Role), any other key being ignored, or a bare database path.
/// Raises -2147467259 when it names no database.
ConnectionText ReadConnectionText(const QString& text);

} // namespace vorta::firebird
