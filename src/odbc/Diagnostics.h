#pragma once

#include "base/RuntimeError.h"

#include <QSqlDatabase>

/// Failures of the ODBC driver as the program's one exception.
namespace vorta::odbc {

/// The failure of opening a connection: always -2147467259, whether the server is absent, silent or refuses the user.
RuntimeError OpenFailure(const QSqlDatabase& database);
/// The failure of a statement, by the diagnostic records of its handle: -2147467259 for SQLSTATE class 08 or a dead
/// connection, -2147217873 for class 23, -2147217900 for the rest.
RuntimeError StatementFailure(void* connection, void* statement, const QString& text);
/// The failure of a transaction's start or end, by the records of the connection.
RuntimeError TransactionFailure(void* connection);

} // namespace vorta::odbc
