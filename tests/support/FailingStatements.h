#pragma once

#include "base/RuntimeError.h"
#include "data/Adapter.h"

#include <memory>

namespace vorta::test {

/// Stands between the register and an engine's adapter and lets chosen statements fail, so that a test sees what a save
/// leaves behind when it breaks at any of its steps. The engine never gets a failing statement.
class FailingStatements {
  public:
    explicit FailingStatements(data::AdapterFactory engine);

    /// The factory for the register under test; all its connections count together.
    data::AdapterFactory factory();

    /// The n-th statement from now on fails (1 is the next one), reads and writes counted alike.
    void failAt(int n, int errorNumber = errorNumber::StatementRefused);
    /// The next commit fails; the engine's transaction stays open.
    void failCommit(int errorNumber = errorNumber::StatementRefused);
    /// Statements since the last `failAt`, the failed one included.
    int sent() const;

  private:
    struct State;
    data::AdapterFactory engine_;
    std::shared_ptr<State> state_;
    friend class FailingAdapter;
};

} // namespace vorta::test
