#include "desktop/BusyInput.h"

#include <QCoreApplication>
#include <QEvent>

namespace vorta::desktop {

namespace {

constexpr int longWork = 400; // milliseconds

/// Takes every act of the user that comes by.
class Swallow : public QObject {
  public:
    Swallow() { qApp->installEventFilter(this); }
    ~Swallow() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Close:
            event->ignore(); // else the window would go
            return true;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::Drop:
            return true;
        case QEvent::ShortcutOverride:
            event->accept(); // else an accelerator would fire
            return true;
        default:
            return false;
        }
    }
};

} // namespace

void BusyInput::begin() {
    if (!since_.isValid())
        since_.start();
}

void BusyInput::drop() const {
    if (!since_.isValid() || !since_.hasExpired(longWork))
        return;
    const Swallow swallow;
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
}

void BusyInput::end() {
    drop();
    since_.invalidate();
}

} // namespace vorta::desktop
