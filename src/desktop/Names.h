#pragma once

#include <QString>

class QWidget;

namespace vorta::desktop {

/// Tells helpers for the blind what a field is called where no label does: documents whose label changes, grids, the
/// line in which a list takes its text.
void NameWidget(const QString& screen, const QString& field, QWidget& widget);

} // namespace vorta::desktop
