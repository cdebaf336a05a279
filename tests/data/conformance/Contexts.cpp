#include "data/conformance/Contexts.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/Recordset.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "odbc/OdbcAdapter.h"
#include "servers/FirebirdServer.h"

#include <QDir>
#include <QTemporaryDir>
#include <map>
#include <ostream>

namespace vorta::test {

namespace {

using data::Engine;
using data::Statement;
using servers::FirebirdServer;

/// The folder of this process's databases, gone with it.
const QTemporaryDir& folder() {
    static const QTemporaryDir made;
    return made;
}

/// The Firebird server of this run, started at its first use.
const FirebirdServer& server() {
    static const FirebirdServer started;
    return started;
}

std::vector<Statement> firebirdTables() {
    return {Statement("create table pess (idpess integer not null primary key, idclie integer, nome varchar(60), "
                      "sigla char(3), cep varchar(8), data_incl date, momento timestamp, valor decimal(15,2), "
                      "peso double precision, obse blob sub_type text)"),
            Statement("create table clie (idclie integer not null primary key, idpess integer)"),
            Statement("create table arqt (idarqt integer not null primary key, nome varchar(60))"),
            Statement("create table logr (nome varchar(60), cep varchar(8))"),
            Statement("create generator gen_arqt"),
            Statement("create trigger arqt_key for arqt before insert as begin "
                      "if (new.idarqt is null) then new.idarqt = gen_id(gen_arqt, 1); end")};
}

std::vector<Statement> sqlServerTables() {
    return {Statement("create table pess (idpess integer not null primary key, idclie integer, nome varchar(60), "
                      "sigla char(3), cep varchar(8), data_incl date, momento datetime2(3), valor decimal(15,2), "
                      "peso float, obse varchar(max))"),
            Statement("create table clie (idclie integer not null primary key, idpess integer)"),
            Statement("create table arqt (idarqt integer identity not null primary key, nome varchar(60))"),
            Statement("create table logr (nome varchar(60), cep varchar(8))")};
}

EngineContext embeddedFirebird() {
    return {.name = "FirebirdEmbedded",
            .engine = Engine::Firebird,
            .adapter = [] { return data::MakeFirebirdAdapter(); },
            .connectionString =
                [] {
                    const QString text = u"Database="_s + folder().filePath(u"embedded.fdb"_s);
                    firebird::CreateDatabase(text);
                    return text;
                },
            .unusable =
                [] {
                    return QStringList{QString(), u"User=a"_s, u"Database="_s + folder().filePath(u"missing.fdb"_s),
                                       u"Database="_s + folder().path()};
                },
            .tables = firebirdTables(),
            .afterwards = {},
            .keyMayBeGiven = true};
}

EngineContext firebirdServer() {
    return {.name = "FirebirdServer",
            .engine = Engine::Firebird,
            .adapter = [] { return data::MakeFirebirdAdapter(); },
            .connectionString =
                [] {
                    const QString text = server().connectionString(u"server.fdb"_s);
                    firebird::CreateDatabase(text);
                    return text;
                },
            .unusable =
                [] {
                    const FirebirdServer& shared = server();
                    return QStringList{shared.connectionString(u"missing.fdb"_s),
                                       shared.connectionString(u"server.fdb"_s) + u";password=wrong"_s,
                                       u"Server=127.0.0.1;Port=1;Database=/x.fdb;UID=A;PWD=B"_s};
                },
            .tables = firebirdTables(),
            .afterwards = {},
            .keyMayBeGiven = true};
}

EngineContext sqlServer(const QString& connectionString) {
    return {.name = "SqlServer",
            .engine = Engine::SqlServer,
            .adapter = data::MakeOdbcAdapter,
            .connectionString = [connectionString] { return connectionString; },
            .unusable = [] { return QStringList{u"driver={SQL Server};server=127.0.0.1,1;uid=a;pwd=b;database=c"_s}; },
            .tables = sqlServerTables(),
            .afterwards = {Statement("drop table pess"), Statement("drop table clie"), Statement("drop table arqt"),
                           Statement("drop table logr")},
            .keyMayBeGiven = false};
}

/// The connection strings of the engines that this run has used, by name.
std::map<std::string, QString>& usedEngines() {
    static std::map<std::string, QString> texts;
    return texts;
}

/// Makes the tables at the first use of an engine and gives its connection string from then on.
const QString& prepared(const EngineContext& context) {
    std::map<std::string, QString>& texts = usedEngines();
    const auto known = texts.find(context.name);
    if (known != texts.end())
        return known->second;
    const QString text = context.connectionString();
    data::Connection connection([&](Engine) { return context.adapter(); });
    connection.Open(context.engine, text);
    for (const Statement& table : context.tables)
        connection.Execute(table);
    return texts[context.name] = text;
}

} // namespace

const std::vector<EngineContext>& EngineContexts() {
    static const std::vector<EngineContext> contexts = [] {
        std::vector made{embeddedFirebird(), firebirdServer()};
        if (const QString odbc = qEnvironmentVariable("VORTA_TEST_SQLSERVER"); !odbc.isEmpty())
            made.push_back(sqlServer(odbc));
        return made;
    }();
    return contexts;
}

std::string NameOf(const testing::TestParamInfo<EngineContext>& test) {
    return test.param.name;
}

void PrintTo(const EngineContext& context, std::ostream* out) {
    *out << context.name;
}

void Afterwards::TearDown() {
    for (const EngineContext& context : EngineContexts()) {
        const auto used = usedEngines().find(context.name);
        if (used == usedEngines().end() || context.afterwards.empty())
            continue;
        data::Connection connection([&context](Engine) { return context.adapter(); });
        connection.Open(context.engine, used->second);
        for (const Statement& statement : context.afterwards)
            connection.Execute(statement);
    }
}

void ConformanceTest::SetUp() {
    prepared(GetParam());
    connection = connect();
    for (const Statement& statement : {Statement("delete from pess"), Statement("delete from clie"),
                                       Statement("delete from arqt"), Statement("delete from logr")})
        connection->Execute(statement);
}

std::unique_ptr<data::Connection> ConformanceTest::connect() const {
    const EngineContext& context = GetParam();
    auto made = std::make_unique<data::Connection>([&context](Engine) { return context.adapter(); });
    made->Open(context.engine, prepared(context));
    return made;
}

std::unique_ptr<data::Adapter> ConformanceTest::bare() const {
    std::unique_ptr<data::Adapter> adapter = GetParam().adapter();
    constexpr int timeout = 15;
    adapter->open(prepared(GetParam()), timeout);
    return adapter;
}

QString ConformanceTest::one(data::Connection& connection, const Statement& statement) {
    data::Recordset rows;
    rows.Open(statement, connection);
    return rows.Eof() ? u"(none)"_s : rows.Fields(0).textOr(u"(null)"_s);
}

} // namespace vorta::test
