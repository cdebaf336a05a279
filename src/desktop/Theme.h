#pragma once

#include <QFont>
#include <QPalette>
#include <QStringList>

namespace vorta::desktop {

/// The colours of the windows on a desktop with this palette: the program's own on an ordinary light one, else those of
/// the desktop, in either case readable in every state.
QPalette ThemeFor(const QPalette& desktop);

/// How clearly one colour stands before another, from 1 (not at all) to 21 (black on white).
double ContrastOf(const QColor& one, const QColor& other);
/// The least contrast that a text is read by.
inline constexpr double leastContrast = 4.5;
/// That colour, or black or white where it would not be read on the ground.
QColor ReadableOn(const QColor& ground, const QColor& wanted);

/// The nearest to red that is read on the grounds of that palette.
QColor WarningColour(const QPalette& palette);

/// The colour of what shows the focus: that of a choice, or of the text where nobody would see it.
QColor FocusColour(const QPalette& palette);

/// The font, or in its place the first of the others that is there: what the system itself puts in the place of a
/// missing font may be of any kind, and a name alone says little, since systems have names that stand for other fonts.
QFont FontThatIsThere(const QFont& font, const QStringList& others);

bool IsDark(const QColor& colour);
/// Letters and ground as far apart as can be, for weak eyes: every line is wanted as clear then.
bool IsStark(const QPalette& palette);
/// The colour some way towards the other side: darker by `percent` of 100 where it is light, lighter where it is dark.
QColor Shaded(const QColor& colour, int percent);

} // namespace vorta::desktop
