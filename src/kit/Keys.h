#pragma once

#include "kit/Loader.h"

#include <QHash>

namespace vorta::kit {

/// Hands out the keys of a load, behind those that a base already has.
class Keys {
  public:
    explicit Keys(Loader& loader) : loader_(loader) {}
    /// The next free key of a table.
    qint64 next(const Table& table);
    /// Sets the generators of the tables where keys were handed out, so that the register goes on behind them.
    void setGenerators();

  private:
    Loader& loader_;
    QHash<const Table*, qint64> last_;
};

} // namespace vorta::kit
