#pragma once

#include <QElapsedTimer>
#include <QProgressBar>

namespace vorta::desktop {

/// The thin bar at the foot of a window that shows how far long work is. It paints itself: what styles draw into a bar
/// of a few pixels to tell that the end is not known cannot be seen.
class WorkBar : public QProgressBar {
  public:
    explicit WorkBar(QWidget* parent);
    /// Shows that so much of a total is done; with a negative total that work goes on, by a stretch that moves to and
    /// fro; with 0 nothing any more.
    void tell(qint64 done, qint64 total);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    /// From where to where the bar is filled, of its width.
    std::pair<double, double> filled() const;

    QElapsedTimer moving_; ///< valid while the end is not known
};

} // namespace vorta::desktop
