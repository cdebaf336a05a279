// Plays scenario files against the SQL Server side: tds_roteiro --home DIR [--trace FILE] FILE...

#include "firebird/EmbeddedEngine.h"
#include "robot/ModelHands.h"
#include "robot/Player.h"
#include "robot/Run.h"
#include "tds/SqlServerStage.h"

#include <QCoreApplication>
#include <QFile>
#include <QSet>
#include <clocale>
#include <cstdio>

namespace {

using namespace vorta;
using namespace vorta::robot;

QString oneLine(QString statement) {
    return statement.replace(u'\n', u' ');
}

/// Adds the statements of the program that the server took: one that the guard has refused never came there, and one
/// that is incomplete (an empty number) was refused there.
void addTo(const QString& file, const QStringList& sent, const QStringList& wire) {
    if (file.isEmpty())
        return;
    QFile trace(file);
    if (!trace.open(QIODevice::Append))
        throw Failure{u"%1 cannot be written"_qs.arg(file)};
    QSet<QString> taken;
    for (qsizetype at = 0; at < wire.size(); ++at)
        if (!wire.value(at + 1).startsWith(u"-- refused"))
            taken += wire[at];
    for (const QString& statement : sent)
        if (taken.contains(statement))
            trace.write(statement.toUtf8() + '\n');
}

std::optional<Verdict> playOne(const Options& options, const Scenario& scenario, const QString& copy,
                               const std::function<void(int)>& atLine) {
    int count = 1;
    char name[] = "tds_roteiro";
    char* names[] = {name, nullptr};
    QCoreApplication application(count, names);
    qputenv("VORTA_HOME", copy.toUtf8());
    QStringList sent;
    test::SqlServerStage stage(options.home, copy);
    firebird::PrepareEmbeddedEngine(copy);
    Player player(
        scenario, stage, [](screen::Program&, screen::User& user) { return std::make_unique<ModelHands>(user); },
        [&](const QString& statement) { sent += oneLine(statement); });
    player.onLine = atLine;
    const auto verdict = player.play();
    addTo(options.trace, sent, stage.wireTrace());
    return verdict;
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
