#include "desktop/ScreenWindow.h"

#include "base/Literals.h"
#include "desktop/Forms.h"

#include <QApplication>
#include <QCloseEvent>
#include <QProgressBar>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

namespace vorta::desktop {

namespace {

constexpr int barHeight = 4;
constexpr int barSteps = 1000;
const QString maximizedSuffix = u"-maximizada"_s;

QSettings settings() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"vorta"_s, u"pessoas"_s);
}

} // namespace

ScreenWindow::ScreenWindow(screen::Screen& screen, QWidget* parent)
    : QDialog(parent, (parent ? Qt::Dialog : Qt::Window) | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      screen_(screen), user_(screen.program()), form_(new QWidget), bar_(new QProgressBar(this)) {
    // With large letters or on a small screen a form may be larger than its window can be.
    auto* room = new QScrollArea(this);
    room->setFrameShape(QFrame::NoFrame);
    room->setWidgetResizable(true);
    room->setFocusPolicy(Qt::NoFocus);
    room->setWidget(form_);
    SetUpForm(screen.name(), *form_);
    drawnSize_ = form_->size();
    connect(qApp, &QApplication::focusChanged, this, [room](QWidget*, QWidget* now) {
        if (now && room->isAncestorOf(now))
            room->ensureWidgetVisible(now);
    });
    bar_->setObjectName(u"progresso"_s);
    bar_->setTextVisible(false);
    bar_->setFixedHeight(barHeight);
    bar_->setRange(0, barSteps);
    QSizePolicy keepsItsRoom = bar_->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    bar_->setSizePolicy(keepsItsRoom);
    bar_->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(room);
    layout->addWidget(bar_);
    binder_ = std::make_unique<Binder>(screen, user_, *form_, *this);
    binder_->onPlacing = [this] { takePlace(); };
    binder_->flush();
    wholeSize_ = neededSize();
    resize(wholeSize_.boundedTo(this->screen()->availableSize()));
    setWindowModality(Qt::ApplicationModal);
}

QSize ScreenWindow::neededSize() const {
    form_->layout()->activate(); // else parts of it still know what they needed before
    return form_->sizeHint().expandedTo(drawnSize_) + QSize(0, barHeight);
}

void ScreenWindow::complete() {
    const QSize room = this->screen()->availableSize();
    const bool untouched = size() == wholeSize_.boundedTo(room);
    binder_->complete();
    wholeSize_ = neededSize();
    if (untouched)
        resize(wholeSize_.boundedTo(room));
    takePlace(); // with the frame that the desktop has given it by now
}

void ScreenWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    takePlace();
}

/// The title bar stays within reach, also on a display that is smaller than the window.
void ScreenWindow::takePlace() {
    if (screen_.place() == screen::Place::Anywhere || isMaximized())
        return;
    const QScreen& shownOn = *(parentWidget() ? parentWidget() : this)->screen();
    const QRect display = shownOn.geometry();
    const QSize outer = frameGeometry().size();
    const bool left = screen_.place() == screen::Place::LeftBorder;
    const QPoint wanted(display.left() + (left ? 0 : (display.width() - outer.width()) / 2),
                        display.top() + (display.height() - outer.height()) / 2);
    const QPoint first = shownOn.availableGeometry().topLeft();
    move(std::max(wanted.x(), first.x()), std::max(wanted.y(), first.y()));
}

void ScreenWindow::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    if (!std::exchange(painted_, true))
        QTimer::singleShot(0, this, &ScreenWindow::complete);
}

void ScreenWindow::showProgress(qint64 done, qint64 total) {
    bar_->setVisible(total != 0);
    // Without a total the bar moves to and fro.
    bar_->setMaximum(total < 0 ? 0 : barSteps);
    if (total > 0)
        bar_->setValue(static_cast<int>(std::clamp<qint64>(done, 0, total) * barSteps / total));
}

QString ScreenWindow::sizeKey() const {
    return u"janelas/"_s + screen_.name();
}

void ScreenWindow::restoreSize() {
    const QSettings kept = settings();
    if (const QSize size = kept.value(sizeKey()).toSize(); !size.isEmpty())
        resize(size.boundedTo(this->screen()->availableSize()));
    if (kept.value(sizeKey() + maximizedSuffix).toBool())
        setWindowState(windowState() | Qt::WindowMaximized);
}

void ScreenWindow::rememberSize() const {
    QSettings kept = settings();
    kept.setValue(sizeKey(), isMaximized() ? normalGeometry().size() : size());
    kept.setValue(sizeKey() + maximizedSuffix, isMaximized());
}

/// The frame asks the screen, and the screen's end closes the window.
void ScreenWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    binder_->act([this] { user_.closeByFrame(screen_); });
}

} // namespace vorta::desktop
