#include "odbc/OdbcAdapter.h"

#include "base/Literals.h"
#include "data/NamedColumns.h"
#include "odbc/ConnectionKeys.h"
#include "odbc/Diagnostics.h"
#include "odbc/RowReader.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <atomic>

#include <sql.h>
#include <sqlext.h>

namespace vorta::odbc {

namespace {

using data::Adapter;
using data::RowSink;
using data::Statement;

/// What the register expects of every session: year-first dates with slashes, and a lock that ends in an error, not in
/// a hanging window.
const QString sessionSettings = u"SET DATEFORMAT ymd SET LOCK_TIMEOUT 5000"_s;

const QString columnNotFound = u"42S22"_s;

QString freshName() {
    static std::atomic<int> count = 0;
    return u"vorta_odbc_%1"_s.arg(++count);
}

struct FreeStatement {
    void operator()(SQLHANDLE statement) const { SQLFreeHandle(SQL_HANDLE_STMT, statement); }
};
using Handle = std::unique_ptr<void, FreeStatement>;

class OdbcAdapter final : public Adapter {
  public:
    explicit OdbcAdapter(const DriverForm& driver) : driver_(driver) {}
    ~OdbcAdapter() override { disconnect(); }

    void open(const QString& connectionString, int timeoutSeconds) override {
        disconnect();
        name_ = freshName();
        database_ = QSqlDatabase::addDatabase(u"QODBC"_s, name_);
        database_.setDatabaseName(OdbcConnectionString(connectionString, driver_));
        database_.setConnectOptions(
            u"SQL_ATTR_ODBC_VERSION=SQL_OV_ODBC3;SQL_ATTR_LOGIN_TIMEOUT=%1"_s.arg(timeoutSeconds));
        if (!database_.open()) {
            const RuntimeError failure = OpenFailure(database_);
            disconnect();
            throw failure;
        }
        run(sessionSettings);
    }

    void close() override { disconnect(); }

    bool isOpen() const override { return database_.isOpen(); }

    void begin() override {
        requireTransaction(false);
        if (!database_.transaction())
            throw TransactionFailure(connection());
        inTransaction_ = true;
    }

    void commit() override {
        requireTransaction(true);
        if (!database_.commit())
            throw TransactionFailure(connection());
        inTransaction_ = false;
    }

    void rollback() override {
        requireTransaction(true);
        if (!database_.rollback())
            throw TransactionFailure(connection());
        inTransaction_ = false;
    }

    void execute(const Statement& statement) override {
        const Handle handle = run(statement.text());
        SQLRETURN answer = SQL_NO_DATA;
        while (SQL_SUCCEEDED(answer = SQLMoreResults(handle.get()))) { // an error may stand behind the first result
        }
        if (answer != SQL_NO_DATA)
            throw StatementFailure(connection(), handle.get(), statement.text());
    }

    void query(const Statement& statement, RowSink& rows) override {
        const Handle handle = ask(statement, rows);
        RowReader reader(handle.get(), driver_);
        rows.columns(reader.names());
        if (!reader.send(rows))
            throw StatementFailure(connection(), handle.get(), statement.text());
    }

  private:
    /// The driver keeps silent about a second begin and about a commit of nothing.
    void requireTransaction(bool open) const {
        if (inTransaction_ != open)
            throw RuntimeError(errorNumber::StatementRefused, open ? u"Não há transação aberta nesta conexão"_s
                                                                   : u"Já existe uma transação aberta nesta conexão"_s);
    }

    SQLHANDLE connection() const { return *static_cast<const SQLHANDLE*>(database_.driver()->handle().constData()); }

    /// With the wanted columns alone where that can be said. A table without one of them is asked for all: what is not
    /// there is then found missing where it is read.
    Handle ask(const Statement& statement, const RowSink& rows) {
        if (const std::optional<Statement> narrow = data::OnlyColumns(statement, rows.wanted())) {
            try {
                return run(narrow->text());
            } catch (const RuntimeError& failure) {
                if (failure.sqlState() != columnNotFound)
                    throw RuntimeError(failure.number(), failure.description(), failure.engineCode(),
                                       failure.sqlState(), statement.text());
            }
        }
        return run(statement.text());
    }

    /// Qt's own query would describe every column four times over and keep no SQLSTATE: statements go to the driver
    /// directly.
    Handle run(const QString& text) {
        if (!database_.isOpen())
            throw RuntimeError(errorNumber::ConnectionFailed);
        SQLHANDLE made = SQL_NULL_HANDLE;
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection(), &made)))
            throw TransactionFailure(connection());
        Handle handle(made);
        std::u16string units = text.toStdU16String();
        const SQLRETURN answer =
            SQLExecDirectW(made, reinterpret_cast<SQLWCHAR*>(units.data()), static_cast<SQLINTEGER>(units.size()));
        if (!SQL_SUCCEEDED(answer) && answer != SQL_NO_DATA) // a write that meets no row tells so
            throw StatementFailure(connection(), made, text);
        return handle;
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

    DriverForm driver_;
    QSqlDatabase database_;
    QString name_;
    bool inTransaction_ = false;
};

} // namespace

} // namespace vorta::odbc

namespace vorta::data {

std::unique_ptr<Adapter> MakeOdbcAdapter() {
    return MakeOdbcAdapterFor(odbc::DriverOfThisSystem());
}

std::unique_ptr<Adapter> MakeOdbcAdapterFor(const odbc::DriverForm& driver) {
    return std::make_unique<odbc::OdbcAdapter>(driver);
}

} // namespace vorta::data
