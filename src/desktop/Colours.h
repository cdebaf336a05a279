#pragma once

#include "screen/Field.h"

#include <QColor>

class QWidget;

namespace vorta::desktop {

/// The colour on this machine for a colour of the register; system colours, the plain white of a free field and the red
/// of a warning follow the program's own palette.
QColor ColourOf(screen::Colour colour);

/// Paints a widget in the colours of its field.
void ApplyColours(QWidget& widget, screen::FieldKind kind, screen::Colour background, screen::Colour foreground);

} // namespace vorta::desktop
