#include "desktop/WorkBar.h"

#include "base/Literals.h"

#include <QPainter>
#include <algorithm>

namespace vorta::desktop {

namespace {

constexpr int thickness = 4;
constexpr int steps = 1000;
constexpr double stretch = 0.2;   ///< of the width, moving
constexpr qint64 crossing = 1200; ///< milliseconds from one end to the other

} // namespace

WorkBar::WorkBar(QWidget* parent) : QProgressBar(parent) {
    setObjectName(u"progresso"_s);
    setTextVisible(false);
    setFixedHeight(thickness);
    setRange(0, steps);
    QSizePolicy keepsItsRoom = sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    setSizePolicy(keepsItsRoom);
    hide();
}

void WorkBar::tell(qint64 done, qint64 total) {
    setVisible(total != 0);
    setMaximum(total < 0 ? 0 : steps);
    if (total >= 0)
        moving_.invalidate();
    else if (!moving_.isValid())
        moving_.start();
    if (total > 0)
        setValue(static_cast<int>(std::clamp<qint64>(done, 0, total) * steps / total));
    update();
}

std::pair<double, double> WorkBar::filled() const {
    if (!moving_.isValid())
        return {0, static_cast<double>(value()) / steps};
    const double way = static_cast<double>(moving_.elapsed() % (2 * crossing)) / crossing;
    const double from = (way <= 1 ? way : 2 - way) * (1 - stretch);
    return {from, from + stretch};
}

void WorkBar::paintEvent(QPaintEvent*) {
    const auto [from, to] = filled();
    QPainter painter(this);
    painter.fillRect(rect(), palette().mid());
    painter.fillRect(QRectF(from * width(), 0, (to - from) * width(), rect().height()), palette().highlight());
}

} // namespace vorta::desktop
