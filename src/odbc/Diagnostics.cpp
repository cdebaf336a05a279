#include "odbc/Diagnostics.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlResult>
#include <array>

#include <sql.h>
#include <sqlext.h>

namespace vorta::data {

namespace {

struct Diagnosis {
    QString sqlState;
    int engineCode = 0;
    QString description;
};

int numberOf(const QString& sqlState) {
    if (sqlState.startsWith(u"08"))
        return errorNumber::ConnectionFailed;
    if (sqlState.startsWith(u"23"))
        return errorNumber::ConstraintViolated;
    return errorNumber::StatementRefused;
}

/// The engine's words without the names of the layers that carried them, "[FreeTDS][SQL Server]".
QString withoutLayers(QString text) {
    while (text.startsWith(u'[') && text.contains(u']'))
        text.remove(0, text.indexOf(u']') + 1);
    return text.trimmed();
}

/// The first record is the cause; Qt's own error keeps no SQLSTATE, so the handle is asked.
Diagnosis firstRecord(SQLSMALLINT kind, const QVariant& handle, const QSqlError& fallback) {
    Diagnosis found{{}, fallback.nativeErrorCode().section(u';', 0, 0).toInt(), withoutLayers(fallback.databaseText())};
    if (!handle.isValid())
        return found;
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 2048> text{};
    SQLINTEGER code = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN answer = SQLGetDiagRecW(kind, *static_cast<const SQLHANDLE*>(handle.constData()), 1, state.data(),
                                            &code, text.data(), static_cast<SQLSMALLINT>(text.size()), &length);
    if (!SQL_SUCCEEDED(answer))
        return found;
    found.sqlState = QString::fromUtf16(reinterpret_cast<const char16_t*>(state.data()));
    found.engineCode = code;
    found.description = withoutLayers(QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data())));
    return found;
}

} // namespace

RuntimeError OpenFailure(const QSqlDatabase& database) {
    const QSqlError error = database.lastError();
    return RuntimeError(errorNumber::ConnectionFailed, withoutLayers(error.databaseText()),
                        error.nativeErrorCode().section(u';', 0, 0).toInt(), {}, {});
}

RuntimeError StatementFailure(const QSqlQuery& query, const QString& statement) {
    const Diagnosis found = firstRecord(SQL_HANDLE_STMT, query.result()->handle(), query.lastError());
    return RuntimeError(numberOf(found.sqlState), found.description, found.engineCode, found.sqlState, statement);
}

RuntimeError TransactionFailure(const QSqlDatabase& database) {
    const Diagnosis found = firstRecord(SQL_HANDLE_DBC, database.driver()->handle(), database.lastError());
    return RuntimeError(numberOf(found.sqlState), found.description, found.engineCode, found.sqlState, {});
}

} // namespace vorta::data
