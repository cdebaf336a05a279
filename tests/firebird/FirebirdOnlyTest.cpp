#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/Connection.h"
#include "data/Recordset.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "firebird/Peer.h"
#include "servers/FirebirdServer.h"
#include "support/ErrorOf.h"

#include <QCoreApplication>
#include <QFile>
#include <cerrno>
#include <future>
#include <gtest/gtest.h>

/// What only Firebird has: generators, changes of tables beside prepared statements, the engine inside the process, a
/// server that goes.
namespace vorta::test {

namespace {

using data::Statement;

constexpr const char* columnTypes[]{"varchar(5)",  "char(5)",       "smallint",         "integer",
                                    "bigint",      "decimal(15,2)", "double precision", "date",
                                    "time",        "timestamp",     "boolean",          "blob sub_type text",
                                    "varchar(400)"};
/// As they stand in a statement.
const QStringList literals{u"''"_s,
                           u"'abc'"_s,
                           u"'abcdef'"_s,
                           u"'ab   '"_s,
                           u"'ab     '"_s,
                           u"'D''AV'"_s,
                           u"'?'"_s,
                           u"'ação'"_s,
                           u"'\u65e5'"_s,
                           u"'12'"_s,
                           u"12"_s,
                           u"' 7 '"_s,
                           u"'-7'"_s,
                           u"'1.5'"_s,
                           u"'1,5'"_s,
                           u"'1.005'"_s,
                           u"'1e2'"_s,
                           u"'40000'"_s,
                           u"40000"_s,
                           u"'99999999999'"_s,
                           u"99999999999"_s,
                           u"'99999999999999999999'"_s,
                           u"'2026-11-22'"_s,
                           u"'20261122'"_s,
                           u"'22.11.2026'"_s,
                           u"'2026-13-01'"_s,
                           u"'2026-11-22 10:11:12'"_s,
                           u"'10:11'"_s,
                           u"'today'"_s,
                           u"'true'"_s,
                           u"null"_s,
                           u'\'' + QString(300, u'x') + u'\'',
                           u"'a\nb'"_s};

class FirebirdOnly : public testing::Test {
  protected:
    void SetUp() override {
        firebird::CreateDatabase(path());
        connection.Open(data::Engine::Firebird, path());
        connection.Execute(Statement("create table logr (nome varchar(60))"));
    }
    QString path() const { return folder.filePath(u"base.fdb"_s); }
    static data::AdapterFactory factory() {
        return [](data::Engine) { return data::MakeFirebirdAdapter(); };
    }
    QString one(const Statement& statement) {
        data::Recordset rows;
        rows.Open(statement, connection);
        return rows.Eof() ? u"(none)"_s : rows.Fields(0).textOr(u"(null)"_s);
    }

