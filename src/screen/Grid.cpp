#include "screen/Grid.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <cstring>

namespace vorta::screen {

namespace {

constexpr char cellEnd = '\xFF'; ///< no part of any text in UTF-8

} // namespace

void Grid::touched() {
    ++revision_;
    changed();
}

void Grid::reset(const std::vector<GridColumn>& columns) {
    columns_ = columns;
    rows_.clear();
    rows_.shrink_to_fit();
    bytes_.clear();
    row_ = 0;
    col_ = 0;
    topRow_ = 1;
    touched();
}

void Grid::setRow(int row) {
    if (row < 0 || row >= Rows())
        throw RuntimeError(errorNumber::OutsideGrid, u"Linha fora da grade"_s);
    row_ = row;
    changed();
}

void Grid::setCol(int col) {
    if (col < 0 || col >= Cols())
        throw RuntimeError(errorNumber::OutsideGrid, u"Coluna fora da grade"_s);
    col_ = col;
}

void Grid::setTopRow(int row) {
    topRow_ = std::clamp(row, 1, std::max(1, Rows() - 1));
    changed();
}

QByteArrayView Grid::bytesOf(int row) const {
    const char* const packed = rows_[static_cast<size_t>(row - 1)];
    quint32 length = 0;
    std::memcpy(&length, packed, sizeof length);
    return {packed + sizeof length, static_cast<qsizetype>(length)};
}

QString Grid::cell(int row, int col) const {
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols())
        throw RuntimeError(errorNumber::OutsideGrid, u"Célula fora da grade"_s);
    if (row == 0)
        return columns_[static_cast<size_t>(col)].header;
    QByteArrayView rest = bytesOf(row);
    for (int skipped = 0; skipped < col; ++skipped) {
        const qsizetype end = rest.indexOf(cellEnd);
        if (end < 0)
            return {};
        rest = rest.sliced(end + 1);
    }
    const qsizetype end = rest.indexOf(cellEnd);
    return QString::fromUtf8(end < 0 ? rest : rest.first(end));
}

const char* Grid::pack(QByteArrayView cells) {
    // Empty cells at the end need no separator of their own.
    while (!cells.isEmpty() && cells.back() == cellEnd)
        cells.chop(1);
    const auto length = static_cast<quint32>(cells.size());
    char* const packed = bytes_.add(sizeof length + length);
    std::memcpy(packed, &length, sizeof length);
    std::memcpy(packed + sizeof length, cells.data(), length);
    return packed;
}

void Grid::add(const QByteArray& cells) {
    rows_.push_back(pack(cells));
    if (Rows() == 2)
        row_ = 1;
    touched();
}

void Grid::AddItem(const QString& tabbed) {
    add(tabbed.toUtf8().replace('\t', cellEnd));
}

void Grid::AddRow(const QStringList& cells) {
    QByteArray row;
    for (const QString& cell : cells)
        row += cell.toUtf8() + cellEnd;
    add(row);
}

void Grid::RemoveItem(int row) {
    if (row < 1 || row >= Rows())
        throw RuntimeError(errorNumber::OutsideGrid, u"Linha fora da grade"_s);
    rows_.erase(rows_.begin() + (row - 1));
    row_ = std::min(row_, Rows() - 1);
    topRow_ = std::clamp(topRow_, 1, std::max(1, Rows() - 1));
    touched();
}

qint64 Grid::bytesUsed() const {
    const std::size_t bytes = rows_.capacity() * sizeof(const char*) + bytes_.capacity();
    return static_cast<qint64>(bytes);
}

} // namespace vorta::screen
