// Plays scenario files against the SQL Server side: tds_roteiro --home DIR [--trace FILE] FILE...

#include "firebird/EmbeddedEngine.h"
#include "robot/ModelHands.h"
#include "robot/Player.h"
#include "robot/Run.h"
#include "tds/SqlServerStage.h"

#include <QCoreApplication>
#include <QFile>
#include <clocale>
#include <cstdio>

namespace {

using namespace vorta;
using namespace vorta::robot;

std::optional<Verdict> playOne(const Options& options, const Scenario& scenario, const QString& copy,
                               const std::function<void(int)>& atLine) {
    int count = 1;
    char name[] = "tds_roteiro";
    char* names[] = {name, nullptr};
    QCoreApplication application(count, names);
    QFile trace(options.trace);
    if (!options.trace.isEmpty() && !trace.open(QIODevice::Append))
        throw Failure{QStringLiteral("%1 cannot be written").arg(options.trace)};
    qputenv("VORTA_HOME", copy.toUtf8());
    test::SqlServerStage stage(options.home, copy);
    firebird::PrepareEmbeddedEngine(copy);
    Player player(
        scenario, stage, [](screen::Program&, screen::User& user) { return std::make_unique<ModelHands>(user); },
        [&](const QString& statement) {
            if (trace.isOpen())
                trace.write(QString(statement).replace(u'\n', u' ').toUtf8() + '\n');
        });
    player.onLine = atLine;
    return player.play();
}

} // namespace

int main(int count, char** values) {
    std::setlocale(LC_CTYPE, "C.UTF-8"); // file names are UTF-8 whatever the environment says
    QStringList arguments;
    for (int at = 1; at < count; ++at)
        arguments += QString::fromUtf8(values[at]);
    try {
        const Options options = Options::parse(arguments, {});
        std::vector<Scenario> scenarios;
        for (const QString& file : options.files)
            scenarios.push_back(Scenario::read(file));
        return RunAll(scenarios,
                      [&](const Scenario& scenario, const QString& copy, const std::function<void(int)>& atLine) {
                          return playOne(options, scenario, copy, atLine);
                      });
    } catch (const Failure& failure) {
        std::fprintf(stderr, "tds_roteiro: %s\n", failure.message.toUtf8().constData());
        return 2;
    }
}
