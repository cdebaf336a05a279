#pragma once

#include "kit/Loader.h"

#include <QHash>

namespace vorta::kit {

/// Hands out the keys of a load, behind those that a main base has when the object is made.
class Keys {
  public:
    explicit Keys(Loader& loader);
    /// The next free key of a table.
    qint64 next(const Table& table) { return ++last_[&table]; }
    /// Sets the generators to the last keys handed out, so that the register goes on behind them.
    void setGenerators();

  private:
    Loader& loader_;
    QHash<const Table*, qint64> last_;
};

} // namespace vorta::kit
