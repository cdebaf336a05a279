#pragma once

#include "desktop/Binding.h"
#include "desktop/GridColumns.h"
#include "desktop/GridModel.h"

#include <QElapsedTimer>
#include <QTableView>

namespace vorta::desktop {

/// A grid of rows. The view keeps to the order of the rows and asks only for the cells that it shows. Letters lead to
/// the first row whose name begins so.
class GridBinding : public Binding {
  public:
    GridBinding(Binder& binder, screen::Grid& grid, QTableView& view);
    void refresh() override;
    const GridModel& model() const { return model_; }
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    bool keyPressed(QKeyEvent& key) override;
    bool cursorPressed(screen::Key key) override;
    bool characterTyped(QChar typed) override;

  private:
    bool mouseOnRows(QEvent& event);
    void connectView();
    void showRow();
    void showTop();
    int nameColumn() const;

    screen::Grid& grid_;
    QTableView& view_;
    GridModel model_;
    GridColumns columns_;
    bool second_ = false; ///< the press that is down is the second of two quick ones
    QString letters_;     ///< typed one after the other, to look for a row
    QElapsedTimer lastLetter_;
};

} // namespace vorta::desktop
