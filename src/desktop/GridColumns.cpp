#include "desktop/GridColumns.h"

#include "base/Literals.h"
#include "desktop/Settings.h"
#include "screen/Screen.h"

#include <QEvent>
#include <QHeaderView>
#include <algorithm>
#include <utility>

namespace vorta::desktop {

namespace {

constexpr int sampleRows = 60;
constexpr int unitsPerPixel = 15;
constexpr int widestColumn = 420;
constexpr int narrowestColumn = 24;
constexpr int untilSettled = 400;

QString settingsGroup(const screen::Grid& grid) {
    return u"colunas/%1.%2"_s.arg(grid.screen().name(), grid.name());
}

/// A header as the name of a setting, in which a slash would begin a group.
QString settingsName(QString header) {
    return header.replace(u'/', u'|');
}

} // namespace

GridColumns::GridColumns(const screen::Grid& grid, QTableView& view) : grid_(grid), view_(view) {
    QSettings kept = UserSettings();
    kept.beginGroup(settingsGroup(grid));
    for (const QString& name : kept.childKeys())
        if (const int width = kept.value(name).toInt(); width >= narrowestColumn)
            chosen_.insert(name, width);
    view.horizontalHeader()->setMinimumSectionSize(narrowestColumn);
    view.horizontalHeader()->viewport()->installEventFilter(this);
    connect(view.horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int col, int, int width) { resized(col, width); });
    // While a border is being drawn the others keep still.
    settled_.setSingleShot(true);
    settled_.setInterval(untilSettled);
    connect(&settled_, &QTimer::timeout, this, [this] {
        if (held_)
            return settled_.start();
        remember();
        fit();
    });
}

GridColumns::~GridColumns() {
    remember();
}

bool GridColumns::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
        held_ = true;
    if (event->type() == QEvent::MouseButtonRelease)
        held_ = false;
    return false;
}

void GridColumns::resized(int col, int width) {
    // Whatever else changes a width is no choice.
    if (!held_ || width == 0 || col >= static_cast<int>(natural_.size()))
        return;
    chosen_.insert(headerOf(col), width);
    changed_ = true;
    settled_.start();
}

void GridColumns::remember() {
    if (!std::exchange(changed_, false))
        return;
    QSettings kept = UserSettings();
    kept.beginGroup(settingsGroup(grid_));
    for (auto one = chosen_.cbegin(); one != chosen_.cend(); ++one)
        kept.setValue(one.key(), one.value());
}

QString GridColumns::headerOf(int col) const {
    return settingsName(grid_.columns()[static_cast<size_t>(col)].header);
}

int GridColumns::firstShown() const {
    const auto shown = std::ranges::find_if(natural_, [](int width) { return width > 0; });
    return shown == natural_.end() ? 0 : static_cast<int>(shown - natural_.begin());
}

/// As wide as the header and the first rows ask for, and not below the proportions that the screen was drawn with.
void GridColumns::measure() {
    const QFontMetrics metrics = view_.fontMetrics();
    const QAbstractItemModel& model = *view_.model();
    const int margin = metrics.height();
    const int rows = std::min(model.rowCount(), sampleRows);
    natural_.clear();
    for (int col = 0; col < model.columnCount(); ++col) {
        const screen::GridColumn& column = grid_.columns()[static_cast<size_t>(col)];
        view_.setColumnHidden(col, column.width == 0);
        int width = column.width == 0
                        ? 0
                        : std::max(column.width / unitsPerPixel, metrics.horizontalAdvance(column.header) + margin);
        for (int row = 0; row < rows && column.width != 0; ++row)
            width = std::max(width, metrics.horizontalAdvance(model.index(row, col).data().toString()) + margin);
        natural_.push_back(std::min(width, widestColumn));
    }
}

/// Room that is left over is shared out in proportion among the columns that nobody has given a width.
void GridColumns::fit() {
    if (held_)
        return;
    int shared = 0; // what the columns that may grow ask for
    int fixed = 0;
    for (int col = 0; col < static_cast<int>(natural_.size()); ++col)
        if (const int width = natural_[static_cast<size_t>(col)]; width > 0)
            chosen_.contains(headerOf(col)) ? fixed += chosen_.value(headerOf(col)) : shared += width;
    const int room = view_.viewport()->width() - fixed;
    for (int col = 0; col < static_cast<int>(natural_.size()); ++col)
        if (const int width = natural_[static_cast<size_t>(col)]; width > 0)
            view_.setColumnWidth(col, chosen_.value(headerOf(col), shared < room ? width * room / shared : width));
}

} // namespace vorta::desktop
