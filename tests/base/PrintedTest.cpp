#include "base/Literals.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Printed, FailuresShowTextsAsTheyRead) {
    EXPECT_EQ(testing::PrintToString(u"João"_s), "\"João\"");
    EXPECT_EQ(testing::PrintToString(QStringList({"a", "ç"})), "a\nç");
    EXPECT_EQ((testing::Message() << u"São Paulo"_s).GetString(), "São Paulo");
}
