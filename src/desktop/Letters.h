#pragma once

#include <QList>
#include <QString>
#include <functional>

class QKeySequence;
class QLabel;
class QWidget;

namespace vorta::desktop {

/// The property of a button with the letter that it shows underlined.
inline constexpr char letterProperty[] = "letter";

/// A key that leads to a field of a screen: an input gets the focus, anything else is clicked.
struct FieldKey {
    QString field;
    QString keys; ///< as `QKeySequence` writes them, "Alt+G"
};
/// All such keys of a screen beside the letters that its captions mark.
QList<FieldKey> FieldKeys(const QString& screen);

/// The text with its first such letter marked by an ampersand; unchanged when it has none or marks one already.
QString MarkedText(const QString& text, QChar letter);
/// Puts the keys of a field on its widget: on a button's shortcut, or on the label that leads to the input. Gives false
/// when there is a key that neither of them can carry.
bool MarkWidget(QWidget& widget, const QString& keys);
/// The label that leads to a widget; none for a widget without one.
QLabel* LabelOf(const QWidget& widget);
/// What these keys do in a window now; nothing when they are nobody's. For where the toolkit holds every key back, as
/// it does while a list is dropped down.
std::function<void()> ActOfKeys(const QWidget& window, const QKeySequence& keys);

} // namespace vorta::desktop
