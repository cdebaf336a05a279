#pragma once

#include <QStringList>

class QWidget;

namespace vorta::desktop {

/// The names of all forms, which are those of the screens.
QStringList FormNames();
/// Puts the widgets of a screen's form into a widget; raises 91 for a screen that has no form.
void SetUpForm(const QString& name, QWidget& widget);
/// The name of a field's widget on a form: the field's own, with the number of a member of an array, "cmdImagem1(0)",
/// behind an underscore, "cmdImagem1_0".
QString WidgetName(const QString& field);

} // namespace vorta::desktop
