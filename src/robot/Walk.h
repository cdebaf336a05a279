#pragma once

#include "robot/Hands.h"

#include <QStringList>
#include <random>

namespace vorta::robot {

/// A user who does anything: the commands depend on a seed and on what the active screen offers, so that the same seed
/// on the same states is the same road.
class Walk {
  public:
    explicit Walk(quint32 seed) : chance_(seed) {}

    /// What the user does next, as the words of a command.
    QStringList next(const screen::Screen& screen);
    screen::Answer answer(const screen::Box& box);

  private:
    int pick(qsizetype count);
    bool oneIn(int count) { return pick(count) == 0; }
    QString word(std::initializer_list<const char*> words);
    QString text();
    QStringList onField(const screen::Field& field);
    QStringList onInput(const screen::Field& field);
    QStringList onList(const screen::ListField& list);
    QStringList onGrid(const screen::Grid& grid);
    QStringList anywhere(const screen::Screen& screen);
    QString letterOf(const screen::Screen& screen);

    std::mt19937 chance_;
};

/// The state of a screen that a user can see or feel, one line for each field.
QStringList StateOf(const screen::Screen& screen);

} // namespace vorta::robot
