#include "data/Value.h"
#include "base/Literals.h"

#include "support/ErrorOf.h"

#include <gtest/gtest.h>

namespace vorta::data {

namespace {

using test::ErrorOf;

Value decimal(qint64 unscaled, int scale) {
    return Decimal{unscaled, scale};
}
Value text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

} // namespace

TEST(Value, DecimalTextKeepsDigitsWithoutTrailingZeros) {
    EXPECT_EQ(decimal(123450, 2).text(), u"1234,5");
    EXPECT_EQ(decimal(1200, 2).text(), u"12");
    EXPECT_EQ(decimal(-5, 2).text(), u"-0,05");
    EXPECT_EQ(decimal(0, 2).text(), u"0");
    EXPECT_EQ(decimal(7, 0).text(), u"7");
    EXPECT_EQ(decimal(100, 0).text(), u"100");
    EXPECT_EQ(decimal(999999999999999, 2).text(), u"9999999999999,99");
}

TEST(Value, OtherKindsAsText) {
    EXPECT_EQ(Value(qint64{-42}).text(), u"-42");
    EXPECT_EQ(text("São").text(), u"São");
    EXPECT_EQ(Value(QDateTime(QDate(2026, 3, 7), QTime(0, 0))).text(), u"07/03/2026");
    EXPECT_EQ(Value().textOr(u"-"_s), u"-");
    EXPECT_EQ(text("").textOr(u"-"_s), u"");
}

TEST(Value, NullRaises94) {
    EXPECT_EQ(ErrorOf([] { (void)Value().text(); }), errorNumber::InvalidNull);
    EXPECT_EQ(ErrorOf([] { (void)Value().number(); }), errorNumber::InvalidNull);
    EXPECT_EQ(ErrorOf([] { (void)Value().toInt16(); }), errorNumber::InvalidNull);
    EXPECT_EQ(ErrorOf([] { (void)Value().date(); }), errorNumber::InvalidNull);
}

TEST(Value, NumbersFromEveryKind) {
    EXPECT_EQ(Value(qint64{12}).number(), 12.0);
    EXPECT_EQ(decimal(1250, 2).number(), 12.5);
    EXPECT_EQ(text("1.234,5").number(), 1234.5);
    EXPECT_EQ(ErrorOf([] { (void)text("abc").number(); }), errorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { (void)Value(QDateTime::currentDateTime()).number(); }), errorNumber::TypeMismatch);
}

TEST(Value, IntegersHaveARange) {
    EXPECT_EQ(Value(qint64{32767}).toInt16(), 32767);
    EXPECT_EQ(ErrorOf([] { (void)Value(qint64{32768}).toInt16(); }), errorNumber::Overflow);
    EXPECT_EQ(Value(qint64{2147483647}).toInt32(), 2147483647);
    EXPECT_EQ(ErrorOf([] { (void)Value(qint64{2147483648}).toInt32(); }), errorNumber::Overflow);
    EXPECT_EQ(text("15").toInt32(), 15);
}

TEST(Value, DatesFromDatesAndTexts) {
    EXPECT_EQ(text("07/03/2026").date().date(), QDate(2026, 3, 7));
    EXPECT_EQ(ErrorOf([] { (void)text("31/02/2026").date(); }), errorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { (void)Value(qint64{5}).date(); }), errorNumber::TypeMismatch);
}

} // namespace vorta::data
