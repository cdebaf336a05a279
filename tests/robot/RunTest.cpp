#include "robot/Run.h"
#include "base/Literals.h"

#include "robot/Player.h"

#include <QDir>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>

namespace vorta::robot {

namespace {

/// Plays scenarios named by their files and gives what was printed, with the exit status in front.
QString Printed(
    const QStringList& files, const PlayOne& play, const std::function<void()>& behindEach = [] {}) {
    std::vector<Scenario> scenarios;
    for (const QString& file : files)
        scenarios.push_back({file, {}});
    testing::internal::CaptureStdout();
    const int status = RunAll(scenarios, play, behindEach);
    return QString::number(status) + u'\n' + QString::fromStdString(testing::internal::GetCapturedStdout());
}

const QString a = u"a.roteiro"_s;
const QString b = u"b.roteiro"_s;

} // namespace

TEST(ARun, PrintsALineForEachFileAndTheirNumbers) {
    const PlayOne play = [](const Scenario& scenario, const QString&, const auto&) -> std::optional<Verdict> {
        if (scenario.file == a)
            return {};
        return Verdict{7, u"expected 1,\nwas ç"_s};
    };
    EXPECT_EQ(Printed({a, b}, play), u"1\nok a.roteiro\nnot ok b.roteiro:7: expected 1, was ç\n1 passed, 1 failed\n"_s);
    EXPECT_EQ(Printed({a}, play), u"0\nok a.roteiro\n1 passed, 0 failed\n"_s);
}

TEST(ARun, GivesEveryScenarioAFolderOfItsOwn) {
    const PlayOne play = [](const Scenario&, const QString& copy, const auto&) -> std::optional<Verdict> {
        if (!QDir(copy).isEmpty() || !QDir(copy).mkdir(u"used"_s))
            return Verdict{1, u"not empty"_s};
        return {};
    };
    EXPECT_EQ(Printed({a, b}, play), u"0\nok a.roteiro\nok b.roteiro\n2 passed, 0 failed\n"_s);
}

TEST(ARun, GoesOnBehindAScenarioThatCrashes) {
    const PlayOne play = [](const Scenario& scenario, const QString&, const auto& atLine) -> std::optional<Verdict> {
        atLine(3);
        if (scenario.file == a)
            std::raise(SIGKILL);
        return {};
    };
    EXPECT_EQ(Printed({a, b}, play), u"1\nnot ok a.roteiro:3: expected a running program, it crashed with "
                                     "signal 9\nok b.roteiro\n1 passed, 1 failed\n"_s);
}

TEST(ARun, ClearsUpBehindEveryScenarioInItsOwnProcess) {
    const PlayOne play = [](const Scenario& scenario, const QString&, const auto&) -> std::optional<Verdict> {
        if (scenario.file == a)
            std::raise(SIGKILL);
        return Verdict{1, u"no"_s};
    };
    int cleared = 0;
    Printed({a, b}, play, [&] { ++cleared; });
    EXPECT_EQ(cleared, 2);
}

TEST(ARun, StopsBehindAScenarioWhenItIsToEnd) {
    const auto passed = [](const Scenario&, const QString&, const auto&) { return std::optional<Verdict>(); };
    int cleared = 0;
    const auto run = [&] {
        return Printed({a, b}, passed, [&] {
            ++cleared;
            std::raise(SIGTERM);
        });
    };
    // The wish stays with the process, so another one makes it.
    EXPECT_EXIT(
        {
            const QString printed = run();
            const bool right = printed == u"1\nok a.roteiro\n1 passed, 0 failed\n" && cleared == 1;
            std::exit(right ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST(ARun, WorksApart) {
    int here = 0;
    WorkApart([&] { here = 1; });
    EXPECT_EQ(here, 0);
    try {
        WorkApart([] { throw Failure{u"nothing there"_s}; });
        FAIL() << "the failure stayed there";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.message, u"nothing there");
    }
    EXPECT_THROW(WorkApart([] { std::raise(SIGKILL); }), Failure);
}

TEST(ARun, EndsACommandThatNeverEnds) {
    const PlayOne play = [](const Scenario&, const QString&, const auto& atLine) -> std::optional<Verdict> {
        atLine(5);
        std::raise(SIGALRM);
        return {};
    };
    EXPECT_EQ(Printed({a}, play),
              u"1\nnot ok a.roteiro:5: expected the command to end, it ran for 450 seconds\n0 passed, 1 failed\n"_s);
}

TEST(ARun, FailsAScenarioWhoseInstallationCannotBeUsed) {
    const PlayOne play = [](const Scenario&, const QString&, const auto&) -> std::optional<Verdict> {
        throw Failure{u"holds no installation"_s};
    };
    EXPECT_EQ(Printed({a}, play), u"1\nnot ok a.roteiro:0: holds no installation\n0 passed, 1 failed\n"_s);
}

} // namespace vorta::robot
