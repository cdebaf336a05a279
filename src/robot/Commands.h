#pragma once

#include <QStringList>

namespace vorta::robot {

class Player;

/// Carries one command of the scenario language out; `words` starts with its name. Raises `Failure` for an unknown
/// command, a wrong number of words, and whatever was expected and is not there.
void RunCommand(Player& player, const QStringList& words);

/// Checks an expectation: the words behind "expect".
void RunExpectation(Player& player, const QStringList& words);

/// A whole number; a failure that names the word otherwise.
int NumberWord(const QString& word);

} // namespace vorta::robot
