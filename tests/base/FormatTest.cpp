#include "base/Format.h"

#include <gtest/gtest.h>

using namespace vorta;

TEST(Format, AmountsHaveTwoDecimalsAndAComma) {
    EXPECT_EQ(FormatAmount(1234.5), u"1234,50"_qs);
    EXPECT_EQ(FormatAmount(0), u"0,00"_qs);
    EXPECT_EQ(FormatAmount(-2.345), u"-2,35"_qs);
    EXPECT_EQ(FormatAmount(1.005), u"1,01"_qs);
    EXPECT_EQ(FormatAmount(-0.001), u"0,00"_qs);
    EXPECT_EQ(FormatAmountText(u"12"_qs), u"12,00"_qs);
    EXPECT_EQ(FormatAmountText(u"abc"_qs), u"abc"_qs);
    EXPECT_EQ(FormatAmountText(QString()), QString());
}

TEST(Format, PlainNumbersDropTrailingZeros) {
    EXPECT_EQ(FormatNumber(5.0), u"5"_qs);
    EXPECT_EQ(FormatNumber(2.5), u"2,5"_qs);
}

TEST(Format, DatesGoDayFirst) {
    const QDate date(2026, 11, 5);
    EXPECT_EQ(FormatDate(date), u"05/11/2026"_qs);
    EXPECT_EQ(FormatDateSql(date), u"20261105"_qs);
    EXPECT_EQ(FormatDateSqlSlashes(date), u"2026/11/05"_qs);
    EXPECT_EQ(FormatDateTime(QDateTime(date, QTime(9, 7))), u"05/11/2026 09:07"_qs);
}

TEST(Format, ABirthdayIsDayAndMonthWhateverFormItWasStoredIn) {
    EXPECT_EQ(FormatDayMonthText(u"5/3"_qs), u"05/03"_qs);
    EXPECT_EQ(FormatDayMonthText(u"29/02"_qs), u"29/02"_qs);
    EXPECT_EQ(FormatDayMonthText(u"05/03/1980"_qs), u"05/03"_qs);
    EXPECT_EQ(FormatDayMonthText(u"31/02"_qs), u"31/02"_qs);
    EXPECT_EQ(FormatDayMonthText(u""_qs), u""_qs);
}

TEST(Format, DatesOfTheCalendarOnly) {
    EXPECT_TRUE(IsDate(u"29/02/2024"_qs));
    EXPECT_FALSE(IsDate(u"29/02/2026"_qs));
    EXPECT_FALSE(IsDate(u"31/02/2026"_qs));
    EXPECT_FALSE(IsDate(u"__/__/____"_qs));
    EXPECT_FALSE(IsDate(u"12/25/2026"_qs));
    EXPECT_FALSE(IsDate(QString()));
    EXPECT_EQ(ParseDate(u"1/2/26"_qs)->date(), QDate(2026, 2, 1));
    EXPECT_EQ(ParseDate(u"01/02/1999 10:30"_qs)->time(), QTime(10, 30));
}
