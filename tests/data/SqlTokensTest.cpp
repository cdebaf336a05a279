#include "data/SqlTokens.h"

#include <gtest/gtest.h>

namespace vorta::data {

namespace {

/// Every token as "kind:text", an unclosed one with "!".
std::string tokens(const char* utf8) {
    constexpr const char* kinds[] = {"word", "number", "literal", "name", "comment", "symbol"};
    const QString text = QString::fromUtf8(utf8);
    std::string all;
    for (const SqlToken& token : SqlTokens(text)) {
        all += all.empty() ? "" : " ";
        all += kinds[static_cast<int>(token.kind)];
        all += token.closed ? ":" : "!";
        all += token.in(text).toString().toStdString();
    }
    return all;
}

} // namespace

TEST(SqlTokens, WordsNumbersAndSymbols) {
    EXPECT_EQ(tokens("select a.idPess, 12 from t"),
              "word:select word:a symbol:. word:idPess symbol:, number:12 word:from word:t");
}

TEST(SqlTokens, NumbersWithPointAndExponent) {
    EXPECT_EQ(tokens("1 12.5 .5 3. 1e5 2E-3"), "number:1 number:12.5 number:.5 number:3. number:1e5 number:2E-3");
}

TEST(SqlTokens, PointBehindNameIsQualifier) {
    EXPECT_EQ(tokens("t.5"), "word:t symbol:. number:5");
}

TEST(SqlTokens, LiteralKeepsDoubledApostropheAndMarksOfOthers) {
    EXPECT_EQ(tokens("'it''s' 'a--b' '/*x*/' '\"q\"'"),
              "literal:'it''s' literal:'a--b' literal:'/*x*/' literal:'\"q\"'");
}

TEST(SqlTokens, UnclosedForms) {
    EXPECT_EQ(tokens("'abc"), "literal!'abc");
    EXPECT_EQ(tokens("'abc''"), "literal!'abc''");
    EXPECT_EQ(tokens("\"abc"), "name!\"abc");
    EXPECT_EQ(tokens("/* abc"), "comment!/* abc");
}

TEST(SqlTokens, QuotedNames) {
    EXPECT_EQ(tokens("\"a b\" [c d]"), "name:\"a b\" name:[c d]");
}

TEST(SqlTokens, CommentsEndWithLineOrMark) {
    EXPECT_EQ(tokens("a --b 'c'\nd"), "word:a comment:--b 'c'\n word:d");
    EXPECT_EQ(tokens("a /* 'b' */ c"), "word:a comment:/* 'b' */ word:c");
    EXPECT_EQ(tokens("a -- b"), "word:a comment:-- b");
}

TEST(SqlTokens, VariablesAndSystemNamesAreWords) {
    EXPECT_EQ(tokens("@@IDENTITY RDB$GENERATORS"), "word:@@IDENTITY word:RDB$GENERATORS");
}

TEST(SqlTokens, SymbolsStandAlone) {
    EXPECT_EQ(tokens(">=-1;"), "symbol:> symbol:= symbol:- number:1 symbol:;");
}

TEST(SqlTokens, AccentedTextAndNothing) {
    EXPECT_EQ(tokens("'JOÃO' ação"), "literal:'JOÃO' word:ação");
    EXPECT_EQ(tokens("  \n\t "), "");
}

} // namespace vorta::data
