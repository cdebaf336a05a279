#pragma once

#include "screen/Grid.h"

#include <QHash>
#include <QObject>
#include <QTableView>
#include <QTimer>
#include <vector>

namespace vorta::desktop {

/// The widths of a grid's columns. One that the user has made wider or narrower keeps that width, also over searches,
/// openings and starts; the others follow their content and share what room is left over. A hidden column stays hidden.
class GridColumns : public QObject {
  public:
    GridColumns(const screen::Grid& grid, QTableView& view);
    ~GridColumns() override;

    /// Looks at the content anew.
    void measure();
    /// Gives the columns their widths in the room that there is.
    void fit();
    /// The first column that is shown; 0 for none.
    int firstShown() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void resized(int col, int width);
    QString headerOf(int col) const;
    void remember();

    const screen::Grid& grid_;
    QTableView& view_;
    std::vector<int> natural_;   ///< what the content of each column asks for; 0 for a hidden one
    QHash<QString, int> chosen_; ///< by the user, by header
    QTimer settled_;             ///< the user has let go of a border
    bool held_ = false;          ///< the mouse has hold of the header
    bool changed_ = false;
};

} // namespace vorta::desktop
