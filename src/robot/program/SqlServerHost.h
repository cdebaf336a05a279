#pragma once

#include "base/Literals.h"
#include "kit/Schema.h"
#include "robot/Stage.h"

#include <QJsonArray>
#include <optional>

namespace vorta::robot {

/// The rows of one table as they move. Texts, whole numbers and nulls stand as such; an amount is the text "12.50", a
/// day "2026-11-20".
struct TableRows {
    const kit::Table& table;
    QJsonArray columns;
    QJsonArray rows;
    std::optional<qint64> lastKey; ///< the last key that the database has given, where it gives them
};

/// What a configuration line needs to reach a database of SQL Server.
struct SqlServerLogin {
    QString server;
    QString user;
    QString password;
    QString database;

    QString connectionString() const {
        return u"driver={SQL Server};server=%1;uid=%2;pwd=%3;database=%4"_s.arg(server, user, password, database);
    }
};

/// A SQL Server that takes over the databases of one scenario.
class SqlServerHost {
  public:
    virtual ~SqlServerHost() = default;
    /// Takes the rows of a table of one database; every table once, for one database behind the other. Raises `Failure`
    /// when there is no room for the database, and the engine's error.
    virtual void take(Base base, const TableRows& rows) = 0;
    /// Opens the databases whose rows have come since the last time. Raises the engine's error, or
    /// `std::runtime_error`.
    virtual void open() = 0;
    /// True where the databases stand already, with the rows of the installation: none is taken over.
    virtual bool holdsAll() const { return false; }
    /// How to reach an open database.
    virtual SqlServerLogin login(Base base) const = 0;
};

/// The name of a database on a server that has one for each.
QString DatabaseOf(Base base);

/// The kind of tables that a database has.
inline kit::Base KindOf(Base base) {
    return base == Base::PostalCode ? kit::Base::PostalCode : kit::Base::Main;
}

} // namespace vorta::robot
