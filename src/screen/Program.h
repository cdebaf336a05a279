#pragma once

#include "base/RuntimeError.h"
#include "screen/Platform.h"

#include <functional>
#include <optional>
#include <vector>

namespace vorta::screen {

class Screen;

/// Thrown to unwind every handler when the program ends; nothing catches it but `Program::dispatch`.
struct ProgramEnded {};

/// One running program: the stack of its screens, its message boxes and its end. Every event that comes from outside
/// goes through `dispatch`, so that no exception ever leaves a handler.
class Program {
  public:
    explicit Program(Platform& platform) : platform_(platform) {}

    Platform& platform() const { return platform_; }
    /// The application's own title, which a box without a title shows.
    static QString applicationTitle();

    Answer MsgBox(const Box& box);
    Answer MsgBox(const QString& text) { return MsgBox(Box{text, {}, Icon::None, Buttons::OK}); }
    /// Loads the screen if needed, shows it and waits until it is closed.
    void ShowModal(Screen& screen);
    /// Ends the process at once, in order: every modal wait is left, nothing continues.
    [[noreturn]] void End();

    /// Runs an event. A run-time error that no handler has caught ends the process in order: first `onEnd` (the closing
    /// connection rolls back), then its box with number and description, exit code 1. Gives false when the program has
    /// ended.
    bool dispatch(const std::function<void()>& event);
    /// Tells `onEvent` of a change that comes from outside and runs no handler, as an edit of a text.
    void happened();

    /// How often a box or a screen has come up in front so far.
    int interruptions() const { return interruptions_; }

    bool hasEnded() const { return ended_; }
    int exitCode() const { return failure_ ? 1 : 0; }
    const std::optional<RuntimeError>& failure() const { return failure_; }

    /// The topmost screen; none before the start and after the end.
    Screen* activeScreen() const { return screens_.empty() ? nullptr : screens_.back(); }
    const std::vector<Screen*>& screens() const { return screens_; }

    /// Runs once when the program ends, before anything is shown.
    std::function<void()> onEnd;
    /// Runs behind every event and edit, and once more in front of `onEnd`, when the event may have broken off
    /// anywhere.
    std::function<void(bool ending)> onEvent;

  private:
    void finish();
    void requireRunning() const;

    Platform& platform_;
    std::vector<Screen*> screens_;
    bool ended_ = false;
    int interruptions_ = 0;
    std::optional<RuntimeError> failure_;
};

} // namespace vorta::screen
