#include "desktop/Binding.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "desktop/Binder.h"
#include "desktop/ButtonBindings.h"
#include "desktop/Colours.h"
#include "desktop/GridBinding.h"
#include "desktop/InputBindings.h"
#include "desktop/TabBinding.h"
#include "screen/Program.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>

namespace vorta::desktop {

namespace {

using screen::FieldKind;
using screen::Key;

bool isModifier(int key) {
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr || key == Qt::Key_Meta;
}

std::optional<Key> specialKey(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::Enter;
    case Qt::Key_Tab:
        return key.modifiers().testFlag(Qt::ShiftModifier) ? Key::BackTab : Key::Tab;
    case Qt::Key_Backtab:
        return Key::BackTab;
    case Qt::Key_Backspace:
        return Key::Backspace;
    case Qt::Key_Delete:
        return Key::Delete;
    case Qt::Key_Escape:
        return Key::Escape;
    default:
        return {};
    }
}

/// A letter with Alt that no caption has taken: it means a button that cannot be clicked now, and is no text.
bool isIdleAccelerator(const QKeyEvent& key) {
    const Qt::KeyboardModifiers modifiers =
        key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool alone = modifiers == Qt::AltModifier || modifiers == Qt::MetaModifier;
    return alone && !key.text().isEmpty() && key.text()[0].isPrint();
}

/// The printable character of a key; null for cursor keys, shortcuts and the like. AltGr reports itself as Ctrl+Alt on
/// some systems.
QChar characterOf(const QKeyEvent& key) {
    const Qt::KeyboardModifiers modifiers =
        key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool plain = modifiers == Qt::NoModifier || modifiers == (Qt::ControlModifier | Qt::AltModifier);
    return plain && key.text().size() == 1 && key.text()[0].isPrint() ? key.text()[0] : QChar();
}

} // namespace

std::optional<Key> CursorKey(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Left:
        return Key::Left;
    case Qt::Key_Right:
        return Key::Right;
    case Qt::Key_Up:
        return Key::Up;
    case Qt::Key_Down:
        return Key::Down;
    case Qt::Key_Home:
        return Key::Home;
    case Qt::Key_End:
        return Key::End;
    case Qt::Key_PageUp:
        return Key::PageUp;
    case Qt::Key_PageDown:
        return Key::PageDown;
    default:
        return {};
    }
}

Binding::Binding(Binder& binder, screen::Field& field, QWidget& widget)
    : binder_(binder), field_(field), widget_(widget) {
    // The mouse gives the focus through the screen; Tab stays in the policy for helpers that ask who can have it.
    if (field.takesFocus())
        widget.setFocusPolicy(Qt::TabFocus);
    widget.installEventFilter(this);
}

void Binding::refresh() {
    widget_.setEnabled(field_.enabled());
    if (widget_.isHidden() == field_.visible())
        widget_.setVisible(field_.visible());
    if (widget_.toolTip() != field_.toolTip())
        widget_.setToolTip(field_.toolTip());
    if (field_.bold() != widget_.property("shownBold").toBool()) {
        QFont font = widget_.font();
        font.setBold(field_.bold());
        widget_.setFont(font);
        widget_.setProperty("shownBold", field_.bold());
    }
    const std::pair wanted(field_.background(), field_.foreground());
    if (colours_ != wanted) {
        colours_ = wanted;
        ApplyColours(widget_, field_.kind(), wanted.first, wanted.second);
    }
}

bool Binding::hasFocus() const {
    return binder_.isOpen() && field_.screen().focus() == &field_;
}

bool Binding::takeFocus() {
    if (!hasFocus())
        binder_.act([&] { binder_.user().focus(field_); });
    return hasFocus();
}

int Binding::filtered(int code) {
    int kept = code;
    binder_.act([&] { kept = binder_.user().filterKey(field_, code); });
    return hasFocus() && !field_.locked() ? kept : 0;
}

bool Binding::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        return keyPressed(static_cast<QKeyEvent&>(*event));
    case QEvent::InputMethod:
        return inputMethod(static_cast<QInputMethodEvent&>(*event));
    case QEvent::MouseButtonPress:
        return mousePressed(watched, static_cast<QMouseEvent&>(*event));
    case QEvent::Drop:
        return dropped(*watched, static_cast<QDropEvent&>(*event));
    case QEvent::FocusIn:
        focusArrived(static_cast<const QFocusEvent&>(*event));
        return false;
    default:
        return false;
    }
}

/// The window has moved the focus by itself (an accelerator of a caption, a helper for the blind): the screen is asked,
/// behind the running event, whether it agrees.
void Binding::focusArrived(const QFocusEvent& focus) {
    const bool ownDoing = focus.reason() == Qt::ActiveWindowFocusReason || focus.reason() == Qt::PopupFocusReason ||
                          focus.reason() == Qt::MenuBarFocusReason;
    if (!binder_.refreshing() && !ownDoing && !hasFocus())
        QMetaObject::invokeMethod(
            this, [this] { takeFocus(); }, Qt::QueuedConnection);
}

bool Binding::mousePressed(QObject*, QMouseEvent&) {
    return false;
}

