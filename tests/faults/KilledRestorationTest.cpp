// A restoration that is killed at any moment loses nothing, and the next one leaves nothing of it behind.

#include "base/Literals.h"
#include "faults/Faults.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;

namespace {

class Restoration {
  public:
    Restoration(const Installed& installed, const QString& copy) {
        process_.setProcessChannelMode(QProcess::MergedChannels);
        process_.start(QString::fromUtf8(PESSOAS_BASE),
                       {u"restore"_s, u"--home"_s, installed.home(), u"--replace"_s, copy});
        EXPECT_TRUE(process_.waitForStarted());
    }
    int end() {
        EXPECT_TRUE(process_.waitForFinished(120'000));
        return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
    }
    /// False when it has come to its end before.
    bool killAfter(int milliseconds) {
        process_.waitForFinished(milliseconds);
        process_.kill();
        process_.waitForFinished();
        return process_.exitStatus() == QProcess::CrashExit;
    }
    QString words() { return QString::fromUtf8(process_.readAll()); }

  private:
    QProcess process_;
};

/// The files beside the bases, but for the ones that a restoration keeps of what it has replaced.
QStringList filesOf(const Installed& installed) {
    QStringList files = QDir(installed.home() + u"/base"_s).entryList(QDir::Files);
    files.removeIf([](const QString& name) { return name.contains(u"-antes-"); });
    return files;
}

qint64 namesOf(const QString& path) {
    return static_cast<qint64>(std::filesystem::hard_link_count(path.toStdString()));
}

} // namespace

TEST(KilledRestoration, LosesNothingAndTheNextOneCleansUpBehindIt) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    Told told;
    {
        Colleague colleague(installed.home());
        ExpectHere(colleague);
        ASSERT_TRUE(Include(colleague, u"COPIADA"_s, 8'100'000, told));
        EXPECT_EQ(colleague.leave(), 0);
    }
    const QString copy = installed.home() + u"/copia.fbk"_s;
    QProcess backup;
    backup.start(QString::fromUtf8(PESSOAS_BASE), {u"backup"_s, u"--home"_s, installed.home(), copy});
    ASSERT_TRUE(backup.waitForFinished(60'000));
    ASSERT_EQ(backup.exitCode(), 0);
    const QStringList before = filesOf(installed);

    QElapsedTimer time;
    time.start();
    ASSERT_EQ(Restoration(installed, copy).end(), 0);
    const int whole = static_cast<int>(time.elapsed());
    EXPECT_EQ(filesOf(installed), before);

    int killed = 0, halfway = 0;
    for (int kill = 0; kill < Times(10, 200); ++kill) {
        Restoration restoration(installed, copy);
        killed += restoration.killAfter(QRandomGenerator::global()->bounded(whole));
        halfway += filesOf(installed) != before;
        Colleague colleague(installed.home());
        ExpectHere(colleague);
        EXPECT_EQ(colleague.ask({u"find"_s, u"COPIADA"_s}).value(1), told.firstKey());
        EXPECT_EQ(colleague.leave(), 0);
    }
    Restoration last(installed, copy);
    EXPECT_EQ(last.end(), 0) << qPrintable(last.words());
    EXPECT_EQ(filesOf(installed), before);
    EXPECT_EQ(namesOf(installed.production()), 1);
    std::printf("%d killed, %d of them with the new base half made\n", killed, halfway);
    EXPECT_GT(halfway, 0);
    ExpectWhole(installed, told);
}

TEST(KilledRestoration, BetweenItsLastTwoStepsLeavesASecondNameThatTheNextOneTakesAway) {
    for (const char* name : {"pessoas-antes-20200101-000000.fdb", "pessoas-nova.fdb"}) {
        SCOPED_TRACE(name);
        const Installed installed = Installed::copyOf(Installed::demonstration());
        const QString copy = installed.home() + u"/copia.fbk"_s;
        QProcess backup;
        backup.start(QString::fromUtf8(PESSOAS_BASE), {u"backup"_s, u"--home"_s, installed.home(), copy});
        ASSERT_TRUE(backup.waitForFinished(60'000));
        const QString second = installed.home() + u"/base/"_s + QString::fromLatin1(name);
        std::filesystem::create_hard_link(installed.production().toStdString(), second.toStdString());
        Restoration next(installed, copy);
        EXPECT_EQ(next.end(), 0) << qPrintable(next.words());
        EXPECT_FALSE(QFile::exists(second));
        EXPECT_EQ(namesOf(installed.production()), 1);
        ExpectWhole(installed, {});
    }
}
