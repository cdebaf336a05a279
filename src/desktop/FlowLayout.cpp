#include "desktop/FlowLayout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace vorta::desktop {

namespace {

bool isSpacer(const QLayoutItem* item) {
    return const_cast<QLayoutItem*>(item)->spacerItem();
}

bool isShown(const QLayoutItem* item) {
    return isSpacer(item) || !item->isEmpty();
}

/// A spacer asks for no room of its own.
int widthOf(const QLayoutItem* item) {
    return isSpacer(item) ? 0 : item->sizeHint().width();
}

int heightOf(const std::vector<QLayoutItem*>& line) {
    int height = 0;
    for (const QLayoutItem* item : line)
        height = std::max(height, item->sizeHint().height());
    return height;
}

int widthOf(const std::vector<QLayoutItem*>& line, int spacing) {
    int width = 0;
    for (const QLayoutItem* item : line)
        width += widthOf(item) + (isSpacer(item) ? 0 : spacing);
    return std::max(0, width - spacing);
}

} // namespace

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[static_cast<size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* item = items_[static_cast<size_t>(index)].release();
    items_.erase(items_.begin() + index);
    return item;
}

std::vector<FlowLayout::Line> FlowLayout::lines(int width) const {
    std::vector<Line> lines(1);
    for (const auto& item : items_) {
        if (!isShown(item.get()))
            continue;
        Line longer = lines.back();
        longer.push_back(item.get());
        if (!lines.back().empty() && widthOf(longer, spacing()) > width)
            lines.push_back({item.get()});
        else
            lines.back() = std::move(longer);
    }
    return lines;
}

int FlowLayout::heightForWidth(int width) const {
    const QMargins around = margins();
    int height = around.top() + around.bottom() - spacing();
    for (const Line& line : lines(width - around.left() - around.right()))
        height += heightOf(line) + spacing();
    return height;
}

/// All in one line.
QSize FlowLayout::sizeHint() const {
    const QMargins around = margins();
    Line all;
    for (const auto& item : items_)
        if (isShown(item.get()))
            all.push_back(item.get());
    return QSize(widthOf(all, spacing()), heightOf(all)).grownBy(around);
}

QSize FlowLayout::minimumSize() const {
    QSize least;
    for (const auto& item : items_)
        if (isShown(item.get()) && !isSpacer(item.get()))
            least = least.expandedTo(item->sizeHint());
    return least.grownBy(margins());
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QRect room = rect.marginsRemoved(margins());
    int y = room.top();
    for (const Line& line : lines(room.width())) {
        int left = room.width() - widthOf(line, spacing());
        int x = room.left();
        const int height = heightOf(line);
        for (QLayoutItem* item : line) {
            if (isSpacer(item)) {
                x += std::max(0, std::exchange(left, 0));
                continue;
            }
            item->setGeometry(
                QStyle::visualRect(parentWidget()->layoutDirection(), room, QRect(x, y, widthOf(item), height)));
            x += widthOf(item) + spacing();
        }
        y += height + spacing();
    }
}

} // namespace vorta::desktop