    QTemporaryDir folder;
    data::Connection connection{factory()};
};

} // namespace

TEST_F(FirebirdOnly, GeneratorsMoveOutsideAndInsideTransactions) {
    connection.Execute(Statement("create generator gen_pess"));
    const Statement next("select gen_id(GEN_PESS, 1) from RDB$GENERATORS where RDB$GENERATOR_NAME = 'GEN_PESS'; ");
    EXPECT_EQ(one(next), u"1");
    EXPECT_EQ(one(next), u"2");
    connection.BeginTrans();
    EXPECT_EQ(one(next), u"3");
    connection.Close();
    connection.Open(data::Engine::Firebird, path());
    EXPECT_EQ(one(next), u"4");
    EXPECT_EQ(one(Statement("select gen_id(GEN_PESS, 1) from RDB$GENERATORS where RDB$GENERATOR_NAME = 'OTHER'; ")),
              u"(none)");
}

TEST_F(FirebirdOnly, TheTimeOfTheFirstOpeningIsUsed) {
    int times = 0;
    const auto adapter = data::MakeFirebirdAdapter([&] { ++times; });
    adapter->open(path(), 0);
    EXPECT_EQ(times, 1);
    EXPECT_TRUE(adapter->isOpen());
    adapter->execute(Statement("insert into logr (nome) values ('a')"));
    adapter->open(path(), 0);
    EXPECT_EQ(times, 1);
    adapter->close();
    EXPECT_EQ(one(Statement("select count(*) from logr")), u"1");
}

TEST_F(FirebirdOnly, WhatIsDoneMeanwhileMayFailAndSoMayTheOpening) {
    const auto failing = data::MakeFirebirdAdapter([] { throw RuntimeError(errorNumber::ObjectNotSet, u"x"_s); });
    EXPECT_EQ(ErrorOf([&] { failing->open(path(), 0); }), errorNumber::ObjectNotSet);
    EXPECT_FALSE(failing->isOpen());
    int times = 0;
    const auto nowhere = data::MakeFirebirdAdapter([&] { ++times; });
    EXPECT_EQ(ErrorOf([&] { nowhere->open(folder.filePath(u"none.fdb"_s), 0); }), errorNumber::ConnectionFailed);
    EXPECT_EQ(times, 1);
}

TEST_F(FirebirdOnly, NewDatabaseHasTheRegistersSettings) {
    EXPECT_EQ(one(Statement("select mon$page_size from mon$database")), u"16384");
    EXPECT_EQ(one(Statement("select mon$forced_writes from mon$database")), u"1");
    EXPECT_EQ(one(Statement("select trim(rdb$character_set_name) from rdb$database")), u"WIN1252");
    EXPECT_EQ(one(Statement("select trim(rdb$default_collate_name) from rdb$character_sets "
                            "where rdb$character_set_name = 'WIN1252'")),
              u"WIN_PTBR");
    EXPECT_EQ(ErrorOf([&] { firebird::CreateDatabase(path()); }), errorNumber::ConnectionFailed);
}

TEST_F(FirebirdOnly, ForcedWritesAreSwitchedWhileNobodyElseIsIn) {
    connection.Close();
    firebird::SetForcedWrites(path(), false);
    connection.Open(data::Engine::Firebird, path());
    EXPECT_EQ(one(Statement("select mon$forced_writes from mon$database")), u"0");
}

TEST_F(FirebirdOnly, TableChangesBesidePreparedStatements) {
    connection.Execute(Statement("create table t (idt integer, nome varchar(10))"));
    for (int i = 0; i < 3; ++i) {
        Statement statement;
        statement << "select count(*) from t where idt = " << i;
        EXPECT_EQ(one(statement), u"0");
    }
    connection.Execute(Statement("alter table t add dia date"));
    connection.Execute(Statement("insert into t (idt, nome, dia) values (1, '20260101', '20260101')"));
    EXPECT_EQ(one(Statement("select dia from t")), u"01/01/2026");
    connection.Execute(Statement("drop table t"));
    Statement gone;
    gone << "select count(*) from t where idt = " << 1;
    EXPECT_EQ(ErrorOf([&] { one(gone); }), errorNumber::StatementRefused);
}

TEST_F(FirebirdOnly, AnInsertRunsPreparedAsItsTextWould) {
    const auto send = [](data::Adapter& adapter, const QString& text) {
        Statement statement;
        statement += text;
        adapter.execute(statement);
    };
    const auto outcomeOf = [&](data::Adapter& adapter, const QString& insert) {
        QString outcome;
        for (int time = 0; time < 2; ++time) // the second one meets what the first one has left prepared
            try {
                send(adapter, insert);
            } catch (const RuntimeError& error) {
                outcome = u"%1|%2|%3|%4"_s.arg(error.number())
                              .arg(error.engineCode())
                              .arg(error.sqlState(), error.description());
            }
        outcome += one(Statement("select count(*) || ' ' || max(octet_length(c)) || ' ' || "
                                 "max(left(cast(c as varchar(400)), 30)) from t"));
        connection.Execute(Statement("delete from t"));
        return outcome;
    };
    connection.Close();
    firebird::SetForcedWrites(path(), false);
    for (const char* type : columnTypes) {
        const auto adapter = data::MakeFirebirdAdapter();
        adapter->open(path(), 0);
        send(*adapter, u"create table t (idt integer, c %1)"_s.arg(QString::fromLatin1(type)));
        connection.Open(data::Engine::Firebird, path());
        for (const QString& value : literals) {
            const QString insert = u"insert into t (idt, c) values (1, %1)"_s.arg(value);
            const QString prepared = outcomeOf(*adapter, insert);
            EXPECT_EQ(prepared, outcomeOf(*adapter, insert + u" returning idt"_s)) << type << ' ' << qPrintable(value);
        }
        connection.Close();
        send(*adapter, u"drop table t"_s);
    }
}

TEST_F(FirebirdOnly, ATextThatStandsAsideIsComparedAsItsLiteralWouldBe) {
    const auto send = [](data::Adapter& adapter, const QString& text) { adapter.execute(Statement() += text); };
    // In front of the sign a literal stays where it is.
    const auto answers = [this](const QString& value) {
        QStringList answered;
        for (const Statement& statement : {Statement("select list(idt) from t where c = '") << value << "'",
                                           Statement("select list(idt) from t where '") << value << "' = c"})
            try {
                answered << one(statement);
            } catch (const RuntimeError& error) {
                answered << u"%1|%2|%3"_s.arg(error.number()).arg(error.engineCode()).arg(error.sqlState());
            }
        return answered;
    };
    QStringList types{u"varchar(5) character set octets"_s, u"varchar(5) character set none"_s,
                      u"varchar(5) character set win1252 collate win_ptbr"_s, u"numeric(9,3)"_s};
    for (const char* type : columnTypes)
        types << QString::fromLatin1(type);
    connection.Close();
    firebird::SetForcedWrites(path(), false);
    int found = 0;
    for (const QString& type : types) {
        const auto adapter = data::MakeFirebirdAdapter();
        adapter->open(path(), 0);
        send(*adapter, u"create table t (idt integer, c "_s + type + u')');
        if (!type.startsWith(u"blob") && !type.startsWith(u"varchar(400)"))
            send(*adapter, u"create index t_c on t (c)"_s);
        for (qsizetype i = 0; i < literals.size(); ++i)
            (void)ErrorOf([&] { send(*adapter, u"insert into t (idt, c) values (%1, %2)"_s.arg(i).arg(literals[i])); });
        connection.Open(data::Engine::Firebird, path());
        for (int time = 0; time < 2; ++time)
            for (const QString& literal : literals) {
                if (!literal.startsWith(u'\''))
                    continue;
                const QStringList answered = answers(literal.sliced(1, literal.size() - 2));
                EXPECT_EQ(answered[0], answered[1]) << qPrintable(type + u' ' + literal);
                found += answered[0].startsWith(u'(') || answered[0].contains(u'|') ? 0 : 1;
            }
        connection.Close();
        send(*adapter, u"drop table t"_s);
    }
    EXPECT_GT(found, 100);
}

TEST_F(FirebirdOnly, AValueThatIsRefusedLeavesTheTransactionAsItWas) {
    connection.Execute(Statement("create table t (idt integer, nome varchar(5))"));
    connection.BeginTrans();
    for (const char* name : {"ANA", "BIA", "CLAUDIA", "EVA"}) {
        Statement insert;
        insert << "insert into t (idt, nome) values ('" << QString::number(7) << "', '" << QString::fromLatin1(name)
               << "')";
        EXPECT_EQ(ErrorOf([&] { connection.Execute(insert); }), strlen(name) > 5 ? errorNumber::StatementRefused : 0)
            << name;
    }
    EXPECT_EQ(one(Statement("select @@identity")), u"7");
    connection.CommitTrans();
    EXPECT_EQ(one(Statement("select list(nome) from (select nome from t order by nome)")), u"ANA,BIA,EVA");
}

TEST_F(FirebirdOnly, MorePreparedStatementsThanTheCacheHolds) {
    connection.Execute(Statement("create table t (idt integer)"));
    connection.Execute(Statement("insert into t (idt) values (7)"));
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 300; ++i) {
            Statement statement;
            statement << "select idt from t where '" << QString::number(i) << "' <> '' and idt = " << 7;
            ASSERT_EQ(one(statement), u"7");
        }
}

