#include "odbc/OdbcAdapter.h"
#include "base/Literals.h"
#include "base/Moment.h"

#include "base/RuntimeError.h"
#include "data/EngineTags.h"
#include "odbc/ConnectionKeys.h"
#include "odbc/SampleServer.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

using data::Adapter;
using data::Decimal;
using data::EngineTag;
using data::EngineTags;
using data::MakeOdbcAdapter;
using data::Statement;
using data::Value;
using odbc::OdbcConnectionString;
using servers::TdsServer;

constexpr int patience = 10;

/// Keeps what a query gives.
class Rows : public data::RowSink {
  public:
    void columns(const QStringList& columnNames) override { names = columnNames; }
    void beginRow() override { rows.emplace_back(); }
    void null() override { rows.back().emplace_back(); }
    void integer(qint64 value) override { rows.back().emplace_back(value); }
    void decimal(Decimal value) override { rows.back().emplace_back(value); }
    void text(std::string_view utf8) override {
        rows.back().emplace_back(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
    }
    void date(const QDateTime& value) override { rows.back().emplace_back(value); }
    void endRow() override { ++ended; }

    QStringList names;
    std::vector<std::vector<Value>> rows;
    size_t ended = 0;
};

Value text(const char* utf8) {
    return QString::fromUtf8(utf8);
}
Value number(qint64 value) {
    return value;
}
Value day(int year, int month, int date) {
    return Moment(QDate(year, month, date));
}

Rows read(Adapter& adapter, const Statement& statement) {
    Rows rows;
    adapter.query(statement, rows);
    EXPECT_EQ(rows.ended, rows.rows.size());
    return rows;
}

Value single(Adapter& adapter, const Statement& statement) {
    return read(adapter, statement).rows.at(0).at(0);
}

template <typename Action>
RuntimeError failureOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return RuntimeError(0);
}

std::unique_ptr<Adapter> opened(const TdsServer& server) {
    auto adapter = MakeOdbcAdapter();
    adapter->open(server.connectionString(), patience);
    return adapter;
}

RuntimeError openFailure(const QString& connectionString, int timeout = patience) {
    auto adapter = MakeOdbcAdapter();
    const RuntimeError failure = failureOf([&] { adapter->open(connectionString, timeout); });
    EXPECT_FALSE(adapter->isOpen());
    return failure;
}

const Statement nameOfThird("SELECT NOME_CONH FROM PESS WHERE idPESS = 3");
const Statement renameThird("UPDATE PESS SET NOME_CONH = 'NOVO' WHERE idPESS = 3");

} // namespace

TEST(ConnectionKeys, EveryFormSaysTheSame) {
    const QString expected =
        u"DRIVER={FreeTDS};TDS_VERSION=7.4;CLIENTCHARSET=UTF-8;SERVER={srv};PORT={1433};UID={me};PWD={p=w}d};"
        "DATABASE={erp};"_s;
    int forms = 0;
    for (const EngineTag& tag : EngineTags()) {
        if (tag.engine != data::Engine::SqlServer)
            continue;
        ++forms;
        QStringList parts =
            OdbcConnectionString(QString::fromLatin1(tag.form).arg(u"srv"_s, u"me"_s, u"p=w}d"_s, u"erp"_s))
                .split(u';');
        QStringList same = expected.split(u';');
        parts.sort();
        same.sort();
        EXPECT_EQ(parts, same) << tag.tag;
    }
    EXPECT_EQ(forms, 5);
}

