#pragma once

#include <QString>

namespace vorta {

/// A line of "server.ini" or "server_cep.ini": seven fields divided by "^", which every program of the ERP reads alike.
/// The line as a whole is trimmed, its fields stand as written; a field that is not there is ".".
struct ServerLine {
    explicit ServerLine(const QString& line);

    QString server;
    QString database;
    QString user;
    QString password;
    QString engine;             ///< the engine tag as written
    QString firebirdConnection; ///< a whole connection string, for the tag "FIREBIRD" alone
    QString keepsAccents;       ///< a text that converts to a boolean
    bool complete = false;      ///< all seven fields are there

    /// The engine tag in force: an empty field means "MS-SQL".
    QString tag() const;
    /// The line as it is written, each field closed.
    QString text() const;
};

} // namespace vorta
