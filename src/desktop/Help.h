#pragma once

#include <QStringList>

class QIcon;
class QWidget;

namespace vorta::desktop {

/// Opens the manual, which the program carries with it, beside a window; one that is open comes to the front.
void ShowManual(QWidget& above);
/// The picture of the program in frames and task bars.
QIcon ProgramIcon();
/// Shows the keys of a screen, "key\twhat it does" each.
void ShowKeys(QWidget& above, const QStringList& keys);

} // namespace vorta::desktop
