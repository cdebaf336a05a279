#include "base/EngineWatch.h"

#include <gtest/gtest.h>

namespace vorta {

namespace {

using namespace std::chrono_literals;

/// A watch in a hurry, with an answer given beforehand.
class EngineWatchTest : public testing::Test {
  protected:
    /// `silence` is long where a busy machine must not make one.
    void watch(WaitAnswer answer, std::chrono::milliseconds silence = 40ms) {
        watch_ = std::make_unique<EngineWatch>(
            [this, answer](int, const std::function<bool()>& over) {
                ++asked_;
                for (int step = 0; answer == WaitAnswer::Wait && step < 10 && !over(); ++step)
                    std::this_thread::sleep_for(1ms);
                cameBack_ = over();
                return answer;
            },
            [this] { ended_ = true; }, EngineWatch::Times{.look = 2ms, .silence = silence, .again = 40ms, .end = 20ms});
    }
    template <typename Condition>
    bool comes(Condition condition) {
        for (int step = 0; step < 2000; ++step, std::this_thread::sleep_for(1ms))
            if (condition())
                return true;
        return false;
    }

    std::atomic<int> asked_ = 0;
    std::atomic<bool> ended_ = false;
    std::atomic<bool> cameBack_ = false;
    std::unique_ptr<EngineWatch> watch_;
};

} // namespace

TEST_F(EngineWatchTest, SaysNothingWhileCallsComeBack) {
    watch(WaitAnswer::End, 600ms);
    for (int call = 0; call < 200; ++call) {
        const EngineCall running;
        std::this_thread::sleep_for(4ms);
    }
    std::this_thread::sleep_for(800ms); // no call at all
    EXPECT_EQ(asked_, 0);
    EXPECT_FALSE(ended_);
}

TEST_F(EngineWatchTest, SaysNothingOfALongCallThatGetsOn) {
    watch(WaitAnswer::End, 600ms);
    const EngineCall running;
    for (int row = 0; row < 200; ++row, std::this_thread::sleep_for(4ms))
        EngineCall::Goes();
    EXPECT_EQ(asked_, 0);
}

TEST_F(EngineWatchTest, EndsASilentCallWhenTheUserWantsIt) {
    watch(WaitAnswer::End);
    const EngineCall running;
    EXPECT_TRUE(comes([&] { return ended_.load(); }));
    EXPECT_EQ(asked_, 1);
}

TEST_F(EngineWatchTest, AsksAgainAboutACallThatWasWaitedFor) {
    watch(WaitAnswer::Wait);
    const EngineCall running;
    EXPECT_TRUE(comes([&] { return asked_ >= 3; }));
    EXPECT_FALSE(ended_);
}

TEST_F(EngineWatchTest, TellsTheQuestionThatTheCallHasComeBack) {
    watch(WaitAnswer::Wait);
    {
        const EngineCall running;
        ASSERT_TRUE(comes([&] { return asked_ == 1; }));
    }
    EXPECT_TRUE(comes([&] { return cameBack_.load(); }));
    EXPECT_FALSE(ended_);
}

TEST_F(EngineWatchTest, EndsASilentCallWhenTheSystemWantsIt) {
    watch(WaitAnswer::Wait);
    const EngineCall running;
    EngineWatch::WantEnd();
    EXPECT_TRUE(comes([&] { return ended_.load(); }));
}

TEST_F(EngineWatchTest, LeavesTheSystemsWishToAProgramThatIsInNoCall) {
    watch(WaitAnswer::Wait);
    EngineWatch::WantEnd();
    std::this_thread::sleep_for(120ms);
    EXPECT_FALSE(ended_);
}

TEST_F(EngineWatchTest, CountsACallInsideACallAsOne) {
    watch(WaitAnswer::End);
    const EngineCall outer;
    { const EngineCall inner; }
    EXPECT_TRUE(comes([&] { return ended_.load(); }));
}

TEST(TellAndWait, EndsWhatRestsAndWaitsForWhatWorks) {
    EXPECT_EQ(TellAndWait(
                  5, [] { return false; }, 300ms),
              WaitAnswer::End);
    int looks = 0;
    EXPECT_EQ(TellAndWait(
                  5, [&] { return ++looks == 2; }, 10s),
              WaitAnswer::Wait);
    std::atomic<bool> working = true;
    std::thread work([&] {
        while (working) {
        }
    });
    const auto until = std::chrono::steady_clock::now() + 3000ms;
    EXPECT_EQ(TellAndWait(
                  5, [&] { return std::chrono::steady_clock::now() > until; }, 1500ms),
              WaitAnswer::Wait);
    working = false;
    work.join();
}

} // namespace vorta
