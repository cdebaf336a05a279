#pragma once

#include "app/Register.h"
#include "desktop/DesktopPlatform.h"

#include <QKeySequence>
#include <QObject>
#include <functional>
#include <map>
#include <vector>

namespace vorta::test {

/// Somebody at the real windows with a keyboard and nothing else. Each stroke goes to whatever has the keyboard at that
/// moment, a box or an upper screen as well, once all that the one before has caused is done.
class Typist {
  public:
    explicit Typist(const QString& home);

    /// One key, "Alt+G" or "Enter"; it counts.
    Typist& press(const QString& keys);
    /// A text of the data; its letters are counted apart.
    Typist& data(const QString& text);
    /// The keys of a task as the manual lists them, "Alt+A, telefone, Ctrl+S": whatever is no key stands for the next
    /// text of the data, and what stands in brackets is left out. Behind so many of them a picture is kept.
    Typist& follow(const QString& keys, QStringList data, const std::map<int, QString>& pictures = {});
    /// Keeps a picture of the window in front for the manual, when VORTA_TEST_PICTURES names a folder.
    Typist& picture(const QString& name);
    /// Looks at something in between.
    Typist& then(std::function<void()> look);

    /// Starts the register, plays all that and ends it.
    void play();

    int strokes() const { return strokes_; }
    int letters() const { return letters_; }
    /// A field of the screen on top.
    screen::Field& field(const QString& name);
    screen::User& user() { return register_.user(); }
    ContextoExecucao& context() { return register_.context(); }

  private:
    void begin();
    bool isReady();
    void next();
    void keepStep();

    QObject alive_; ///< what is still to come goes with the typist
    desktop::DesktopPlatform platform_;
    Register register_{platform_};
    std::vector<std::function<void()>> steps_;
    size_t step_ = 0;
    std::map<const QWidget*, int> levels_; ///< of the event loop, with each window in front
    int strokes_ = 0;
    int letters_ = 0;
    int kept_ = 0; ///< pictures of the whole display, one for each step, in the folder VORTA_TEST_STEPS
};

} // namespace vorta::test
