#include "robot/windows/DesktopHands.h"

#include "desktop/Binding.h"
#include "desktop/DesktopApplication.h"
#include "desktop/MessageBox.h"
#include "desktop/Pdf.h"
#include "desktop/ScreenWindow.h"
#include "robot/windows/WidgetLook.h"
#include "screen/Program.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <vector>

namespace vorta::robot {

namespace {

using desktop::Binding;
using desktop::DesktopApplication;
using desktop::ScreenWindow;
using screen::Field;
using screen::FieldKind;
using screen::Key;

constexpr int intoText = 2;      ///< a point at the beginning of a line of text
constexpr int intoIndicator = 8; ///< a point on the mark of an option or check box, whose row may be wider than itself

void mouse(QWidget& widget, QEvent::Type type, QPoint at) {
    const bool up = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, up ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

void press(QWidget& widget, QPoint at) {
    const QPointer<QWidget> still(&widget);
    mouse(widget, QEvent::MouseButtonPress, at);
    if (still)
        mouse(widget, QEvent::MouseButtonRelease, at);
}

/// A hand comes to a point in many small motions before it presses there. A menu waits for them: it takes no press
/// while it may still be the one that opened it.
void comeAndPress(QWidget& widget, QPoint at) {
    constexpr int motions = 8;
    for (int away = motions - 1; away >= 0; --away) {
        const QPoint way = at - QPoint(away, 0);
        QMouseEvent move(QEvent::MouseMove, way, widget.mapToGlobal(way), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &move);
    }
    press(widget, at);
}

/// What the toolkit sends for two quick presses. When something has come up in front behind the first, the second one
/// does not reach the widget.
void pressTwice(const screen::Program& program, QWidget& widget, QPoint at) {
    const QPointer<QWidget> still(&widget);
    const int before = program.interruptions();
    press(widget, at);
    if (before != program.interruptions())
        return;
    if (still)
        mouse(widget, QEvent::MouseButtonDblClick, at);
    if (still)
        mouse(widget, QEvent::MouseButtonRelease, at);
}

void stroke(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QPointer<QWidget> still(&widget);
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &down);
    if (!still)
        return;
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &up);
}

int codeOf(Key key, int function) {
    switch (key) {
    case Key::Enter:
        return Qt::Key_Return;
    case Key::Tab:
        return Qt::Key_Tab;
    case Key::BackTab:
        return Qt::Key_Backtab;
    case Key::Backspace:
        return Qt::Key_Backspace;
    case Key::Delete:
        return Qt::Key_Delete;
    case Key::Escape:
        return Qt::Key_Escape;
    case Key::Left:
        return Qt::Key_Left;
    case Key::Right:
        return Qt::Key_Right;
    case Key::Up:
        return Qt::Key_Up;
    case Key::Down:
        return Qt::Key_Down;
    case Key::Home:
        return Qt::Key_Home;
    case Key::End:
        return Qt::Key_End;
    case Key::PageUp:
        return Qt::Key_PageUp;
    case Key::PageDown:
        return Qt::Key_PageDown;
    case Key::Function:
        break;
    }
    return Qt::Key_F1 + function - 1;
}

/// The line in which a widget takes text; none for another widget.
QLineEdit* lineOf(QWidget& widget) {
    auto* combo = qobject_cast<QComboBox*>(&widget);
    return combo ? combo->lineEdit() : qobject_cast<QLineEdit*>(&widget);
}

/// What finds no room begins where the display begins.
bool isCentred(int at, int length, int room) {
    return length > room ? at == 0 : std::abs(2 * at + length - room) <= 1;
}

void pasteByMenu(QWidget& widget) {
    QLineEdit* line = lineOf(widget);
    auto* notes = qobject_cast<QPlainTextEdit*>(&widget);
    if (!line && !notes)
        return;
    const std::unique_ptr<QMenu> menu(line ? line->createStandardContextMenu() : notes->createStandardContextMenu());
    for (QAction* action : menu->actions())
        if (action->text().section(u'\t', 0, 0) == QCoreApplication::translate("QLineEdit", "&Paste"))
            action->trigger();
}

/// Lets go of a text at the place of the cursor.
void dropText(QWidget& widget, const QMimeData& text) {
    QLineEdit* line = lineOf(widget);
    auto* notes = qobject_cast<QPlainTextEdit*>(&widget);
    if (!line && !notes)
        return;
    QWidget& target = line ? static_cast<QWidget&>(*line) : *notes->viewport();
    const QRect cursor = line ? line->inputMethodQuery(Qt::ImCursorRectangle).toRect() : notes->cursorRect();
    QDragEnterEvent enter(cursor.center(), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &enter);
    QDropEvent drop(cursor.center(), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &drop);
}

class DesktopHands : public Hands {
  public:
    explicit DesktopHands(screen::Program& program) : program_(program) {
        if (!qApp)
            application_ = makeApplication();
        if (auto* application = dynamic_cast<DesktopApplication*>(qApp))
            application->onException = [&program](const auto& raise) { program.dispatch(raise); };
    }

