#include "system/Endings.h"

#include <csignal>
#include <gtest/gtest.h>
#include <optional>

using namespace vorta;

namespace {

volatile std::sig_atomic_t takenAway = 0;

/// As a library does that takes the signals for itself.
void takeAway() {
    std::signal(SIGINT, [](int) { takenAway = 1; });
}

} // namespace

// The wish is remembered for good, so each test ends as a process of its own.
TEST(EndingsDeathTest, AreNotedAndAnsweredAtOnce) {
    EXPECT_EXIT(
        {
            system::NoteEndings("Interrompendo...");
            std::raise(SIGINT);
            std::_Exit(system::EndingWanted() ? 3 : 4);
        },
        testing::ExitedWithCode(3), "^Interrompendo\\.\\.\\.$");
}

TEST(EndingsDeathTest, AreHeardAgainBehindALibraryThatTakesThem) {
    EXPECT_EXIT(
        {
            system::NoteEndings();
            {
                const system::HeldEndings held(false);
                takeAway();
            }
            std::raise(SIGINT);
            std::_Exit(system::EndingWanted() && !takenAway ? 3 : 4);
        },
        testing::ExitedWithCode(3), "^$");
}

TEST(EndingsDeathTest, ThatComeWhileALibraryTakesThemAreNotItsOwn) {
    EXPECT_EXIT(
        {
            system::NoteEndings();
            std::optional<system::HeldEndings> held(std::in_place, true);
            takeAway();
            std::raise(SIGINT);
            const bool early = takenAway || system::EndingWanted();
            held.reset();
            std::_Exit(!early && !takenAway && system::EndingWanted() ? 3 : 4);
        },
        testing::ExitedWithCode(3), "^$");
}

TEST(EndingsDeathTest, EndTheProcessBehindALibraryWhereNobodyNotesThem) {
    EXPECT_EXIT(
        {
            {
                const system::HeldEndings held(true);
                takeAway();
            }
            std::raise(SIGINT);
            std::_Exit(4);
        },
        testing::KilledBySignal(SIGINT), "^$");
}
