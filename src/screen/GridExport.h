#pragma once

#include "screen/Grid.h"

#include <functional>

/// A grid as it leaves the program: what it shows, row by row, without its hidden columns.
namespace vorta::screen {

/// Hears now and then how many rows are done, of how many.
using RowsDone = std::function<void(qint64 done, qint64 all)>;

/// A row with tabulations between its cells; row 0 is the headers.
QString RowText(const Grid& grid, int row);
/// The headers and all rows, one a line.
QString AllText(const Grid& grid, const RowsDone& told);
/// Writes headers and rows for a spreadsheet, in one go: a file that was there stays as it is until the new one is
/// complete. Raises 75 when it cannot be written.
void SaveCsv(const Grid& grid, const QString& path, const RowsDone& told);

} // namespace vorta::screen
