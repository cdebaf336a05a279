#pragma once

#include "data/Connection.h"

#include <vector>

namespace vorta::data {

/// The rows of a query as a static copy on the client, walked forward. Rows are packed in one arena (only the bytes
/// that a value has) and decoded when read, so that a hundred thousand persons fit in memory.
class Recordset {
  public:
    /// Sends the statement and copies all its rows; the first row, if any, is the current one.
    void Open(const Statement& statement, Connection& connection);
    bool Eof() const;
    void MoveNext();
    int RecordCount() const;
    /// The value of a column of the current row, by name (case-insensitive; 3265 when the result has no such column) or
    /// by 0-based index. 3704 before `Open`, 3021 behind the last row.
    Value Fields(QStringView name) const;
    Value Fields(const char* name) const { return Fields(QString::fromLatin1(name)); }
    Value Fields(int index) const;
    int ColumnCount() const;
    QString ColumnName(int index) const;
    /// Replaces a value of the current row in this copy only; nothing is sent.
    void Overwrite(QStringView name, const Value& value);
    void Close();

  private:
    class Arena;
    std::shared_ptr<Arena> arena_;
    int row_ = 0;
};

} // namespace vorta::data
