#pragma once

#include "desktop/Binding.h"
#include "desktop/GridModel.h"

#include <QTableView>
#include <vector>

namespace vorta::desktop {

/// A grid of rows. The view keeps to the order of the rows and asks only for the cells that it shows.
class GridBinding : public Binding {
  public:
    GridBinding(Binder& binder, screen::Grid& grid, QTableView& view);
    void refresh() override;
    const GridModel& model() const { return model_; }
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    bool keyPressed(QKeyEvent& key) override;
    bool cursorPressed(screen::Key key) override;

  private:
    bool mouseOnRows(QEvent& event);
    void connectView();
    void measureColumns();
    void fitColumns();
    void showRow();
    void showTop();
    int firstShown() const; ///< the first column that is not hidden

    screen::Grid& grid_;
    QTableView& view_;
    GridModel model_;
    std::vector<int> natural_; ///< width that a column's content asks for; 0 for a hidden one
    bool second_ = false;      ///< the press that is down is the second of two quick ones
};

} // namespace vorta::desktop