    void show(screen::Screen& screen) override {
        settle();
        windows_.push_back(std::make_unique<ScreenWindow>(screen, windows_.empty() ? nullptr : windows_.back().get()));
        windows_.back()->show();
        windows_.back()->complete();
        windows_.back()->activateWindow();
        settle();
    }

    void hide(screen::Screen& screen) override {
        std::erase_if(windows_, [&](const auto& window) { return &window->binder().screen() == &screen; });
        activate();
    }

    screen::Answer answer(const screen::Box& box, const Reply& prepared) override {
        settle();
        auto shown = desktop::MakeMessageBox(box, windows_.empty() ? nullptr : windows_.back().get());
        shown->open();
        for (int pressed = 0; pressed < prepared.escapes && shown->isVisible(); ++pressed)
            stroke(*shown, Qt::Key_Escape);
        QAbstractButton* button = desktop::ButtonOf(*shown, prepared.button);
        if (button && shown->isVisible())
            press(*button, button->rect().center());
        else if (!button)
            shown->reject();
        const screen::Answer given = desktop::AnswerOf(*shown);
        shown.reset();
        activate();
        return given;
    }

    /// By the keyboard's way, as a click would do more to a button or a cell.
    void focus(Field& field) override {
        settle();
        activate(); // whatever help has been opened beside it
        QWidget* widget = field.screen().focus() == &field ? nullptr : widgetOf(field);
        if (widget) {
            // On a page that was not in front the window may have kept a focus that the screen has not.
            if (window(field.screen())->focusWidget() == widget)
                widget->clearFocus();
            widget->setFocus(Qt::TabFocusReason);
        }
        settle();
    }

    void leave(screen::Screen& screen) override {
        if (ScreenWindow* shown = window(screen))
            shown->binder().act([&] { shown->binder().user().leave(screen); });
        settle();
    }

    void type(Field& field, const QString& text) override {
        focus(field);
        QWidget* widget = widgetOf(field);
        if (!widget || field.screen().focus() != &field)
            return;
        stroke(*widget, Qt::Key_A, {}, Qt::ControlModifier);
        if (text.isEmpty())
            stroke(*widget, Qt::Key_Delete);
        for (const QChar typed : text) {
            if (!isThere(field) || field.screen().focus() != &field)
                break;
            stroke(*widget, typed.toUpper().unicode(), QString(typed));
        }
        settle();
    }

    void key(Field& focused, Key key, int function) override {
        if (QWidget* widget = keyedOf(focused))
            stroke(*widget, codeOf(key, function));
        settle();
    }

    void heldKey(Field& focused, Key key) override {
        if (QWidget* widget = keyedOf(focused)) {
            QKeyEvent again(QEvent::KeyPress, codeOf(key, 0), Qt::NoModifier, {}, true);
            QCoreApplication::sendEvent(widget, &again);
        }
        settle();
    }

    void accelerator(screen::Screen& screen, QChar letter) override {
        settle();
        ScreenWindow* shown = window(screen);
        if (!shown)
            return;
        activate(); // a window answers to letters only when it is in front of the manual
        QWidget* front = QApplication::activePopupWidget() ? QApplication::activePopupWidget() : shown;
        QWidget* widget = front->focusWidget() ? front->focusWidget() : front;
        QTest::keyClick(widget, letter.toLatin1(), Qt::AltModifier);
        // A button is seen to go down for a moment before it is clicked.
        while (window(screen) && isAnyDown(*shown))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        settle();
    }

    void paste(Field& focused, const QString& text, PasteWay way) override {
        settle();
        QWidget* widget = widgetOf(focused);
        if (!widget)
            return;
        QGuiApplication::clipboard()->setText(text);
        if (way == PasteWay::Keys) {
            stroke(*widget, Qt::Key_V, {}, Qt::ControlModifier);
        } else if (way == PasteWay::Menu) {
            pasteByMenu(*widget);
        } else {
            QMimeData dragged;
            dragged.setText(text);
            dropText(*widget, dragged);
        }
        settle();
    }

    void character(Field& focused, QChar character) override {
        if (QWidget* widget = keyedOf(focused))
            stroke(*widget, character.toUpper().unicode(), QString(character));
        settle();
    }

