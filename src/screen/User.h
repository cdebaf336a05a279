#pragma once

#include "screen/Screen.h"

namespace vorta::screen {

/// Keys that are no characters.
enum class Key { Enter, Tab, BackTab, Backspace, Delete, Escape, Function };

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
    /// A window has edited the text of an input field by itself.
    void edited(Field& field, const QString& text);

    /// One character typed into the field with the focus.
    void character(Field& field, QChar character);
    /// One key pressed in the field with the focus.
    void key(Field& field, Key key);
    /// Focus, all selected, then each character.
    void type(Field& field, const QString& text);

    /// A button, option, check box or label. All but the label take the focus first; when that fails the click does not
    /// happen.
    void click(Field& field);
    void doubleClick(Field& field);
    /// A grid cell; row 0 is the header.
    void clickCell(Grid& grid, int row, int col);
    void doubleClickCell(Grid& grid, int row, int col);

    /// Shows the items; a locked list keeps its text, whatever its handler fills.
    void dropDown(ListField& list);
    /// Picks an item of a list that has been dropped down.
    void pick(ListField& list, int index);
    void chooseTab(TabStrip& strip, int page);
    /// Closes a screen by its frame.
    void close(Screen& screen);

  private:
    bool event(Screen& screen, const std::function<void()>& body);
    void settle(Screen& screen);
    void walk(Screen& screen, bool backwards);
    bool take(Field& field);
    void enter(Field& field);
    void insert(Field& field, QChar character);
    void erase(Field& field, bool forward);

    Program& program_;
};

} // namespace vorta::screen
