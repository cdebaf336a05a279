#include "bench/SqlServerCases.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/Connection.h"
#include "data/Recordset.h"
#include "odbc/ConnectionKeys.h"
#include "odbc/OdbcAdapter.h"

#include <array>
#include <memory>

#include <sql.h>
#include <sqlext.h>

namespace vorta::bench {

namespace {

using data::Recordset;
using data::Statement;

constexpr int rowsOfTable = 100'000;
constexpr int statements = 300;
const QByteArray everyRow = QByteArrayLiteral("select * from banc_medi");

/// ODBC with nothing above it: sends a text, fetches every value as a text and drops it.
class BareOdbc {
  public:
    explicit BareOdbc(const QString& connectionString) {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
        QByteArray text = odbc::OdbcConnectionString(connectionString).toUtf8();
        const SQLRETURN answer = SQLDriverConnect(connection_, nullptr, reinterpret_cast<SQLCHAR*>(text.data()),
                                                  SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
        if (!SQL_SUCCEEDED(answer))
            throw RuntimeError(errorNumber::ConnectionFailed);
    }
    ~BareOdbc() {
        SQLDisconnect(connection_);
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    }
    BareOdbc(const BareOdbc&) = delete;
    BareOdbc& operator=(const BareOdbc&) = delete;

    void send(QByteArray text) {
        SQLHANDLE statement = SQL_NULL_HANDLE;
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        if (!SQL_SUCCEEDED(SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS)))
            throw RuntimeError(errorNumber::StatementRefused);
        SQLSMALLINT columns = 0;
        SQLNumResultCols(statement, &columns);
        std::array<char, 1024> value{};
        SQLLEN length = 0;
        while (columns > 0 && SQL_SUCCEEDED(SQLFetch(statement)))
            for (SQLSMALLINT column = 1; column <= columns; ++column)
                SQLGetData(statement, static_cast<SQLUSMALLINT>(column), SQL_C_CHAR, value.data(), value.size(),
                           &length);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
    }

  private:
    SQLHANDLE environment_ = SQL_NULL_HANDLE;
    SQLHANDLE connection_ = SQL_NULL_HANDLE;
};

/// A table of 100,000 rows of ten columns on the server, and both roads to it.
class SqlServerBench {
  public:
    explicit SqlServerBench(const QString& connectionString)
        : bare(connectionString), connection([](data::Engine) { return data::MakeOdbcAdapter(); }) {
        connection.Open(data::Engine::SqlServer, connectionString);
        connection.Execute(Statement(
            "create table banc_medi (idbanc_medi integer identity(1,1) not null primary key, nome varchar(100), "
            "conhecido varchar(100), documento varchar(20), endereco varchar(100), cidade varchar(100), "
            "estado varchar(2), valor decimal(15,2), data_incl date, data_desa date)"));
        const Statement row(
            "insert into banc_medi (nome, conhecido, documento, endereco, cidade, estado, valor, data_incl) values "
            "('METALURGICA SÃO JOÃO LTDA', 'SÃO JOÃO', '11.222.333/0001-81', 'RUA DAS ACÁCIAS, 1200', 'OSASCO', 'SP', "
            "1234.56, '20261120')");
        connection.BeginTrans();
        constexpr int seeds = 100;
        for (int i = 0; i < seeds; ++i)
            connection.Execute(row);
        connection.CommitTrans();
        for (int i = seeds; i < rowsOfTable; i += seeds * 100)
            copyRows(std::min(rowsOfTable - i, seeds * 100));
    }
    ~SqlServerBench() {
        try {
            connection.Execute(Statement("drop table banc_medi"));
        } catch (const RuntimeError&) {
            // A server that went away has taken the table along.
        }
    }
    SqlServerBench(const SqlServerBench&) = delete;
    SqlServerBench& operator=(const SqlServerBench&) = delete;

    static Statement byKey(int number) {
        Statement statement;
        statement << "select * from banc_medi where idbanc_medi = " << 1 + number * 7919 % rowsOfTable;
        return statement;
    }

    BareOdbc bare;
    data::Connection connection;

  private:
    void copyRows(int count) {
        Statement copy;
        copy << "insert into banc_medi (nome, conhecido, documento, endereco, cidade, estado, valor, data_incl) select "
                "top "
             << count
             << " a.nome, a.conhecido, a.documento, a.endereco, a.cidade, a.estado, a.valor, a.data_incl from "
                "banc_medi a, banc_medi b";
        connection.Execute(copy);
    }
};

using Bench = std::shared_ptr<SqlServerBench>;

Case byKey(const Bench& bench) {
    return {u"sql server: statement by key"_s, u"us/statement"_s,
            [bench] {
                return Microseconds(statements, [&] {
                    for (int i = 0; i < statements; ++i)
                        bench->bare.send(SqlServerBench::byKey(i).text().toUtf8());
                });
            },
            [bench] {
                return Microseconds(statements, [&] {
                    Recordset rows;
                    for (int i = 0; i < statements; ++i) {
                        rows.Open(SqlServerBench::byKey(i), bench->connection);
                        (void)rows.Fields(0).text();
                    }
                });
            },
            1.2};
}

Case fetch(const Bench& bench) {
    return {u"sql server: 100,000 rows of 10 columns fetched"_s, u"us/row"_s,
            [bench] { return Microseconds(rowsOfTable, [&] { bench->bare.send(everyRow); }); },
            [bench] {
                return Microseconds(rowsOfTable, [&] {
                    Recordset rows;
                    rows.Open(Statement("select * from banc_medi"), bench->connection);
                    if (rows.RecordCount() != rowsOfTable)
                        throw RuntimeError(errorNumber::StatementRefused);
                });
            },
            1.5};
}

} // namespace

std::vector<Case> SqlServerCases() {
    const QString connectionString = qEnvironmentVariable("VORTA_TEST_SQLSERVER");
    if (connectionString.isEmpty())
        return {};
    const Bench bench = std::make_shared<SqlServerBench>(connectionString);
    return {byKey(bench), fetch(bench)};
}

} // namespace vorta::bench
