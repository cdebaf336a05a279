#pragma once

#include "robot/Hands.h"

namespace vorta::robot {

/// The hands of a user who has no window: every movement is an event of the screen model.
class ModelHands : public Hands {
  public:
    explicit ModelHands(screen::User& user) : user_(user) {}

    void show(screen::Screen&) override {}
    void hide(screen::Screen&) override {}
    screen::Answer answer(const screen::Box& box, const Reply& prepared) override {
        return prepared.escapes > 0 ? EscapeAnswer(box.buttons).value_or(prepared.button) : prepared.button;
    }

    void focus(screen::Field& field) override { user_.focus(field); }
    void leave(screen::Screen& screen) override { user_.leave(screen); }
    void type(screen::Field& field, const QString& text) override { user_.type(field, text); }
    void key(screen::Field& focused, screen::Key key, int function) override { user_.key(focused, key, function); }
    void heldKey(screen::Field& focused, screen::Key key) override {
        if (key != screen::Key::Enter || !screen::User::ignoresHeldEnter(focused))
            user_.key(focused, key);
    }
    void character(screen::Field& focused, QChar character) override { user_.character(focused, character); }
    void accelerator(screen::Screen& screen, QChar letter) override { user_.accelerator(screen, letter); }
    void paste(screen::Field& focused, const QString& text, PasteWay way) override {
        // What is dropped stands where it was let go, beside what is selected.
        if (way == PasteWay::Drop && !focused.locked())
            focused.select(focused.selectionStart() + focused.selectionLength(), 0);
        user_.paste(focused, text);
    }
    void click(screen::Field& field) override { user_.click(field); }
    void doubleClick(screen::Field& field) override { user_.doubleClick(field); }
    void clickCell(screen::Grid& grid, int row, int col) override { user_.clickCell(grid, row, col); }
    void doubleClickCell(screen::Grid& grid, int row, int col) override { user_.doubleClickCell(grid, row, col); }
    void copy(screen::Field& focused) override {
        if (auto* grid = dynamic_cast<screen::Grid*>(&focused))
            user_.copyRow(*grid);
    }
    void chooseFromMenu(screen::Grid& grid, std::optional<int> row, int item) override {
        if (row)
            user_.pointAt(grid, *row);
        user_.chooseFromMenu(grid, item);
    }
    void writePdf(const QString&, const QString&) override {}
    void dropDown(screen::ListField& list) override { user_.dropDown(list); }
    void pick(screen::ListField& list, int index) override { user_.pick(list, index); }
    void chooseTab(screen::TabStrip& strip, int page) override { user_.chooseTab(strip, page); }
    void close(screen::Screen& screen) override { user_.close(screen); }
    void closeByFrame(screen::Screen& screen) override { user_.closeByFrame(screen); }
    void move(screen::Screen& screen, int, int) override { user_.move(screen); }

    std::optional<QString> seen(screen::Field&, const Question&) override { return {}; }
    std::optional<QString> seenCaption(screen::Screen&) override { return {}; }
    std::optional<bool> seenInPlace(screen::Screen&) override { return {}; }
    std::optional<QString> seenFocus(screen::Screen&) override { return {}; }

  private:
    screen::User& user_;
};

} // namespace vorta::robot
