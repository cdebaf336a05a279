// Somebody dies at any point of typing, and finds what was typed at the next start.

#include "base/Literals.h"
#include "kit/Installed.h"
#include "kit/Loader.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

struct Drafts : testing::Test {
    Drafts() : installed(Installed::copyOf(Installed::plain())) {
        kit::Loader loader(installed.production());
        loader.run(u"INSERT INTO EMPR_CNFG (IDEMPR_CNFG, NOME_PARA, VALO_PARA) VALUES (901, 'PESS_RASCUNHO', 'S')"_s);
        loader.commit();
    }

    /// What a typist tells until it ends.
    QString typist(const char* word, int characters = 0) {
        QProcess process;
        process.start(QString::fromUtf8(DRAFT_TYPIST),
                      {installed.home(), data.path(), QString::fromUtf8(word), QString::number(characters)});
        EXPECT_TRUE(process.waitForFinished(60'000));
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    QStringList drafts() const { return QDir(data.path() + u"/rascunhos"_s).entryList({u"*.json"_s}); }

    Installed installed;
    QTemporaryDir data;
};

} // namespace

TEST_F(Drafts, ComeBackWholeWheneverTheProcessIsKilled) {
    for (const int characters : {1, 9, 17, 23, 40, 55, 75, 99, 120, 137, 143, 160, 181, 200, 230, 1000}) {
        const QString screen = typist("look", characters);
        ASSERT_TRUE(screen.startsWith(u"mode I\n"_s)) << screen;
        EXPECT_EQ(drafts(), QStringList());
        EXPECT_EQ(typist("kill", characters), screen);
        EXPECT_EQ(drafts().size(), 1);
        const QString draft = data.path() + u"/rascunhos/"_s + drafts().value(0);
        EXPECT_EQ(QFile::permissions(draft) & 0x7777, QFile::permissions(draft) & 0x6600) << "others may read it";
        EXPECT_EQ(typist("Sim"), u"offered\n"_s + screen) << characters;
        EXPECT_EQ(drafts(), QStringList());
    }
}

TEST_F(Drafts, AreThrownAwayForGood) {
    typist("kill", 60);
    const QString idle = typist("Não");
    EXPECT_TRUE(idle.startsWith(u"offered\nmode \n"_s)) << idle;
    EXPECT_EQ(drafts(), QStringList());
    EXPECT_TRUE(typist("Sim").startsWith(u"mode \n"_s));
}

TEST_F(Drafts, OfASavedOperationAreNoneEvenWhenItsBoxIsNeverAnswered) {
    typist("save", 1000);
    EXPECT_EQ(kit::Loader(installed.production()).number(u"SELECT COUNT(*) FROM PESS"_s), 1);
    EXPECT_EQ(drafts(), QStringList());
    EXPECT_TRUE(typist("Sim").startsWith(u"mode \n"_s));
}

TEST_F(Drafts, ThatAreDamagedAreNoDrafts) {
    typist("kill", 60);
    const QString path = data.path() + u"/rascunhos/"_s + drafts().value(0);
    for (const QByteArray& content : {QByteArray("{\"modo\":\"I\",\"cam"), QByteArray(3'000'000, '{'), QByteArray()}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        EXPECT_TRUE(typist("Sim").startsWith(u"mode \n"_s));
        EXPECT_EQ(drafts(), QStringList());
    }
}

TEST_F(Drafts, OfTwoWindowsDoNotMeet) {
    QProcess first;
    first.start(QString::fromUtf8(DRAFT_TYPIST), {installed.home(), data.path(), u"stay"_s, u"40"_s});
    QString screen;
    while (!screen.contains(u"txtIEstadual"_s) && first.waitForReadyRead(30'000))
        screen += QString::fromUtf8(first.readAllStandardOutput());
    EXPECT_EQ(drafts().size(), 1);
    EXPECT_TRUE(typist("look", 90).startsWith(u"mode I\n"_s)); // nothing is offered, and the other's draft stays
    EXPECT_EQ(drafts().size(), 1);
    typist("kill", 60);
    EXPECT_EQ(drafts().size(), 2);
    first.kill();
    first.waitForFinished();
    EXPECT_TRUE(typist("Sim").startsWith(u"offered\nmode I\n"_s));
    EXPECT_TRUE(typist("Sim").startsWith(u"offered\nmode I\n"_s));
    EXPECT_TRUE(typist("Sim").startsWith(u"mode \n"_s));
}
