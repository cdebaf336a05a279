#include "app/Register.h"
#include "base/Crash.h"
#include "base/Literals.h"
#include "desktop/CrashBox.h"
#include "desktop/DesktopApplication.h"
#include "desktop/DesktopPlatform.h"
#include "desktop/EngineWait.h"
#include "system/Session.h"

#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

using vorta::RuntimeError;
namespace errorNumber = vorta::errorNumber;
using namespace Qt::StringLiterals;

constexpr int exitUnusable = 2;

[[noreturn]] void withoutDisplay() {
    vorta::system::Write(
        stderr, u"pessoas: não há uma tela (display) para abrir as janelas.\n"
                "Inicie o programa em uma sessão gráfica, ou defina QT_QPA_PLATFORM (por exemplo \"vnc\").\n"_s);
    std::_Exit(exitUnusable);
}

/// Everything that is no run-time error of the register yet becomes one, so that it ends the process in the same order.
void raiseAsRuntimeError(const std::function<void()>& raise) {
    try {
        raise();
    } catch (const RuntimeError&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw RuntimeError(errorNumber::OutOfMemory);
    } catch (const std::exception& error) {
        throw RuntimeError(errorNumber::InternalError, QString::fromUtf8(error.what()));
    }
}

} // namespace

int main(int argc, char** argv) {
    if (!vorta::system::HasDisplay())
        withoutDisplay();
    // A display that is named but does not answer makes Qt give up with a fatal message.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString&) {
        if (type == QtFatalMsg)
            withoutDisplay();
    });
    vorta::desktop::DesktopApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1StringView(vorta::desktop::waitBoxWord))
        return vorta::desktop::RunWaitBox(arguments[2].toInt());
    if (arguments.size() == 3 && arguments[1] == QLatin1StringView(vorta::desktop::crashBoxWord))
        return vorta::desktop::RunCrashBox(arguments[2].toInt());
    vorta::TellCrashes(vorta::desktop::BecomeCrashBox);
    const vorta::EngineWatch watch(vorta::desktop::AskWhetherToWait, vorta::desktop::EndAtOnce);
    vorta::desktop::DesktopPlatform platform;
    vorta::Register registro(platform);
    application.onException = [&](const auto& raise) {
        registro.program().dispatch([&] { raiseAsRuntimeError(raise); });
        platform.leaveIfEnded();
    };
    registro.start(vorta::Register::launchStringOf(QCoreApplication::arguments()));
    return registro.program().exitCode();
}
