#include "desktop/CrashBox.h"

#include "base/Literals.h"
#include "screen/Program.h"
#include "system/Crashes.h"

#include <QMessageBox>
#include <cstdlib>

namespace vorta::desktop {

void BecomeCrashBox(CrashKind kind) {
    const char number[] = {static_cast<char>('0' + static_cast<int>(kind)), '\0'};
    system::BeginAnewInCrash(crashBoxWord, number);
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