/// A text that comes from elsewhere stays there too: the field may take less of it than is let go over it.
bool Binding::dropped(QObject& watched, QDropEvent& drop) {
    const QObject* const source = drop.source();
    const bool fromItself = source && (source == &watched || source == watched.parent());
    if (drop.proposedAction() != Qt::MoveAction || fromItself)
        return false;
    QDropEvent copy(drop.position(), Qt::CopyAction, drop.mimeData(), drop.buttons(), drop.modifiers());
    QCoreApplication::sendEvent(&watched, &copy);
    drop.setDropAction(Qt::CopyAction);
    drop.setAccepted(copy.isAccepted());
    return true;
}

bool Binding::keyPressed(QKeyEvent& key) {
    if (isModifier(key.key()))
        return false;
    if (binder_.switchPage(field_, key) || isIdleAccelerator(key) || !takeFocus())
        return true;
    const bool ignored = key.isAutoRepeat() && screen::User::ignoresHeldKeys(field_);
    const bool enterIgnored = key.isAutoRepeat() && screen::User::ignoresHeldEnter(field_);
    const std::optional<Key> special = specialKey(key);
    if (special)
        return (enterIgnored && *special == Key::Enter) || specialPressed(*special);
    if (const std::optional<Key> cursor = CursorKey(key))
        return cursorPressed(*cursor);
    const QChar typed = characterOf(key);
    if (typed.isNull())
        return false;
    return ignored || characterTyped(typed);
}

bool Binding::specialPressed(Key key) {
    binder_.act([&] { binder_.user().key(field_, key); });
    return true;
}

bool Binding::cursorPressed(Key key) {
    return specialPressed(key);
}

bool Binding::characterTyped(QChar typed) {
    binder_.act([&] { binder_.user().character(field_, typed); });
    return true;
}

/// Composed characters ("´" and "a") come as a ready text instead of keys.
bool Binding::inputMethod(QInputMethodEvent& input) {
    const QString text = OnlyRepertoire(input.commitString());
    if (text.isEmpty())
        return !input.commitString().isEmpty();
    for (const QChar typed : text) {
        if (!takeFocus())
            return true;
        if (characterTyped(typed))
            continue;
        // The widget inserts an ordinary character by itself.
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(typed));
        widget_.removeEventFilter(this);
        QCoreApplication::sendEvent(&widget_, &key);
        widget_.installEventFilter(this);
    }
    return true;
}

namespace {

/// A binding for these classes of field and widget; none when field or widget are of others.
template <typename Made, typename OfField, typename OfWidget>
std::unique_ptr<Binding> made(Binder& binder, screen::Field& field, QWidget& widget) {
    auto* typed = dynamic_cast<OfField*>(&field);
    auto* shown = qobject_cast<OfWidget*>(&widget);
    return typed && shown ? std::make_unique<Made>(binder, *typed, *shown) : nullptr;
}

std::unique_ptr<Binding> bindingFor(Binder& binder, screen::Field& field, QWidget& widget) {
    const bool notes = qobject_cast<QPlainTextEdit*>(&widget);
    const bool open = qobject_cast<QListView*>(&widget);
    const bool frame = qobject_cast<QGroupBox*>(&widget);
    switch (field.kind()) {
    case FieldKind::Text:
        return notes ? made<NotesBinding, screen::Field, QPlainTextEdit>(binder, field, widget)
                     : made<TextBinding, screen::Field, QLineEdit>(binder, field, widget);
    case FieldKind::Masked:
        return made<MaskedBinding, screen::MaskedField, QLineEdit>(binder, field, widget);
    case FieldKind::List:
        return open ? made<OpenListBinding, screen::ListField, QListView>(binder, field, widget)
                    : made<ListBinding, screen::ListField, QComboBox>(binder, field, widget);
    case FieldKind::Label:
        return frame ? made<FrameBinding, screen::Field, QGroupBox>(binder, field, widget)
                     : made<LabelBinding, screen::Field, QLabel>(binder, field, widget);
    case FieldKind::Button:
        return made<ButtonBinding, screen::Field, QAbstractButton>(binder, field, widget);
    case FieldKind::Option:
        return made<OptionBinding, screen::Option, QRadioButton>(binder, field, widget);
    case FieldKind::Check:
        return made<CheckBinding, screen::Check, QCheckBox>(binder, field, widget);
    case FieldKind::Picture:
        return made<PictureBinding, screen::Field, QLabel>(binder, field, widget);
    case FieldKind::Grid:
        return made<GridBinding, screen::Grid, QTableView>(binder, field, widget);
    case FieldKind::TabStrip:
        return made<TabBinding, screen::TabStrip, QTabWidget>(binder, field, widget);
    }
    return nullptr;
}

} // namespace

std::unique_ptr<Binding> MakeBinding(Binder& binder, screen::Field& field, QWidget& widget) {
    std::unique_ptr<Binding> binding = bindingFor(binder, field, widget);
    if (!binding)
        throw RuntimeError(errorNumber::TypeMismatch, u"%1.%2"_s.arg(field.screen().name(), field.name()));
    return binding;
}

} // namespace vorta::desktop
