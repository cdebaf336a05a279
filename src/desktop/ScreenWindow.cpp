#include "desktop/ScreenWindow.h"

#include "base/Literals.h"
#include "desktop/FormRoom.h"
#include "desktop/Help.h"
#include "desktop/ScreenKeys.h"
#include "desktop/Settings.h"
#include "desktop/Style.h"
#include "desktop/WorkBar.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

namespace vorta::desktop {

namespace {

constexpr int usualBorder = 4; ///< of the frame that a desktop draws
const QString maximizedSuffix = u"-maximizada"_s;

} // namespace

ScreenWindow::ScreenWindow(screen::Screen& screen, QWidget* parent)
    : QDialog(parent, (parent ? Qt::Dialog : Qt::Window) | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      screen_(screen), user_(screen.program()), form_(new FormRoom(screen.name())), bar_(new WorkBar(this)) {
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        // The frame of a grid or note shows the focus as well.
        for (QWidget* one : {before, now})
            if (one)
                one->update();
        if (!now)
            return;
        form_->bringIntoView(*now);
        // And again when a page that has come to the front with it has its final size.
        QTimer::singleShot(0, this, [this, still = QPointer(now)] {
            if (still)
                form_->bringIntoView(*still);
        });
    });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(form_);
    layout->addWidget(bar_);
    binder_ = std::make_unique<Binder>(screen, user_, *form_, *this);
    binder_->onPlacing = [this] { takePlace(); };
    binder_->flush();
    wholeSize_ = neededSize();
    given_ = size();
    resizeWithin(wholeSize_);
    setWindowModality(Qt::ApplicationModal);
}

ScreenWindow::~ScreenWindow() = default;

QSize ScreenWindow::neededSize() const {
    return form_->wholeSize().expandedTo(QSize(WidthForTitle(windowTitle()), 0)) + QSize(0, bar_->minimumHeight());
}

void ScreenWindow::complete() {
    const bool untouched = size() == given_ && !restored_;
    binder_->complete();
    wholeSize_ = neededSize();
    if (untouched)
        resizeWithin(wholeSize_);
    takePlace(); // with the frame that the desktop has given it by now
    if (!keys_)
        keys_ = std::make_unique<ScreenKeys>(*binder_, *this);
    if (QApplication::windowIcon().isNull())
        QApplication::setWindowIcon(ProgramIcon());
}

void ScreenWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    takePlace();
}
/// What the desktop has drawn around the window by now. The widget itself keeps what it has heard until it is moved or
/// resized, which may have been in front of the frame.
QMargins ScreenWindow::drawnFrame() const {
    return windowHandle() ? windowHandle()->frameMargins() : QMargins();
}

/// The same, or what is usual before anything is drawn.
QMargins ScreenWindow::frame() const {
    const QMargins told = drawnFrame();
    if (told.isNull() && !painted_)
        return {usualBorder, style()->pixelMetric(QStyle::PM_TitleBarHeight), usualBorder, usualBorder};
    return told;
}

/// Where the window may stand with its frame. One above another leaves the title of the lower one in sight.
QRect ScreenWindow::freeArea() const {
    const QWidget* below = parentWidget();
    QRect area = (below ? below : this)->screen()->availableGeometry();
    if (below && !below->isMaximized())
        area.adjust(0, frame().top(), 0, -frame().top());
    return area;
}

QSize ScreenWindow::room() const {
    return freeArea().marginsRemoved(frame()).size();
}

void ScreenWindow::resizeWithin(QSize wanted) {
    const bool untouched = size() == given_;
    resize(wanted.boundedTo(room()));
    if (untouched)
        given_ = size();
}

/// The whole frame within the free area, as near as that allows to where the screen wants it.
void ScreenWindow::takePlace() {
    if (isMaximized())
        return;
    if (size() == given_)
        resizeWithin(given_);
    if (screen_.place() == screen::Place::Anywhere)
        return;
    const QRect area = freeArea();
    const QRect display = (parentWidget() ? parentWidget() : this)->screen()->geometry();
    const QSize outer = size().grownBy(frame());
    const bool left = screen_.place() == screen::Place::LeftBorder;
    const QPoint wanted(display.left() + (left ? 0 : (display.width() - outer.width()) / 2),
                        display.top() + (display.height() - outer.height()) / 2);
    const QPoint last(area.left() + area.width() - outer.width(), area.top() + area.height() - outer.height());
    const QPoint place(std::max(std::min(wanted.x(), last.x()), area.left()),
                       std::max(std::min(wanted.y(), last.y()), area.top()));
    // The widget reckons with the frame that it has heard of.
    const QPoint heard = geometry().topLeft() - pos();
    move(place + QPoint(drawnFrame().left(), drawnFrame().top()) - heard);
}

void ScreenWindow::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    if (isVisible() && !std::exchange(painted_, true))
        QTimer::singleShot(0, this, &ScreenWindow::complete);
}

void ScreenWindow::showProgress(qint64 done, qint64 total) {
    bar_->tell(done, total);
}

QString ScreenWindow::sizeKey() const {
    return u"janelas/"_s + screen_.name();
}

void ScreenWindow::restoreSize() {
    const QSettings kept = UserSettings();
    if (const QSize size = kept.value(sizeKey()).toSize(); !size.isEmpty()) {
        given_ = size.boundedTo(room());
        resize(given_);
        restored_ = true;
    }
    if (kept.value(sizeKey() + maximizedSuffix).toBool())
        setWindowState(windowState() | Qt::WindowMaximized);
}

void ScreenWindow::rememberSize() const {
    QSettings kept = UserSettings();
    kept.setValue(sizeKey(), isMaximized() ? normalGeometry().size() : size());
    kept.setValue(sizeKey() + maximizedSuffix, isMaximized());
}

/// The frame asks the screen, and the screen's end closes the window.
void ScreenWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    binder_->act([this] { user_.closeByFrame(screen_); });
}

} // namespace vorta::desktop
