#pragma once

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <functional>

namespace vorta::kit {

/// Somebody has asked a command to stop (18).
class Interrupted : public RuntimeError {
  public:
    Interrupted() : RuntimeError(number, u"Interrompido; o que não tinha terminado foi desfeito"_s) {}
    static constexpr int number = 18;
};

/// Hears how far a long work is; `all` is 0 while nobody knows. What it raises stops the work, which is undone as far
/// as it is not complete.
using Progress = std::function<void(const QString& what, qint64 done, qint64 all)>;

/// Tells now and then, so that telling costs nothing beside the work.
class Steps {
  public:
    Steps(const Progress& progress, const QString& what, qint64 all) : progress_(progress), what_(what), all_(all) {}
    void step() {
        constexpr qint64 between = 2000;
        if (++done_; progress_ && (done_ % between == 0 || done_ == all_))
            progress_(what_, done_, all_);
    }

  private:
    const Progress& progress_;
    QString what_;
    qint64 all_;
    qint64 done_ = 0;
};

} // namespace vorta::kit
