#pragma once

#include "bench/BareClient.h"

#include <QList>
#include <functional>

namespace vorta::bench {

/// Hears which statements the register sends for a piece of work, so that the bare client can send the same.
class Recorder {
  public:
    using Statements = QList<QByteArray>;

    /// For the trace of a connection.
    void hear(const QString& text);
    /// The statements of `work`, in the form that the engine takes without the register's help.
    Statements record(const std::function<void()>& work);
    /// Sends them; from the first write to the last one in one transaction, as every save does.
    static void repeat(BareClient& bare, const Statements& statements);

  private:
    Statements heard_;
    bool listening_ = false;
};

} // namespace vorta::bench
