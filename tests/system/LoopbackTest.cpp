#include "system/Loopback.h"

#include <gtest/gtest.h>

namespace vorta::system {

TEST(Loopback, FreePortIsOnePortThatNobodyAnswersOn) {
    const int port = FreePort();
    EXPECT_GT(port, 1024);
    EXPECT_LT(port, 65536);
    EXPECT_FALSE(AnswersOnPort(port));
}

} // namespace vorta::system
