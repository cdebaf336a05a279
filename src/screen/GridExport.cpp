#include "screen/GridExport.h"

#include "base/Csv.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/WhyNotWritten.h"

#include <QSaveFile>

namespace vorta::screen {

namespace {

QStringList shownCells(const Grid& grid, int row) {
    QStringList cells;
    for (int col = 0; col < grid.Cols(); ++col)
        if (grid.columns()[static_cast<size_t>(col)].width != 0)
            cells += grid.cell(row, col);
    return cells;
}

void tell(const RowsDone& told, int row, const Grid& grid) {
    constexpr int rowsBetween = 1000;
    if (row % rowsBetween == rowsBetween - 1)
        told(row + 1, grid.Rows());
}

} // namespace

QString RowText(const Grid& grid, int row) {
    // A line break within a cell would begin another row where the text arrives.
    return shownCells(grid, row).join(u'\t').replace(u'\n', u' ').remove(u'\r');
}

QString AllText(const Grid& grid, const RowsDone& told) {
    QString text;
    for (int row = 0; row < grid.Rows(); ++row) {
        text += RowText(grid, row) + u'\n';
        tell(told, row, grid);
    }
    return text;
}

void SaveCsv(const Grid& grid, const QString& path, const RowsDone& told) {
    QSaveFile file(path);
    bool right = file.open(QIODevice::WriteOnly) && file.write(csvMark) > 0;
    for (int row = 0; right && row < grid.Rows(); ++row) {
        const QByteArray record = CsvRecord(shownCells(grid, row)).toUtf8();
        right = file.write(record) == record.size();
        tell(told, row, grid);
    }
    if (!right)
        file.cancelWriting();
    if (!right || !file.commit())
        throw RuntimeError(errorNumber::PathRefused,
                           u"Não foi possível gravar %1: %2"_s.arg(path, WhyNotWritten(path)));
}

} // namespace vorta::screen
