#include "data/Connection.h"
#include "base/Literals.h"

#include "data/Recordset.h"
#include "support/ErrorOf.h"
#include "support/FailingStatements.h"
#include "support/FakeDatabase.h"

#include <gtest/gtest.h>

namespace vorta::data {

namespace {

using test::ErrorOf;

Statement withValue(const char* value) {
    Statement statement;
    statement << "update pess set nome='" << QString::fromUtf8(value) << "'";
    return statement;
}

} // namespace

TEST(Connection, OpensWithTextAndTimeout) {
    test::FakeDatabase database;
    Connection connection(database.factory());
    connection.ConnectionTimeout = 400;
    connection.Open(Engine::SqlServer, u"server=x"_s);
    ASSERT_EQ(database.opened.size(), 1u);
    EXPECT_EQ(database.opened[0].engine, Engine::SqlServer);
    EXPECT_EQ(database.opened[0].connectionString, u"server=x");
    EXPECT_EQ(database.opened[0].timeout, 400);
    EXPECT_TRUE(connection.IsOpen());
}

TEST(Connection, RefusedOpenLeavesItClosed) {
    test::FakeDatabase database;
    database.refuseOpen = true;
    Connection connection(database.factory());
    EXPECT_EQ(ErrorOf([&] { connection.Open(Engine::Firebird, {}); }), errorNumber::ConnectionFailed);
    EXPECT_FALSE(connection.IsOpen());
}

TEST(Connection, ClosedRaises3704) {
    test::FakeDatabase database;
    Connection connection(database.factory());
    Recordset rows;
    EXPECT_EQ(ErrorOf([&] { connection.Execute(Statement("x")); }), errorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { rows.Open(Statement("x"), connection); }), errorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { connection.BeginTrans(); }), errorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { connection.CommitTrans(); }), errorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { connection.Close(); }), errorNumber::ObjectClosed);
    EXPECT_EQ(database.sent, QStringList());
}

TEST(Connection, TraceHearsARefusedStatementTheEngineNeverGets) {
    test::FakeDatabase database;
    QStringList heard;
    Connection connection(database.factory(), [&](const QString& text) { heard += text; });
    connection.Open(Engine::Firebird, {});
    EXPECT_EQ(ErrorOf([&] { connection.Execute(withValue("D'AVILA")); }), errorNumber::StatementRefused);
    EXPECT_EQ(heard, QStringList{u"update pess set nome='D'AVILA'"_s});
    EXPECT_EQ(database.sent, QStringList());
}

TEST(Connection, TraceHearsTheFlowsTextTheEngineTheQualifiedOne) {
    test::FakeDatabase database;
    QStringList heard;
    Connection connection(database.factory(), [&](const QString& text) { heard += text; });
    connection.Open(Engine::Firebird, {});
    Recordset rows;
    rows.Open(Statement("SELECT IDVEND FROM VEND, PESS"), connection);
    EXPECT_EQ(heard, QStringList{u"SELECT IDVEND FROM VEND, PESS"_s});
    EXPECT_EQ(database.sent, QStringList{u"SELECT VEND.IDVEND FROM VEND, PESS"_s});
}

TEST(Connection, EndOfItsLifeClosesIt) {
    test::FakeDatabase database;
    {
        Connection connection(database.factory());
        connection.Open(Engine::Firebird, {});
        connection.BeginTrans();
    }
    EXPECT_EQ(database.sent, (QStringList{u"BEGIN"_s, u"CLOSE"_s}));
}

TEST(FailingStatements, FailsTheChosenStatementOnly) {
    test::FakeDatabase database;
    test::FailingStatements failing(database.factory());
    Connection connection(failing.factory());
    connection.Open(Engine::Firebird, {});
    connection.Execute(Statement("one"));
    failing.failAt(2);
    connection.Execute(Statement("two"));
    EXPECT_EQ(ErrorOf([&] { connection.Execute(Statement("three")); }), errorNumber::StatementRefused);
    EXPECT_EQ(failing.sent(), 2);
    connection.Execute(Statement("four"));
    EXPECT_EQ(database.writes, (QStringList{u"one"_s, u"two"_s, u"four"_s}));
    failing.failCommit();
    connection.BeginTrans();
    EXPECT_EQ(ErrorOf([&] { connection.CommitTrans(); }), errorNumber::StatementRefused);
    connection.CommitTrans();
}

} // namespace vorta::data