TEST(ConnectionKeys, DriversOfWindowsAreNamedThere) {
    QStringList forms;
    for (const EngineTag& tag : EngineTags())
        if (tag.engine == data::Engine::SqlServer)
            forms << OdbcConnectionString(
                QString::fromLatin1(tag.form).arg(u" srv,1500"_s, u"me"_s, u"p=w}d"_s, u"erp"_s), odbc::microsoft);
    const QString plain = u"DRIVER={SQL Server};SERVER={srv,1500};UID={me};PWD={p=w}}d};DATABASE={erp};"_s;
    ASSERT_EQ(forms.size(), 5);
    EXPECT_EQ(forms[0], plain);
    EXPECT_EQ(forms[1], plain);
    const QString native = u"DRIVER={%1};SERVER={srv,1500};DATABASE={erp};UID={me};PWD={p=w}}d};"_s;
    EXPECT_EQ(forms[2], native.arg(u"SQL Native Client"_s));
    EXPECT_EQ(forms[3], native.arg(u"SQL Server Native Client 10.0"_s));
    EXPECT_EQ(forms[4], u"DRIVER={SQL Server};SERVER={srv,1500};DATABASE={erp};UID={me};PWD={p=w}}d};"_s);
}

TEST(ConnectionKeys, ServersHaveManyNames) {
    const auto server = [](const char* name) {
        return OdbcConnectionString(u"server="_s + QString::fromLatin1(name)).section(u';', 3);
    };
    EXPECT_EQ(server("srv"), u"SERVER={srv};PORT={1433};");
    EXPECT_EQ(server(" srv, 14330"), u"SERVER={srv};PORT={14330};");
    EXPECT_EQ(server("tcp:srv,1500"), u"SERVER={srv};PORT={1500};");
    EXPECT_EQ(server("srv\\vorta"), u"SERVER={srv\\vorta};");
    EXPECT_EQ(server("(local)"), u"SERVER={localhost};PORT={1433};");
    EXPECT_EQ(server("."), u"SERVER={localhost};PORT={1433};");
}

TEST(OdbcAdapter, OpensWithEveryForm) {
    const QString password = u"s}e{c=r t"_s;
    const SampleServer server({u"--password"_s, password});
    for (const EngineTag& tag : EngineTags()) {
        if (tag.engine != data::Engine::SqlServer)
            continue;
        auto adapter = MakeOdbcAdapter();
        adapter->open(server.connectionString(tag.form, password), patience);
        EXPECT_TRUE(adapter->isOpen()) << tag.tag;
        adapter->close();
        EXPECT_FALSE(adapter->isOpen());
    }
    EXPECT_EQ(server.trace().filter(u"LOGIN vorta VORTA 74"_s).size(), 5);
}

/// The test driver, asked as one that gives no UTF-8 is.
constexpr odbc::DriverForm askedForUtf16{odbc::freeTds.settings, true, false, false};

TEST(OdbcAdapter, ReadsEveryType) {
    const SampleServer server;
    for (const odbc::DriverForm& driver : {odbc::freeTds, askedForUtf16}) {
        auto adapter = data::MakeOdbcAdapterFor(driver);
        adapter->open(server.connectionString(), patience);
        const Rows rows = read(*adapter, Statement("SELECT * FROM PESS ORDER BY idPESS"));
        EXPECT_EQ(rows.names.mid(0, 3), QStringList({u"idPESS"_s, u"NOME_PESS"_s, u"NOME_CONH"_s}));
        ASSERT_EQ(rows.rows.size(), 3);
        const std::vector<Value> first{
            number(1), text("JOÃO DA SILVA"),    text("JOÃO"), text("A1"), day(2026, 11, 20), {}, Decimal{123450, 2},
            number(3), number(9007199254740993), text("ação"), number(1)};
        EXPECT_EQ(rows.rows[0], first);
        EXPECT_EQ(rows.rows[1][5], day(2026, 11, 19));
        EXPECT_EQ(rows.rows[1][6], Value(Decimal{-5, 2}));
        EXPECT_EQ(rows.rows[1][7], number(-7));
        EXPECT_EQ(rows.rows[2][1], text("ANDRÉ – 100€"));
        for (size_t column = 2; column < rows.rows[2].size(); ++column)
            EXPECT_TRUE(rows.rows[2][column].isNull()) << column;
    }
}

