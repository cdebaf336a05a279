#include "desktop/EngineWait.h"

#include "base/Journal.h"
#include "base/Literals.h"
#include "desktop/Termination.h"
#include "screen/Program.h"

#include <QMessageBox>
#include <QPushButton>
#include <cstdlib>
#include <optional>

#ifdef Q_OS_LINUX
#include <csignal>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace vorta::desktop {

namespace {

constexpr int statusWait = 0;
constexpr int statusEnd = 10;
constexpr char endProperty[] = "end";

#ifdef Q_OS_LINUX
constexpr std::chrono::milliseconds step{100};

pid_t startBox(int seconds) {
    const QByteArray silence = QByteArray::number(seconds);
    char program[] = "/proc/self/exe";
    char* const arguments[]{program, const_cast<char*>(waitBoxWord), const_cast<char*>(silence.constData()), nullptr};
    pid_t box = -1;
    return posix_spawn(&box, program, nullptr, nullptr, arguments, environ) == 0 ? box : -1;
}

/// The exit status of the box; none while it is there.
std::optional<int> statusOf(pid_t box) {
    int status = 0;
    if (waitpid(box, &status, WNOHANG) == 0)
        return std::nullopt;
    return WIFEXITED(status) ? WEXITSTATUS(status) : statusWait;
}
#endif

} // namespace

WaitAnswer AskWhetherToWait(int seconds, [[maybe_unused]] const std::function<bool()>& over) {
    Journal(u"O banco de dados não responde há %1 segundos"_s.arg(seconds));
#ifdef Q_OS_LINUX
    // The client library has taken the system's wish to end for itself when the base was opened.
    Termination::listen();
    const pid_t box = startBox(seconds);
    if (box < 0)
        return WaitAnswer::Wait;
    while (true) {
        if (const std::optional<int> status = statusOf(box))
            return *status == statusEnd ? WaitAnswer::End : WaitAnswer::Wait;
        if (over()) {
            kill(box, SIGKILL);
            waitpid(box, nullptr, 0);
            return WaitAnswer::Wait;
        }
        std::this_thread::sleep_for(step);
    }
#else
    return WaitAnswer::Wait;
#endif
}

std::unique_ptr<QMessageBox> MakeWaitBox(int seconds) {
    auto box = std::make_unique<QMessageBox>();
    box->setTextFormat(Qt::PlainText);
    box->setWindowTitle(screen::Program::applicationTitle());
    box->setIcon(QMessageBox::Warning);
    box->setText(u"O banco de dados não responde há %1 segundos."_s.arg(seconds));
    box->setInformativeText(u"Aguarde, e o programa continua assim que a resposta vier.\nSe encerrar, o que ainda não "
                            "foi gravado se perde; o que já foi gravado fica."_s);
    QPushButton* const wait = box->addButton(u"&Aguardar"_s, QMessageBox::RejectRole);
    box->addButton(u"&Encerrar o programa"_s, QMessageBox::DestructiveRole)->setProperty(endProperty, true);
    box->setDefaultButton(wait);
    box->setEscapeButton(wait);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    return box;
}

int WaitBoxStatus(const QMessageBox& box) {
    return box.clickedButton() && box.clickedButton()->property(endProperty).toBool() ? statusEnd : statusWait;
}

int RunWaitBox(int seconds) {
#ifdef Q_OS_LINUX
    // Goes with the program that asks.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
    const std::unique_ptr<QMessageBox> box = MakeWaitBox(seconds);
    box->exec();
    return WaitBoxStatus(*box);
}

void EndAtOnce() {
    Journal(u"O programa foi encerrado enquanto o banco de dados não respondia"_s);
    std::_Exit(1);
}

} // namespace vorta::desktop
