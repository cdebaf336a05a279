#pragma once

#include <QObject>
#include <functional>

namespace vorta::desktop {

/// Turns the system's wish that the process ends (the session closes, somebody sends SIGTERM or presses Ctrl+C) into a
/// call from the event loop. Does nothing on systems without such signals.
class Termination : public QObject {
  public:
    explicit Termination(std::function<void()> onRequest);

    /// Begins to listen, where that has not begun yet: before the first box or window a wish ends the process at once.
    static void listen();
};

} // namespace vorta::desktop
