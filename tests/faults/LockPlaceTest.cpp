// One base has one lock place, whoever opens it and from wherever.

#include "base/Literals.h"
#include "faults/Faults.h"
#include "firebird/BaseGuard.h"
#include "kit/Relocate.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;

namespace {

/// A second home with configuration files of its own that name the first one's bases.
void writeSecondHome(const Installed& first, const QString& home) {
    QDir(home).mkpath(u"config"_s);
    for (const char* name : {"server.ini", "server_cep.ini", "paths.ini"})
        ASSERT_TRUE(QFile::copy(first.layout().config(QString::fromLatin1(name)),
                                home + u"/config/"_s + QString::fromLatin1(name)));
    QFile root(home + u"/config/server_aplic.ini"_s);
    ASSERT_TRUE(root.open(QIODevice::WriteOnly));
    root.write((home + u"/^^\n"_s).toUtf8());
}

/// The engine's own backup tool as documents used to call it.
int backUpByHand(const Installed& installed, const QString& file, QByteArray& words) {
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FIREBIRD"_s, installed.home() + u"/firebird"_s);
    environment.remove(u"FIREBIRD_LOCK"_s);
    tool.setProcessEnvironment(environment);
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(u"gbak"_s, {u"-b"_s, u"-user"_s, u"SYSDBA"_s, installed.production(), file});
    tool.waitForFinished(60'000);
    words = tool.readAll();
    return tool.exitCode();
}

} // namespace

TEST(LockPlace, TwoHomesThatNameOneBaseShareItsLocksAndLoseNothing) {
    constexpr int persons = 200;
    for (int round = 0; round < Times(1, 10); ++round) {
        const Installed first = Installed::copyOf(Installed::demonstration());
        const QTemporaryDir second;
        writeSecondHome(first, second.path());
        Told told;
        {
            Colleague one(first.home());
            Colleague other(second.path());
            ExpectHere(one);
            ExpectHere(other);
            for (int person = 0; person < persons; ++person) {
                // Both at once.
                const QString name = u"PESSOA %1"_s.arg(person);
                one.begin({u"include"_s, u"UM "_s + name, u"U "_s + name, QString::number(1'000'000 + person)});
                other.begin({u"include"_s, u"DOIS "_s + name, u"U "_s + name, QString::number(2'000'000 + person)});
                for (Colleague* colleague : {&one, &other}) {
                    const QStringList answer = colleague->hear();
                    ASSERT_EQ(answer[0], u"included") << qPrintable(answer.join(u' '));
                    told[answer[1]] = answer[2];
                }
            }
            EXPECT_EQ(one.leave(), 0);
            EXPECT_EQ(other.leave(), 0);
        }
        EXPECT_EQ(told.size(), 2 * persons);
        ExpectWhole(first, told);
    }
}

TEST(LockPlace, AProgramWithAnotherPlaceIsRefusedInWordsWhileTheBaseIsOpen) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QTemporaryDir elsewhere;
    Told told;
    Colleague owner(installed.home());
    ExpectHere(owner);
    {
        Colleague stranger(installed.home(), elsewhere.path());
        const QStringList answer = stranger.hear();
        EXPECT_EQ(answer[0], u"error");
        EXPECT_TRUE(answer[1].startsWith(u"O Servidor de dados não está respondendo.")) << qPrintable(answer[1]);
        stranger.leave();
        EXPECT_TRUE(stranger.journal().contains(u"está aberta por outro computador ou por outra instalação"))
            << qPrintable(stranger.journal());
        EXPECT_TRUE(stranger.journal().contains(installed.home() + u"/firebird/lock"_s));
    }
    ASSERT_TRUE(Include(owner, u"DONO"_s, 1'234'567, told));
    EXPECT_EQ(owner.leave(), 0);

    // Now the stranger is the first, and the other one is refused.
    Colleague stranger(installed.home(), elsewhere.path());
    ExpectHere(stranger);
    Colleague late(installed.home());
    EXPECT_EQ(late.hear()[0], u"error");
    ASSERT_TRUE(Include(stranger, u"OUTRO"_s, 7'654'321, told));
    EXPECT_EQ(stranger.leave(), 0);
    ExpectWhole(installed, told);
}

TEST(LockPlace, AnotherPlaceIsAFaultToTheCheck) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QTemporaryDir elsewhere;
    const auto check = [&](QString& words) {
        QProcess program;
        program.start(QString::fromUtf8(PESSOAS_BASE), {u"check"_s, u"--home"_s, installed.home()});
        program.waitForFinished(60'000);
        words = QString::fromUtf8(program.readAllStandardOutput());
        return program.exitCode();
    };
    QString words;
    {
        Colleague owner(installed.home());
        ExpectHere(owner);
        EXPECT_EQ(check(words), 0) << qPrintable(words);
        EXPECT_EQ(owner.leave(), 0);
    }
    Colleague stranger(installed.home(), elsewhere.path());
    ExpectHere(stranger);
    EXPECT_EQ(check(words), 1);
    EXPECT_TRUE(words.contains(u"outro programa tem a base %1 aberta com outras travas"_s.arg(installed.production())))
        << qPrintable(words);
    EXPECT_TRUE(words.contains(u"pasta de travas %1/firebird/lock"_s.arg(elsewhere.path()))) << qPrintable(words);
    EXPECT_TRUE(words.endsWith(u"\n1 falta encontrada\n")) << qPrintable(words);
    EXPECT_EQ(stranger.leave(), 0);
    EXPECT_EQ(check(words), 0) << qPrintable(words);
}

