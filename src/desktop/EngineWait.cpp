#include "desktop/EngineWait.h"

#include "base/Journal.h"
#include "base/Literals.h"
#include "desktop/Termination.h"
#include "screen/Program.h"
#include "system/Process.h"

#include <QMessageBox>
#include <QPushButton>
#include <cstdlib>
#include <thread>

namespace vorta::desktop {

namespace {

constexpr int statusWait = 0;
constexpr int statusEnd = 10;
constexpr char endProperty[] = "end";

constexpr std::chrono::milliseconds step{100};

} // namespace

WaitAnswer AskWhetherToWait(int seconds, const std::function<bool()>& over) {
    Journal(u"O banco de dados não responde há %1 segundos"_s.arg(seconds));
    // The client library has taken the system's wish to end for itself when the base was opened.
    Termination::listen();
    system::OwnProcess box({QString::fromLatin1(waitBoxWord), QString::number(seconds)});
    if (!box.isStarted())
        return WaitAnswer::Wait;
    while (true) {
        if (const std::optional<int> status = box.status())
            return *status == statusEnd ? WaitAnswer::End : WaitAnswer::Wait;
        if (over()) {
            box.kill();
            return WaitAnswer::Wait;
        }
        std::this_thread::sleep_for(step);
    }
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
    system::EndWithParent(); // the program that asks
    const std::unique_ptr<QMessageBox> box = MakeWaitBox(seconds);
    box->exec();
    return WaitBoxStatus(*box);
}

void EndAtOnce() {
    Journal(u"O programa foi encerrado enquanto o banco de dados não respondia"_s);
    std::_Exit(1);
}

} // namespace vorta::desktop
