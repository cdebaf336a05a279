#include "robot/Scenario.h"
#include "base/Literals.h"
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

TEST(Words, StandApartByBlanksAndTabs) {
    EXPECT_EQ(SplitWords(u"  click \t Flex  1 2 "_s), (QStringList{u"click"_s, u"Flex"_s, u"1"_s, u"2"_s}));
}

TEST(Words, KeepBlanksAndEscapesInsideQuotes) {
    EXPECT_EQ(SplitWords(uR"(type F "a b\"c\\d\n\r\t")"_s).last(), u"a b\"c\\d\n\r\t"_s);
}

TEST(Words, RepeatATextThatSaysHowOften) {
    EXPECT_EQ(SplitWords(u"type F \"ab\"*3 x"_s), (QStringList{u"type"_s, u"F"_s, u"ababab"_s, u"x"_s}));
    EXPECT_EQ(SplitWords(u"type F \"*\""_s).last(), u"*"_s);
    EXPECT_FALSE(refusal("type F \"a\"*2b").isEmpty());
}

TEST(Words, TakeTheEmptyTextForAWord) {
    EXPECT_EQ(SplitWords(u"type F \"\""_s).size(), 3);
}

TEST(Words, TakeAHashForACommentAtTheStartOnly) {
    EXPECT_TRUE(SplitWords(u"  # type F"_s).isEmpty());
    EXPECT_EQ(SplitWords(u"press #"_s).last(), u"#"_s);
}

TEST(Words, RefuseATextThatDoesNotEnd) {
    EXPECT_TRUE(refusal("type F \"abc").contains(u"no closing quote"_s));
}

TEST(Words, RefuseAnUnknownEscape) {
    EXPECT_EQ(refusal(R"(type F "\q")"), u"unknown escape \\q"_s);
}

TEST(Words, RefuseAQuoteThatTouchesAWord) {
    EXPECT_FALSE(refusal("type F \"a\"b").isEmpty());
    EXPECT_FALSE(refusal("type F a\"b").isEmpty());
}

TEST(ScenarioFile, CountsEmptyLinesAndCommentsInItsLineNumbers) {
    const Scenario scenario = Scenario::parse(u"f"_s, u"# one\r\n\r\nleave\r\n"_s);
    ASSERT_EQ(scenario.commands.size(), 1U);
    EXPECT_EQ(scenario.commands[0].line, 3);
    EXPECT_EQ(scenario.commands[0].words, QStringList{u"leave"_s});
}

TEST(ScenarioFile, ThatIsNotThereIsUnusable) {
    EXPECT_THROW(Scenario::read(u"/no/such.roteiro"_s), Failure);
}

TEST(ScenarioFile, MayBeginWithAByteOrderMark) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("\xEF\xBB\xBFleave\n");
    file.close();
    EXPECT_EQ(Scenario::read(file.fileName()).commands.at(0).words, QStringList{u"leave"_s});
}

TEST(Arguments, AreTakenApart) {
    const QStringList arguments =
        u"--home /h --desktop --trace t --engine sqlserver --tag MSSQL --server s --wire w --keep k "
        "--standing 1433 a.roteiro "
        "b.roteiro"_s.split(u' ');
    const Options options = Options::parse(arguments, u"/opt/vorta"_s);
    EXPECT_EQ(options.home, u"/h"_s);
    EXPECT_EQ(options.trace, u"t"_s);
    EXPECT_EQ(options.engine, u"sqlserver"_s);
    EXPECT_EQ(options.tag, u"MSSQL"_s);
    EXPECT_EQ(options.server, u"s"_s);
    EXPECT_EQ(options.wire, u"w"_s);
    EXPECT_EQ(options.keep, u"k"_s);
    EXPECT_EQ(options.standing, u"1433"_s);
    EXPECT_TRUE(options.desktop);
    EXPECT_EQ(options.files, (QStringList{u"a.roteiro"_s, u"b.roteiro"_s}));
}

TEST(Arguments, AreUnusableWithoutAFileOrWithAnUnknownSwitch) {
    EXPECT_THROW(Options::parse({}, u"/opt/vorta"_s), Failure);
    EXPECT_THROW(Options::parse({u"--nada"_s, u"a"_s}, u"/opt/vorta"_s), Failure);
    EXPECT_THROW(Options::parse({u"a"_s, u"--home"_s}, u"/opt/vorta"_s), Failure);
}

TEST(Rows, AreWrittenAsAScenarioComparesThem) {
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
    EXPECT_EQ(rows.text(), u"-7|<null>|MARIA\n-0.05|2026-11-20|1234.56"_s);
}

} // namespace vorta::robot
