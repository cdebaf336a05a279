#pragma once

#include "data/Adapter.h"

namespace vorta::data {

/// Hears every statement as the flows send it, before the guard and before any adapter touches it.
using StatementTrace = std::function<void(const QString& text)>;

/// A connection to a database. One thread uses it; statements run strictly one after the other.
class Connection {
  public:
    Connection(AdapterFactory adapters, StatementTrace trace = {});
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Seconds that `Open` waits for a server.
    int ConnectionTimeout = 15;

    /// Opens the engine's connection; -2147467259 when it cannot be opened.
    void Open(Engine engine, const QString& connectionString);
    /// Runs a write statement, guarded; by itself outside a transaction.
    void Execute(const Statement& statement);
    void BeginTrans();
    void CommitTrans();
    /// Closes; an open transaction dies with the connection.
    void Close();
    bool IsOpen() const;
    /// Runs an operation by its name, as the saves of some screens do with "Rollback"; raises 438, since a connection
    /// offers its operations by their methods only.
    [[noreturn]] void Invoke(const QString& operation);

  private:
    friend class Recordset;
    /// Sends a guarded read statement; 3704 when the connection is closed.
    void query(const Statement& statement, RowSink& rows);
    Adapter& open();

    AdapterFactory adapters_;
    StatementTrace trace_;
    std::unique_ptr<Adapter> adapter_;
};

} // namespace vorta::data
