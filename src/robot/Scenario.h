#pragma once

#include "base/Literals.h"

#include <QString>
#include <QStringList>
#include <stdexcept>
#include <vector>

namespace vorta::robot {

/// One command of a scenario: its line number, from 1, and its words without their quotes.
struct Command {
    int line = 0;
    QStringList words;
};

/// Why a scenario does not pass, in words for the line "not ok".
struct Failure {
    QString message;
};

/// Takes a line apart; nothing for an empty line or a comment. Raises `Failure` for a text without its closing quote,
/// an unknown escape, or a quote in the middle of a word.
QStringList SplitWords(const QString& line);

/// A scenario file. A line that cannot be taken apart is kept as a command that fails when it is reached, so that what
/// stands in front of it is still played.
struct Scenario {
    QString file;
    std::vector<Command> commands;

    /// Reads a file; raises `Failure` when it cannot be read or is no UTF-8.
    static Scenario read(const QString& file);
    static Scenario parse(const QString& file, const QString& text);
};

/// The first word of a command that stands for a line that cannot be taken apart; its second word says why.
inline const QString brokenLine = u"\n"_s;

} // namespace vorta::robot
