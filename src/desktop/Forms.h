#pragma once

#include <QStringList>

class QWidget;

namespace vorta::desktop {

/// The names of all forms, which are those of the screens.
QStringList FormNames();
/// Puts the widgets of a screen's form into a widget; raises 91 for a screen that has no form.
void SetUpForm(const QString& name, QWidget& widget);

} // namespace vorta::desktop
