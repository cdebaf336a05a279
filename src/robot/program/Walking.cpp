#include "robot/program/Walking.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <array>

namespace vorta::robot {

namespace {

const QString launchString = u"1^1^PRD^False^"_s;

/// What is looked at in a window behind every step.
constexpr std::array looks{"text", "enabled", "locked", "visible", "checked", "items", "rows", "row"};

/// The property of a field; none when it has no such.
std::optional<QString> told(const screen::Field& field, const Question& question) {
    try {
        return Look(field, question);
    } catch (const RuntimeError&) {
        return {};
    }
}

} // namespace

Walking::Walking(Player& player, quint32 seed, int steps, const QString& log)
    : player_(player), walk_(seed), left_(steps), log_(log) {
    if (!log_.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw Failure{u"%1 cannot be written"_s.arg(log)};
    player.onward = [this](Player&) { return next(); };
    player.onBox = [this](const screen::Box& box) { return walk_.answer(box); };
}

std::optional<QStringList> Walking::next() {
    writeDown();
    if (left_-- <= 0)
        return {};
    QStringList words{u"launch"_s, launchString};
    if (player_.isRunning()) {
        look();
        words = walk_.next(player_.activeScreen());
    }
    QStringList shown;
    for (const QString& word : words)
        shown += word.contains(u' ') || word.isEmpty() ? Quoted(word) : word;
    log_.write(shown.join(u' ').toUtf8() + '\n');
    log_.flush();
    return words;
}

void Walking::writeDown() {
    Journal& journal = player_.journal();
    for (const QString& statement : journal.statements)
        log_.write("  sql " + OneLineBreak(statement).toUtf8() + '\n');
    for (const screen::Box& box : journal.boxes)
        log_.write("  box " + Quoted(OneLineBreak(box.text)).toUtf8() + '\n');
    journal = {};
    const QStringList now = player_.isRunning() ? StateOf(player_.activeScreen()) : QStringList{u"ended"_s};
    for (const QString& line : now)
        if (!state_.contains(line))
            log_.write("  " + line.toUtf8() + '\n');
    state_ = now;
}

void Walking::look() {
    screen::Screen& screen = player_.activeScreen();
    for (screen::Field* field : screen.fields())
        for (const char* property : looks) {
            const Question question{QLatin1StringView(property), 0, 0};
            const std::optional<QString> wanted = told(*field, question);
            const std::optional<QString> seen = wanted ? player_.hands().seen(*field, question) : std::nullopt;
            if (seen && OneLineBreak(*seen) != OneLineBreak(*wanted))
                throw Failure{u"expected %1 %2 %3, the window shows %4"_s.arg(field->name(), question.property,
                                                                              Quoted(*wanted), Quoted(*seen))};
        }
    const QString focus = screen.focus() ? screen.focus()->name() : QString();
    if (const std::optional<QString> seen = player_.hands().seenFocus(screen); seen && *seen != focus)
        throw Failure{u"expected the focus on %1, the window has it on %2"_s.arg(Quoted(focus), Quoted(*seen))};
}

} // namespace vorta::robot
