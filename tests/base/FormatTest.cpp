#include "base/Format.h"
#include "base/Literals.h"

#include <ctime>
#include <gtest/gtest.h>

using namespace vorta;

namespace {

/// The time zone of this program while it lives, in the form of the variable TZ.
class TimeZone {
  public:
    explicit TimeZone(const char* rule)
        : before_(qEnvironmentVariable("TZ")), wasSet_(qEnvironmentVariableIsSet("TZ")) {
        qputenv("TZ", rule);
        tzset();
    }
    ~TimeZone() {
        if (wasSet_)
            qputenv("TZ", before_.toUtf8());
        else
            qunsetenv("TZ");
        tzset();
    }
    Q_DISABLE_COPY_MOVE(TimeZone)

  private:
    QString before_;
    bool wasSet_;
};

} // namespace

TEST(Format, AmountsHaveTwoDecimalsAndAComma) {
    EXPECT_EQ(FormatAmount(1234.5), u"1234,50"_s);
    EXPECT_EQ(FormatAmount(0), u"0,00"_s);
    EXPECT_EQ(FormatAmount(-2.345), u"-2,35"_s);
    EXPECT_EQ(FormatAmount(1.005), u"1,01"_s);
    EXPECT_EQ(FormatAmount(-0.001), u"0,00"_s);
    EXPECT_EQ(FormatAmount(9999999999999), u"9999999999999,00"_s);
    EXPECT_EQ(FormatAmount(99999999999.99), u"99999999999,99"_s);
    EXPECT_EQ(FormatAmountText(u"9999999999999,99"_s), u"9999999999999,99"_s);
    EXPECT_EQ(FormatAmountText(u"12"_s), u"12,00"_s);
    EXPECT_EQ(FormatAmountText(u"2.5"_s), u"2,50"_s);
    EXPECT_EQ(FormatAmountText(u"-1234.567"_s), u"-1234,57"_s);
    EXPECT_EQ(FormatAmountText(u"1.234"_s), u"1234,00"_s);
    EXPECT_EQ(FormatAmountText(u"1.234,5"_s), u"1234,50"_s);
    EXPECT_EQ(FormatAmountText(u"."_s), u"."_s);
    EXPECT_EQ(FormatAmountText(u"abc"_s), u"abc"_s);
    EXPECT_EQ(FormatAmountText(QString()), QString());
}

TEST(Format, PlainNumbersDropTrailingZeros) {
    EXPECT_EQ(FormatNumber(5.0), u"5"_s);
    EXPECT_EQ(FormatNumber(2.5), u"2,5"_s);
}

TEST(Format, DatesGoDayFirst) {
    const QDate date(2026, 11, 5);
    EXPECT_EQ(FormatDate(date), u"05/11/2026"_s);
    EXPECT_EQ(FormatDateSql(date), u"20261105"_s);
    EXPECT_EQ(FormatDateSqlSlashes(date), u"2026/11/05"_s);
    EXPECT_EQ(FormatDateTime(QDateTime(date, QTime(9, 7))), u"05/11/2026 09:07"_s);
}

TEST(Format, ABirthdayIsDayAndMonthWhateverFormItWasStoredIn) {
    EXPECT_EQ(FormatDayMonthText(u"5/3"_s), u"05/03"_s);
    EXPECT_EQ(FormatDayMonthText(u"29/02"_s), u"29/02"_s);
    EXPECT_EQ(FormatDayMonthText(u"05/03/1980"_s), u"05/03"_s);
    EXPECT_EQ(FormatDayMonthText(u"31/02"_s), u"31/02"_s);
    EXPECT_EQ(FormatDayMonthText(u""_s), u""_s);
}

TEST(Format, DatesOfTheCalendarOnly) {
    EXPECT_TRUE(IsDate(u"29/02/2024"_s));
    EXPECT_FALSE(IsDate(u"29/02/2026"_s));
    EXPECT_FALSE(IsDate(u"31/02/2026"_s));
    EXPECT_FALSE(IsDate(u"__/__/____"_s));
    EXPECT_FALSE(IsDate(u"12/25/2026"_s));
    EXPECT_FALSE(IsDate(QString()));
    EXPECT_EQ(ParseDate(u"1/2/26"_s)->date(), QDate(2026, 2, 1));
    EXPECT_EQ(ParseDate(u"01/02/1999 10:30"_s)->time(), QTime(10, 30));
}

TEST(Format, ADateStandsAlsoWhereSummerTimeBeganAtItsMidnight) {
    const TimeZone brasilia("BRT3BRST,M11.1.0/0,M2.3.0/0");
    if (const QDateTime left(QDate(2018, 11, 4), QTime(0, 30)); left.isValid() && left.time() == QTime(0, 30))
        GTEST_SKIP() << "no such time zone can be set here";
    EXPECT_EQ(FormatDateTime(ParseDate(u"04/11/2018"_s).value()), u"04/11/2018 00:00"_s);
    EXPECT_EQ(FormatDateTime(ParseDate(u"04/11/2018 00:30"_s).value()), u"04/11/2018 00:30"_s);
    EXPECT_EQ(FormatDayMonthText(u"04/11/2018"_s), u"04/11"_s);
}
