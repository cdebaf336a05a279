#pragma once

#include "data/Adapter.h"

namespace vorta::data {

/// Hears every statement as the flows send it, before the guard and before any adapter touches it.
using StatementTrace = std::function<void(const QString& text)>;

/// A connection to a database. One thread uses it; statements run strictly one after the other. Whatever needs an open
/// connection raises 3704 on a closed one; a failing statement raises -2147217900, -2147217873 when it breaks a
/// constraint, and -2147467259 when the connection is lost.
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
    /// Opens a transaction; a second one raises -2147217900, and so does the commit of none.
    void BeginTrans();
    void CommitTrans();
    /// Closes; an open transaction dies with the connection.
    void Close();
    bool IsOpen() const;

  private:
    friend class Recordset;
    /// Sends a guarded read statement.
    void query(const Statement& statement, RowSink& rows);
    Adapter& open();

    AdapterFactory adapters_;
    StatementTrace trace_;
    std::unique_ptr<Adapter> adapter_;
};

} // namespace vorta::data
