#pragma once

#include "robot/Look.h"
#include "screen/Grid.h"
#include "screen/MaskedField.h"
#include "screen/Platform.h"
#include "screen/User.h"

#include <functional>
#include <memory>
#include <optional>

namespace vorta::robot {

/// A button of a box, and how often Escape is pressed in front of it.
struct Reply {
    screen::Answer button = screen::Answer::OK;
    int escapes = 0;
};

/// The ways in which a text comes into a field at once.
enum class PasteWay { Keys, Menu, Drop };

/// The hands and eyes of a scenario's user. One implementation works on the screen model alone, another one on real
/// windows with real key and mouse events; both run every handler before they return. A handler that opens a screen
/// modally calls the player back from inside, which goes on with the scenario there, so every routine must bear being
/// entered again.
///
/// The player checks beforehand that the screen is the active one, that the field is visible and enabled, that rows,
/// columns and items exist, and it has chosen the tab page that carries the field.
class Hands {
  public:
    virtual ~Hands() = default;

    /// A screen has been loaded and comes up over the others; `hide` when it has been closed or the program has ended.
    virtual void show(screen::Screen& screen) = 0;
    virtual void hide(screen::Screen& screen) = 0;
    /// A box is shown and answered with what the scenario prepared (OK for a box with OK alone). Gives the button that
    /// the box reports.
    virtual screen::Answer answer(const screen::Box& box, const Reply& prepared) = 0;

    virtual void focus(screen::Field& field) = 0;
    /// The focus leaves its field for nowhere.
    virtual void leave(screen::Screen& screen) = 0;
    /// Focus, all selected, then each character as a key press. An empty text deletes what is there. Stops when the
    /// focus goes away.
    virtual void type(screen::Field& field, const QString& text) = 0;
    /// One key in the field with the focus; `function` is the number of a function key.
    virtual void key(screen::Field& focused, screen::Key key, int function) = 0;
    /// The key is still down and comes again.
    virtual void heldKey(screen::Field& focused, screen::Key key) = 0;
    virtual void character(screen::Field& focused, QChar character) = 0;
    /// Alt and a letter.
    virtual void accelerator(screen::Screen& screen, QChar letter) = 0;
    /// A text of another program comes to where the cursor is.
    virtual void paste(screen::Field& focused, const QString& text, PasteWay way) = 0;
    virtual void click(screen::Field& field) = 0;
    virtual void doubleClick(screen::Field& field) = 0;
    virtual void clickCell(screen::Grid& grid, int row, int col) = 0;
    virtual void doubleClickCell(screen::Grid& grid, int row, int col) = 0;
    /// Ctrl+C in the field with the focus.
    virtual void copy(screen::Field& focused) = 0;
    /// Opens the menu of a grid, by the mouse on a row or by the keyboard, and chooses an item.
    virtual void chooseFromMenu(screen::Grid& grid, std::optional<int> row, int item) = 0;
    /// Writes a page as the surface does.
    virtual void writePdf(const QString& html, const QString& path) = 0;
    virtual void dropDown(screen::ListField& list) = 0;
    /// Picks an item of the list that has just been dropped down (or of one that is always open).
    virtual void pick(screen::ListField& list, int index) = 0;
    virtual void chooseTab(screen::TabStrip& strip, int page) = 0;
    /// The screen's own unload.
    virtual void close(screen::Screen& screen) = 0;
    /// The user closes the screen by its frame.
    virtual void closeByFrame(screen::Screen& screen) = 0;
    /// The user puts the screen somewhere else on the display.
    virtual void move(screen::Screen& screen, int x, int y) = 0;

    // What the user sees, in the form of the scenario language: "true" and "false", decimal numbers and colours, file
    // name without its folder. Nothing where the surface has no look of its own at the matter; the model alone answers
    // then.
    virtual std::optional<QString> seen(screen::Field& field, const Question& question) = 0;
    virtual std::optional<QString> seenCaption(screen::Screen& screen) = 0;
    /// True when the screen stands where it says.
    virtual std::optional<bool> seenInPlace(screen::Screen& screen) = 0;
    /// The name of the field with the focus, empty for none.
    virtual std::optional<QString> seenFocus(screen::Screen& screen) = 0;
};

/// Makes the hands for a program that is about to start.
using HandsFactory = std::function<std::unique_ptr<Hands>(screen::Program&, screen::User&)>;

} // namespace vorta::robot
