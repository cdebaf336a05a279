#pragma once

#include "desktop/Termination.h"
#include "screen/Platform.h"

#include <QElapsedTimer>
#include <QTimer>
#include <vector>

class QDialog;
class QEventLoop;
class QWidget;

namespace vorta::desktop {

class ScreenWindow;

/// The desktop as the outside world of a register: message boxes, windows, mail program. Wants a `DesktopApplication`.
class DesktopPlatform : public screen::Platform {
  public:
    DesktopPlatform();
    ~DesktopPlatform() override;

    screen::Answer messageBox(const screen::Box& box) override;
    void runModal(screen::Screen& screen) override;
    /// Makes the screen's window.
    void prepare(screen::Screen& screen) override;
    void dropPrepared() override;
    void openAddress(const QString& address) override;
    /// Work under the hourglass shows its bar at once, any other when it has lasted for a moment.
    void progress(qint64 done, qint64 total) override;
    void putOnClipboard(const QString& text) override;
    QString askForFile(const QString& suggested) override;
    void writePdf(const QString& html, const QString& path) override;
    QString dataFolder() const override;
    void soon(const std::function<void()>& work) override;
    /// `VORTA_HOME`, or the system's own place of the installation.
    QString home() const override;

    /// Leaves every modal wait when the program has ended.
    void leaveIfEnded();
    /// The window on top; none before the first screen.
    ScreenWindow* top() const { return windows_.empty() ? nullptr : windows_.back(); }

  private:
    void showAll();
    void showProgress(qint64 done, qint64 total);
    void hideProgress();
    bool isUnderHourglass() const;
    void end();

    std::unique_ptr<ScreenWindow> windowFor(screen::Screen& screen);

    std::unique_ptr<ScreenWindow> prepared_;
    std::vector<ScreenWindow*> windows_;
    std::vector<QEventLoop*> loops_;
    std::vector<QDialog*> boxes_;
    QElapsedTimer working_; ///< since the first word of the work that is under way
    QElapsedTimer lastProgress_;
    QTimer waiting_; ///< until `later_` runs
    std::function<void()> later_;
    bool endWanted_ = false; ///< told to end before there was a window
    Termination termination_{[this] { end(); }};
};

} // namespace vorta::desktop
