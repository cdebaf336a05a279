#pragma once

#include <QApplication>
#include <QPalette>
#include <functional>

namespace vorta::desktop {

/// The Qt application of a register: its look, its language, and the guard that lets no exception into Qt's event loop.
class DesktopApplication : public QApplication {
  public:
    DesktopApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Takes the colours that the desktop has now; by itself at the start and whenever the desktop tells of others.
    void followDesktop();
    /// What the desktop's colours are; the toolkit's word unless somebody knows better.
    std::function<QPalette()> desktopPalette;

    /// Receives what no handler of a screen has caught, as a procedure that raises it again.
    std::function<void(const std::function<void()>& raise)> onException;
};

} // namespace vorta::desktop
