#pragma once

#include "screen/Grid.h"

/// A grid as it leaves the program: what it shows, row by row, without its hidden columns.
namespace vorta::screen {

/// A row with tabulations between its cells; row 0 is the headers.
QString RowText(const Grid& grid, int row);
/// The headers and all rows, one a line.
QString AllText(const Grid& grid);
/// Writes headers and rows for a spreadsheet, in one go: a file that was there stays as it is until the new one is
/// complete. Raises 75 when it cannot be written.
void SaveCsv(const Grid& grid, const QString& path);

} // namespace vorta::screen
