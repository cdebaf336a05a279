#include "app/Register.h"
#include "base/Literals.h"

#include <gtest/gtest.h>

using namespace vorta;

TEST(Register, the_launch_string_is_the_whole_command_line) {
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s}), u"");
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s, u"1^1^PRD^False^"_s}), u"1^1^PRD^False^");
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s, u"1 ^1^PRD^False^"_s}), u"1 ^1^PRD^False^");
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s, u"1"_s, u"^1^PRD^False^"_s}), u"1 ^1^PRD^False^");
}
