#pragma once

#include "robot/Player.h"
#include "robot/Walk.h"

#include <QFile>

namespace vorta::robot {

/// Lets a user by chance go on where a scenario ends, and writes down what came of every step: the command, the boxes
/// and statements, and whatever of the screen has changed. Two walks of one seed that write the same are the same.
/// Where the hands have eyes, what they see must be what the screens say.
class Walking {
  public:
    /// Raises `Failure` when the log cannot be written.
    Walking(Player& player, quint32 seed, int steps, const QString& log);

  private:
    std::optional<QStringList> next();
    void writeDown();
    void look();

    Player& player_;
    Walk walk_;
    int left_;
    QFile log_;
    QStringList state_;
};

} // namespace vorta::robot
