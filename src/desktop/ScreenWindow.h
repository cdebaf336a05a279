#pragma once

#include "desktop/Binder.h"

#include <QDialog>

class QProgressBar;

namespace vorta::desktop {

/// The window of any screen: its form, a thin bar for long work below, and nothing of its own.
class ScreenWindow : public QDialog {
  public:
    /// Raises 91 for a screen without a form.
    ScreenWindow(screen::Screen& screen, QWidget* parent);

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
    void takePlace();

    screen::Screen& screen_;
    screen::User user_;
    QWidget* form_;
    QSize drawnSize_; ///< the size of the form in its file
    QProgressBar* bar_;
    QSize wholeSize_;
    bool painted_ = false;
    std::unique_ptr<Binder> binder_;
};

} // namespace vorta::desktop
