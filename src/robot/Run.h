#pragma once

#include "base/Literals.h"
#include "robot/Scenario.h"

#include <functional>
#include <optional>

namespace vorta::robot {

struct Verdict;

/// The arguments of the program.
struct Options {
    QString home;
    QString engine = u"embedded"_s; ///< what the installation's databases stand on
    QString server;                 ///< connection string of a given SQL Server; empty for one of the player's own
    QString tag;                    ///< engine tag of the lines for SQL Server; null for the usual one
    QString standing; ///< port of a test server that holds the installation's databases already; empty for none
    QString keep;     ///< folder for what the test server is loaded with; empty for none
    QString wire;     ///< file for what the test server hears; empty for none
    QString trace;    ///< file for the statements; empty for none
    bool desktop = false;
    int walk = 0; ///< steps of a user by chance behind each scenario; 0 for none
    quint32 seed = 0;
    QString log; ///< file for what comes of each of these steps
    QStringList files;

    /// Takes the arguments (without the program's name) apart; raises `Failure` for unusable ones.
    static Options parse(const QStringList& arguments, const QString& defaultHome);
};

/// Plays one scenario in the folder `copy`, empty at first; `atLine` is told how far it has come. Nothing when it
/// passes.
using PlayOne =
    std::function<std::optional<Verdict>(const Scenario&, const QString& copy, const std::function<void(int)>& atLine)>;

/// Plays every scenario in a process and a folder of its own, so that a scenario that crashes the program fails alone,
/// and prints the result lines; `behindEach` clears up behind every scenario, in this process. Gives the exit status: 0
/// when all passed, 1 when one failed or SIGINT or SIGTERM has stopped the run behind a scenario.
int RunAll(const std::vector<Scenario>& scenarios, const PlayOne& play, const std::function<void()>& behindEach);

/// Works in a process of its own; raises `Failure` with its words when it fails.
void WorkApart(const std::function<void()>& work);

} // namespace vorta::robot
