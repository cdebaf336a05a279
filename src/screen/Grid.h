#pragma once

#include "base/ByteBlocks.h"
#include "screen/Field.h"

#include <vector>

namespace vorta::screen {

enum class Align { Left, Right, Centre };

/// A column of a grid. `width` 0 hides it; the other widths tell proportions (15 units a pixel, as the screens were
/// drawn), -1 is left to the window.
struct GridColumn {
    QString header;
    int width = -1;
    Align align = Align::Left;
};

/// What the menu of a grid offers besides the list itself. It works on the current row and needs one.
struct GridCommand {
    QString caption;
    std::function<void()> run;
};

/// Rows and columns of text with one fixed header row, row 0. Rows are packed as UTF-8 in blocks, so that a million
/// rows fit; the window asks only for the cells that it shows. A row or column outside the grid raises 381.
class Grid : public Field {
  public:
    Grid(Screen* screen, const char* name) : Field(screen, name, FieldKind::Grid) {}

    /// A grid to choose from: Enter does what a double click does. In any other Enter moves on, and no key is a click.
    bool keysChoose = false;
    /// Rows by which PageUp and PageDown go; a window says how many it shows.
    int pageRows = 10;

    /// Own commands of this grid's menu.
    std::vector<GridCommand> commands;

    /// Empties the grid down to its header row and sets its columns.
    void reset(const std::vector<GridColumn>& columns);
    const std::vector<GridColumn>& columns() const { return columns_; }

    int Rows() const { return static_cast<int>(rows_.size()) + 1; } ///< the header row counts
    int Cols() const { return static_cast<int>(columns_.size()); }
    int Row() const { return row_; }
    void setRow(int row);
    int Col() const { return col_; }
    void setCol(int col);
    int TopRow() const { return topRow_; }
    void setTopRow(int row); ///< the nearest row that can stand at the top; no error

    /// A cell; row 0 gives the headers.
    QString cell(int row, int col) const;
    /// The text of the current cell.
    QString currentText() const { return cell(row_, col_); }

    /// Adds a row at the end; tabs part the cells, missing cells are empty, surplus ones dropped. The first data row
    /// becomes the current one when there is none.
    void AddItem(const QString& tabbed);
    /// The same from its cells, each of which stays in its column whatever characters its text has.
    void AddRow(const QStringList& cells);
    /// Removes a data row; raises 381 for the header row too.
    void RemoveItem(int row);

    /// Bytes that the rows occupy, for the measurement of the store.
    qint64 bytesUsed() const;
    /// Counts every change of rows, so that a window knows when to look again.
    quint64 revision() const { return revision_; }

  private:
    QByteArrayView bytesOf(int row) const;
    /// Packs a row behind the number of its bytes.
    const char* pack(QByteArrayView cells);
    void add(const QByteArray& cells);
    void touched();

    std::vector<GridColumn> columns_;
    std::vector<const char*> rows_;
    ByteBlocks bytes_;
    int row_ = 0;
    int col_ = 0;
    int topRow_ = 1;
    quint64 revision_ = 0;
};

} // namespace vorta::screen
