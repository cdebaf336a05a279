#pragma once

#include "screen/Field.h"

#include <QColor>

class QWidget;

namespace vorta::desktop {

/// The colour on this machine for a colour of the register; system colours and the plain white of a free field follow
/// the program's own palette.
QColor ColourOf(screen::Colour colour);
/// The same for a text: the red of a warning is the nearest one that is read.
QColor TextColourOf(screen::Colour colour);

/// Paints a widget in the colours of its field.
void ApplyColours(QWidget& widget, screen::FieldKind kind, screen::Colour background, screen::Colour foreground);

} // namespace vorta::desktop
