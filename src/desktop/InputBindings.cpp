#include "desktop/InputBindings.h"

#include "base/Text.h"
#include "desktop/Binder.h"
#include "desktop/Letters.h"

#include <QCompleter>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

namespace vorta::desktop {

namespace {

using screen::Key;

constexpr int backspaceCode = 8;
constexpr int noLimit = 32767;
constexpr int widestFixed = 22; ///< a longer limit says nothing about the room that a text wants
constexpr int leastShown = 14;

/// The keys that walk through the items of a list.
std::optional<Key> walkingKey(const QKeyEvent& key) {
    const std::optional<Key> cursor = CursorKey(key);
    const bool walks = cursor == Key::Up || cursor == Key::Down || cursor == Key::PageUp || cursor == Key::PageDown;
    return walks ? cursor : std::nullopt;
}

/// The characters that an input is drawn for: what the form says, else its mask or its maximum length; 0 for as wide as
/// there is room.
int charactersOf(const screen::Field& field, const QWidget& widget) {
    if (const QVariant told = widget.property("characters"); told.isValid())
        return told.toInt();
    if (const auto* masked = dynamic_cast<const screen::MaskedField*>(&field))
        return static_cast<int>(masked->mask().size());
    return field.maxLength() <= widestFixed ? field.maxLength() : 0;
}

/// What an edit has done: this stretch of the text before became this one.
struct Edit {
    int start;
    int length;
    QString inserted;
};

int commonBeginning(QStringView one, QStringView other) {
    const auto end = std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first;
    return static_cast<int>(end - one.begin());
}

/// The edit that made one text of another and left the cursor behind what it inserted. Most replace the selection; what
/// has taken another way, as Backspace or a drop, is found by what stayed the same.
Edit editBetween(const QString& before, int selected, int length, const QString& now, int cursor) {
    const QString behind = before.mid(selected + length);
    if (cursor >= selected && now == before.left(selected) + now.mid(selected, cursor - selected) + behind)
        return {selected, length, now.mid(selected, cursor - selected)};
    const QString rest = now.mid(cursor);
    const qsizetype end = before.endsWith(rest) ? now.size() - rest.size() : now.size();
    const qsizetype endBefore = before.endsWith(rest) ? before.size() - rest.size() : before.size();
    const int start = commonBeginning(QStringView(before).left(endBefore), QStringView(now).left(end));
    return {start, static_cast<int>(endBefore) - start, now.mid(start, end - start)};
}

int widthOf(const QWidget& widget, int characters) {
    return widget.fontMetrics().horizontalAdvance(QString(characters, u'0')) + widget.fontMetrics().height();
}

} // namespace

bool EditBinding::mousePressed(QObject*, QMouseEvent&) {
    const bool there = hasFocus();
    if (!takeFocus())
        return true;
    // A field that selects its text on entering keeps the selection under the click that entered it.
    return !there && field().selectionLength() > 0;
}

bool EditBinding::specialPressed(Key key) {
    if (key == Key::Delete)
        return false;
    if (key == Key::Backspace)
        return filtered(backspaceCode) != backspaceCode;
    return Binding::specialPressed(key);
}

bool EditBinding::characterTyped(QChar typed) {
    const int kept = filtered(typed.unicode());
    if (kept == typed.unicode())
        return false;
    if (kept != 0)
        insert(QChar(static_cast<char16_t>(kept)));
    return true;
}

void EditBinding::tellText(const QString& text, int cursor) {
    if (binder_.refreshing())
        return;
    const Edit edit = editBetween(field().text(), field().selectionStart(), field().selectionLength(), text, cursor);
    binder_.mark(field()); // what the field does not take disappears again
    if (takeFocus())
        binder_.act([&] { binder_.user().replace(field(), edit.start, edit.length, edit.inserted); });
}

void EditBinding::tellSelection(int start, int length) {
    if (!binder_.refreshing() && hasFocus())
        field().select(start, length);
}

LineBinding::LineBinding(Binder& binder, screen::Field& field, QWidget& widget, QLineEdit& edit)
    : EditBinding(binder, field, widget), edit_(edit) {
    if (&edit != &widget)
        edit.installEventFilter(this);
    if (const int characters = charactersOf(field, widget); characters > 0) {
        const bool masked = field.kind() == screen::FieldKind::Masked;
        const int arrow = &edit == &widget ? 0 : edit.fontMetrics().height() * 2;
        edit.setMinimumWidth(widthOf(edit, masked ? characters : std::min(characters, leastShown)));
        widget.setMaximumWidth(widthOf(edit, characters + 1) + arrow);
    }
    // An edit that loses the focus loses its selection, which the field keeps.
    const auto selected = [this] {
        if (const QWidget* focused = edit_.window()->focusWidget(); focused == &edit_ || focused == &this->widget())
            tellSelection(selectionStart(), edit_.selectionLength());
    };
    connect(&edit, &QLineEdit::textEdited, this, [this] { tellText(edit_.text(), edit_.cursorPosition()); });
    connect(&edit, &QLineEdit::selectionChanged, this, selected);
    connect(&edit, &QLineEdit::cursorPositionChanged, this, selected);
}

void LineBinding::refresh() {
    Binding::refresh();
    edit_.setReadOnly(field().locked());
    showText();
    if (hasFocus())
        showSelection();
    else
        edit_.home(false); // a long text shows its beginning, and nothing of it selected
}

/// A text from the database may be longer than what may be typed: it is shown whole, and can only become shorter.
void LineBinding::showText() {
    const QString& text = field().text();
    // What is dropped or pasted into a mask finds its places in the field, which knows the limit.
    const auto* masked = dynamic_cast<const screen::MaskedField*>(&field());
    const bool unlimited = field().maxLength() == 0 || (masked && !masked->mask().isEmpty());
    const int limit = unlimited ? noLimit : std::max<int>(field().maxLength(), static_cast<int>(text.size()));
    if (edit_.text() != text) {
        edit_.setMaxLength(noLimit);
        edit_.setText(text);
    }
    if (edit_.maxLength() != limit)
        edit_.setMaxLength(limit);
}

int LineBinding::selectionStart() const {
    return edit_.hasSelectedText() ? edit_.selectionStart() : edit_.cursorPosition();
}

void LineBinding::showSelection() {
    if (selectionStart() == field().selectionStart() && edit_.selectionLength() == field().selectionLength())
        return;
    if (field().selectionLength() > 0) {
        edit_.setSelection(field().selectionStart(), field().selectionLength());
    } else {
        edit_.deselect();
        edit_.setCursorPosition(field().selectionStart());
    }
}

MaskedBinding::MaskedBinding(Binder& binder, screen::MaskedField& field, QLineEdit& edit)
    : LineBinding(binder, field, edit, edit) {}

bool MaskedBinding::keyPressed(QKeyEvent& key) {
    if (key.matches(QKeySequence::Cut)) {
        edit_.copy();
        return !takeFocus() || specialPressed(Key::Delete);
    }
    if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo))
        return true;
    return LineBinding::keyPressed(key);
}

