#include "screen/User.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "screen/Program.h"

#include <QScopeGuard>
#include <algorithm>

namespace vorta::screen {

namespace {

constexpr int enterCode = 13;
constexpr int backspaceCode = 8;
constexpr int escapeCode = 27;
constexpr int firstPrinted = 32;
constexpr int apostropheCode = 39;
constexpr int acuteCode = 180;
constexpr int dropKey = 4;   ///< F4 drops a list down
constexpr int manualKey = 1; ///< F1 is the window's, which puts the manual in front
constexpr int pageItems = 15;
constexpr QChar lineFeed = u'\n';

bool takesText(const Field& field) {
    if (const auto* list = dynamic_cast<const ListField*>(&field))
        return list->dropDown();
    return field.kind() == FieldKind::Text || field.kind() == FieldKind::Masked;
}

/// The characters that typing and pasting may make of a text: the screen's limit, else what the data behind it hold.
int roomOf(const Field& field) {
    return field.maxLength() > 0 ? field.maxLength() : field.capacity;
}

void run(const Field::Handler& handler) {
    if (handler)
        handler();
}

bool isControl(QChar character) {
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

/// A text as one line: several control characters on end, as a line break of two, are one blank.
QString oneLine(const QString& text) {
    QString line;
    bool inside = false;
    for (const QChar character : text) {
        const bool control = isControl(character);
        if (!control)
            line += character;
        else if (!inside)
            line += u' ';
        inside = control;
    }
    return line;
}

/// What a field may take of a text from outside.
QString admitted(const Field& field, QString text) {
    text.replace(u"\r\n"_s, lineFeed).replace(u'\r', lineFeed).replace(QChar::ParagraphSeparator, lineFeed);
    QStringList lines = field.keepsLines ? text.split(lineFeed) : QStringList{text};
    for (QString& line : lines)
        line = oneLine(line);
    text = OnlyRepertoire(lines.join(lineFeed));
    if (const auto* masked = dynamic_cast<const MaskedField*>(&field))
        text = masked->lifted(text);
    if (field.apostropheBecomesAcute)
        text.replace(QChar(apostropheCode), QChar(acuteCode));
    return text;
}

/// The code of a key as the data can hold it; 0 for a key that means nothing there.
int inRepertoire(int code) {
    if (code < firstPrinted)
        return code;
    const QString kept = OnlyRepertoire(QChar(static_cast<char16_t>(code)));
    return kept.size() == 1 ? kept[0].unicode() : 0;
}

/// True when nothing has come up in front of a screen during an event, and the screen has not gone either.
bool undisturbed(const Screen& screen, const std::function<void()>& body) {
    const Program& program = screen.program();
    const int before = program.interruptions();
    const bool loaded = screen.isLoaded();
    body();
    return before == program.interruptions() && loaded == screen.isLoaded() && !program.hasEnded();
}

/// Up and Left go back, Down and Right on.
bool isBackwards(Key key) {
    return key == Key::Up || key == Key::Left || key == Key::PageUp;
}

/// The option that the cursor keys reach from another one of its group; none at the end.
Option* neighbour(const Option& option, bool backwards) {
    std::vector<Option*> group;
    for (Field* one : option.screen().fields())
        if (auto* sibling = dynamic_cast<Option*>(one); sibling && sibling->group() == option.group())
            group.push_back(sibling);
    if (backwards)
        std::ranges::reverse(group);
    const auto own = std::ranges::find(group, &option);
    const auto next = std::find_if(own + 1, group.end(), [](auto* sibling) { return sibling->canFocus(); });
    return next == group.end() ? nullptr : *next;
}

/// The letter that a caption marks; null for none.
QChar markedLetter(const QString& caption) {
    for (qsizetype at = caption.indexOf(u'&'); at >= 0 && at + 1 < caption.size(); at = caption.indexOf(u'&', at + 2))
        if (caption[at + 1] != u'&')
            return caption[at + 1].toUpper();
    return {};
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
        selectAll(*next);
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
    return program_.hasEnded() ? 0 : inRepertoire(kept);
}

void User::replace(Field& field, int start, int length, const QString& text) {
    if (field.locked() || !field.enabled() || !takesText(field))
        return;
    const auto told = qScopeGuard([this] { program_.happened(); });
    QString wanted = admitted(field, text);
    if (wanted.isEmpty() && !text.isEmpty())
        return;
    field.select(start, length);
    if (wanted.isEmpty()) {
        if (length > 0)
            erase(field, true);
        return;
    }
    if (field.kind() == FieldKind::Masked || wanted.size() == 1) {
        for (const QChar character : wanted)
            insert(field, character);
        return;
    }
    const QString rest = field.text().left(start) + field.text().mid(start + length);
    if (const int room = roomOf(field); room > 0)
        wanted.truncate(std::max<qsizetype>(0, room - rest.size()));
    if (wanted.isEmpty())
        return;
    field.setText(rest.left(start) + wanted + rest.mid(start));
    field.select(start + static_cast<int>(wanted.size()), 0);
}

void User::paste(Field& field, const QString& text) {
    if (field.screen().focus() == &field)
        replace(field, field.selectionStart(), field.selectionLength(), text);
}

void User::insert(Field& field, QChar character) {
    if (field.locked() || !takesText(field))
        return;
    const auto told = qScopeGuard([this] { program_.happened(); });
    if (auto* masked = dynamic_cast<MaskedField*>(&field)) {
        masked->typeCharacter(character);
        return;
    }
    const int start = field.selectionStart();
    const QString rest = field.text().left(start) + field.text().mid(start + field.selectionLength());
    if (const int room = roomOf(field); room > 0 && rest.size() >= room)
        return;
    field.setText(rest.left(start) + character + rest.mid(start));
    field.select(start + 1, 0);
    auto* list = dynamic_cast<ListField*>(&field);
    if (!list)
        return;
    list->close();
    if (start == rest.size())
        complete(*list);
}

/// The rest of the only item that begins with what has been typed comes selected, so that typing goes on over it.
void User::complete(ListField& list) {
    const std::optional<QString> item = list.completes ? list.completionOf(list.text()) : std::nullopt;
    if (!item)
        return;
    const auto typed = static_cast<int>(list.text().size());
    list.setText(*item);
    list.select(typed, static_cast<int>(item->size()) - typed);
}

void User::erase(Field& field, bool forward) {
    if (field.locked() || !takesText(field))
        return;
    const auto told = qScopeGuard([this] { program_.happened(); });
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
    const auto* grid = dynamic_cast<const Grid*>(&field);
    if (kept == ' ' && !takesText(field))
        return !grid || grid->keysChoose ? click(field) : void();
    insert(field, isControl(QChar(kept)) ? QChar(u' ') : QChar(static_cast<char16_t>(kept)));
}

/// What an Enter does that no rule of the field has taken: it clicks a button, begins a line in a note, and in a grid
/// chooses the current row or moves on.
void User::enter(Field& field) {
    if (field.kind() == FieldKind::Button)
        return click(field);
    if (field.keepsLines)
        return insert(field, lineFeed);
    auto* grid = dynamic_cast<Grid*>(&field);
    if (!grid)
        return;
    if (!grid->keysChoose)
        return void(event(field.screen(), [&] { field.screen().SendTab(); }));
    if (grid->Row() == 0)
        return;
    if (undisturbed(field.screen(), [&] { event(field.screen(), [&] { run(grid->Click); }); }))
        secondPress(*grid);
}

void User::escape(Field& field) {
    auto* list = dynamic_cast<ListField*>(&field);
    if (list && list->isOpen())
        closeList(*list);
    else
        filterKey(field, escapeCode);
}

void User::accelerator(Screen& screen, QChar letter) {
    const auto& fields = screen.fields();
    const auto marked = std::ranges::find_if(fields, [&](const Field* field) {
        return field->kind() == FieldKind::Button && field->canFocus() && isInFront(*field) &&
               markedLetter(field->text()) == letter.toUpper();
    });
    if (marked != fields.end())
        click(**marked);
}

/// Keys that walk: within a text, through the items of a list, the rows of a grid or the options of a group, and from
/// button to button.
void User::cursor(Field& field, Key key) {
    if (auto* list = dynamic_cast<ListField*>(&field))
        return cursorInList(*list, key);
    if (auto* grid = dynamic_cast<Grid*>(&field))
        return cursorInGrid(*grid, key);
    if (takesText(field))
        return cursorInText(field, key);
    if (key == Key::Home || key == Key::End || key == Key::PageUp || key == Key::PageDown)
        return;
    const auto* option = dynamic_cast<const Option*>(&field);
    if (!option)
        event(field.screen(), [&] { walk(field.screen(), isBackwards(key)); });
    else if (Option* next = neighbour(*option, isBackwards(key)))
        click(*next);
}

void User::cursorInText(Field& field, Key key) {
    const QString& text = field.text();
    const int cursor = field.selectionStart() + field.selectionLength();
    const qsizetype end = text.indexOf(lineFeed, cursor);
    if (key == Key::Left)
        field.select(cursor - 1, 0);
    else if (key == Key::Right)
        field.select(cursor + 1, 0);
    else if (key == Key::Home) // of the line, where there are several
        field.select(static_cast<int>(text.left(cursor).lastIndexOf(lineFeed)) + 1, 0);
    else if (key == Key::End)
        field.select(static_cast<int>(end < 0 ? text.size() : end), 0);
}

void User::cursorInList(ListField& list, Key key) {
    const bool vertical = key == Key::Up || key == Key::Down || key == Key::PageUp || key == Key::PageDown;
    if (!vertical)
        return list.dropDown() ? cursorInText(list, key) : void();
    if (list.dropDown() && list.items().isEmpty())
        return dropDown(list);
    const int from = list.isOpen() ? list.highlighted() : list.place();
    const int step = key == Key::Up || key == Key::Down ? 1 : pageItems;
    const int last = static_cast<int>(list.items().size()) - 1;
    const int next = std::clamp(from + (isBackwards(key) ? -step : step), std::min(0, from), last);
    if (next == from || next < 0)
        return;
    list.isOpen() ? list.highlight(next) : pick(list, next);
}

void User::cursorInGrid(Grid& grid, Key key) {
    const int last = grid.Rows() - 1;
    const int page = std::max(1, grid.pageRows);
    int row = grid.Row();
    switch (key) {
    case Key::Up:
        row -= 1;
        break;
    case Key::Down:
        row += 1;
        break;
    case Key::PageUp:
        row -= page;
        break;
    case Key::PageDown:
        row += row == 0 ? 1 : page;
        break;
    case Key::Home:
        row = 1;
        break;
    case Key::End:
        row = last;
        break;
    default:
        return;
    }
    if (last > 0)
        event(grid.screen(), [&] { grid.setRow(std::clamp(row, 1, last)); });
}

void User::key(Field& field, Key key, int function) {
    auto* list = dynamic_cast<ListField*>(&field);
    switch (key) {
    case Key::Enter:
        if (list && list->isOpen() && list->highlighted() >= 0)
            return pick(*list, list->highlighted());
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
        escape(field);
        break;
    case Key::Function:
        if (list && list->dropDown() && function == dropKey)
            dropDown(*list);
        else if (list && !list->items().isEmpty() && function == manualKey)
            closeList(*list);
        break;
    default:
        cursor(field, key);
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
        const bool there = field.screen().focus() == &field;
        if (field.takesFocus() && !take(field))
            return;
        if (!field.enabled() || !field.visible())
            return;
        // The cursor goes where the text begins, unless entering the field has selected it.
        if (takesText(field) && (there || field.selectionLength() == 0))
            field.select(0, 0);
        if (auto* option = dynamic_cast<Option*>(&field))
            option->setValue(true);
        else if (auto* check = dynamic_cast<Check*>(&field))
            check->setChecked(!check->checked());
        else if (field.kind() != FieldKind::List) // a list's Click is the choice of an item
            run(field.Click);
    });
}

void User::doubleClick(Field& field) {
    if (undisturbed(field.screen(), [&] { click(field); }))
        secondPress(field);
}

void User::secondPress(Field& field) {
    if (field.kind() == FieldKind::Button || field.kind() == FieldKind::Option || field.kind() == FieldKind::Check)
        return click(field);
    event(field.screen(), [&] {
        const bool reached = field.enabled() && field.visible();
        if (reached && (!field.takesFocus() || field.screen().focus() == &field))
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
    if (undisturbed(grid.screen(), [&] { clickCell(grid, row, col); }))
        secondPress(grid);
}

void User::dropDown(ListField& list) {
    event(list.screen(), [&] {
        if (!list.enabled() || !list.visible() || !take(list))
            return;
        const QString shown = list.text();
        list.open();
        run(list.DropDown);
        list.highlight(list.listIndex());
        if (!list.locked())
            return;
        // A locked field keeps what it shows, and offers no choice.
        list.setText(shown);
        list.close();
    });
}

void User::closeList(ListField& list) {
    event(list.screen(), [&] { list.close(); });
}

namespace {

/// What a hand does beside an open list closes it, also where it takes no focus.
void letGoOfList(Screen& screen) {
    if (auto* list = dynamic_cast<ListField*>(screen.focus()))
        list->close();
}

} // namespace

void User::pick(ListField& list, int index) {
    event(list.screen(), [&] {
        if (list.locked() || !list.enabled() || list.screen().focus() != &list)
            return;
        list.setListIndex(index);
        list.close();
        list.select(static_cast<int>(list.text().size()), 0); // typing goes on behind the item
    });
}

void User::chooseTab(TabStrip& strip, int page) {
    event(strip.screen(), [&] {
        letGoOfList(strip.screen());
        showPageOf(strip);
        strip.setCurrent(page);
    });
}

void User::close(Screen& screen) {
    event(screen, [&] { screen.Unload(); });
}

void User::closeByFrame(Screen& screen) {
    event(screen, [&] {
        letGoOfList(screen);
        screen.CloseByFrame();
    });
}

void User::move(Screen& screen) {
    screen.setPlace(Place::Anywhere);
}

} // namespace vorta::screen
