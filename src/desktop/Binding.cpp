#include "desktop/Binding.h"

#include "base/RuntimeError.h"
#include "desktop/Binder.h"
#include "desktop/ButtonBindings.h"
#include "desktop/Colours.h"
#include "desktop/GridBinding.h"
#include "desktop/InputBindings.h"
#include "desktop/TabBinding.h"
#include "screen/Program.h"

#include <QCoreApplication>
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

/// The printable character of a key; null for cursor keys, shortcuts and the like. AltGr reports itself as Ctrl+Alt on
/// some systems.
QChar characterOf(const QKeyEvent& key) {
    const Qt::KeyboardModifiers modifiers =
        key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool plain = modifiers == Qt::NoModifier || modifiers == (Qt::ControlModifier | Qt::AltModifier);
    return plain && key.text().size() == 1 && key.text()[0].isPrint() ? key.text()[0] : QChar();
}

} // namespace

Binding::Binding(Binder& binder, screen::Field& field, QWidget& widget)
    : binder_(binder), field_(field), widget_(widget) {
    // The mouse gives the focus through the screen; Tab stays in the policy for helpers that ask who can have it.
    if (field.takesFocus())
        widget.setFocusPolicy(Qt::TabFocus);
    widget.installEventFilter(this);
}

void Binding::refresh() {
    widget_.setEnabled(field_.enabled());
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

bool Binding::keyPressed(QKeyEvent& key) {
    if (isModifier(key.key()))
        return false;
    if (binder_.switchPage(field_, key) || !takeFocus())
        return true;
    if (const std::optional<Key> special = specialKey(key))
        return specialPressed(*special);
    const QChar typed = characterOf(key);
    if (typed.isNull())
        return false;
    // A button that is held down by the space bar would be clicked again and again.
    return (key.isAutoRepeat() && field_.kind() == FieldKind::Button) || characterTyped(typed);
}

bool Binding::specialPressed(Key key) {
    binder_.act([&] { binder_.user().key(field_, key); });
    return true;
}

bool Binding::characterTyped(QChar typed) {
    binder_.act([&] { binder_.user().character(field_, typed); });
    return true;
}

/// Composed characters ("´" and "a") come as a ready text instead of keys.
bool Binding::inputMethod(QInputMethodEvent& input) {
    const QString text = input.commitString();
    if (text.isEmpty())
        return false;
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

std::unique_ptr<Binding> MakeBinding(Binder& binder, screen::Field& field, QWidget& widget) {
    const auto make = [&]<typename Made, typename OfField, typename OfWidget>() -> std::unique_ptr<Binding> {
        auto* shown = qobject_cast<OfWidget*>(&widget);
        auto* typed = dynamic_cast<OfField*>(&field);
        return shown && typed ? std::make_unique<Made>(binder, *typed, *shown) : nullptr;
    };
    std::unique_ptr<Binding> made;
    const auto tryOne = [&]<typename Made, typename OfField, typename OfWidget>() {
        if (!made)
            made = make.template operator()<Made, OfField, OfWidget>();
    };
    switch (field.kind()) {
    case FieldKind::Text:
        tryOne.operator()<TextBinding, screen::Field, QLineEdit>();
        tryOne.operator()<NotesBinding, screen::Field, QPlainTextEdit>();
        break;
    case FieldKind::Masked:
        tryOne.operator()<MaskedBinding, screen::MaskedField, QLineEdit>();
        break;
    case FieldKind::List:
        tryOne.operator()<ListBinding, screen::ListField, QComboBox>();
        tryOne.operator()<OpenListBinding, screen::ListField, QListView>();
        break;
    case FieldKind::Label:
        tryOne.operator()<LabelBinding, screen::Field, QLabel>();
        break;
    case FieldKind::Button:
        tryOne.operator()<ButtonBinding, screen::Field, QAbstractButton>();
        break;
    case FieldKind::Option:
        tryOne.operator()<OptionBinding, screen::Option, QRadioButton>();
        break;
    case FieldKind::Check:
        tryOne.operator()<CheckBinding, screen::Check, QCheckBox>();
        break;
    case FieldKind::Picture:
        tryOne.operator()<PictureBinding, screen::Field, QLabel>();
        break;
    case FieldKind::Grid:
        tryOne.operator()<GridBinding, screen::Grid, QTableView>();
        break;
    case FieldKind::TabStrip:
        tryOne.operator()<TabBinding, screen::TabStrip, QTabWidget>();
        break;
    }
    if (!made)
        throw RuntimeError(errorNumber::TypeMismatch, QStringLiteral("%1.%2").arg(field.screen().name(), field.name()));
    return made;
}

} // namespace vorta::desktop
