#include "desktop/GridModel.h"

namespace vorta::desktop {

namespace {

Qt::Alignment alignmentOf(screen::Align align) {
    switch (align) {
    case screen::Align::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case screen::Align::Centre:
        return Qt::AlignCenter;
    case screen::Align::Left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

} // namespace

bool GridModel::update() {
    if (revision_ == grid_.revision())
        return false;
    beginResetModel();
    revision_ = grid_.revision();
    rows_ = grid_.Cols() == 0 ? 0 : grid_.Rows() - 1;
    columns_ = grid_.Cols();
    endResetModel();
    return true;
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const int row = index.row() + 1;
    if (!index.isValid() || row >= grid_.Rows() || index.column() >= grid_.Cols())
        return {};
    if (role == Qt::DisplayRole) {
        ++cellsAsked_;
        return grid_.cell(row, index.column());
    }
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(alignmentOf(grid_.columns()[static_cast<size_t>(index.column())].align));
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical || section >= grid_.Cols())
        return {};
    if (role == Qt::DisplayRole)
        return grid_.cell(0, section);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(alignmentOf(grid_.columns()[static_cast<size_t>(section)].align));
    return {};
}

} // namespace vorta::desktop
