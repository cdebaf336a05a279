// One start up to the painted window, in a process of its own:
//   pessoas-bench-start register LAUNCH-STRING          the register's start screen
//   pessoas-bench-start bare CONNECTION STATEMENTS      an empty window, and the statements of that file (one a line)
//   pessoas-bench-start form CONNECTION STATEMENTS      the same, with the register's form in the window and no more
// Writes "painted" when the window stands painted, and ends.

#include "app/Register.h"
#include "bench/BareClient.h"
#include "desktop/DesktopApplication.h"
#include "desktop/DesktopPlatform.h"
#include "desktop/Forms.h"
#include "desktop/ScreenWindow.h"
#include "firebird/EmbeddedEngine.h"

#include <QEvent>
#include <QFile>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstring>

namespace {

using namespace vorta;

constexpr int exitUnusable = 2;

/// Waits for the first window to be painted; then the window is told to go by `leave`.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(std::function<void()> leave) : leave_(std::move(leave)) { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* const widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget->isWindow() && widget->isVisible()) {
            qApp->removeEventFilter(this);
            // Its fields are painted after it, before anything else happens.
            QTimer::singleShot(0, this, [this] {
                std::puts("painted");
                std::fflush(stdout);
                leave_();
            });
        }
        return false;
    }

  private:
    std::function<void()> leave_;
};

int startRegister(int argc, char** argv, const char* launchString) {
    desktop::DesktopApplication application(argc, argv);
    desktop::DesktopPlatform platform;
    Register registro(platform);
    FirstPaint painted([&platform] { platform.top()->close(); });
    registro.start(QString::fromUtf8(launchString));
    return registro.program().exitCode();
}

int startBare(int argc, char** argv, bool withForm, const char* connection, const char* statements) {
    std::unique_ptr<QApplication> application;
    if (withForm)
        application = std::make_unique<desktop::DesktopApplication>(argc, argv);
    else
        application = std::make_unique<QApplication>(argc, argv);
    firebird::PrepareEmbeddedEngine();
    bench::BareClient client(QString::fromUtf8(connection));
    QFile list(QString::fromUtf8(statements));
    if (!list.open(QIODevice::ReadOnly))
        return exitUnusable;
    for (const QByteArray& statement : list.readAll().split('\n'))
        client.send(statement);
    QWidget window;
    window.resize(1000, 700);
    if (withForm)
        desktop::SetUpForm(Register::startScreen(), window);
    FirstPaint painted([] { QCoreApplication::quit(); });
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "register") == 0)
        return startRegister(argc, argv, argv[2]);
    for (const bool withForm : {false, true})
        if (argc == 4 && std::strcmp(argv[1], withForm ? "form" : "bare") == 0)
            return startBare(argc, argv, withForm, argv[2], argv[3]);
    std::fputs("usage: pessoas-bench-start register LAUNCH-STRING | bare|form CONNECTION STATEMENTS\n", stderr);
    return exitUnusable;
}
