#pragma once

#include "base/RuntimeError.h"

#include <QSqlDatabase>
#include <QSqlQuery>

namespace vorta::data {

/// The failure of opening a connection: always -2147467259, whether the server is absent, silent or refuses the user.
RuntimeError OpenFailure(const QSqlDatabase& database);
/// The failure of a statement, by the diagnostic records of its handle: class 08 is a lost connection, 23 a constraint,
/// the rest a refusal.
RuntimeError StatementFailure(const QSqlQuery& query, const QString& statement);
/// The failure of a transaction's start or end, by the records of the connection.
RuntimeError TransactionFailure(const QSqlDatabase& database);

} // namespace vorta::data
