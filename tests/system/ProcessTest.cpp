#include "system/Process.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <thread>

namespace vorta::system {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

std::optional<int> endOf(OwnProcess& process) {
    QElapsedTimer waited;
    for (waited.start(); !waited.hasExpired(20000); std::this_thread::sleep_for(10ms))
        if (const std::optional<int> status = process.status())
            return status;
    return std::nullopt;
}

} // namespace

TEST(OwnProcess, RunsThisProgramWithItsArguments) {
    for (const QString& word : {u"uma \"palavra\" \\"_s, u"c:\\pasta com espaço\\"_s, u""_s}) {
        OwnProcess same({u"--same"_s, word, QString::fromLatin1(word.toUtf8().toHex())});
        ASSERT_TRUE(same.isStarted());
        EXPECT_EQ(endOf(same), 0) << word;
        OwnProcess other({u"--same"_s, word, u"00"_s});
        ASSERT_TRUE(other.isStarted());
        EXPECT_EQ(endOf(other), 1) << word;
    }
}

TEST(OwnProcess, IsKilled) {
    OwnProcess sleeps({u"--sleep"_s});
    ASSERT_TRUE(sleeps.isStarted());
    EXPECT_EQ(sleeps.status(), std::nullopt);
    QElapsedTimer waited;
    waited.start();
    sleeps.kill();
    EXPECT_LT(waited.elapsed(), 30000);
}

TEST(ProcessorTime, GrowsWithWork) {
    const auto before = ProcessorTime();
    QElapsedTimer waited;
    for (waited.start(); ProcessorTime() - before < 30ms && !waited.hasExpired(20000);) {
    }
    EXPECT_GE(ProcessorTime() - before, 30ms);
}

TEST(NumberSpace, IsTheSameForAllOfThisProcess) {
    EXPECT_FALSE(NumberSpace().isEmpty());
    EXPECT_EQ(NumberSpace(), NumberSpace());
}

} // namespace vorta::system
