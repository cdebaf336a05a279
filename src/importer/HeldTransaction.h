#pragma once

#include "data/Adapter.h"

namespace vorta::importer {

/// One transaction around everything that the screens write for a person, whatever transactions they begin and commit
/// by themselves: the person's own save, each of its roles. Shared by the connection's adapter and by who decides.
class HeldTransaction {
  public:
    /// Nothing is to stay: new keys then come from a counter of its own, so that not even a generator moves.
    explicit HeldTransaction(bool trial) : trial_(trial) {}

    /// Puts itself between the register and its main connection.
    std::unique_ptr<data::Adapter> between(std::unique_ptr<data::Adapter> adapter);

    /// What is begun from here on stays open.
    void hold() { held_ = true; }
    /// Ends the hold and writes what stands behind it; a trial never writes, and undoes many persons at once.
    void keep();
    /// Ends the hold and undoes what stands behind it.
    void undo();

  private:
    class Holding;
    void end(bool kept);

    bool trial_;
    bool held_ = false;
    bool begun_ = false;
    int kept_ = 0; ///< persons of a trial
    Holding* adapter_ = nullptr;
};

} // namespace vorta::importer
