#include "app/Register.h"
#include "base/Literals.h"

#include <gtest/gtest.h>

using namespace vorta;

TEST(Register, TheLaunchStringIsTheWholeCommandLine) {
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s}), u"");
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s, u"1^1^PRD^False^"_s}), u"1^1^PRD^False^");
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s, u"1 ^1^PRD^False^"_s}), u"1 ^1^PRD^False^");
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s, u"1"_s, u"^1^PRD^False^"_s}), u"1 ^1^PRD^False^");
}
