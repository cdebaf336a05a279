#include "data/Guard.h"
#include "base/Literals.h"

#include "base/RuntimeError.h"

#include <gtest/gtest.h>

namespace vorta::data {

namespace {

Statement inLiteral(const char* value) {
    Statement statement;
    statement << "select * from pess where nome='" << QString::fromUtf8(value) << "' and idpess=1";
    return statement;
}

Statement asNumber(const char* value) {
    Statement statement;
    statement << "select * from pess where idpess = " << QString::fromUtf8(value) << " order by nome";
    return statement;
}

Statement update(const char* first, const char* second) {
    Statement statement;
    statement << "update pess set nome='" << QString::fromUtf8(first) << "', obse='" << QString::fromUtf8(second)
              << "' where idpess=5";
    return statement;
}

int outcome(const Statement& statement) {
    try {
        GuardStatement(statement);
        return 0;
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.statement(), statement.text());
        EXPECT_EQ(failure.sqlState(), u"42000");
        EXPECT_TRUE(failure.description().startsWith(u"Incorrect syntax near '"));
        return failure.number();
    }
}

constexpr int refused = errorNumber::StatementRefused;

} // namespace

class GuardLetsText : public testing::TestWithParam<const char*> {};
TEST_P(GuardLetsText, InsideALiteral) {
    EXPECT_EQ(outcome(inLiteral(GetParam())), 0);
}
INSTANTIATE_TEST_SUITE_P(Guard, GuardLetsText,
                         testing::Values("", " ", "JOSÉ DA SILVA", "a--b", "/* x */", "1; drop table pess", "\"aspas\"",
                                         "[colchete]", "100%", "D''AVILA", "''", "linha\nlinha", "a\\b", "or 1=1"));

class GuardRefusesText : public testing::TestWithParam<const char*> {};
TEST_P(GuardRefusesText, ThatLeavesItsLiteral) {
    EXPECT_EQ(outcome(inLiteral(GetParam())), refused);
}
INSTANTIATE_TEST_SUITE_P(Guard, GuardRefusesText,
                         testing::Values("D'AVILA", "'", "x'", "'x", "'''", "x' or '1'='1", "x' or 1=1 --",
                                         "x'; delete from pess; --", "x' /*", "a' union select senha from usen --",
                                         "x''' or 1=1 --", "' 'a' '"));

class GuardLetsNumber : public testing::TestWithParam<const char*> {};
TEST_P(GuardLetsNumber, AsItStands) {
    EXPECT_EQ(outcome(asNumber(GetParam())), 0);
}
INSTANTIATE_TEST_SUITE_P(Guard, GuardLetsNumber,
                         testing::Values("", "  ", "0", "12", "-12", "12.50", "-0.5", " 7 ", "+7", "7.", "+7.", ".5",
                                         "-.5", "99999999999999999999"));

class GuardRefusesNumber : public testing::TestWithParam<const char*> {};
TEST_P(GuardRefusesNumber, ThatIsMore) {
    EXPECT_EQ(outcome(asNumber(GetParam())), refused);
}
INSTANTIATE_TEST_SUITE_P(Guard, GuardRefusesNumber,
                         testing::Values("1 or 1=1", "1;", "1--", "-", "--1", "++1", "+-1", "- 1", "+ 1", "+", ".",
                                         "-.", "1e5", "0x10", "1,5", "1..", "idpess", "1)", "'1'", "null", "1/*",
                                         "1\n2", "1.2.3", "١٢"));

TEST(Guard, MinusThatMakesACommentIsRefused) {
    Statement statement;
    statement << "update prod set qtde = qtde -" << u"-5"_s << " where idprod = 1";
    EXPECT_EQ(outcome(statement), refused);
}

TEST(Guard, NumberGluedToANameIsRefused) {
    for (const QString& value : {u"1"_s, u".5"_s}) {
        Statement statement;
        statement << "select coluna" << value << " from pess";
        EXPECT_EQ(outcome(statement), refused) << value;
    }
}

TEST(Guard, NumberInACommentOrQuotedNameIsRefused) {
    Statement comment;
    comment << "select 1 -- " << 5 << "\n from pess";
    EXPECT_EQ(outcome(comment), refused);
    Statement name;
    name << "select \"" << 5 << "\" from pess";
    EXPECT_EQ(outcome(name), refused);
}

TEST(Guard, TwoValuesCannotSwallowWhatStandsBetweenThem) {
    EXPECT_EQ(outcome(update("x'", "'")), refused);
    EXPECT_EQ(outcome(update("x'", " or 1=1 --")), refused);
    EXPECT_EQ(outcome(update("x\\", "5")), 0);
    EXPECT_EQ(outcome(update("D''AVILA", "''")), 0);
}

TEST(Guard, AdjacentValuesCannotShareApostrophes) {
    Statement statement;
    statement << "select * from pess where nome='" << u"a'"_s << u"'b"_s << "'";
    EXPECT_EQ(outcome(statement), refused);
}

TEST(Guard, ZeroCharacterIsRefused) {
    Statement statement;
    statement << "select * from pess where nome='" << QString(QChar(u'\0')) << "' and idpess=1";
    EXPECT_EQ(outcome(statement), refused);
}

/// A driver that takes the text for UTF-16 stops at half a pair, and what stands behind it would never be sent.
TEST(Guard, HalfASurrogatePairIsRefused) {
    constexpr QChar high(0xD83D);
    constexpr QChar low(0xDE00);
    const auto holding = [](const QString& value) {
        Statement statement;
        statement << "update pess set nome='" << value << "' where idpess=5";
        return statement;
    };
    EXPECT_EQ(outcome(holding(QString(high))), refused);
    EXPECT_EQ(outcome(holding(QString(low))), refused);
    EXPECT_EQ(outcome(holding(u"a"_s + low + high + u'b')), refused);
    EXPECT_EQ(outcome(holding(u"a"_s + high + low + u'b')), 0);
    Statement halves = holding(QString(high));
    halves << " or nome='" << QString(low) << "'";
    EXPECT_EQ(outcome(halves), refused);
}

TEST(Guard, EmptyValueStandsAnywhere) {
    Statement statement;
    statement << "select " << QString() << "* from pe" << QString() << "ss";
    EXPECT_EQ(outcome(statement), 0);
}

TEST(Guard, ProgramTextIsNeverJudged) {
    EXPECT_EQ(outcome(Statement("select 'unclosed")), 0);
    EXPECT_EQ(outcome(Statement("delete from a; delete from b -- both")), 0);
    Statement unclosed;
    unclosed << "select * from pess where nome='" << u"x"_s;
    EXPECT_EQ(outcome(unclosed), refused);
}

TEST(Guard, SpansStayTrueInCapitals) {
    Statement statement;
    statement << "select * from pess where nome='" << u"straße d'água"_s << "'";
    EXPECT_EQ(outcome(statement.upper()), refused);
    Statement fine;
    fine << "select * from pess where nome='" << u"straße"_s << "' and idpess=" << 3;
    EXPECT_EQ(outcome(fine.upper()), 0);
}

} // namespace vorta::data
