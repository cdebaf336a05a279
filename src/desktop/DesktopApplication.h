#pragma once

#include <QApplication>
#include <functional>

namespace vorta::desktop {

/// The Qt application of a register: its look, its language, and the guard that lets no exception into Qt's event loop.
class DesktopApplication : public QApplication {
  public:
    DesktopApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Receives what no handler of a screen has caught, as a procedure that raises it again.
    std::function<void(const std::function<void()>& raise)> onException;
};

} // namespace vorta::desktop