    void click(Field& field) override {
        if (QWidget* widget = touchedOf(field))
            press(*widget, pointOn(field, *widget));
        settle();
    }

    void doubleClick(Field& field) override {
        if (QWidget* widget = touchedOf(field))
            pressTwice(program_, *widget, pointOn(field, *widget));
        settle();
    }

    void clickCell(screen::Grid& grid, int row, int col) override { onCell(grid, row, col, press); }
    void doubleClickCell(screen::Grid& grid, int row, int col) override {
        onCell(grid, row, col, [this](QWidget& widget, QPoint at) { pressTwice(program_, widget, at); });
    }

    void copy(Field& focused) override {
        if (QWidget* widget = widgetOf(focused))
            stroke(*widget, Qt::Key_C, {}, Qt::ControlModifier);
        settle();
    }

    void chooseFromMenu(screen::Grid& grid, std::optional<int> row, int item) override {
        settle();
        auto* view = qobject_cast<QTableView*>(widgetOf(grid));
        if (!view)
            return;
        const QPoint at = row ? shownCell(*view, *row) : QPoint();
        QWidget& target = row ? *view->viewport() : static_cast<QWidget&>(*view);
        QContextMenuEvent wish(row ? QContextMenuEvent::Mouse : QContextMenuEvent::Keyboard, at,
                               target.mapToGlobal(at));
        QCoreApplication::sendEvent(&target, &wish);
        settle();
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            const QRect place = menu->actionGeometry(menu->actions().at(item));
            comeAndPress(*menu, place.center());
            if (menu->isVisible()) // an item that cannot be chosen now leaves it open
                menu->close();
        }
        settle();
    }

    void writePdf(const QString& html, const QString& path) override { desktop::WritePdf(html, path); }

