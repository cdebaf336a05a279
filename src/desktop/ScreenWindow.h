#pragma once

#include "desktop/Binder.h"

#include <QDialog>

namespace vorta::desktop {

class FormRoom;
class ScreenKeys;
class WorkBar;

/// The window of any screen: its form, a thin bar for long work below, and nothing of its own. Its frame stays within
/// the free area of the display.
class ScreenWindow : public QDialog {
  public:
    /// Raises 91 for a screen without a form.
    ScreenWindow(screen::Screen& screen, QWidget* parent);
    ~ScreenWindow() override;

    Binder& binder() { return *binder_; }
    /// Makes what the first sight of the window did not need, and grows the window when that needs more room. It
    /// happens by itself behind the first painting.
    void complete();
    /// Shows how far long work has come; `total` 0 hides the bar.
    void showProgress(qint64 done, qint64 total);

    /// The size that shows the whole form, whatever screen there is.
    QSize wholeSize() const { return wholeSize_; }
    /// Takes the size that the user gave this screen last time. Where it stands is the screen's word.
    void restoreSize();
    void rememberSize() const;

    /// Escape is a key of the fields and closes nothing.
    void reject() override {}

  protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    QString sizeKey() const;
    QSize neededSize() const;
    QMargins drawnFrame() const;
    QMargins frame() const;
    QRect freeArea() const;
    QSize room() const; ///< the largest size whose frame finds room
    void resizeWithin(QSize wanted);
    void takePlace();

    screen::Screen& screen_;
    screen::User user_;
    FormRoom* form_;
    WorkBar* bar_;
    QSize wholeSize_;
    QSize given_;           ///< the size of the window as long as nobody else has changed it
    bool restored_ = false; ///< that is the one of the last time
    bool painted_ = false;
    std::unique_ptr<Binder> binder_;
    std::unique_ptr<ScreenKeys> keys_;
};

} // namespace vorta::desktop
