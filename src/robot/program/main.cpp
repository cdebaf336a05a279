// Plays scenario files: pessoas-roteiro [--home DIR] [--engine embedded|server|sqlserver] [--desktop] [--trace FILE]
// FILE...

#include "base/EngineWatch.h"
#include "base/Literals.h"
#include "robot/ModelHands.h"
#include "robot/Player.h"
#include "robot/Run.h"
#include "robot/program/Application.h"
#include "robot/program/Houses.h"
#include "robot/program/Installation.h"
#include "robot/program/Walking.h"
#include "robot/windows/DesktopHands.h"
#include "system/Session.h"
#include "system/ThisSystem.h"

#include <QFile>
#include <QLoggingCategory>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace vorta;
using namespace vorta::robot;

constexpr int unusable = 2;

HandsFactory handsOf(const Options& options) {
    if (options.desktop)
        return MakeDesktopHands;
    return [](screen::Program&, screen::User& user) { return std::make_unique<ModelHands>(user); };
}

/// Adds every statement to the file, one a line.
data::StatementTrace traceInto(QFile& file) {
    if (file.fileName().isEmpty())
        return {};
    return [&file](const QString& statement) {
        QString line = statement;
        line.replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s);
        file.write(line.toUtf8() + '\n');
    };
}

std::optional<Verdict> playOne(const Options& options, const House& house, const Scenario& scenario,
                               const QString& copy, const std::function<void(int)>& atLine) {
    // Windows make an application of their own, and say much that no scenario is about.
    qputenv("XDG_RUNTIME_DIR", copy.toUtf8());
    QLoggingCategory::setFilterRules(u"*.warning=false"_s);
    std::optional<Application> application;
    if (!options.desktop)
        application.emplace();
    QFile trace(options.trace);
    if (!options.trace.isEmpty() && !trace.open(QIODevice::Append))
        throw Failure{u"%1 cannot be written"_s.arg(options.trace)};
    const EngineWatch watch([](int seconds, const auto& over) { return TellAndWait(seconds, over); },
                            [] { std::_Exit(1); });
    const std::unique_ptr<Stage> stage = house.stage(copy);
    qputenv("VORTA_HOME", copy.toUtf8());
    Player player(scenario, *stage, handsOf(options), traceInto(trace));
    player.onLine = atLine;
    std::optional<Walking> walking;
    if (options.walk > 0)
        walking.emplace(player, options.seed, options.walk, options.log);
    return player.play();
}

int run(const QStringList& arguments) {
    const Options options = Options::parse(arguments, qEnvironmentVariable("VORTA_HOME", system::ThisSystem().home));
    if (!Installation::isOne(options.home))
        throw Failure{u"%1 holds no installation"_s.arg(options.home)};
    std::vector<Scenario> scenarios;
    for (const QString& file : options.files)
        scenarios.push_back(Scenario::read(file));
    QFile trace(options.trace);
    if (!options.trace.isEmpty() && !trace.open(QIODevice::WriteOnly))
        throw Failure{u"%1 cannot be written"_s.arg(options.trace)};
    trace.close();
    const std::unique_ptr<House> house = OpenHouse(options);
    return RunAll(
        scenarios,
        [&](const Scenario& scenario, const QString& copy, const std::function<void(int)>& atLine) {
            return playOne(options, *house, scenario, copy, atLine);
        },
        [&] { house->clear(); });
}

} // namespace

int main(int count, char** values) {
    system::NameFilesInUtf8();
    QStringList arguments;
    for (int at = 1; at < count; ++at)
        arguments += QString::fromUtf8(values[at]);
    try {
        return run(arguments);
    } catch (const Failure& failure) {
        std::fprintf(stderr, "pessoas-roteiro: %s\n", failure.message.toUtf8().constData());
        return unusable;
    }
}