// The mask is edited in the model, so these pass over what lines do.
bool MaskedBinding::specialPressed(Key key) {
    return Binding::specialPressed(key); // NOLINT(bugprone-parent-virtual-call)
}

bool MaskedBinding::characterTyped(QChar typed) {
    return Binding::characterTyped(typed); // NOLINT(bugprone-parent-virtual-call)
}

NotesBinding::NotesBinding(Binder& binder, screen::Field& field, QPlainTextEdit& edit)
    : EditBinding(binder, field, edit), edit_(edit) {
    edit.viewport()->installEventFilter(this);
    connect(&edit, &QPlainTextEdit::textChanged, this,
            [this] { tellText(edit_.toPlainText(), edit_.textCursor().position()); });
    connect(&edit, &QPlainTextEdit::selectionChanged, this, [this] { selected(); });
    connect(&edit, &QPlainTextEdit::cursorPositionChanged, this, [this] { selected(); });
}

void NotesBinding::refresh() {
    Binding::refresh();
    edit_.setReadOnly(field().locked());
    showText();
    QTextCursor cursor = edit_.textCursor();
    if (!hasFocus()) {
        // An edit that loses the focus loses its selection, which the field keeps.
        if (!cursor.hasSelection())
            return;
        cursor.clearSelection();
    } else {
        const int length = cursor.selectionEnd() - cursor.selectionStart();
        if (cursor.selectionStart() == field().selectionStart() && length == field().selectionLength())
            return;
        cursor.setPosition(field().selectionStart());
        cursor.setPosition(field().selectionStart() + field().selectionLength(), QTextCursor::KeepAnchor);
    }
    edit_.setTextCursor(cursor);
}

void NotesBinding::selected() {
    const QTextCursor cursor = edit_.textCursor();
    tellSelection(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart());
}

/// Only what differs is changed, so that the widget can still take back what came before; what is written while the
/// user is elsewhere may be another record's and takes nothing back.
void NotesBinding::showText() {
    const QString shown = edit_.toPlainText();
    const QString& text = field().text();
    if (shown == text)
        return;
    const int start = commonBeginning(shown, text);
    QTextCursor cursor(edit_.document());
    cursor.setPosition(start);
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.insertText(text.mid(start));
    if (!hasFocus())
        edit_.document()->clearUndoRedoStacks();
}

namespace {

/// Makes a list editable. One that does so by itself takes a completer, which none needs and which is slow to make; an
/// edit that has one already spares it.
QLineEdit& editOf(QComboBox& combo) {
    if (!combo.isEditable()) {
        static QCompleter spared;
        auto* edit = new QLineEdit(&combo);
        QWidget::setTabOrder(&combo, edit);
        edit->setCompleter(&spared);
        combo.setLineEdit(edit);
        combo.setCompleter(nullptr);
    }
    return *combo.lineEdit();
}

} // namespace

