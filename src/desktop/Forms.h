#pragma once

#include <QStringList>

class QWidget;

namespace vorta::desktop {

/// The names of all forms, which are those of the screens.
QStringList FormNames();
/// Puts the widgets of a screen's form into a widget; raises 91 for a screen that has no form. Tab pages that are not
/// in front at first may still be empty.
void SetUpForm(const QString& name, QWidget& widget);
/// Fills a tab page that its form has left empty. Gives false when there was nothing to do.
bool SetUpPage(QWidget& page);
/// The name of a field's widget on a form: the field's own, with the number of a member of an array, "cmdImagem1(0)",
/// behind an underscore, "cmdImagem1_0".
QString WidgetName(const QString& field);

} // namespace vorta::desktop
