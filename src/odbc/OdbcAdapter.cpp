#include "odbc/OdbcAdapter.h"

#include "odbc/ConnectionKeys.h"
#include "odbc/Diagnostics.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTimeZone>
#include <atomic>

namespace vorta::odbc {

namespace {

using data::Adapter;
using data::Decimal;
using data::RowSink;
using data::Statement;

/// What the register expects of every session: year-first dates with slashes, and a lock that ends in an error, not in
/// a hanging window.
const QString sessionSettings = QStringLiteral("SET DATEFORMAT ymd SET LOCK_TIMEOUT 5000");

QString freshName() {
    static std::atomic<int> count = 0;
    return QStringLiteral("vorta_odbc_%1").arg(++count);
}

/// The exact value of the driver's text "-1234.50"; a number too long for 64 bits overflows. Only a float has an
/// exponent.
Decimal toDecimal(const QString& text) {
    if (text.contains(u'e', Qt::CaseInsensitive))
        return toDecimal(QString::number(text.toDouble(), 'f', QLocale::FloatingPointShortest));
    const qsizetype point = text.indexOf(u'.');
    QString digits = text;
    if (point >= 0)
        digits.remove(point, 1);
    bool fits = false;
    const qint64 unscaled = digits.toLongLong(&fits);
    if (!fits)
        throw RuntimeError(errorNumber::Overflow);
    return {unscaled, point < 0 ? 0 : static_cast<int>(text.size() - point - 1)};
}

void sendValue(const QVariant& value, bool exact, RowSink& rows) {
    if (value.isNull())
        return rows.null();
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return rows.integer(value.toLongLong());
    case QMetaType::Double:
        return rows.decimal(toDecimal(QString::number(value.toDouble(), 'f', QLocale::FloatingPointShortest)));
    case QMetaType::QDate:
        return rows.date(value.toDate().startOfDay());
    case QMetaType::QDateTime:
        return rows.date(value.toDateTime());
    default:
        if (exact)
            return rows.decimal(toDecimal(value.toString()));
        return rows.text(value.toString().toUtf8().toStdString());
    }
}

class OdbcAdapter final : public Adapter {
  public:
    ~OdbcAdapter() override { disconnect(); }

    void open(const QString& connectionString, int timeoutSeconds) override {
        disconnect();
        name_ = freshName();
        database_ = QSqlDatabase::addDatabase(QStringLiteral("QODBC"), name_);
        database_.setDatabaseName(OdbcConnectionString(connectionString));
        database_.setConnectOptions(
            QStringLiteral("SQL_ATTR_ODBC_VERSION=SQL_OV_ODBC3;SQL_ATTR_LOGIN_TIMEOUT=%1").arg(timeoutSeconds));
        database_.setNumericalPrecisionPolicy(QSql::HighPrecision);
        if (!database_.open()) {
            const RuntimeError failure = OpenFailure(database_);
            disconnect();
            throw failure;
        }
        send(sessionSettings);
    }

    void close() override { disconnect(); }

    bool isOpen() const override { return database_.isOpen(); }

    void begin() override {
        if (!database_.transaction())
            throw TransactionFailure(database_);
        inTransaction_ = true;
    }

    void commit() override {
        if (!database_.commit())
            throw TransactionFailure(database_);
        inTransaction_ = false;
    }

    void execute(const Statement& statement) override { send(statement.text()); }

    void query(const Statement& statement, RowSink& rows) override {
        QSqlQuery query = send(statement.text());
        const QSqlRecord record = query.record();
        QStringList names;
        std::vector<bool> exact;
        for (int column = 0; column < record.count(); ++column) {
            names << record.fieldName(column);
            exact.push_back(record.field(column).metaType().id() == QMetaType::Double);
        }
        rows.columns(names);
        while (query.next()) {
            rows.beginRow();
            for (int column = 0; column < record.count(); ++column)
                sendValue(query.value(column), exact[static_cast<size_t>(column)], rows);
            rows.endRow();
        }
        if (query.lastError().isValid())
            throw StatementFailure(database_, query, statement.text());
    }

  private:
    QSqlQuery send(const QString& text) {
        QSqlQuery query(database_);
        query.setForwardOnly(true);
        if (!query.exec(text))
            throw StatementFailure(database_, query, text);
        return query;
    }

    void disconnect() {
        if (inTransaction_)
            database_.rollback();
        inTransaction_ = false;
        database_.close();
        database_ = {};
        if (!name_.isEmpty())
            QSqlDatabase::removeDatabase(name_);
        name_.clear();
    }

    QSqlDatabase database_;
    QString name_;
    bool inTransaction_ = false;
};

} // namespace

std::unique_ptr<data::Adapter> MakeOdbcAdapter() {
    return std::make_unique<OdbcAdapter>();
}

} // namespace vorta::odbc
