#include "data/Statement.h"
#include "base/Literals.h"

#include <gtest/gtest.h>

namespace vorta::data {

namespace {

Statement example() {
    Statement statement;
    statement << "where a='" << u"x1"_s << "' and b=" << 22;
    return statement;
}

std::string value(const Statement& statement, std::size_t i) {
    const ValueSpan span = statement.values()[i];
    return statement.text().mid(span.start, span.length).toStdString();
}

} // namespace

TEST(Statement, InsertionBeforeAValueMovesIt) {
    const std::vector edits{Edit{0, 0, u"select 1 "_s}};
    const Statement edited = example().edited(edits);
    EXPECT_EQ(edited.text(), u"select 1 where a='x1' and b=22");
    EXPECT_EQ(value(edited, 0), "x1");
    EXPECT_EQ(value(edited, 1), "22");
}

TEST(Statement, ReplacedValueKeepsASpan) {
    const Statement statement = example();
    const ValueSpan number = statement.values()[1];
    const std::vector edits{Edit{number.start, number.length, u"?"_s}};
    const Statement edited = statement.edited(edits);
    EXPECT_EQ(edited.text(), u"where a='x1' and b=?");
    EXPECT_EQ(value(edited, 0), "x1");
    EXPECT_EQ(value(edited, 1), "?");
}

TEST(Statement, EditAroundAValueGrowsIt) {
    const Statement statement = example();
    const ValueSpan text = statement.values()[0];
    const std::vector edits{Edit{text.start + 1, 0, u"--"_s}};
    EXPECT_EQ(value(statement.edited(edits), 0), "x--1");
}

TEST(Statement, SeveralEditsFromLeftToRight) {
    const std::vector edits{Edit{0, 5, u"on"_s}, Edit{6, 1, u"column"_s}};
    const Statement edited = example().edited(edits);
    EXPECT_EQ(edited.text(), u"on column='x1' and b=22");
    EXPECT_EQ(value(edited, 0), "x1");
    EXPECT_EQ(value(edited, 1), "22");
}

} // namespace vorta::data