TEST(OdbcAdapter, ReadsNothingFromAnEmptyResult) {
    const SampleServer server;
    auto adapter = opened(server);
    const Rows rows = read(*adapter, Statement("SELECT NOME_PESS FROM PESS WHERE idPESS = 99"));
    EXPECT_EQ(rows.names, QStringList(u"NOME_PESS"_s));
    EXPECT_TRUE(rows.rows.empty());
}

TEST(OdbcAdapter, SendsTextsAsTheyStand) {
    const SampleServer server;
    auto adapter = opened(server);
    adapter->execute(Statement("UPDATE PESS SET NOME_CONH = 'ÇÃÉ €' WHERE idPESS = 3"));
    EXPECT_EQ(single(*adapter, nameOfThird), text("ÇÃÉ €"));
    EXPECT_EQ(single(*adapter, Statement("SELECT COUNT(*) 'QT' FROM PESS")), number(3));
    EXPECT_TRUE(server.trace().contains(u"UPDATE PESS SET NOME_CONH = 'ÇÃÉ €' WHERE idPESS = 3"_s));
    EXPECT_TRUE(server.trace().contains(u"SELECT COUNT(*) 'QT' FROM PESS"_s));
}

TEST(OdbcAdapter, ReadsBothFormsOfDatesWhateverTheLanguageOfTheLogin) {
    const SampleServer server({u"--language"_s, u"brazilian"_s});
    auto adapter = opened(server);
    adapter->execute(Statement("UPDATE PESS SET DATA_INCL = '2026/02/13', DATA_DESA = '2026/02/13' WHERE idPESS = 3"));
    adapter->execute(Statement("UPDATE PESS SET DATA_INCL = '20260214' WHERE idPESS = 2"));
    const Rows rows =
        read(*adapter, Statement("SELECT DATA_INCL, DATA_DESA FROM PESS WHERE idPESS > 1 ORDER BY idPESS"));
    EXPECT_EQ(rows.rows[0][0], day(2026, 2, 14));
    EXPECT_EQ(rows.rows[1], (std::vector<Value>{day(2026, 2, 13), day(2026, 2, 13)}));
}

TEST(OdbcAdapter, ReadsTextsOfAnyLength) {
    const SampleServer server;
    auto adapter = opened(server);
    auto wide = data::MakeOdbcAdapterFor(askedForUtf16);
    wide->open(server.connectionString(), patience);
    adapter->execute(Statement("CREATE TABLE LONGO (idLONGO int NOT NULL, TEXTO varchar(max), FATOR float)"));
    for (const int length : {0, 1, 32766, 32767, 32768, 65535, 65536, 300001}) {
        const QString content = u"AÇÃO€"_s.repeated(length / 5 + 1).left(length);
        Statement insert;
        insert << "INSERT INTO LONGO (idLONGO, TEXTO, FATOR) VALUES (" << length << ", '" << content << "', 0.1)";
        adapter->execute(insert);
        Statement select;
        select << "SELECT TEXTO FROM LONGO WHERE idLONGO = " << length;
        EXPECT_EQ(single(*adapter, select), Value(content)) << length;
        EXPECT_EQ(single(*wide, select), Value(content)) << length;
    }
    EXPECT_EQ(single(*adapter, Statement("SELECT FATOR FROM LONGO WHERE idLONGO = 0")), Value(Decimal{1, 1}));
}

TEST(OdbcAdapter, GivesTheKeyOfItsOwnLastInsert) {
    const SampleServer server;
    auto mine = opened(server);
    auto other = opened(server);
    mine->execute(Statement("INSERT INTO PESS (NOME_PESS) VALUES ('MINHA')"));
    other->execute(Statement("INSERT INTO PESS (NOME_PESS) VALUES ('OUTRA')"));
    const Statement identity("SELECT @@IDENTITY AS 'MAXROWID'");
    EXPECT_EQ(single(*mine, identity).toInt32(), 4);
    EXPECT_EQ(single(*other, identity).toInt32(), 5);
    EXPECT_TRUE(single(*opened(server), identity).isNull());
}

