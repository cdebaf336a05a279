#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace vorta::desktop {

/// A row of widgets that goes on in a further line when there is no room beside. A spacer takes what its line leaves
/// over.
class FlowLayout : public QLayout {
  public:
    FlowLayout() = default;

    void addItem(QLayoutItem* item) override { items_.emplace_back(item); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    int count() const override { return static_cast<int>(items_.size()); }

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

  private:
    using Line = std::vector<QLayoutItem*>;
    std::vector<Line> lines(int width) const;
    QMargins margins() const { return contentsMargins(); }

    std::vector<std::unique_ptr<QLayoutItem>> items_;
};

} // namespace vorta::desktop