TEST_F(FirebirdOnly, ARepeatedTextSeesWhatHasBeenWritten) {
    connection.Execute(Statement("create table t (idt integer, nome varchar(10))"));
    data::Connection other(factory());
    other.Open(data::Engine::Firebird, path());
    const Statement text("select nome from t where nome like 'A%'");
    for (const char* expected : {"(none)", "(none)", "(none)"})
        EXPECT_EQ(one(text), QString::fromLatin1(expected));
    other.Execute(Statement("insert into t (idt, nome) values (1, 'ANA')"));
    EXPECT_EQ(one(text), u"ANA");
    connection.BeginTrans();
    connection.Execute(Statement("update t set nome = 'ALICE'"));
    EXPECT_EQ(one(text), u"ALICE") << "its own transaction too";
    connection.CommitTrans();
    EXPECT_EQ(one(text), u"ALICE");
}

TEST_F(FirebirdOnly, TwoProgramsWorkOnOneFileAtOnce) {
    EXPECT_EQ(one(Statement("select count(*) from logr")), u"0");
    QProcess peer;
    peer.start(QCoreApplication::applicationFilePath(), {peerWord, qEnvironmentVariable("VORTA_HOME"), path()});
    ASSERT_TRUE(peer.waitForFinished(20000));
    EXPECT_EQ(peer.exitCode(), 0) << peer.readAllStandardError().toStdString();
    EXPECT_EQ(one(Statement("select nome from logr")), u"DO OUTRO PROGRAMA");
}

