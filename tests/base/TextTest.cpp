#include "base/Text.h"
#include "base/RuntimeError.h"

#include <gtest/gtest.h>

using namespace vorta;

TEST(Text, TrimCutsBlanksOnly) {
    EXPECT_EQ(Trim(u"  a b  "_qs), u"a b"_qs);
    EXPECT_EQ(Trim(u"\ta "_qs), u"\ta"_qs);
    EXPECT_EQ(RTrim(u" a "_qs), u" a"_qs);
    EXPECT_EQ(LTrim(u" a "_qs), u"a "_qs);
    EXPECT_EQ(Trim(u"   "_qs), QString());
}

TEST(Text, UpperCaseKeepsTheLength) {
    EXPECT_EQ(UCase(u"João ß ÿ"_qs), u"JOÃO ß Ÿ"_qs);
    EXPECT_EQ(UCase(u"5 µm ƒ œ ž ª"_qs), u"5 µM ƒ Œ Ž ª"_qs);
    EXPECT_EQ(LCase(u"ÀÉÇ"_qs), u"àéç"_qs);
}

TEST(Text, MidForgivesPositionsPastTheEnd) {
    EXPECT_EQ(Mid(u"abcdef"_qs, 2, 3), u"bcd"_qs);
    EXPECT_EQ(Mid(u"abc"_qs, 3, 5), u"c"_qs);
    EXPECT_EQ(Mid(u"abc"_qs, 4, 1), QString());
    EXPECT_EQ(Left(u"abc"_qs, 9), u"abc"_qs);
}

TEST(Text, ValReadsTheNumericPrefix) {
    EXPECT_EQ(Val(u"12abc"_qs), 12);
    EXPECT_EQ(Val(u" 1 2.5 x"_qs), 12.5);
    EXPECT_EQ(Val(u"-3"_qs), -3);
    EXPECT_EQ(Val(u"1,5"_qs), 1);
    EXPECT_EQ(Val(u"."_qs), 0);
    EXPECT_EQ(Val(u"01 05"_qs), 105);
    EXPECT_EQ(Val(u"2e3"_qs), 2000);
    EXPECT_EQ(Val(u"2e"_qs), 2);
    EXPECT_EQ(Val(QString()), 0);
}

TEST(Text, NumbersAreBrazilian) {
    EXPECT_TRUE(IsNumeric(u"1.234,56"_qs));
    EXPECT_TRUE(IsNumeric(u" -3 "_qs));
    EXPECT_FALSE(IsNumeric(u""_qs));
    EXPECT_FALSE(IsNumeric(u"1,2,3"_qs));
    EXPECT_FALSE(IsNumeric(u"12a"_qs));
    EXPECT_EQ(ToNumber(u"1.234,56"_qs), 1234.56);
    EXPECT_THROW(ToNumber(u"x"_qs), RuntimeError);
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
    EXPECT_TRUE(ToBoolean(u"True"_qs));
    EXPECT_FALSE(ToBoolean(u"False"_qs));
    EXPECT_TRUE(ToBoolean(u"1"_qs));
    EXPECT_FALSE(ToBoolean(u"0"_qs));
    for (const QString& text : {u""_qs, u"."_qs, u"talvez"_qs})
        EXPECT_THROW(ToBoolean(text), RuntimeError) << text;
}

TEST(Text, RepertoireIsWindows1252) {
    EXPECT_TRUE(InRepertoire(u"ação € “aspas” ´"_qs));
    EXPECT_FALSE(InRepertoire(u"日本"_qs));
    EXPECT_EQ(OnlyRepertoire(u"a日b"_qs), u"ab"_qs);
}
