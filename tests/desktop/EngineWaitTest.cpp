#include "desktop/EngineWait.h"
#include "base/Literals.h"
#include "desktop/CrashBox.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>
#include <gtest/gtest.h>

namespace vorta::desktop {

namespace {

QAbstractButton* buttonOf(const QMessageBox& box, const QString& caption) {
    for (QAbstractButton* button : box.buttons())
        if (QString(button->text()).remove(u'&') == caption)
            return button;
    return nullptr;
}

int statusAfter(const QString& caption) {
    const std::unique_ptr<QMessageBox> box = MakeWaitBox(7);
    box->show();
    QTest::mouseClick(buttonOf(*box, caption), Qt::LeftButton);
    return WaitBoxStatus(*box);
}

} // namespace

TEST(WaitBox, TellsTheSilenceAndWhatEachAnswerMeans) {
    const std::unique_ptr<QMessageBox> box = MakeWaitBox(7);
    EXPECT_EQ(box->text(), u"O banco de dados não responde há 7 segundos."_s);
    EXPECT_TRUE(box->informativeText().contains(u"o que já foi gravado fica"));
    EXPECT_TRUE(box->defaultButton() == buttonOf(*box, u"Aguardar"_s));
}

TEST(WaitBox, EndsOnlyByItsOwnButton) {
    EXPECT_NE(statusAfter(u"Encerrar o programa"_s), statusAfter(u"Aguardar"_s));
    const std::unique_ptr<QMessageBox> closed = MakeWaitBox(7);
    closed->show();
    QTest::keyClick(closed.get(), Qt::Key_Escape);
    EXPECT_EQ(WaitBoxStatus(*closed), statusAfter(u"Aguardar"_s));
}

TEST(CrashBox, SaysWhatHasFailedAndWhatToDo) {
    const std::unique_ptr<QMessageBox> box = MakeCrashBox(CrashKind::Engine);
    EXPECT_TRUE(box->text().startsWith(u"O motor do banco de dados falhou e o programa terminou"));
    EXPECT_TRUE(box->text().contains(u"pessoas-base check"));
    EXPECT_EQ(box->buttons().size(), 1);
    EXPECT_TRUE(MakeCrashBox(CrashKind::EngineMemory)->text().contains(u"o disco da pasta de travas está cheio"));
}

} // namespace vorta::desktop
