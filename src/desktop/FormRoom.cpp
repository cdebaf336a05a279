#include "desktop/FormRoom.h"

#include "base/Literals.h"
#include "desktop/FlowLayout.h"
#include "desktop/Forms.h"

#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

namespace vorta::desktop {

namespace {

constexpr int marginInView = 8;
const QString actionsName = u"acoes"_s;

bool isAction(QLayoutItem& row) {
    return row.layout() && row.layout()->objectName() == actionsName;
}

int rowOfActions(const QBoxLayout& rows) {
    for (int row = 0; row < rows.count(); ++row)
        if (isAction(*rows.itemAt(row)))
            return row;
    return rows.count();
}

/// A row of buttons: there is nothing in it that could become narrower.
bool holdsOnlyButtons(const QLayout& row) {
    for (int at = 0; at < row.count(); ++at)
        if (!row.itemAt(at)->spacerItem() && !qobject_cast<QPushButton*>(row.itemAt(at)->widget()))
            return false;
    return true;
}

/// The same row, which goes on in a further line where the window is too narrow.
QLayout* flowing(QLayout* row) {
    auto* flow = new FlowLayout;
    flow->setSpacing(row->spacing());
    while (QLayoutItem* item = row->takeAt(0))
        flow->addItem(item);
    delete row;
    return flow;
}

/// The rows from one on go to another box, as they are.
void moveRows(QBoxLayout& from, int first, int last, QBoxLayout& to) {
    for (int row = first; row < last; ++row) {
        const bool actions = isAction(*from.itemAt(first));
        QLayoutItem* item = from.takeAt(first);
        if (QLayout* inner = item->layout()) {
            inner->setParent(nullptr);
            to.addLayout(actions && holdsOnlyButtons(*inner) ? flowing(inner) : inner);
        } else if (QWidget* widget = item->widget()) {
            delete item;
            to.addWidget(widget);
        } else {
            to.addItem(item);
        }
    }
}

/// A stretch of what scrolls comes into the room, with a little around it where there is room for that.
void scrollTo(QScrollBar& bar, int from, int length, int room) {
    const int margin = std::clamp((room - length) / 2, 0, marginInView);
    const int first = from - margin;
    const int behind = from + length + margin;
    if (first < bar.value())
        bar.setValue(first);
    else if (behind > bar.value() + room)
        bar.setValue(std::min(first, behind - room));
}

} // namespace

/// A page that has just come to the front has not laid out its fields yet.
void FormRoom::layOut(const QWidget& widget) {
    std::vector<QLayout*> outwards;
    for (const QWidget* around = widget.parentWidget(); around;
         around = around == body_ ? nullptr : around->parentWidget())
        if (QLayout* layout = around->layout())
            outwards.push_back(layout);
    for (auto layout = outwards.rbegin(); layout != outwards.rend(); ++layout)
        (*layout)->activate();
}

FormRoom::FormRoom(const QString& screenName)
    : body_(new QWidget), scroll_(new QScrollArea(this)), kept_(new QWidget(this)) {
    SetUpForm(screenName, *body_);
    drawnSize_ = body_->size();
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidgetResizable(true);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(body_);
    auto* halves = new QVBoxLayout(this);
    halves->setContentsMargins(0, 0, 0, 0);
    halves->setSpacing(0);
    halves->addWidget(scroll_, 1);
    halves->insertWidget(takeActions() ? 0 : 1, kept_);
}

/// Takes the actions out of what scrolls; true when they stand in the upper half, with the title above them.
bool FormRoom::takeActions() {
    auto& rows = static_cast<QBoxLayout&>(*body_->layout());
    const int actions = rowOfActions(rows);
    const bool upper = actions + 1 < rows.count();
    const QMargins around = rows.contentsMargins();
    auto* kept = new QVBoxLayout(kept_);
    kept->setSpacing(rows.spacing());
    kept->setContentsMargins(around.left(), upper ? around.top() : rows.spacing(), around.right(),
                             upper ? 0 : around.bottom());
    moveRows(rows, upper ? 0 : actions, rows.count() > actions ? actions + 1 : actions, *kept);
    rows.setContentsMargins(around.left(), upper ? rows.spacing() : around.top(), around.right(),
                            upper ? around.bottom() : 0);
    return upper;
}

QSize FormRoom::wholeSize() const {
    body_->layout()->activate(); // else parts of it still know what they needed before
    kept_->layout()->activate();
    const QSize body = body_->sizeHint();
    const QSize kept = kept_->sizeHint();
    return QSize(std::max(body.width(), kept.width()), body.height() + kept.height()).expandedTo(drawnSize_);
}

void FormRoom::bringIntoView(QWidget& widget) {
    if (!body_->isAncestorOf(&widget))
        return;
    layOut(widget);
    // All of it; of a text that is wider than the room, where the cursor is.
    const QSize room = scroll_->viewport()->size();
    if (widget.width() > room.width())
        return scroll_->ensureWidgetVisible(&widget);
    const QPoint from = widget.mapTo(body_, QPoint());
    scrollTo(*scroll_->horizontalScrollBar(), from.x(), widget.width(), room.width());
    scrollTo(*scroll_->verticalScrollBar(), from.y(), widget.height(), room.height());
}

} // namespace vorta::desktop
