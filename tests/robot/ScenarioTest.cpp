#include "robot/Scenario.h"
#include "robot/RowText.h"
#include "robot/Run.h"

#include <QTemporaryFile>
#include <gtest/gtest.h>

namespace vorta::robot {

namespace {

QString refusal(const char* line) {
    try {
        SplitWords(QString::fromUtf8(line));
    } catch (const Failure& failure) {
        return failure.message;
    }
    return {};
}

} // namespace

TEST(Words, standApartByBlanksAndTabs) {
    EXPECT_EQ(SplitWords(QStringLiteral("  click \t Flex  1 2 ")),
              (QStringList{QStringLiteral("click"), QStringLiteral("Flex"), QStringLiteral("1"), QStringLiteral("2")}));
}

TEST(Words, keepBlanksAndEscapesInsideQuotes) {
    EXPECT_EQ(SplitWords(QStringLiteral(R"(type F "a b\"c\\d\n\r\t")")).last(), QStringLiteral("a b\"c\\d\n\r\t"));
}

TEST(Words, takeTheEmptyTextForAWord) {
    EXPECT_EQ(SplitWords(QStringLiteral("type F \"\"")).size(), 3);
}

TEST(Words, takeAHashForACommentAtTheStartOnly) {
    EXPECT_TRUE(SplitWords(QStringLiteral("  # type F")).isEmpty());
    EXPECT_EQ(SplitWords(QStringLiteral("press #")).last(), QStringLiteral("#"));
}

TEST(Words, refuseATextThatDoesNotEnd) {
    EXPECT_TRUE(refusal("type F \"abc").contains(QStringLiteral("no closing quote")));
}

TEST(Words, refuseAnUnknownEscape) {
    EXPECT_EQ(refusal(R"(type F "\q")"), QStringLiteral("unknown escape \\q"));
}

TEST(Words, refuseAQuoteThatTouchesAWord) {
    EXPECT_FALSE(refusal("type F \"a\"b").isEmpty());
    EXPECT_FALSE(refusal("type F a\"b").isEmpty());
}

TEST(ScenarioFile, countsEmptyLinesAndCommentsInItsLineNumbers) {
    const Scenario scenario = Scenario::parse(QStringLiteral("f"), QStringLiteral("# one\r\n\r\nleave\r\n"));
    ASSERT_EQ(scenario.commands.size(), 1U);
    EXPECT_EQ(scenario.commands[0].line, 3);
    EXPECT_EQ(scenario.commands[0].words, QStringList{QStringLiteral("leave")});
}

TEST(ScenarioFile, thatIsNotThereIsUnusable) {
    EXPECT_THROW(Scenario::read(QStringLiteral("/no/such.roteiro")), Failure);
}

TEST(ScenarioFile, mayBeginWithAByteOrderMark) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("\xEF\xBB\xBFleave\n");
    file.close();
    EXPECT_EQ(Scenario::read(file.fileName()).commands.at(0).words, QStringList{QStringLiteral("leave")});
}

TEST(Arguments, areTakenApart) {
    const QStringList arguments =
        QStringLiteral("--home /h --desktop --trace t --engine sqlserver --tag MSSQL --server s --wire w a.roteiro "
                       "b.roteiro")
            .split(u' ');
    const Options options = Options::parse(arguments, QStringLiteral("/opt/vorta"));
    EXPECT_EQ(options.home, QStringLiteral("/h"));
    EXPECT_EQ(options.trace, QStringLiteral("t"));
    EXPECT_EQ(options.engine, QStringLiteral("sqlserver"));
    EXPECT_EQ(options.tag, QStringLiteral("MSSQL"));
    EXPECT_EQ(options.server, QStringLiteral("s"));
    EXPECT_EQ(options.wire, QStringLiteral("w"));
    EXPECT_TRUE(options.desktop);
    EXPECT_EQ(options.files, (QStringList{QStringLiteral("a.roteiro"), QStringLiteral("b.roteiro")}));
}

TEST(Arguments, areUnusableWithoutAFileOrWithAnUnknownSwitch) {
    EXPECT_THROW(Options::parse({}, QStringLiteral("/opt/vorta")), Failure);
    EXPECT_THROW(Options::parse({QStringLiteral("--nada"), QStringLiteral("a")}, QStringLiteral("/opt/vorta")),
                 Failure);
    EXPECT_THROW(Options::parse({QStringLiteral("a"), QStringLiteral("--home")}, QStringLiteral("/opt/vorta")),
                 Failure);
}

TEST(Rows, areWrittenAsAScenarioComparesThem) {
    RowText rows;
    rows.beginRow();
    rows.integer(-7);
    rows.null();
    rows.text("MARIA  ");
    rows.endRow();
    rows.beginRow();
    rows.decimal({-5, 2});
    rows.date(QDate(2026, 11, 20).startOfDay());
    rows.decimal({123456, 2});
    rows.endRow();
    EXPECT_EQ(rows.text(), QStringLiteral("-7|<null>|MARIA\n-0.05|2026-11-20|1234.56"));
}

} // namespace vorta::robot
