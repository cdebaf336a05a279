#include "data/Recordset.h"
#include "base/Literals.h"
#include "base/Moment.h"

#include "support/ErrorOf.h"
#include "support/FakeDatabase.h"

#include <gtest/gtest.h>

namespace vorta::data {

namespace {

using test::ErrorOf;

class RecordsetTest : public testing::Test {
  protected:
    void SetUp() override { connection.Open(Engine::Firebird, {}); }

    Recordset open(test::FakeRows rows) {
        database.answer(u"select"_s, std::move(rows));
        Recordset recordset;
        recordset.Open(Statement("select"), connection);
        return recordset;
    }

    test::FakeDatabase database;
    Connection connection{database.factory()};
};

} // namespace

TEST_F(RecordsetTest, WalksForwardOverItsRows) {
    Recordset rows = open({{"a"}, {{test::number(1)}, {test::number(2)}}});
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_FALSE(rows.Eof());
    EXPECT_EQ(rows.Fields("a").toInt32(), 1);
    rows.MoveNext();
    EXPECT_EQ(rows.Fields("a").toInt32(), 2);
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(ErrorOf([&] { rows.MoveNext(); }), errorNumber::NoCurrentRow);
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields("a"); }), errorNumber::NoCurrentRow);
}

TEST_F(RecordsetTest, EmptyResultStartsAtItsEnd) {
    const Recordset rows = open({{"a"}, {}});
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(rows.RecordCount(), 0);
}

TEST_F(RecordsetTest, EveryKindOfValueComesBackExactly) {
    const QString longText(100000, u'é');
    Recordset rows = open({{"null", "small", "negative", "amount", "text", "empty", "long", "date", "moment", "last"},
                           {{test::null(), test::number(5), test::number(-2147483648), test::amount(-123456),
                             test::text("São João"), test::text(""), Value(longText), test::date(1899, 12, 30),
                             Value(Moment(QDate(2026, 11, 20), QTime(14, 30, 5))), test::number(1)}}});
    EXPECT_EQ(rows.Fields("last").toInt32(), 1); // out of order first
    EXPECT_TRUE(rows.Fields("null").isNull());
    EXPECT_EQ(rows.Fields("small"), Value(qint64{5}));
    EXPECT_EQ(rows.Fields("negative"), Value(qint64{-2147483648}));
    EXPECT_EQ(rows.Fields("amount"), Value(Decimal{-123456, 2}));
    EXPECT_EQ(rows.Fields("text").text(), u"São João");
    EXPECT_EQ(rows.Fields("empty").text(), u"");
    EXPECT_EQ(rows.Fields("long").text(), longText);
    EXPECT_EQ(rows.Fields("date").date().date(), QDate(1899, 12, 30));
    EXPECT_EQ(rows.Fields("moment").date().time(), QTime(14, 30, 5));
}

TEST_F(RecordsetTest, TextLengthsAroundThePackedForms) {
    for (int length : {1, 127, 128, 238, 239, 240, 241, 255, 256, 70000}) {
        const QString text(length, u'x');
        Recordset rows = open({{"t", "n"}, {{Value(text), test::number(length)}}});
        EXPECT_EQ(rows.Fields("n").toInt32(), length);
        EXPECT_EQ(rows.Fields("t").text(), text);
    }
}

TEST_F(RecordsetTest, ManyRowsLieInManyBlocks) {
    test::FakeRows prepared{{"n", "t"}, {}};
    for (int i = 0; i < 20000; ++i)
        prepared.rows.push_back({test::number(i), Value(QString::number(i).repeated(10))});
    Recordset rows = open(prepared);
    for (int i = 0; i < 20000; ++i, rows.MoveNext()) {
        ASSERT_EQ(rows.Fields("n").toInt32(), i);
        ASSERT_EQ(rows.Fields("t").text(), QString::number(i).repeated(10));
    }
    EXPECT_TRUE(rows.Eof());
}

TEST_F(RecordsetTest, ColumnsByNameInAnyCaseAndByIndex) {
    const Recordset rows = open({{"NOME_PESS", "idpess"}, {{test::text("A"), test::number(1)}}});
    EXPECT_EQ(rows.Fields("nome_pess").text(), u"A");
    EXPECT_EQ(rows.Fields("IdPess").toInt32(), 1);
    EXPECT_EQ(rows.Fields(0).text(), u"A");
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields("nome"); }), errorNumber::NoSuchColumn);
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields(2); }), errorNumber::NoSuchColumn);
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields(-1); }), errorNumber::NoSuchColumn);
}