TEST(OdbcAdapter, TellsRefusals) {
    const SampleServer server;
    auto adapter = opened(server);
    const Statement apostrophe("INSERT INTO PESS (NOME_PESS) VALUES ('D'AVILA')");
    const RuntimeError syntax = failureOf([&] { adapter->execute(apostrophe); });
    EXPECT_EQ(syntax.number(), errorNumber::StatementRefused);
    EXPECT_EQ(syntax.engineCode(), 102);
    EXPECT_EQ(syntax.sqlState(), u"42000");
    EXPECT_EQ(syntax.description(), u"Incorrect syntax near 'AVILA'.");
    EXPECT_EQ(syntax.statement(), apostrophe.text());

    const RuntimeError table = failureOf([&] { read(*adapter, Statement("SELECT * FROM NADA")); });
    EXPECT_EQ(table.number(), errorNumber::StatementRefused);
    EXPECT_EQ(table.engineCode(), 208);
    EXPECT_EQ(table.sqlState(), u"42S02");

    const RuntimeError value = failureOf([&] { adapter->execute(Statement("UPDATE PESS SET LIMI_CRED = '10,50'")); });
    EXPECT_EQ(value.number(), errorNumber::StatementRefused);
    EXPECT_EQ(value.engineCode(), 8114);

    const RuntimeError twice = failureOf(
        [&] { adapter->execute(Statement("INSERT INTO EMPR_CNFG (NOME_PARA) VALUES ('PESS_TELA_CLIENTE')")); });
    EXPECT_EQ(twice.number(), errorNumber::ConstraintViolated);
    EXPECT_EQ(twice.engineCode(), 2627);
    EXPECT_EQ(twice.sqlState(), u"23000");

    EXPECT_EQ(single(*adapter, Statement("SELECT COUNT(*) FROM PESS")), number(3)) << "the connection lives on";
}

TEST(OdbcAdapter, CommitsEachWriteByItself) {
    const SampleServer server;
    auto adapter = opened(server);
    adapter->execute(renameThird);
    EXPECT_EQ(single(*opened(server), nameOfThird), text("NOVO"));
}

TEST(OdbcAdapter, KeepsATransactionToItselfUntilTheCommit) {
    const SampleServer server;
    auto adapter = opened(server);
    auto other = opened(server);
    adapter->begin();
    adapter->execute(renameThird);
    EXPECT_EQ(single(*adapter, nameOfThird), text("NOVO"));
    EXPECT_TRUE(single(*other, nameOfThird).isNull());
    adapter->commit();
    EXPECT_EQ(single(*other, nameOfThird), text("NOVO"));
    adapter->execute(Statement("UPDATE PESS SET NOME_CONH = 'OUTRO' WHERE idPESS = 3"));
    EXPECT_EQ(single(*other, nameOfThird), text("OUTRO")) << "behind the commit writes are by themselves again";
}

TEST(OdbcAdapter, ATransactionDiesWithItsConnection) {
    const SampleServer server;
    auto adapter = opened(server);
    adapter->begin();
    adapter->execute(renameThird);
    adapter->close();
    EXPECT_TRUE(single(*opened(server), nameOfThird).isNull());
    {
        auto dropped = opened(server);
        dropped->begin();
        dropped->execute(renameThird);
    }
    EXPECT_TRUE(single(*opened(server), nameOfThird).isNull());
}

TEST(OdbcAdapter, ALockOfSomebodyElseEndsInAnError) {
    const SampleServer server;
    auto holder = opened(server);
    auto adapter = opened(server);
    holder->begin();
    holder->execute(renameThird);
    QElapsedTimer clock;
    clock.start();
    const RuntimeError failure = failureOf([&] { adapter->execute(renameThird); });
    EXPECT_EQ(failure.number(), errorNumber::StatementRefused);
    EXPECT_EQ(failure.engineCode(), 1222);
    EXPECT_LT(clock.elapsed(), 9000);
}

