#pragma once

#include "screen/Grid.h"

class QContextMenuEvent;
class QTableView;

namespace vorta::desktop {

class Binder;

/// Opens the menu of a grid where the event says: on the row under the mouse, which becomes the current one without a
/// click, or by the keyboard on the current row. The menu goes with its view.
void OpenGridMenu(Binder& binder, screen::Grid& grid, QTableView& view, const QContextMenuEvent& event);

} // namespace vorta::desktop
