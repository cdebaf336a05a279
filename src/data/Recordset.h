#pragma once

#include "data/Connection.h"

#include <functional>
#include <vector>

namespace vorta::data {

/// What a flow says of a read that may bring many rows.
struct Reading {
    /// The columns that it reads: only these are fetched, and any other one is not there. None for all.
    std::vector<Piece> columns = {};
    /// Given for a read that may take long, which then runs on a thread of its own: hears on the caller's, from time to
    /// time until all are there, how many rows have come; that may be none yet. The engine is at work then: nothing may
    /// be asked of any connection.
    std::function<void(qint64 rows)> fetched = {};
};

/// The rows of a query as a static copy on the client, walked forward. Rows are packed (only the bytes that a value
/// has) and decoded when read, and given back behind the current one, so that a million persons fit in memory. It can
/// be handed on, never shared. All but `Open` raise 3704 before it, after `Close` and on one whose rows have been
/// handed on.
class Recordset {
  public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// Sends the statement and copies all its rows; the first row, if any, is the current one. A failure of the
    /// connection leaves the rows as they were.
    void Open(const Statement& statement, Connection& connection, const Reading& reading = {});
    bool Eof() const;
    void MoveNext(); ///< raises 3021 behind the last row
    int RecordCount() const;
    /// The value of a column of the current row, by name (case-insensitive; 3265 when the result has no such column) or
    /// by 0-based index (3265 as well); 3021 behind the last row.
    Value Fields(QStringView name) const;
    Value Fields(const char* name) const;
    Value Fields(int index) const;
    /// Replaces a value of the current row in this copy only; nothing is sent. Raises as `Fields` does.
    void Overwrite(QStringView name, const Value& value);
    void Close();

  private:
    class Arena;
    std::unique_ptr<Arena> arena_;
};

} // namespace vorta::data
