#pragma once

#include <QElapsedTimer>

namespace vorta::desktop {

/// What the user types and clicks while a handler is at work for long was meant for what was on the screen then, and is
/// no answer to whatever the work brings up: it is dropped. Behind short work it stays, as somebody who types fast
/// expects.
class BusyInput {
  public:
    /// Work begins; once it has, beginning again changes nothing.
    void begin();
    /// Drops what has come meanwhile, if the work has taken long so far.
    void drop() const;
    void end();
    bool isBusy() const { return since_.isValid(); }

  private:
    QElapsedTimer since_;
};

} // namespace vorta::desktop