ListBinding::ListBinding(Binder& binder, screen::ListField& list, QComboBox& combo)
    : LineBinding(binder, list, combo, editOf(combo)), list_(list), combo_(combo) {
    combo.lineEdit()->setAccessibleName(combo.accessibleName());
    combo.setInsertPolicy(QComboBox::NoInsert);
    combo.setCompleter(nullptr);
    combo.setModel(&items_);
    combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo.setMaxVisibleItems(16);
    connect(&combo, &QComboBox::activated, this, [this](int index) {
        if (!binder_.refreshing())
            binder_.act([&] { binder_.user().pick(list_, index); });
        binder_.mark(list_);
    });
}

void ListBinding::showItems() {
    if (items_.stringList() != list_.items())
        items_.setStringList(list_.items());
    // Lists that carry columns are wider than their field and need letters of one width.
    if (list_.dropWidth() > 0 && combo_.view()->minimumWidth() != list_.dropWidth()) {
        combo_.view()->setMinimumWidth(list_.dropWidth());
        combo_.view()->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    }
    if (combo_.currentIndex() != list_.listIndex())
        combo_.setCurrentIndex(list_.listIndex());
}

void ListBinding::refresh() {
    showItems();
    if (popup_ && popup_->isVisible() && !list_.isOpen())
        combo_.hidePopup();
    LineBinding::refresh();
}

bool ListBinding::eventFilter(QObject* watched, QEvent* event) {
    if (watched == popup_) {
        // It hides before it reports a choice, if there was one.
        if (event->type() == QEvent::Hide)
            QMetaObject::invokeMethod(
                this, [this] { binder_.act([&] { binder_.user().closeList(list_); }); }, Qt::QueuedConnection);
        return event->type() == QEvent::KeyPress && popupKey(static_cast<QKeyEvent&>(*event));
    }
    // A wheel that turns over a list scrolls the page, it does not change the choice unseen.
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    return LineBinding::eventFilter(watched, event);
}

bool ListBinding::mousePressed(QObject* watched, QMouseEvent& mouse) {
    if (watched == &edit_)
        return LineBinding::mousePressed(watched, mouse);
    if (mouse.button() == Qt::LeftButton)
        dropDown();
    return true;
}

bool ListBinding::keyPressed(QKeyEvent& key) {
    const bool alt = key.modifiers().testFlag(Qt::AltModifier);
    switch (key.key()) {
    case Qt::Key_F4:
        dropDown();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (binder_.switchPage(list_, key))
            return true;
        if (alt)
            dropDown();
        else if (takeFocus())
            walk(*walkingKey(key));
        return true;
    default:
        return LineBinding::keyPressed(key);
    }
}

void ListBinding::walk(screen::Key key) {
    binder_.act([&] { binder_.user().key(list_, key); });
    showPopup();
}

void ListBinding::dropDown() {
    binder_.act([&] { binder_.user().dropDown(list_); });
    showPopup();
}

/// The list is open by the screen's word, and so is the part that drops down, when it has something to show.
void ListBinding::showPopup() {
    if (!hasFocus() || !list_.isOpen() || combo_.count() == 0)
        return;
    if (!std::exchange(popup_, combo_.view()))
        popup_->installEventFilter(this);
    if (!popup_->isVisible())
        combo_.showPopup();
    popup_->setCurrentIndex(items_.index(list_.highlighted()));
}

/// Keys while the part below is dropped down. It closes itself and takes what is highlighted; what is typed meanwhile
/// is the field's, as if nothing were open, and the window's keys do what they always do.
bool ListBinding::popupKey(QKeyEvent& key) {
    const bool alt = key.modifiers().testFlag(Qt::AltModifier);
    if (const auto act = ActOfKeys(*combo_.window(), key.keyCombination())) {
        combo_.hidePopup();
        act();
        return true;
    }
    if (const std::optional<Key> walking = walkingKey(key); walking && !alt) {
        list_.highlight(popup_->currentIndex().row()); // the mouse may have moved it
        walk(*walking);
        return true;
    }
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    const bool closes = key.key() == Qt::Key_Escape || key.key() == Qt::Key_F4 || walkingKey(key);
    if (closes || (enter && popup_->currentIndex().isValid()))
        return false;
    if (enter)
        combo_.hidePopup();
    QCoreApplication::sendEvent(&combo_, &key);
    return true;
}

OpenListBinding::OpenListBinding(Binder& binder, screen::ListField& list, QListView& view)
    : Binding(binder, list, view), list_(list), view_(view) {
    view.setModel(&items_);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTabKeyNavigation(false);
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
        if (!binder_.refreshing() && takeFocus())
            binder_.act([&] { binder_.user().pick(list_, index.row()); });
    });
}

bool OpenListBinding::cursorPressed(Key key) {
    return key != Key::Left && key != Key::Right && Binding::cursorPressed(key);
}

void OpenListBinding::refresh() {
    Binding::refresh();
    if (items_.stringList() != list_.items())
        items_.setStringList(list_.items());
    view_.setCurrentIndex(items_.index(list_.listIndex()));
}

} // namespace vorta::desktop
