#include <gtest/gtest.h>

TEST(Printed, FailuresShowTextsAsTheyRead) {
    EXPECT_EQ(testing::PrintToString(QStringLiteral("João")), "\"João\"");
    EXPECT_EQ(testing::PrintToString(QStringList({"a", "ç"})), "a\nç");
    EXPECT_EQ((testing::Message() << QStringLiteral("São Paulo")).GetString(), "São Paulo");
}
