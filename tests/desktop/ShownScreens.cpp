// Shows every screen of the register, with all its pages, until its standard input ends; says "shown" when they stand.

#include "app/Register.h"
#include "desktop/DesktopApplication.h"
#include "desktop/ScreenWindow.h"
#include "support/TestPlatform.h"

#include <QSocketNotifier>
#include <cstdio>
#include <unistd.h>

int main(int count, char** arguments) {
    using namespace vorta;
    desktop::DesktopApplication application(count, arguments);
    test::TestPlatform platform;
    Register registro(platform);
    std::vector<std::unique_ptr<desktop::ScreenWindow>> windows;
    for (const QString& name : registro.context().NomesTelas()) {
        screen::Screen& screen = registro.context().Tela(name);
        windows.push_back(std::make_unique<desktop::ScreenWindow>(screen, nullptr));
        windows.back()->setWindowModality(Qt::NonModal);
        windows.back()->setObjectName(name);
        windows.back()->setWindowTitle(name);
        windows.back()->show();
        windows.back()->complete();
        windows.back()->setWindowTitle(name);
    }
    QSocketNotifier ended(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&ended, &QSocketNotifier::activated, &application,
                     [] { QCoreApplication::exit(); }); // no screen is asked
    std::puts("shown");
    std::fflush(stdout);
    return QApplication::exec();
}