    void dropDown(screen::ListField& list) override {
        if (auto* combo = qobject_cast<QComboBox*>(widgetOf(list))) {
            QStyleOptionComboBox option;
            option.initFrom(combo);
            option.editable = true;
            const QRect arrow =
                combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, combo);
            press(*combo, arrow.center());
        }
        settle();
    }

    void pick(screen::ListField& list, int index) override {
        if (auto* combo = qobject_cast<QComboBox*>(widgetOf(list)); combo && combo->view()->isVisible()) {
            combo->view()->setCurrentIndex(combo->model()->index(index, 0));
            stroke(*combo->view(), Qt::Key_Return);
        } else if (auto* view = qobject_cast<QListView*>(widgetOf(list))) {
            view->scrollTo(view->model()->index(index, 0));
            press(*view->viewport(), view->visualRect(view->model()->index(index, 0)).center());
        }
        settle();
    }

    void chooseTab(screen::TabStrip& strip, int page) override {
        if (auto* tabs = qobject_cast<QTabWidget*>(widgetOf(strip)))
            press(*tabs->tabBar(), tabs->tabBar()->tabRect(page).center());
        settle();
    }

    void close(screen::Screen& screen) override {
        if (ScreenWindow* shown = window(screen))
            shown->binder().act([&] { shown->binder().user().close(screen); });
        settle();
    }

    void closeByFrame(screen::Screen& screen) override {
        if (ScreenWindow* shown = window(screen))
            shown->close();
        settle();
    }

    void move(screen::Screen& screen, int x, int y) override {
        if (ScreenWindow* shown = window(screen)) {
            shown->binder().user().move(screen);
            settle();
            shown->move(x, y);
        }
        settle();
    }

    std::optional<QString> seen(Field& field, const Question& question) override {
        settle();
        const QWidget* widget = widgetOf(field);
        return widget ? LookAt(*widget, field, question) : std::nullopt;
    }

    std::optional<QString> seenCaption(screen::Screen& screen) override {
        settle();
        const ScreenWindow* shown = window(screen);
        // A screen without a caption of its own shows the program's name.
        return shown && !screen.caption().isEmpty() ? std::optional(shown->windowTitle()) : std::nullopt;
    }

    std::optional<bool> seenInPlace(screen::Screen& screen) override {
        settle();
        const ScreenWindow* shown = window(screen);
        if (!shown || screen.place() == screen::Place::Anywhere)
            return {};
        const QRect display = shown->screen()->geometry();
        const QRect outer = shown->frameGeometry();
        const bool left = screen.place() == screen::Place::LeftBorder;
        return (left ? outer.left() == display.left()
                     : isCentred(outer.left() - display.left(), outer.width(), display.width())) &&
               isCentred(outer.top() - display.top(), outer.height(), display.height());
    }

    std::optional<QString> seenFocus(screen::Screen& screen) override {
        settle();
        const ScreenWindow* shown = window(screen);
        if (!shown || (screen.focus() && !isInFront(*screen.focus())))
            return {};
        const QWidget* holder = shown->focusWidget();
        for (const Field* field : screen.fields())
            if (holder && widgetOf(*field) == holder)
                return field->name();
        return QString();
    }

  private:
    static std::unique_ptr<DesktopApplication> makeApplication() {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        static int count = 1;
        static char name[] = "pessoas-roteiro";
        static char* arguments[] = {name, nullptr};
        return std::make_unique<DesktopApplication>(count, arguments);
    }

    /// Lets the windows catch up with all that has happened.
    void settle() {
        for (const auto& window : windows_)
            window->binder().flush();
        QCoreApplication::processEvents();
    }

    /// The topmost window is the active one again, as a window manager would have it: only there a move of the focus is
    /// an event.
    void activate() {
        if (!windows_.empty())
            windows_.back()->activateWindow();
        QCoreApplication::processEvents();
    }

    ScreenWindow* window(const screen::Screen& screen) const {
        for (const auto& window : windows_)
            if (&window->binder().screen() == &screen)
                return window.get();
        return nullptr;
    }

    bool isThere(const Field& field) const {
        return window(field.screen()) && window(field.screen())->binder().isOpen();
    }

    QWidget* widgetOf(const Field& field) const {
        ScreenWindow* shown = window(field.screen());
        Binding* bound = shown ? shown->binder().binding(field) : nullptr;
        return bound ? &bound->widget() : nullptr;
    }

    bool isInFront(const Field& field) const {
        const QWidget* widget = widgetOf(field);
        return widget && widget->isVisibleTo(window(field.screen()));
    }

    /// What the keyboard reaches: the part of a list that has dropped down, when there is one.
    QWidget* keyedOf(const Field& field) const {
        QWidget* widget = widgetOf(field);
        auto* combo = qobject_cast<QComboBox*>(widget);
        // On a page that is not in front the toolkit has taken the selection away, which the field has kept.
        if (widget && !widget->isVisible()) {
            window(field.screen())->binder().mark(field);
            window(field.screen())->binder().flush();
        }
        return combo && combo->view()->isVisible() ? combo->view() : widget;
    }

    /// What a hand that wants the field presses: of a list with an arrow the line beside it. A hand that wants the
    /// beginning of a long text brings it into sight first.
    QWidget* touchedOf(const Field& field) const {
        QWidget* widget = widgetOf(field);
        QLineEdit* line = widget ? lineOf(*widget) : nullptr;
        if (line && line->isEnabled() && field.screen().focus() == &field)
            line->home(false);
        return line ? line : widget;
    }

    static QPoint pointOn(const Field& field, const QWidget& widget) {
        const int middle = widget.height() / 2;
        if (field.kind() == FieldKind::Option || field.kind() == FieldKind::Check)
            return {intoIndicator, middle};
        return qobject_cast<const QLineEdit*>(&widget) ? QPoint(intoText, middle) : widget.rect().center();
    }

    static bool isAnyDown(const QWidget& shown) {
        return std::ranges::any_of(shown.findChildren<QAbstractButton*>(), &QAbstractButton::isDown);
    }

    template <typename Action>
    void onCell(screen::Grid& grid, int row, int col, Action action) {
        settle();
        auto* view = qobject_cast<QTableView*>(widgetOf(grid));
        if (!view)
            return;
        // A column that is not shown is reached on its row at the first one that is.
        while (col < grid.Cols() - 1 && view->isColumnHidden(col))
            ++col;
        if (row == 0) {
            QHeaderView& header = *view->horizontalHeader();
            action(*header.viewport(),
                   QPoint(header.sectionViewportPosition(col) + header.sectionSize(col) / 2, header.height() / 2));
        } else {
            const QModelIndex cell = view->model()->index(row - 1, col);
            view->scrollTo(cell);
            action(*view->viewport(), view->visualRect(cell).center());
        }
        settle();
    }

    /// The middle of the first column that a row shows, which comes into sight.
    static QPoint shownCell(QTableView& view, int row) {
        int col = 0;
        while (col < view.model()->columnCount() - 1 && view.isColumnHidden(col))
            ++col;
        const QModelIndex cell = view.model()->index(row - 1, col);
        view.scrollTo(cell);
        return view.visualRect(cell).center();
    }

    screen::Program& program_;
    std::unique_ptr<DesktopApplication> application_;
    std::vector<std::unique_ptr<ScreenWindow>> windows_;
};

} // namespace

std::unique_ptr<Hands> MakeDesktopHands(screen::Program& program, screen::User&) {
    return std::make_unique<DesktopHands>(program);
}

} // namespace vorta::robot
