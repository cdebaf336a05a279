#pragma once

#include "screen/Screen.h"

namespace vorta::screen {

/// Keys that are no characters.
enum class Key {
    Enter,
    Tab,
    BackTab,
    Backspace,
    Delete,
    Escape,
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    PageUp,
    PageDown,
    Function
};

/// What a person does on a screen, as the events of the model. Windows and scenarios both act through this, so that
/// focus, keys and clicks mean the same on both. Every routine is one event and goes through `Program::dispatch`.
class User {
  public:
    explicit User(Program& program) : program_(program) {}

    /// Moves the focus there; false when it ended elsewhere.
    bool focus(Field& field);
    /// The focus leaves its field.
    void leave(Screen& screen);

    /// The code that a typed character has behind the field's KeyPress and family rules; 0 for a swallowed one.
    int filterKey(Field& field, int code);
    /// A stretch of the text of an input field has been replaced by another in one go: pasted, dropped, cut, taken
    /// back. The field's rules hold for it as for typed characters: control characters become one blank (in a note all
    /// but line breaks), what the data cannot hold stays outside, the limit and the mask hold. When nothing of the text
    /// is left, it is refused and changes nothing.
    void replace(Field& field, int start, int length, const QString& text);
    /// The same at the selection.
    void paste(Field& field, const QString& text);

    /// One character typed into the field with the focus.
    void character(Field& field, QChar character);
    /// A key that is held down walks as far as the next button or grid, and does nothing there by itself.
    static bool ignoresHeldKeys(const Field& field) {
        return field.kind() == FieldKind::Button || field.kind() == FieldKind::Grid;
    }
    /// The same for Enter, of which one that comes by repetition begins no line in a note either.
    static bool ignoresHeldEnter(const Field& field) {
        return ignoresHeldKeys(field) || (field.keepsLines && !field.enterMovesOn);
    }
    /// One key pressed in the field with the focus; `function` is the number of a function key.
    void key(Field& field, Key key, int function = 0);
    /// Alt and a letter: clicks the button whose caption marks that letter, if it can be clicked.
    void accelerator(Screen& screen, QChar letter);
    /// Focus, all selected, then each character.
    void type(Field& field, const QString& text);

    /// A button, option, check box or label. All but the label take the focus first; when that fails the click does not
    /// happen.
    void click(Field& field);
    /// Two quick presses: a click, and behind it what the second one does, unless something has come up in front.
    void doubleClick(Field& field);
    /// The second of two quick presses: a button, option or check box is clicked again, anything else runs its
    /// DblClick.
    void secondPress(Field& field);
    /// A grid cell; row 0 is the header.
    void clickCell(Grid& grid, int row, int col);
    void doubleClickCell(Grid& grid, int row, int col);

    // The menu of a grid: what takes the list out of the program, then the grid's own commands. It moves no focus.
    /// The captions of the menu in their order.
    static QStringList gridMenu(const Grid& grid);
    /// True when the item can be chosen now.
    static bool gridMenuOffers(const Grid& grid, int item);
    /// Makes a row the current one without a click, as the press that opens a menu on it does.
    void pointAt(Grid& grid, int row);
    void chooseFromMenu(Grid& grid, int item);
    /// Ctrl+C.
    void copyRow(Grid& grid);

    /// Shows the items; a locked list keeps its text, whatever its handler fills.
    void dropDown(ListField& list);
    /// Picks an item of a list that has been dropped down.
    void pick(ListField& list, int index);
    /// The dropped-down part closes without a choice; a text that its fill has taken away stands there again.
    void closeList(ListField& list);
    void chooseTab(TabStrip& strip, int page);
    /// Unloads a screen.
    void close(Screen& screen);
    /// The user's wish to close a screen by its frame.
    void closeByFrame(Screen& screen);
    /// The user has put the screen somewhere else.
    void move(Screen& screen);

  private:
    bool event(Screen& screen, const std::function<void()>& body);
    void settle(Screen& screen);
    void walk(Screen& screen, bool backwards);
    bool take(Field& field);
    void enter(Field& field);
    void escape(Field& field);
    void insert(Field& field, QChar character);
    void complete(ListField& list);
    void erase(Field& field, bool forward);
    void cursor(Field& field, Key key);
    void cursorInText(Field& field, Key key);
    void cursorInList(ListField& list, Key key);
    void cursorInGrid(Grid& grid, Key key);

    Program& program_;
};

} // namespace vorta::screen