TEST(LockPlace, ThePlaceOfAKilledProgramIsFreeAtOnce) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QTemporaryDir elsewhere;
    for (int time = 0; time < 3; ++time) {
        Colleague owner(installed.home(), time % 2 == 0 ? elsewhere.path() : QString());
        ExpectHere(owner);
        owner.kill();
    }
}

TEST(LockPlace, ALinkToTheFolderIsTheSamePlace) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QTemporaryDir elsewhere;
    const QString link = elsewhere.path() + u"/ligacao"_s;
    ASSERT_TRUE(QFile::link(installed.home(), link));
    EXPECT_EQ(firebird::LockFolderOf(link + u"/base/pessoas.fdb"_s), firebird::LockFolderOf(installed.production()));
    EXPECT_EQ(firebird::BaseGuard::fileOf(link + u"/base/pessoas.fdb"_s),
              firebird::BaseGuard::fileOf(installed.production()));
}

TEST(LockPlace, AGuardFileThatIsNoFileIsRefusedInWords) {
    for (const char* kind : {"folder", "link"}) {
        const Installed installed = Installed::copyOf(Installed::demonstration());
        const QString guard = firebird::BaseGuard::fileOf(installed.production());
        QFile::remove(guard);
        if (QLatin1StringView(kind) == u"folder")
            ASSERT_TRUE(QDir().mkpath(guard));
        else
            ASSERT_TRUE(QFile::link(installed.home() + u"/config/server.ini"_s, guard));
        Colleague colleague(installed.home());
        EXPECT_EQ(colleague.hear()[0], u"error") << kind;
        colleague.leave();
        EXPECT_TRUE(colleague.journal().contains(u"que guarda a base")) << qPrintable(colleague.journal());
    }
}

TEST(LockPlace, TheProgramsOwnBackupHarmsNobodyWhoWorks) {
    const int runs = Times(3, 200);
    const Installed installed = Installed::copyOf(Installed::demonstration());
    Told told;
    Colleague colleague(installed.home());
    ExpectHere(colleague);
    ASSERT_TRUE(Include(colleague, u"COMUM"_s, 910'000'001, told));
    // It works without a pause, beside every moment of a copy.
    colleague.begin({u"work"_s, u"99999"_s, u"1"_s, told.firstKey()});
    const auto listen = [&] {
        while (const std::optional<QStringList> line = colleague.hearWithin(0)) {
            EXPECT_NE(line->at(0), u"error"_s) << qPrintable(line->join(u' '));
            if (line->at(0) == u"included")
                told[line->at(1)] = line->at(2);
        }
    };
    int made = 0;
    for (int run = 0; run < runs; ++run) {
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QString::fromUtf8(PESSOAS_BASE),
                      {u"backup"_s, u"--home"_s, installed.home(), u"%1/%2.fbk"_s.arg(installed.home()).arg(run)});
        ASSERT_TRUE(program.waitForFinished(120'000));
        EXPECT_EQ(program.exitCode(), 0) << program.readAll().constData();
        made += program.exitCode() == 0;
        QFile::remove(u"%1/%2.fbk"_s.arg(installed.home()).arg(run));
        listen();
    }
    colleague.kill();
    listen();
    std::printf("%d of %d copies, %lld inclusions told beside them\n", made, runs, static_cast<long long>(told.size()));
    EXPECT_GT(told.size(), 1);
    ExpectWhole(installed, told);
}

TEST(LockPlace, TheEnginesOwnBackupToolIsRefusedBesideAWorkingProgram) {
    int refused = 0;
    const int runs = Times(3, 200);
    const Installed installed = Installed::copyOf(Installed::demonstration());
    // As installations made before hold it.
    QDir(installed.home()).mkpath(u"firebird"_s);
    installed.write(u"firebird/firebird.conf"_s,
                    "ServerMode = Classic\nProviders = Remote,Engine12\nDefaultDbCachePages = 2048\n");
    Told told;
    Colleague colleague(installed.home());
    ExpectHere(colleague);
    for (int run = 0; run < runs; ++run) {
        QByteArray words;
        if (backUpByHand(installed, installed.home() + u"/copia.fbk"_s, words) != 0)
            ++refused;
        ASSERT_TRUE(Include(colleague, u"COPIA %1"_s.arg(run), 3'000'000 + static_cast<quint64>(run), told));
    }
    EXPECT_EQ(colleague.leave(), 0);
    EXPECT_EQ(refused, runs);
    ExpectWhole(installed, told);
}
