#include "odbc/OdbcAdapter.h"

#include "odbc/ConnectionKeys.h"
#include "odbc/Diagnostics.h"
#include "odbc/RowReader.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <atomic>

namespace vorta::odbc {

namespace {

using data::Adapter;
using data::RowSink;
using data::Statement;

/// What the register expects of every session: year-first dates with slashes, and a lock that ends in an error, not in
/// a hanging window.
const QString sessionSettings = QStringLiteral("SET DATEFORMAT ymd SET LOCK_TIMEOUT 5000");

QString freshName() {
    static std::atomic<int> count = 0;
    return QStringLiteral("vorta_odbc_%1").arg(++count);
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
        RowReader reader(query);
        rows.columns(reader.names());
        while (query.next())
            if (!reader.send(rows))
                throw StatementFailure(database_, query, statement.text());
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

} // namespace vorta::odbc

namespace vorta::data {

std::unique_ptr<Adapter> MakeOdbcAdapter() {
    return std::make_unique<odbc::OdbcAdapter>();
}

} // namespace vorta::data
