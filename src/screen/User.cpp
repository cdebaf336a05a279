#include "screen/User.h"

#include "base/Text.h"
#include "base/Windows1252.h"
#include "screen/Program.h"

namespace vorta::screen {

namespace {

constexpr int enterCode = 13;
constexpr int backspaceCode = 8;
constexpr int escapeCode = 27;
constexpr int apostropheCode = 39;
constexpr int acuteCode = 180;

bool takesText(const Field& field) {
    if (const auto* list = dynamic_cast<const ListField*>(&field))
        return list->dropDown();
    return field.kind() == FieldKind::Text || field.kind() == FieldKind::Masked;
}

void run(const Field::Handler& handler) {
    if (handler)
        handler();
}

} // namespace

bool User::event(Screen& screen, const std::function<void()>& body) {
    return program_.dispatch([&] {
        body();
        settle(screen);
    });
}

void User::settle(Screen& screen) {
    if (!screen.isLoaded())
        return;
    if (screen.takeTabRequest())
        walk(screen, false);
    // A field that was disabled under the user's hands hands the focus to the first of the screen.
    if (screen.isLoaded() && screen.focus() && !screen.focus()->canFocus())
        screen.moveFocus(screen.nextField(nullptr));
}

/// One step by the keyboard. The text of the field that it reaches is selected, so that typing replaces it.
void User::walk(Screen& screen, bool backwards) {
    Field* next = screen.nextField(screen.focus(), backwards);
    if (next && screen.moveFocus(next) && takesText(*next))
        next->select(0, static_cast<int>(next->text().size()));
}

bool User::take(Field& field) {
    return field.screen().moveFocus(&field);
}

bool User::focus(Field& field) {
    bool there = false;
    event(field.screen(), [&] { there = field.canFocus() && take(field); });
    return there;
}

void User::leave(Screen& screen) {
    event(screen, [&] { screen.moveFocus(nullptr); });
}

int User::filterKey(Field& field, int code) {
    int kept = code;
    event(field.screen(), [&] {
        if (field.KeyPress)
            field.KeyPress(kept);
        if (kept == enterCode && field.enterMovesOn) {
            kept = 0;
            field.screen().SendTab();
        }
        if (kept == apostropheCode && field.apostropheBecomesAcute)
            kept = acuteCode;
    });
    if (kept >= 32 && !InRepertoire(QChar(static_cast<char16_t>(kept))))
        kept = 0;
    return program_.hasEnded() ? 0 : kept;
}

void User::edited(Field& field, const QString& text) {
    if (!field.locked() && field.enabled())
        field.setText(OnlyRepertoire(text));
}

void User::insert(Field& field, QChar character) {
    if (field.locked() || !takesText(field))
        return;
    if (auto* masked = dynamic_cast<MaskedField*>(&field)) {
        masked->typeCharacter(character);
        return;
    }
    const int start = field.selectionStart();
    const QString rest = field.text().left(start) + field.text().mid(start + field.selectionLength());
    if (field.maxLength() > 0 && rest.size() >= field.maxLength())
        return;
    field.setText(rest.left(start) + character + rest.mid(start));
    field.select(start + 1, 0);
}

void User::erase(Field& field, bool forward) {
    if (field.locked() || !takesText(field))
        return;
    if (auto* masked = dynamic_cast<MaskedField*>(&field)) {
        forward ? masked->deleteForward() : masked->backspace();
        return;
    }
    int start = field.selectionStart();
    int length = field.selectionLength();
    if (length == 0) {
        if (!forward && start == 0)
            return;
        start -= forward ? 0 : 1;
        length = 1;
    }
    QString text = field.text();
    field.setText(text.remove(start, length));
    field.select(start, 0);
}

void User::character(Field& field, QChar character) {
    const int kept = filterKey(field, character.unicode());
    if (kept == 0 || field.screen().focus() != &field)
        return;
    if (kept == ' ' && !takesText(field))
        return click(field);
    insert(field, QChar(static_cast<char16_t>(kept)));
}

/// What an Enter does that no rule of the field has taken: it clicks a button, and chooses the current row of a grid.
void User::enter(Field& field) {
    if (field.kind() == FieldKind::Button)
        return click(field);
    const auto* grid = dynamic_cast<const Grid*>(&field);
    if (grid && grid->Row() > 0)
        event(field.screen(), [&] { run(field.DblClick ? field.DblClick : field.Click); });
}

void User::key(Field& field, Key key) {
    switch (key) {
    case Key::Enter:
        if (filterKey(field, enterCode) == enterCode && field.screen().focus() == &field)
            enter(field);
        break;
    case Key::Tab:
    case Key::BackTab:
        event(field.screen(), [&] { walk(field.screen(), key == Key::BackTab); });
        break;
    case Key::Backspace:
        if (filterKey(field, backspaceCode) == backspaceCode && field.screen().focus() == &field)
            erase(field, false);
        break;
    case Key::Delete:
        erase(field, true);
        break;
    case Key::Escape:
        filterKey(field, escapeCode);
        break;
    case Key::Function:
        break;
    }
}

void User::type(Field& field, const QString& text) {
    if (!focus(field))
        return;
    field.select(0, static_cast<int>(field.text().size()));
    if (text.isEmpty() && field.selectionLength() > 0)
        erase(field, true);
    for (const QChar typed : text) {
        if (program_.hasEnded() || field.screen().focus() != &field)
            return;
        character(field, typed);
    }
}

void User::click(Field& field) {
    event(field.screen(), [&] {
        if (!field.enabled() || !field.visible())
            return;
        if (field.takesFocus() && !take(field))
            return;
        if (!field.enabled() || !field.visible())
            return;
        if (auto* option = dynamic_cast<Option*>(&field))
            option->setValue(true);
        else if (auto* check = dynamic_cast<Check*>(&field))
            check->setChecked(!check->checked());
        else
            run(field.Click);
    });
}

void User::doubleClick(Field& field) {
    event(field.screen(), [&] {
        if (field.enabled() && field.visible() && (!field.takesFocus() || take(field)))
            run(field.DblClick);
    });
}

void User::clickCell(Grid& grid, int row, int col) {
    event(grid.screen(), [&] {
        if (!grid.enabled() || !grid.visible() || !take(grid))
            return;
        grid.setRow(row);
        if (col < grid.Cols())
            grid.setCol(col);
        run(grid.Click);
    });
}

void User::doubleClickCell(Grid& grid, int row, int col) {
    clickCell(grid, row, col);
    if (program_.hasEnded() || !grid.screen().isLoaded() || row >= grid.Rows())
        return;
    event(grid.screen(), [&] {
        if (grid.screen().focus() == &grid)
            run(grid.DblClick);
    });
}

void User::dropDown(ListField& list) {
    event(list.screen(), [&] {
        if (!list.enabled() || !list.visible() || !take(list))
            return;
        const QString shown = list.text();
        run(list.DropDown);
        // A fresh fill takes the text away; a locked field keeps what it shows.
        if (list.locked())
            list.setText(shown);
    });
}

void User::pick(ListField& list, int index) {
    event(list.screen(), [&] {
        if (list.locked() || !list.enabled() || list.screen().focus() != &list)
            return;
        list.setListIndex(index);
        list.select(static_cast<int>(list.text().size()), 0); // typing goes on behind the item
    });
}

void User::chooseTab(TabStrip& strip, int page) {
    event(strip.screen(), [&] {
        showPageOf(strip);
        strip.setCurrent(page);
    });
}

void User::close(Screen& screen) {
    event(screen, [&] { screen.Unload(); });
}

} // namespace vorta::screen
