#pragma once

#include <QObject>
#include <functional>

namespace vorta::desktop {

/// Turns the system's wish that the process ends (the session closes, somebody sends SIGTERM or presses Ctrl+C) into a
/// call from the event loop. Does nothing on systems without such signals.
class Termination : public QObject {
  public:
    explicit Termination(std::function<void()> onRequest);

    /// Begins to listen. The database client takes these signals for itself when it is first used, and then only closes
    /// its databases: listening has to begin, or begin again, behind that.
    static void listen();
};

} // namespace vorta::desktop
