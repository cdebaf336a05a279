// The menu of a grid.

#include "base/Literals.h"
#include "screen/AskAndWrite.h"
#include "screen/GridExport.h"
#include "screen/Program.h"
#include "screen/User.h"

#include <algorithm>

namespace vorta::screen {

namespace {

/// The commands that every grid has, in front of its own.
enum Common { CopyRow, CopyAll, SaveAs, commonCount };

} // namespace

QStringList User::gridMenu(const Grid& grid) {
    QStringList captions{u"&Copiar a linha"_s, u"Copiar &tudo"_s, u"&Salvar como CSV..."_s};
    for (const GridCommand& command : grid.commands)
        captions += command.caption;
    return captions;
}

bool User::gridMenuOffers(const Grid& grid, int item) {
    return item == CopyAll || item == SaveAs ? grid.Cols() > 0 : grid.Row() > 0;
}

void User::pointAt(Grid& grid, int row) {
    event(grid.screen(), [&] { grid.setRow(std::clamp(row, 0, grid.Rows() - 1)); });
}

void User::copyRow(Grid& grid) {
    if (gridMenuOffers(grid, CopyRow))
        event(grid.screen(), [&] { program_.platform().putOnClipboard(RowText(grid, grid.Row())); });
}

void User::chooseFromMenu(Grid& grid, int item) {
    if (!gridMenuOffers(grid, item))
        return;
    if (item == CopyRow)
        return copyRow(grid);
    const auto told = [this](qint64 done, qint64 all) { program_.platform().progress(done, all); };
    event(grid.screen(), [&] {
        if (item == CopyAll)
            program_.platform().putOnClipboard(AllText(grid, told));
        else if (item == SaveAs)
            AskAndWrite(program_, u"lista.csv"_s, [&](const QString& path) { SaveCsv(grid, path, told); });
        else
            grid.commands[static_cast<size_t>(item - commonCount)].run();
        program_.platform().progress(0, 0);
    });
}

} // namespace vorta::screen
