#include "odbc/Diagnostics.h"

#include "base/Literals.h"

#include <QSqlError>
#include <array>

#include <sql.h>
#include <sqlext.h>

namespace vorta::odbc {

namespace {

struct Diagnosis {
    QString sqlState;
    int engineCode = 0;
    QString description;
};

/// A statement that meets a lost connection may come back with an unknown error: the connection itself says whether it
/// is dead.
bool isDead(SQLHANDLE connection) {
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttr(connection, SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr)) &&
           dead == SQL_CD_TRUE;
}

int numberOf(const Diagnosis& found, SQLHANDLE connection) {
    if (found.sqlState.startsWith(u"08") || isDead(connection))
        return errorNumber::ConnectionFailed;
    if (found.sqlState.startsWith(u"23"))
        return errorNumber::ConstraintViolated;
    return errorNumber::StatementRefused;
}

/// The engine's words without the names of the layers that carried them, "[FreeTDS][SQL Server]".
QString withoutLayers(QString text) {
    while (text.startsWith(u'[') && text.contains(u']'))
        text.remove(0, text.indexOf(u']') + 1);
    return text.trimmed();
}

bool record(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number, Diagnosis& found) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 2048> text{};
    SQLINTEGER code = 0;
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLGetDiagRecW(kind, handle, number, state.data(), &code, text.data(),
                                      static_cast<SQLSMALLINT>(text.size()), &length)))
        return false;
    found = {QString::fromUtf16(reinterpret_cast<const char16_t*>(state.data())), code,
             withoutLayers(QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data())))};
    return true;
}

/// The cause is the first record that is more than a warning.
Diagnosis cause(SQLSMALLINT kind, SQLHANDLE handle) {
    Diagnosis found;
    Diagnosis next;
    for (SQLSMALLINT number = 1; record(kind, handle, number, next); ++number) {
        found = next;
        if (!next.sqlState.startsWith(u"01"))
            break;
    }
    return found;
}

/// Of a lost connection the driver says little ("Unknown error"): the standard words say more.
RuntimeError failure(const Diagnosis& found, SQLHANDLE connection, const QString& statement) {
    const int number = numberOf(found, connection);
    const QString words = number == errorNumber::ConnectionFailed ? QString() : found.description;
    return RuntimeError(number, words, found.engineCode, found.sqlState, statement);
}

} // namespace

RuntimeError OpenFailure(const QSqlDatabase& database) {
    // Qt frees the handle of a failed connection: what is left are the words of all records, the cause first.
    const QString words = withoutLayers(database.lastError().databaseText());
    return RuntimeError(errorNumber::ConnectionFailed,
                        words.section(u" [FreeTDS]"_s, 0, 0).section(u" [Microsoft]"_s, 0, 0));
}

RuntimeError StatementFailure(void* connection, void* statement, const QString& text) {
    return failure(cause(SQL_HANDLE_STMT, statement), connection, text);
}

RuntimeError TransactionFailure(void* connection) {
    return failure(cause(SQL_HANDLE_DBC, connection), connection, {});
}

} // namespace vorta::odbc
