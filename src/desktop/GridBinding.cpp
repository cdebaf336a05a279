#include "desktop/GridBinding.h"

#include "base/Literals.h"
#include "desktop/Binder.h"
#include "desktop/GridMenu.h"
#include "screen/Program.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <utility>

namespace vorta::desktop {

GridBinding::GridBinding(Binder& binder, screen::Grid& grid, QTableView& view)
    : Binding(binder, grid, view), grid_(grid), view_(view), model_(grid), columns_(grid, view) {
    view.setModel(&model_);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTabKeyNavigation(false);
    view.setWordWrap(false);
    view.setAlternatingRowColors(true);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() * 3 / 2);
    view.horizontalHeader()->setHighlightSections(false);
    view.horizontalHeader()->setSectionsClickable(true);
    view.viewport()->installEventFilter(this);
    connectView();
}

void GridBinding::connectView() {
    connect(&view_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        binder_.act([&] { binder_.user().clickCell(grid_, index.row() + 1, index.column()); });
    });
    connect(view_.horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int col) { binder_.act([&] { binder_.user().clickCell(grid_, 0, col); }); });
    connect(view_.horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this] { binder_.act([&] { binder_.user().secondPress(grid_); }); });
    connect(view_.verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int top) {
        if (!binder_.refreshing() && view_.isVisible())
            grid_.setTopRow(top + 1);
    });
}

bool GridBinding::eventFilter(QObject* watched, QEvent* event) {
    // With the focus the view takes a row to itself; the grid says which one it is, if any.
    if (event->type() == QEvent::FocusIn)
        binder_.mark(grid_);
    if (event->type() == QEvent::ContextMenu) {
        OpenGridMenu(binder_, grid_, view_, static_cast<const QContextMenuEvent&>(*event));
        return true;
    }
    if (watched != view_.viewport())
        return Binding::eventFilter(watched, event);
    if (event->type() == QEvent::Resize) {
        columns_.fit();
        grid_.pageRows = view_.viewport()->height() / view_.verticalHeader()->defaultSectionSize();
        binder_.mark(grid_);
        return false;
    }
    return mouseOnRows(*event);
}

/// True for an event that the view shall not see: behind the first of two quick presses the rows may have changed, and
/// the view would report the second one as a click of whatever has slid under the mouse.
bool GridBinding::mouseOnRows(QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent&>(event).button() != Qt::LeftButton)
            return false;
        second_ = true;
        binder_.act([&] { binder_.user().secondPress(grid_); });
        return true;
    case QEvent::MouseButtonRelease:
        binder_.mark(grid_);
        return std::exchange(second_, false);
    default:
        return false;
    }
}

/// Ctrl+C takes the row along; Shift+F10 opens the menu, as the Menu key does by itself.
bool GridBinding::keyPressed(QKeyEvent& key) {
    if (key.matches(QKeySequence::Copy)) {
        binder_.act([&] { binder_.user().copyRow(grid_); });
        return true;
    }
    if (key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier) {
        OpenGridMenu(binder_, grid_, view_, QContextMenuEvent(QContextMenuEvent::Keyboard, {}, {}));
        return true;
    }
    return Binding::keyPressed(key);
}

/// Left and Right look at columns that are out of sight. The view would take a row to itself to walk along it.
bool GridBinding::cursorPressed(screen::Key key) {
    if (key == screen::Key::Left || key == screen::Key::Right) {
        const bool back = key == screen::Key::Left;
        view_.horizontalScrollBar()->triggerAction(back ? QScrollBar::SliderSingleStepSub
                                                        : QScrollBar::SliderSingleStepAdd);
        return true;
    }
    Binding::cursorPressed(key);
    if (hasFocus())
        view_.scrollTo(view_.currentIndex());
    return true;
}

void GridBinding::refresh() {
    Binding::refresh();
    // While work goes on the first rows are enough: a view of a million rows need not hear of each handful that comes.
    const bool fills =
        binder_.busyInput().isBusy() && model_.rowCount() >= grid_.pageRows && grid_.Rows() > model_.rowCount();
    if (!fills && model_.update()) {
        columns_.measure();
        columns_.fit();
    }
    showRow();
    showTop();
}

void GridBinding::showRow() {
    const int row = grid_.Row() - 1;
    if (row < 0 || row >= model_.rowCount()) {
        view_.selectionModel()->clear();
        return;
    }
    if (view_.currentIndex().row() == row && view_.selectionModel()->isRowSelected(row))
        return;
    view_.selectionModel()->setCurrentIndex(model_.index(row, columns_.firstShown()),
                                            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void GridBinding::showTop() {
    const int top = grid_.TopRow() - 1;
    if (top < model_.rowCount() && view_.verticalScrollBar()->value() != top)
        view_.scrollTo(model_.index(top, columns_.firstShown()), QAbstractItemView::PositionAtTop);
}

namespace {

/// Columns by whose beginning a row is looked for, the first that a grid has; else its first one.
const QStringList nameColumns{u"Razão Social"_s, u"Nome"_s, u"Endereço"_s, u"Descrição"_s};

/// As it is compared: neither case nor accents count.
QString plain(const QString& text) {
    QString letters;
    for (const QChar letter : text.normalized(QString::NormalizationForm_D).toUpper())
        if (!letter.isMark())
            letters += letter;
    return letters;
}

} // namespace

int GridBinding::nameColumn() const {
    for (const QString& header : nameColumns)
        for (int col = 0; col < grid_.Cols(); ++col)
            if (grid_.columns()[static_cast<size_t>(col)].header == header && !view_.isColumnHidden(col))
                return col;
    return columns_.firstShown();
}

/// Letters that follow each other quickly lead to the first row whose name begins so. A blank alone is the grid's own
/// key.
bool GridBinding::characterTyped(QChar typed) {
    if (!lastLetter_.isValid() || lastLetter_.hasExpired(qint64{QApplication::keyboardInputInterval()} * 2))
        letters_.clear();
    if (typed == u' ' && letters_.isEmpty())
        return Binding::characterTyped(typed);
    lastLetter_.start();
    letters_ += typed;
    const QString wanted = plain(letters_);
    const int col = nameColumn();
    for (int row = 1; row < grid_.Rows(); ++row)
        if (plain(grid_.cell(row, col)).startsWith(wanted)) {
            binder_.act([&] { grid_.screen().program().dispatch([&] { grid_.setRow(row); }); });
            if (hasFocus())
                view_.scrollTo(view_.currentIndex());
            break;
        }
    return true;
}

} // namespace vorta::desktop
