#pragma once

#include <QCoreApplication>

namespace vorta::robot {

/// The toolkit's application of a process without windows.
class Application {
  private:
    int count_ = 1;
    char name_[sizeof "pessoas-roteiro"] = "pessoas-roteiro";
    char* names_[2] = {name_, nullptr};
    QCoreApplication application_{count_, names_};
};

} // namespace vorta::robot
