#include "data/Statement.h"

#include <gtest/gtest.h>

namespace vorta::data {

namespace {

Statement example() {
    Statement statement;
    statement << "where a='" << QStringLiteral("x1") << "' and b=" << 22;
    return statement;
}

std::string value(const Statement& statement, std::size_t i) {
    const ValueSpan span = statement.values()[i];
    return statement.text().mid(span.start, span.length).toStdString();
}

} // namespace

TEST(Statement, InsertionBeforeAValueMovesIt) {
    const std::vector edits{Edit{0, 0, QStringLiteral("select 1 ")}};
    const Statement edited = example().edited(edits);
    EXPECT_EQ(edited.text(), u"select 1 where a='x1' and b=22");
    EXPECT_EQ(value(edited, 0), "x1");
    EXPECT_EQ(value(edited, 1), "22");
}

TEST(Statement, ReplacedValueKeepsASpan) {
    const Statement statement = example();
    const ValueSpan number = statement.values()[1];
    const std::vector edits{Edit{number.start, number.length, QStringLiteral("?")}};
    const Statement edited = statement.edited(edits);
    EXPECT_EQ(edited.text(), u"where a='x1' and b=?");
    EXPECT_EQ(value(edited, 0), "x1");
    EXPECT_EQ(value(edited, 1), "?");
}

TEST(Statement, EditAroundAValueGrowsIt) {
    const Statement statement = example();
    const ValueSpan text = statement.values()[0];
    const std::vector edits{Edit{text.start + 1, 0, QStringLiteral("--")}};
    EXPECT_EQ(value(statement.edited(edits), 0), "x--1");
}

TEST(Statement, SeveralEditsFromLeftToRight) {
    const std::vector edits{Edit{0, 5, QStringLiteral("on")}, Edit{6, 1, QStringLiteral("column")}};
    const Statement edited = example().edited(edits);
    EXPECT_EQ(edited.text(), u"on column='x1' and b=22");
    EXPECT_EQ(value(edited, 0), "x1");
    EXPECT_EQ(value(edited, 1), "22");
}

} // namespace vorta::data
