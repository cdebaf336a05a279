#pragma once

#include "robot/Run.h"
#include "robot/Stage.h"

namespace vorta::robot {

/// What an engine holds for a whole run, and the stages that stand on it.
class House {
  public:
    virtual ~House() = default;
    /// The stage of one scenario, in the process that plays it, on a copy of the installation in the empty folder
    /// `copy`. Raises `Failure` when it cannot be had.
    virtual std::unique_ptr<Stage> stage(const QString& copy) const = 0;
    /// Clears up behind a scenario, whatever its end, in the process of the run. Raises `Failure` when it cannot.
    virtual void clear() const {}
};

/// The house of the engine that the options name. Raises `Failure` for an engine that there is none of, and for a
/// server that cannot be had, or whose database is not free for it.
std::unique_ptr<House> OpenHouse(const Options& options);

} // namespace vorta::robot
