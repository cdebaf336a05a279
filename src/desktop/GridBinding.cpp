#include "desktop/GridBinding.h"

#include "desktop/Binder.h"
#include "screen/Program.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <numeric>

namespace vorta::desktop {

namespace {

constexpr int sampleRows = 60;
constexpr int unitsPerPixel = 15;
constexpr int widestColumn = 420;

} // namespace

GridBinding::GridBinding(Binder& binder, screen::Grid& grid, QTableView& view)
    : Binding(binder, grid, view), grid_(grid), view_(view), model_(grid) {
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
    // The first click of the two has already been one.
    connect(&view_, &QTableView::doubleClicked, this,
            [this] { binder_.act([&] { binder_.user().doubleClick(grid_); }); });
    connect(view_.horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int col) { binder_.act([&] { binder_.user().clickCell(grid_, 0, col); }); });
    connect(view_.horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this] { binder_.act([&] { binder_.user().doubleClick(grid_); }); });
    connect(view_.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& index) { rowReached(index.row() + 1); });
    connect(view_.verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int top) {
        if (!binder_.refreshing() && view_.isVisible())
            grid_.setTopRow(top + 1);
    });
}

/// The cursor keys move the current row; a mouse does it with its click, when the focus has come along.
void GridBinding::rowReached(int row) {
    if (binder_.refreshing() || mouseDown_ || row < 1)
        return;
    binder_.act([&] { grid_.screen().program().dispatch([&] { grid_.setRow(row); }); });
}

bool GridBinding::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_.viewport()) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            mouseDown_ = true;
            break;
        case QEvent::MouseButtonRelease:
            mouseDown_ = false;
            binder_.mark(grid_);
            break;
        case QEvent::Resize:
            fitColumns();
            binder_.mark(grid_);
            break;
        default:
            break;
        }
        return false;
    }
    return Binding::eventFilter(watched, event);
}

void GridBinding::refresh() {
    Binding::refresh();
    if (model_.update()) {
        measureColumns();
        fitColumns();
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
    view_.selectionModel()->setCurrentIndex(model_.index(row, firstShown()),
                                            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void GridBinding::showTop() {
    const int top = grid_.TopRow() - 1;
    if (top < model_.rowCount() && view_.verticalScrollBar()->value() != top)
        view_.scrollTo(model_.index(top, firstShown()), QAbstractItemView::PositionAtTop);
}

int GridBinding::firstShown() const {
    const auto shown = std::ranges::find_if(natural_, [](int width) { return width > 0; });
    return shown == natural_.end() ? 0 : static_cast<int>(shown - natural_.begin());
}

/// As wide as the header and the first rows ask for, and not below the proportions that the screen was drawn with.
void GridBinding::measureColumns() {
    const QFontMetrics metrics = view_.fontMetrics();
    const int margin = metrics.height();
    const int rows = std::min(model_.rowCount(), sampleRows);
    natural_.clear();
    for (int col = 0; col < model_.columnCount(); ++col) {
        const screen::GridColumn& column = grid_.columns()[static_cast<size_t>(col)];
        view_.setColumnHidden(col, column.width == 0);
        int width = column.width == 0
                        ? 0
                        : std::max(column.width / unitsPerPixel, metrics.horizontalAdvance(column.header) + margin);
        for (int row = 0; row < rows && column.width != 0; ++row)
            width = std::max(width, metrics.horizontalAdvance(model_.index(row, col).data().toString()) + margin);
        natural_.push_back(std::min(width, widestColumn));
    }
}

/// Room that is left over is shared out in proportion.
void GridBinding::fitColumns() {
    const int total = std::accumulate(natural_.begin(), natural_.end(), 0);
    const int room = view_.viewport()->width();
    for (int col = 0; col < static_cast<int>(natural_.size()); ++col)
        if (const int width = natural_[static_cast<size_t>(col)]; width > 0)
            view_.setColumnWidth(col, total < room ? width * room / total : width);
}

} // namespace vorta::desktop
