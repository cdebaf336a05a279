#pragma once

#include "screen/Platform.h"

#include <functional>

namespace vorta::bench {

/// The outside world of a measurement: nobody looks, everything is answered with yes. What shall happen on a screen
/// that is shown, and at the end of long work, can be told.
class QuietPlatform : public screen::Platform {
  public:
    explicit QuietPlatform(const QString& home = {}) : home_(home) {}

    screen::Answer messageBox(const screen::Box&) override { return screen::Answer::Yes; }
    void runModal(screen::Screen& shown) override {
        if (onShown)
            onShown(shown);
    }
    void openAddress(const QString&) override {}
    void progress(qint64, qint64 total) override {
        if (total == 0 && atEnd)
            atEnd();
    }
    QString home() const override { return home_; }

    std::function<void(screen::Screen&)> onShown;
    std::function<void()> atEnd;

  private:
    QString home_;
};

} // namespace vorta::bench
