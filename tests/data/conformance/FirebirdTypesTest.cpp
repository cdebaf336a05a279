#include "base/Moment.h"
#include "base/RuntimeError.h"
#include "data/Recordset.h"
#include "data/conformance/Contexts.h"
#include "firebird/EngineFiles.h"

/// The types of the newer versions of Firebird arrive as those that every version has, in this process and from a
/// server.
namespace vorta::test {

namespace {

using data::Statement;
using firebird::EngineInUse;

} // namespace

/// A statement gives the same whatever the version: sums, products and the clock have other types in newer ones.
TEST_P(ConformanceTest, SumsProductsAndTheClockHaveTheTypesOfEveryVersion) {
    if (GetParam().engine != data::Engine::Firebird)
        GTEST_SKIP() << "Firebird alone";
    write(Statement("insert into pess (idpess, valor) values (1, 10.25)"));
    write(Statement("insert into pess (idpess, valor) values (2, 0.50)"));
    data::Recordset rows;
    rows.Open(Statement("select sum(valor), avg(valor), sum(idpess), sum(valor * valor), current_timestamp, "
                        "current_time from pess"),
              *connection);
    EXPECT_EQ(rows.Fields(0), data::Value(data::Decimal{1075, 2}));
    EXPECT_EQ(rows.Fields(1), data::Value(data::Decimal{537, 2}));
    EXPECT_EQ(rows.Fields(2), data::Value(qint64{3}));
    EXPECT_EQ(rows.Fields(3), data::Value(data::Decimal{1053125, 4}));
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime told = rows.Fields(4).date();
    EXPECT_LT(qAbs(Moment(now.date(), now.time()).secsTo(told)), 60) << "the clock of this place, without a zone";
    EXPECT_TRUE(rows.Fields(5).isText());
}

TEST_P(ConformanceTest, ColumnsOfNewerTypesArriveAsOlderOnes) {
    if (GetParam().engine != data::Engine::Firebird || EngineInUse().number < 4)
        GTEST_SKIP() << "version 3.0 has none of these types";
    data::Recordset rows;
    rows.Open(
        Statement(
            "select cast(12345678901.25 as numeric(38, 2)), cast(-7 as int128), cast(1.5 as decfloat(16)), "
            "cast(0.25 as decfloat(34)), cast('2026-03-07 10:30:00 America/Sao_Paulo' as timestamp with time zone), "
            "cast('10:30:00 +00:00' as time with time zone) from rdb$database"),
        *connection);
    EXPECT_EQ(rows.Fields(0), data::Value(data::Decimal{1234567890125, 2}));
    EXPECT_EQ(rows.Fields(1), data::Value(qint64{-7}));
    EXPECT_EQ(rows.Fields(2).number(), 1.5);
    EXPECT_EQ(rows.Fields(3).number(), 0.25);
    EXPECT_TRUE(rows.Fields(4).isDate());
    EXPECT_TRUE(rows.Fields(5).isText());
    EXPECT_EQ(ErrorOf([&] {
                  data::Recordset over;
                  over.Open(Statement("select cast('170141183460469231731687303715884105727' as int128) from "
                                      "rdb$database"),
                            *connection);
              }),
              errorNumber::StatementRefused)
        << "a number that no older type holds is an error and never another number";
}

} // namespace vorta::test
