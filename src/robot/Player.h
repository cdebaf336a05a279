#pragma once

#include "base/Literals.h"
#include "robot/Hands.h"
#include "robot/Scenario.h"
#include "robot/Stage.h"

#include <deque>
#include <optional>

namespace vorta::robot {

/// What has happened since the last `forget`, and how far the scenario has looked at it.
struct Journal {
    QStringList statements;
    qsizetype searched = 0; ///< statements in front of this one have been found already
    std::vector<screen::Box> boxes;
    size_t looked = 0; ///< boxes in front of this one have been looked at
};

/// An answer that waits for a box that asks; none stands for a press of Escape.
struct PreparedAnswer {
    std::optional<screen::Answer> answer;
    int line;
};

/// A scenario that does not pass: the line, what was expected and what was there.
struct Verdict {
    int line = 0;
    QString message;
};

/// Plays one scenario. A screen that a handler shows modally calls back into the player, which goes on with the next
/// commands inside it; so the nesting of the program's handlers is that of a real run.
class Player : public screen::Platform {
  public:
    Player(const Scenario& scenario, Stage& stage, HandsFactory hands, data::StatementTrace trace = {});
    ~Player() override;

    /// Plays to the end of the scenario or its first failure; nothing when the scenario passes.
    std::optional<Verdict> play();
    /// Is told every line number before its command is played.
    std::function<void(int line)> onLine;
    /// Gives the next command behind the scenario's last one; none ends it.
    std::function<std::optional<QStringList>(Player& player)> onward;
    /// Gives the answer to a box for which none has been prepared.
    std::function<screen::Answer(const screen::Box& box)> onBox;

    // What the commands work on.
    Stage& stage() const { return stage_; }
    Hands& hands() const { return *hands_; }
    Journal& journal() { return journal_; }
    std::deque<PreparedAnswer>& answers() { return answers_; }
    const QString& lastAddress() const { return lastAddress_; }
    const QString& clipboard() const { return clipboard_; }
    const QString& lastPage() const { return lastPage_; } ///< the HTML of the last PDF
    /// The answers, full paths, to the next questions for a file; empty gives up.
    QStringList& files() { return files_; }
    int line() const { return line_; }
    void setClock(const QDateTime& clock) { clock_ = clock; }

    /// Starts the program; returns when it has ended.
    void launch(const QString& launchString);
    bool hasLaunched() const { return launched_; }
    bool isRunning() const;
    /// The program, made at its first use; a new one behind an ended one.
    Cast& cast();
    /// The program that runs or has ended last.
    Cast& lastCast() const { return *cast_; }
    /// The context of the program that runs, has ended last, or is about to start.
    ContextoExecucao& contextToRead() { return cast_ ? cast_->context() : cast().context(); }
    /// The active screen; a failure when the program does not run.
    screen::Screen& activeScreen();
    /// A field of the active screen by its name; a failure naming the screen's fields when there is none.
    screen::Field& field(const QString& name);
    /// The same when a user can reach it: visible and, unless `disabledToo`, enabled. Its tab is chosen.
    screen::Field& reach(const QString& name, bool disabledToo = false);
    /// The main database that this scenario's program works on: that of the environment of its launch string.
    Base mainBase() const;

    // The platform of the program.
    screen::Answer messageBox(const screen::Box& box) override;
    void runModal(screen::Screen& screen) override;
    void openAddress(const QString& address) override { lastAddress_ = address; }
    void putOnClipboard(const QString& text) override { clipboard_ = text; }
    QString askForFile(const QString& suggested) override;
    void writePdf(const QString& html, const QString& path) override;
    QString dataFolder() const override { return stage_.home() + u"/dados"_s; }
    QString home() const override { return stage_.home(); }
    QDateTime now() const override;

  private:
    bool isOver();
    void playWhile(const std::function<bool()>& open);
    void step();
    void fail(int line, const QString& message);
    int takeEscapes();
    void checkLeftovers();
    void chooseTabsOf(const screen::Field& field);

    Scenario scenario_;
    Stage& stage_;
    HandsFactory makeHands_;
    data::StatementTrace trace_;
    std::unique_ptr<Cast> cast_;
    std::unique_ptr<Hands> hands_;
    bool launched_ = false;
    bool started_ = false;  ///< the program is inside its start
    size_t launchedAt_ = 0; ///< what `next_` was then
    size_t next_ = 0;
    int line_ = 0;
    std::optional<Verdict> verdict_;
    Journal journal_;
    std::deque<PreparedAnswer> answers_;
    QString lastAddress_;
    QString clipboard_;
    QString lastPage_;
    QStringList files_;
    std::optional<QDateTime> clock_;
};

/// The database that a launch works on in the installation `home`: that of its environment.
Base BaseOfLaunch(const QString& launchString, const QString& home);
/// A text as it stands in a scenario file, with its quotes and escapes.
QString Quoted(const QString& text);
/// The text with every line break written "\n".
QString OneLineBreak(QString text);

} // namespace vorta::robot
