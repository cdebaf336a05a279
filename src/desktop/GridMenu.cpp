#include "desktop/GridMenu.h"

#include "base/Literals.h"
#include "desktop/Binder.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QTableView>

namespace vorta::desktop {

namespace {

/// Where a menu opens that no mouse has asked for: below the current row.
QPoint belowRow(const QTableView& view) {
    const QRect row = view.visualRect(view.currentIndex());
    return view.viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint());
}

} // namespace

void OpenGridMenu(Binder& binder, screen::Grid& grid, QTableView& view, const QContextMenuEvent& event) {
    const bool byMouse = event.reason() == QContextMenuEvent::Mouse;
    const QModelIndex under = view.indexAt(view.viewport()->mapFromGlobal(event.globalPos()));
    if (byMouse && under.isValid() && !binder.act([&] { binder.user().pointAt(grid, under.row() + 1); }))
        return;
    auto* menu = new QMenu(&view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QStringList captions = screen::User::gridMenu(grid);
    for (int item = 0; item < captions.size(); ++item) {
        QAction* action = menu->addAction(captions[item] + (item == 0 ? u"\tCtrl+C"_s : QString()));
        action->setEnabled(screen::User::gridMenuOffers(grid, item));
        // Behind the end of the menu: what it does may ask for a file, or end the program.
        QObject::connect(
            action, &QAction::triggered, &binder,
            [&binder, &grid, item] { binder.act([&] { binder.user().chooseFromMenu(grid, item); }); },
            Qt::QueuedConnection);
    }
    menu->popup(byMouse ? event.globalPos() : belowRow(view));
}

} // namespace vorta::desktop