TEST_F(FirebirdOnly, AProgramEndsAlsoBehindACallThatWasBrokenOff) {
    connection.Close(); // the last one puts the engine's files away
    QProcess peer;
    peer.start(QCoreApplication::applicationFilePath(), {peerCutOffWord, qEnvironmentVariable("VORTA_HOME"), path()});
    ASSERT_TRUE(peer.waitForFinished(20000));
    EXPECT_EQ(peer.exitCode(), 0) << peer.readAllStandardError().toStdString();
    connection.Open(data::Engine::Firebird, path());
    EXPECT_EQ(one(Statement("select nome from logr")), u"DO OUTRO PROGRAMA");
}

TEST_F(FirebirdOnly, OfTwoWritesOfOneRowAtOnceBothSucceedAndTheLastStands) {
    connection.Execute(Statement("insert into logr (nome) values ('ANTES')"));
    const Statement change("update logr set nome = nome || '+'");
    for (const bool insideTransaction : {true, false}) {
        connection.BeginTrans();
        connection.Execute(change);
        std::promise<void> ready;
        std::future<void> colleague = std::async(std::launch::async, [&] {
            data::Connection other(factory());
            other.Open(data::Engine::Firebird, path());
            if (insideTransaction)
                other.BeginTrans();
            ready.set_value();
            other.Execute(change);
            if (insideTransaction)
                other.CommitTrans();
        });
        ready.get_future().wait();
        EXPECT_EQ(colleague.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout) << "it has to wait";
        connection.CommitTrans();
        EXPECT_NO_THROW(colleague.get());
    }
    EXPECT_EQ(one(Statement("select nome from logr")), u"ANTES++++");
}

TEST_F(FirebirdOnly, ARowThatStaysHeldIsRefusedAfterSomeSeconds) {
    connection.Execute(Statement("insert into logr (nome) values ('ANTES')"));
    connection.BeginTrans();
    connection.Execute(Statement("update logr set nome = 'MEU'"));
    data::Connection other(factory());
    other.Open(data::Engine::Firebird, path());
    EXPECT_EQ(ErrorOf([&] { other.Execute(Statement("update logr set nome = 'DELE'")); }),
              errorNumber::StatementRefused);
    connection.CommitTrans();
    EXPECT_EQ(one(Statement("select nome from logr")), u"MEU");
}

/// Fails by its time limit: the engine would never come back.
TEST_F(FirebirdOnly, AnInterruptionLeftOverFromASignalDoesNotKeepAConnectionFromClosing) {
    one(Statement("select mon$page_size from mon$database")); // the tables whose files are opened anew at the close
    errno = EINTR;
    connection.Close();
    EXPECT_FALSE(connection.IsOpen());
}

TEST_F(FirebirdOnly, CharacterOutsideTheRepertoireIsRefused) {
    EXPECT_EQ(ErrorOf([&] { connection.Execute(Statement("insert into logr (nome) values ('Ω')")); }),
              errorNumber::StatementRefused);
}

TEST_F(FirebirdOnly, TextKeptApartIsReadInTheColumnsCharacterSet) {
    connection.Execute(Statement("create table n (win blob sub_type text, uni blob sub_type text character set utf8, "
                                 "raw blob sub_type binary)"));
    connection.Execute(Statement("insert into n (win, uni) values ('AÇÃO €', 'AÇÃO €')"));
    EXPECT_EQ(one(Statement("select win from n")), u"AÇÃO €");
    EXPECT_EQ(one(Statement("select uni from n")), u"AÇÃO €");
    EXPECT_EQ(one(Statement("select raw from n")), u"(null)");
}

TEST_F(FirebirdOnly, BrokenFileDoesNotOpen) {
    const QString broken = folder.filePath(u"broken.fdb"_s);
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(100000, 'x'));
    file.close();
    data::Connection other(factory());
    EXPECT_EQ(ErrorOf([&] { other.Open(data::Engine::Firebird, broken); }), errorNumber::ConnectionFailed);
}

TEST(FirebirdServerLost, StatementThatMeetsItTellsTheConnection) {
    servers::FirebirdServer server;
    const QString text = server.connectionString(u"lost.fdb"_s);
    firebird::CreateDatabase(text);
    data::Connection connection([](data::Engine) { return data::MakeFirebirdAdapter(); });
    connection.Open(data::Engine::Firebird, text);
    connection.Execute(Statement("create table t (a integer)"));
    server.kill();
    EXPECT_EQ(ErrorOf([&] { connection.Execute(Statement("insert into t (a) values (1)")); }),
              errorNumber::ConnectionFailed);
    data::Recordset rows;
    EXPECT_EQ(ErrorOf([&] { rows.Open(Statement("select a from t"), connection); }), errorNumber::ConnectionFailed);
}

} // namespace vorta::test
