#pragma once

#include "data/Recordset.h"

#include <functional>

namespace vorta::audit {

/// A table read in the order of its key, some thousands of rows at a time, so that memory stays flat however many there
/// are and nobody else waits.
struct PagedTable {
    data::Piece columns; ///< the key first, then others behind commas
    data::Piece table;
    data::Piece key;
};

using OnRow = std::function<void(qint64 key, const data::Recordset& row)>;
/// Gives each row to `onRow`; behind each page `onPage` runs, if there is one.
void ReadPages(data::Connection& connection, const PagedTable& table, const OnRow& onRow,
               const std::function<void()>& onPage = {});

/// The rows of a table.
qint64 CountRows(data::Connection& connection, data::Piece table);

/// A whole number of a row; 0 for a null.
qint64 NumberOf(const data::Value& value);

} // namespace vorta::audit