TEST(OdbcConnection, FailsWithoutAServer) {
    auto server = std::make_unique<SampleServer>();
    const QString gone = server->connectionString();
    server.reset();
    EXPECT_EQ(openFailure(gone).number(), errorNumber::ConnectionFailed);
}

TEST(OdbcConnection, FailsWhenTheServerRefuses) {
    const SampleServer server;
    const char* form = "driver={SQL Server};server=%1;uid=%2;pwd=%3;database=%4";
    const RuntimeError password = openFailure(server.connectionString(form, u"errada"_s));
    EXPECT_EQ(password.number(), errorNumber::ConnectionFailed);
    EXPECT_EQ(password.description(), u"Login failed for user 'vorta'.");
    EXPECT_EQ(openFailure(server.connectionString(form, u"vorta"_s, u"NADA"_s)).number(),
              errorNumber::ConnectionFailed);
    const TdsServer refusing({u"--refuse-login"_s});
    EXPECT_EQ(openFailure(refusing.connectionString()).number(), errorNumber::ConnectionFailed);
}

TEST(OdbcConnection, WaitsAsLongAsItIsTold) {
    const SampleServer server({u"--slow-login"_s, u"2"_s});
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(openFailure(server.connectionString(), 1).number(), errorNumber::ConnectionFailed);
    EXPECT_LT(clock.elapsed(), 1900);
    auto patient = MakeOdbcAdapter();
    patient->open(server.connectionString(), 400);
    EXPECT_TRUE(patient->isOpen());
}

TEST(OdbcConnection, ASlowAnswerIsAnAnswer) {
    const SampleServer server({u"--slow"_s, u"1.2"_s});
    auto adapter = MakeOdbcAdapter();
    adapter->open(server.connectionString(), 1);
    EXPECT_EQ(single(*adapter, Statement("SELECT COUNT(*) FROM PESS")), number(3));
}

TEST(OdbcConnection, IsLostDuringASave) {
    const SampleServer server({u"--drop-on"_s, u"NOME_CONH = 'FIM'"_s});
    auto adapter = opened(server);
    adapter->begin();
    adapter->execute(renameThird);
    const RuntimeError lost =
        failureOf([&] { adapter->execute(Statement("UPDATE PESS SET NOME_CONH = 'FIM' WHERE idPESS = 3")); });
    EXPECT_EQ(lost.number(), errorNumber::ConnectionFailed);
    EXPECT_EQ(failureOf([&] { adapter->execute(renameThird); }).number(), errorNumber::ConnectionFailed);
    EXPECT_EQ(failureOf([&] { adapter->commit(); }).number(), errorNumber::ConnectionFailed);
    adapter->close();
    EXPECT_TRUE(single(*opened(server), nameOfThird).isNull()) << "nothing of the save stays";
}

TEST(OdbcConnection, IsLostAtTheCommit) {
    const SampleServer server({u"--drop-on"_s, u"^TRANSACTION COMMIT"_s});
    auto adapter = opened(server);
    adapter->begin();
    adapter->execute(renameThird);
    EXPECT_EQ(failureOf([&] { adapter->commit(); }).number(), errorNumber::ConnectionFailed);
    adapter->close();
    EXPECT_TRUE(single(*opened(server), nameOfThird).isNull());
}

TEST(OdbcConnection, IsLostBetweenStatements) {
    auto server = std::make_unique<SampleServer>();
    auto adapter = opened(*server);
    EXPECT_EQ(single(*adapter, Statement("SELECT COUNT(*) FROM PESS")), number(3));
    server.reset();
    EXPECT_EQ(failureOf([&] { read(*adapter, nameOfThird); }).number(), errorNumber::ConnectionFailed);
    EXPECT_EQ(failureOf([&] { adapter->execute(renameThird); }).number(), errorNumber::ConnectionFailed);
    adapter->close();
}

} // namespace vorta::test
