#include "screen/Program.h"

#include "base/Literals.h"
#include "screen/Screen.h"

#include <QScopeGuard>

namespace vorta::screen {

QString Program::applicationTitle() {
    return u"Cadastro de Pessoas"_s;
}

void Program::requireRunning() const {
    if (ended_)
        throw ProgramEnded();
}

Answer Program::MsgBox(const Box& box) {
    requireRunning();
    ++interruptions_;
    const Answer answer = platform_.messageBox(box);
    requireRunning();
    return answer;
}

void Program::ShowModal(Screen& screen) {
    requireRunning();
    ++interruptions_;
    screens_.push_back(&screen);
    // Also a Load that fails takes its screen off again, for a handler that goes on.
    const auto leave = qScopeGuard([&] { std::erase(screens_, &screen); });
    if (!screen.loaded_) {
        screen.loaded_ = true;
        try {
            screen.Load();
        } catch (const RuntimeError&) {
            screen.loaded_ = false;
            throw;
        }
    }
    if (screen.loaded_) {
        screen.takeFirstFocus();
        platform_.runModal(screen);
    }
    requireRunning();
}

void Program::finish() {
    if (ended_)
        return;
    ended_ = true;
    if (onEvent)
        onEvent(true);
    if (onEnd)
        onEnd();
}

void Program::End() {
    finish();
    throw ProgramEnded();
}

void Program::happened() {
    if (onEvent && !ended_)
        onEvent(false);
}

bool Program::dispatch(const std::function<void()>& event) {
    if (ended_)
        return false;
    try {
        event();
        happened();
    } catch (const ProgramEnded&) {
    } catch (const RuntimeError& error) {
        failure_ = error;
        finish();
        platform_.messageBox(
            {u"Erro %1\n\n%2"_s.arg(error.number()).arg(error.description()), {}, Icon::Critical, Buttons::OK});
    }
    if (ended_)
        screens_.clear();
    return !ended_;
}

} // namespace vorta::screen
