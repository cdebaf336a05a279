#include "desktop/CrashBox.h"

#include "base/Literals.h"
#include "screen/Program.h"

#include <QMessageBox>
#include <cstdlib>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace vorta::desktop {

void BecomeCrashBox([[maybe_unused]] CrashKind kind) {
#ifdef Q_OS_LINUX
    char program[] = "/proc/self/exe";
    char number[] = {static_cast<char>('0' + static_cast<int>(kind)), '\0'};
    char* const arguments[]{program, const_cast<char*>(crashBoxWord), number, nullptr};
    constexpr unsigned firstOfOurs = STDERR_FILENO + 1;
    ::syscall(SYS_close_range, firstOfOurs, ~0U, 0);
    sigset_t none;
    ::sigemptyset(&none);
    ::syscall(SYS_rt_sigprocmask, SIG_SETMASK, &none, nullptr, sizeof(unsigned long));
    ::syscall(SYS_execve, program, arguments, environ);
#endif
}

std::unique_ptr<QMessageBox> MakeCrashBox(CrashKind kind) {
    auto box = std::make_unique<QMessageBox>();
    box->setTextFormat(Qt::PlainText);
    box->setWindowTitle(screen::Program::applicationTitle());
    box->setIcon(QMessageBox::Critical);
    box->setText(QString::fromUtf8(CrashWords(kind)));
    box->addButton(QMessageBox::Ok);
    return box;
}

int RunCrashBox(int kind) {
    MakeCrashBox(static_cast<CrashKind>(kind))->exec();
    return EXIT_FAILURE;
}

} // namespace vorta::desktop
