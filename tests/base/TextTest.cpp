#include "base/Text.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <limits>

using namespace vorta;

TEST(Text, TrimCutsBlanksOnly) {
    EXPECT_EQ(Trim(u"  a b  "_s), u"a b"_s);
    EXPECT_EQ(Trim(u"\ta "_s), u"\ta"_s);
    EXPECT_EQ(RTrim(u" a "_s), u" a"_s);
    EXPECT_EQ(LTrim(u" a "_s), u"a "_s);
    EXPECT_EQ(Trim(u"   "_s), QString());
}

TEST(Text, UpperCaseKeepsTheLength) {
    EXPECT_EQ(UCase(u"João ß ÿ"_s), u"JOÃO ß Ÿ"_s);
    EXPECT_EQ(UCase(u"5 µm ƒ œ ž ª"_s), u"5 µM ƒ Œ Ž ª"_s);
    EXPECT_EQ(LCase(u"ÀÉÇ"_s), u"àéç"_s);
}

TEST(Text, MidForgivesPositionsPastTheEnd) {
    EXPECT_EQ(Mid(u"abcdef"_s, 2, 3), u"bcd"_s);
    EXPECT_EQ(Mid(u"abc"_s, 3, 5), u"c"_s);
    EXPECT_EQ(Mid(u"abc"_s, 4, 1), QString());
    EXPECT_EQ(Left(u"abc"_s, 9), u"abc"_s);
}

TEST(Text, ValReadsTheNumericPrefix) {
    EXPECT_EQ(Val(u"12abc"_s), 12);
    EXPECT_EQ(Val(u" 1 2.5 x"_s), 12.5);
    EXPECT_EQ(Val(u"-3"_s), -3);
    EXPECT_EQ(Val(u"1,5"_s), 1);
    EXPECT_EQ(Val(u"."_s), 0);
    EXPECT_EQ(Val(u"01 05"_s), 105);
    EXPECT_EQ(Val(u"2e3"_s), 2000);
    EXPECT_EQ(Val(u"2e"_s), 2);
    EXPECT_EQ(Val(u"2e+"_s), 2);
    EXPECT_EQ(Val(u"5.x"_s), 5);
    EXPECT_EQ(Val(u"-.5-"_s), -0.5);
    EXPECT_EQ(Val(u"-"_s), 0);
    EXPECT_EQ(Val(QString()), 0);
}

TEST(Text, ValTakesALongTextInOnePass) {
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(Val(QString(300'000, u'9')), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Val(u'-' + QString(300'000, u'9')), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(Val(u"7"_s + QString(300'000, u' ') + u"e"_s), 7);
    EXPECT_LT(time.elapsed(), 5000);
    EXPECT_THROW(ToInt32(Val(QString(400, u'9'))), RuntimeError);
}

TEST(Text, NumbersAreBrazilian) {
    EXPECT_TRUE(IsNumeric(u"1.234,56"_s));
    EXPECT_TRUE(IsNumeric(u" -3 "_s));
    EXPECT_FALSE(IsNumeric(u""_s));
    EXPECT_FALSE(IsNumeric(u"1,2,3"_s));
    EXPECT_FALSE(IsNumeric(u"12a"_s));
    EXPECT_EQ(ToNumber(u"1.234,56"_s), 1234.56);
    EXPECT_THROW(ToNumber(u"x"_s), RuntimeError);
}

TEST(Text, SixteenBitsOverflow) {
    EXPECT_EQ(ToInt16(32767), 32767);
    EXPECT_EQ(ToInt16(2.5), 2);
    try {
        ToInt16(32768);
        FAIL() << "no overflow";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), errorNumber::Overflow);
    }
}

TEST(Text, BooleansAreWordsOrNumbers) {
    EXPECT_TRUE(ToBoolean(u"True"_s));
    EXPECT_FALSE(ToBoolean(u"False"_s));
    EXPECT_TRUE(ToBoolean(u"1"_s));
    EXPECT_FALSE(ToBoolean(u"0"_s));
    for (const QString& text : {u""_s, u"."_s, u"talvez"_s})
        EXPECT_THROW(ToBoolean(text), RuntimeError) << text;
}