TEST_F(RecordsetTest, OnlyTheNamedColumnsAreThere) {
    database.answer(u"select"_s, {{"a", "b", "c", "d"},
                                  {{test::text("x"), test::number(1), test::null(), test::amount(250)},
                                   {test::text("y"), test::number(2), test::date(2026, 1, 2), test::null()}}});
    Recordset rows;
    rows.Open(Statement("select"), connection, {.columns = {"C", "d"}});
    EXPECT_TRUE(rows.Fields("c").isNull());
    EXPECT_EQ(rows.Fields("D").number(), 2.5);
    EXPECT_EQ(rows.Fields(1).number(), 2.5);
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields("a"); }), errorNumber::NoSuchColumn);
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields(2); }), errorNumber::NoSuchColumn);
    rows.MoveNext();
    EXPECT_EQ(rows.Fields("c").text(), u"02/01/2026");
    EXPECT_TRUE(rows.Fields("d").isNull());
    EXPECT_EQ(database.sent, QStringList{u"select"_s});
}

TEST_F(RecordsetTest, ANamedColumnThatTheTableLacksIsFoundMissingWhereItIsRead) {
    database.answer(u"select"_s, {{"a"}, {{test::text("x")}}});
    Recordset rows;
    rows.Open(Statement("select"), connection, {.columns = {"a", "z"}});
    EXPECT_EQ(rows.Fields("a").text(), u"x");
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields("z"); }), errorNumber::NoSuchColumn);
}

TEST_F(RecordsetTest, IsHeardOfWhileTheEngineHasNoRowYet) {
    database.answer(u"select"_s, {{"n"}, {{test::number(1)}, {test::number(2)}}});
    test::Thinking thinking(database);
    std::vector<qint64> told;
    Recordset rows;
    rows.Open(Statement("select"), connection, {.fetched = [&](qint64 count) {
                  told.push_back(count);
                  thinking.end();
              }});
    EXPECT_TRUE(thinking.wasEnded());
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.front(), 0);
    EXPECT_EQ(rows.RecordCount(), 2);
}

TEST_F(RecordsetTest, AFailureOfALongReadIsItsCallers) {
    Recordset rows = open({{"a"}, {{test::text("x")}}});
    database.fail(u"select"_s, errorNumber::StatementRefused);
    EXPECT_EQ(ErrorOf([&] { rows.Open(Statement("select"), connection, {.fetched = [](qint64) {}}); }),
              errorNumber::StatementRefused);
    EXPECT_EQ(rows.Fields("a").text(), u"x") << "the rows are as they were";
}

TEST_F(RecordsetTest, OverwriteChangesThisRowOfThisCopyOnly) {
    Recordset rows = open({{"a"}, {{test::text("x")}, {test::text("y")}}});
    rows.Overwrite(u"A", Value(u"z"_s));
    EXPECT_EQ(rows.Fields("a").text(), u"z");
    rows.MoveNext();
    EXPECT_EQ(rows.Fields("a").text(), u"y");
    EXPECT_EQ(database.sent, QStringList{u"select"_s});
    EXPECT_EQ(ErrorOf([&] { rows.Overwrite(u"b", {}); }), errorNumber::NoSuchColumn);
}

TEST_F(RecordsetTest, ClosedRaises3704) {
    Recordset rows;
    EXPECT_EQ(ErrorOf([&] { (void)rows.Eof(); }), errorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields("a"); }), errorNumber::ObjectClosed);
    rows = open({{"a"}, {{test::text("x")}}});
    rows.Close();
    EXPECT_EQ(ErrorOf([&] { (void)rows.RecordCount(); }), errorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { rows.Close(); }), errorNumber::ObjectClosed);
}

TEST_F(RecordsetTest, IsHandedOnAndNeverShared) {
    static_assert(!std::is_copy_constructible_v<Recordset> && !std::is_copy_assignable_v<Recordset>);
    Recordset rows = open({{"a"}, {{test::text("x")}, {test::text("y")}}});
    rows.MoveNext();
    const Recordset taken = std::move(rows);
    EXPECT_EQ(taken.Fields("a").text(), u"y");
    EXPECT_EQ(ErrorOf([&] { (void)rows.Eof(); }), errorNumber::ObjectClosed);
}

TEST_F(RecordsetTest, FailedOpenKeepsTheOldRows) {
    Recordset rows = open({{"a"}, {{test::text("x")}}});
    database.fail(u"broken"_s, errorNumber::StatementRefused);
    EXPECT_EQ(ErrorOf([&] { rows.Open(Statement("broken"), connection); }), errorNumber::StatementRefused);
    EXPECT_EQ(rows.Fields("a").text(), u"x");
}

} // namespace vorta::data
