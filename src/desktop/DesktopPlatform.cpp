#include "desktop/DesktopPlatform.h"

#include "base/Literals.h"
#include "desktop/AskForFile.h"
#include "desktop/MessageBox.h"
#include "desktop/Pdf.h"
#include "desktop/ScreenWindow.h"
#include "screen/Program.h"
#include "system/ThisSystem.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMessageBox>
#include <QStandardPaths>
#include <QUrl>

namespace vorta::desktop {

namespace {

constexpr int progressInterval = 40;
/// What can wait for a moment waits so long, in milliseconds.
constexpr int moment = 300;

} // namespace

/// A handler is still running: what it has done so far is shown before anything comes on top.
void DesktopPlatform::showAll() {
    for (ScreenWindow* window : windows_)
        window->binder().flush();
}

screen::Answer DesktopPlatform::messageBox(const screen::Box& box) {
    showAll();
    if (top())
        top()->binder().busyInput().drop();
    const auto shown = MakeMessageBox(box, top());
    boxes_.push_back(shown.get());
    Termination::listen();
    if (!endWanted_)
        shown->exec();
    boxes_.pop_back();
    return AnswerOf(*shown);
}

DesktopPlatform::DesktopPlatform() {
    waiting_.setSingleShot(true);
    QObject::connect(&waiting_, &QTimer::timeout, &waiting_, [this] { later_(); });
}
DesktopPlatform::~DesktopPlatform() = default;

void DesktopPlatform::prepare(screen::Screen& screen) {
    // The first picture, whatever it is, makes the toolkit load all that it has for pictures. At once, since an engine
    // that is being opened soon keeps everybody else from loading libraries.
    QImage::fromData(QByteArrayLiteral("BM"));
    prepared_ = std::make_unique<ScreenWindow>(screen, top());
    for (const QWidget* widget : prepared_->findChildren<QWidget*>())
        widget->ensurePolished();
    // What the widgets have to tell each other since they were made is told now.
    QCoreApplication::sendPostedEvents();
    // Drawn once, unseen, it has its letters and frames at hand.
    prepared_->grab();
}

void DesktopPlatform::dropPrepared() {
    prepared_.reset();
}

std::unique_ptr<ScreenWindow> DesktopPlatform::windowFor(screen::Screen& screen) {
    if (!prepared_ || &prepared_->binder().screen() != &screen)
        return std::make_unique<ScreenWindow>(screen, top());
    prepared_->binder().flush();
    return std::move(prepared_);
}

void DesktopPlatform::runModal(screen::Screen& screen) {
    showAll();
    const std::unique_ptr<ScreenWindow> shown = windowFor(screen);
    ScreenWindow& window = *shown;
    QEventLoop loop;
    windows_.push_back(&window);
    loops_.push_back(&loop);
    window.binder().onOver = [&] {
        loop.quit();
        leaveIfEnded();
    };
    Termination::listen();
    window.restoreSize();
    window.show();
    window.activateWindow();
    if (endWanted_)
        end();
    if (window.binder().isOpen())
        loop.exec();
    window.rememberSize();
    loops_.pop_back();
    windows_.pop_back();
}

void DesktopPlatform::leaveIfEnded() {
    if (!top() || !top()->binder().screen().program().hasEnded())
        return;
    for (QDialog* box : boxes_)
        box->reject();
    for (QEventLoop* loop : loops_)
        loop->quit();
}

/// The system wants the process to end: in order, and without a question that nobody may be there to answer.
void DesktopPlatform::end() {
    if (!top()) {
        // Nothing stands yet but a box of the launch; the first window, should one still come, ends at once.
        endWanted_ = true;
        for (QDialog* box : boxes_)
            box->reject();
        return;
    }
    screen::Program& program = top()->binder().screen().program();
    program.dispatch([&] { program.End(); });
    leaveIfEnded();
}

void DesktopPlatform::openAddress(const QString& address) {
    QDesktopServices::openUrl(QUrl(address));
}

void DesktopPlatform::putOnClipboard(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

QString DesktopPlatform::askForFile(const QString& suggested) {
    showAll();
    const auto dialog = MakeFileDialog(suggested, top());
    while (!endWanted_) {
        boxes_.push_back(dialog.get());
        Termination::listen();
        const bool chosen = dialog->exec() == QDialog::Accepted;
        boxes_.pop_back();
        const QString path = dialog->selectedFiles().value(0);
        if (!chosen || path.isEmpty() || top()->binder().screen().program().hasEnded())
            return {};
        if (!QFileInfo::exists(path) || messageBox({u"O arquivo %1 já existe.\nDeseja substituí-lo?"_s.arg(path),
                                                    {},
                                                    screen::Icon::None,
                                                    screen::Buttons::YesNo}) == screen::Answer::Yes)
            return path;
    }
    return {};
}

void DesktopPlatform::writePdf(const QString& html, const QString& path) {
    WritePdf(html, path);
}

QString DesktopPlatform::dataFolder() const {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/vorta"_s;
}

void DesktopPlatform::soon(const std::function<void()>& work) {
    later_ = work;
    if (!waiting_.isActive())
        waiting_.start(moment);
}

void DesktopPlatform::progress(qint64 done, qint64 total) {
    if (!top())
        return;
    if (total == 0)
        return hideProgress();
    if (!working_.isValid())
        working_.start();
    top()->binder().busyInput().begin();
    if (isUnderHourglass() || working_.hasExpired(moment))
        showProgress(done, total);
}

bool DesktopPlatform::isUnderHourglass() const {
    return top()->binder().screen().pointer() == screen::Pointer::Hourglass;
}

void DesktopPlatform::showProgress(qint64 done, qint64 total) {
    if (lastProgress_.isValid() && !lastProgress_.hasExpired(progressInterval))
        return;
    lastProgress_.start();
    top()->showProgress(done, total);
    // Only what makes things visible: a handler is still at work.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

void DesktopPlatform::hideProgress() {
    if (!working_.isValid())
        return;
    working_.invalidate();
    // The hourglass will go; without one this is the end.
    if (isUnderHourglass())
        top()->binder().busyInput().drop();
    else
        top()->binder().busyInput().end();
    if (!lastProgress_.isValid())
        return;
    lastProgress_.invalidate();
    top()->showProgress(0, 0);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

QString DesktopPlatform::home() const {
    const QString told = qEnvironmentVariable("VORTA_HOME");
    return QDir::cleanPath(told.isEmpty() ? system::ThisSystem().home : localPath(told));
}

} // namespace vorta::desktop
