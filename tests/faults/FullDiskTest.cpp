// The disk is full: that of the base, of a copy, of a restoration, of the locks.

#include "base/Literals.h"
#include "faults/Faults.h"
#include "kit/SmallDisk.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;

namespace {

struct Outcome {
    int code;
    QString words;
};

/// A command of `pessoas-base`: how it ends, -1 for a crash, and what it says.
Outcome run(const QStringList& arguments) {
    QProcess program;
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QString::fromUtf8(PESSOAS_BASE), arguments);
    EXPECT_TRUE(program.waitForFinished(120'000));
    const QString words = QString::fromUtf8(program.readAll());
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1, words};
}

QStringList filesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::Files);
}

} // namespace

TEST(FullDisk, EndsSavesWithAnErrorAndLosesNoneThatWasTold) {
    for (int round = 0; round < Times(1, 5); ++round) {
        const Installed installed = Installed::copyOf(Installed::demonstration());
        SmallDisk disk(installed.home() + u"/base"_s, "size=40m,mode=0755");
        NEED_MOUNTED(disk);
        Told told;
        QStringList answer;
        {
            Colleague colleague(installed.home());
            ExpectHere(colleague);
            ASSERT_TRUE(Include(colleague, u"ANTES"_s, 5'000'000, told));
            disk.fill();
            for (int person = 1; person < 2000; ++person) {
                answer = colleague.ask({u"include"_s, u"CHEIO %1"_s.arg(person), u"U CHEIO %1"_s.arg(person),
                                        QString::number(5'000'000 + person)});
                if (answer[0] != u"included")
                    break;
                told[answer[1]] = answer[2];
            }
            EXPECT_EQ(answer[0], u"error") << "the disk never was full";
            EXPECT_TRUE(answer.join(u' ').contains(u"o disco está cheio")) << qPrintable(answer.join(u' '));
            colleague.leave();
        }
        {
            // A full disk does not keep anybody from looking.
            Colleague reader(installed.home());
            ExpectHere(reader);
            EXPECT_EQ(reader.ask({u"find"_s, u"ANTES"_s}).value(1), told.key(u"ANTES"_s));
            reader.leave();
        }
        disk.empty();
        std::printf("%lld persons told before the disk was full\n", static_cast<long long>(told.size()));
        ExpectWhole(installed, told);
        Colleague after(installed.home());
        ExpectHere(after);
        EXPECT_TRUE(Include(after, u"DEPOIS"_s, 5'900'000, told));
        EXPECT_EQ(after.leave(), 0);
    }
}

TEST(FullDisk, OfACopyIsToldAndLeavesNoPartOfIt) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QString copies = installed.home() + u"/copias"_s;
    QDir().mkpath(copies);
    SmallDisk disk(copies, "size=200k,mode=0755");
    NEED_MOUNTED(disk);
    for (const bool full : {false, true}) {
        if (full)
            disk.fill();
        const QStringList before = filesOf(copies);
        const Outcome outcome = run({u"backup"_s, u"--home"_s, installed.home(), copies + u"/copia.fbk"_s});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.words, u"Não foi possível gravar %1/copia.fbk: o disco está cheio\n"_s.arg(copies));
        EXPECT_EQ(filesOf(copies), before);
    }
    ExpectWhole(installed, {});
}

TEST(FullDisk, OfARestorationIsToldAndLeavesTheBaseAsItWas) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QString bases = installed.home() + u"/base"_s, copy = installed.home() + u"/copia.fbk"_s;
    SmallDisk disk(bases, "size=30m,mode=0755");
    NEED_MOUNTED(disk);
    ASSERT_EQ(run({u"backup"_s, u"--home"_s, installed.home(), copy}).code, 0);
    for (const bool full : {false, true}) {
        if (full)
            disk.fill();
        const QStringList before = filesOf(bases);
        const Outcome outcome = run({u"restore"_s, u"--home"_s, installed.home(), u"--replace"_s, copy});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.words.section(u'\n', -2), u"O disco está cheio\n"_s) << qPrintable(outcome.words);
        EXPECT_EQ(filesOf(bases), before);
    }
    ExpectWhole(installed, {});
}

TEST(FullDisk, OfTheLocksIsToldAndEndsNobodyWhoWorks) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QString locks = installed.home() + u"/firebird/lock"_s;
    QDir().mkpath(locks);
    SmallDisk disk(locks, "size=4m,mode=02775");
    NEED_MOUNTED(disk);
    Told told;
    {
        Colleague colleague(installed.home());
        ExpectHere(colleague);
        disk.fill();
        // Whoever works has his room, and leaves it to those who come later.
        Colleague second(installed.home());
        ExpectHere(second);
        for (int person = 0; person < 30; ++person) {
            ASSERT_TRUE(Include(colleague, u"UM %1"_s.arg(person), 5'100'000 + static_cast<quint64>(person), told));
            ASSERT_TRUE(Include(second, u"DOIS %1"_s.arg(person), 5'200'000 + static_cast<quint64>(person), told));
        }
        EXPECT_EQ(second.leave(), 0);
        EXPECT_EQ(colleague.leave(), 0);
    }
    disk.fill(); // also the room of those who have left
    const QString refusal = u"O disco da pasta de travas %1 está cheio; libere espaço e tente novamente"_s.arg(locks);
    Colleague late(installed.home());
    EXPECT_EQ(late.hear()[0], u"error");
    EXPECT_EQ(late.leave(), 1);
    EXPECT_TRUE(late.journal().contains(refusal)) << qPrintable(late.journal());
    const QString copy = installed.home() + u"/copia.fbk"_s;
    for (const QStringList& work : {QStringList{u"backup"_s, u"--home"_s, installed.home(), copy},
                                    QStringList{u"verify"_s, u"--home"_s, installed.home()}}) {
        const Outcome outcome = run(work);
        EXPECT_EQ(outcome.code, 1);
        EXPECT_TRUE(outcome.words.contains(refusal)) << qPrintable(outcome.words);
    }
    EXPECT_FALSE(QFile::exists(copy));
    disk.empty();
    ExpectWhole(installed, told);
}
