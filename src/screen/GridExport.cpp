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

} // namespace

QString RowText(const Grid& grid, int row) {
    // A line break within a cell would begin another row where the text arrives.
    return shownCells(grid, row).join(u'\t').replace(u'\n', u' ').remove(u'\r');
}

QString AllText(const Grid& grid) {
    QString text;
    for (int row = 0; row < grid.Rows(); ++row)
        text += RowText(grid, row) + u'\n';
    return text;
}

void SaveCsv(const Grid& grid, const QString& path) {
    QSaveFile file(path);
    bool right = file.open(QIODevice::WriteOnly) && file.write(csvMark) > 0;
    for (int row = 0; right && row < grid.Rows(); ++row) {
        const QByteArray record = CsvRecord(shownCells(grid, row)).toUtf8();
        right = file.write(record) == record.size();
    }
    if (!right)
        file.cancelWriting();
    if (!right || !file.commit())
        throw RuntimeError(errorNumber::PathRefused,
                           u"Não foi possível gravar %1: %2"_s.arg(path, WhyNotWritten(path)));
}

} // namespace vorta::screen
