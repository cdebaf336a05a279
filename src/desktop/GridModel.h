#pragma once

#include "screen/Grid.h"

#include <QAbstractTableModel>

namespace vorta::desktop {

/// The rows of a grid for a table view. It copies nothing: the view asks for the cells that it shows.
class GridModel : public QAbstractTableModel {
  public:
    explicit GridModel(const screen::Grid& grid) : grid_(grid) {}

    /// Looks again after the rows or columns have changed; true when there was a change.
    bool update();
    /// How many cells have been asked for so far, for the measurement of the window.
    quint64 cellsAsked() const { return cellsAsked_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const screen::Grid& grid_;
    // What the view has been told; the grid itself may be in the middle of a change.
    int rows_ = 0;
    int columns_ = 0;
    quint64 revision_ = ~quint64{0};
    mutable quint64 cellsAsked_ = 0;
};

} // namespace vorta::desktop
