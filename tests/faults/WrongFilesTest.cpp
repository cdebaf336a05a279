// Configuration files and bases of every wrong kind: the start ends, with its box or with the window there, and never
// hangs; the reason stands in the journal.

#include "base/Literals.h"
#include "faults/Faults.h"
#include "firebird/BaseGuard.h"
#include "firebird/EngineFiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace vorta;
using namespace vorta::test;

namespace {

constexpr int longestStart = 20'000;

void writeContent(const QString& path, const QByteArray& content) {
    QFile::remove(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size()) << qPrintable(path);
}

struct Kind {
    const char* name;
    void (*make)(const QString& path);
};

const std::vector<Kind> wrongFiles{
    {"missing", [](const QString& path) { QFile::remove(path); }},
    {"pipe",
     [](const QString& path) {
         QFile::remove(path);
         ASSERT_EQ(::mkfifo(path.toUtf8().constData(), 0666), 0);
     }},
    {"device",
     [](const QString& path) {
         QFile::remove(path);
         ASSERT_TRUE(QFile::link(u"/dev/zero"_s, path));
     }},
    {"folder",
     [](const QString& path) {
         QFile::remove(path);
         ASSERT_TRUE(QDir().mkpath(path));
     }},
    {"dangling link",
     [](const QString& path) {
         QFile::remove(path);
         ASSERT_TRUE(QFile::link(u"/nirgends/nada"_s, path));
     }},
    {"link to itself",
     [](const QString& path) {
         QFile::remove(path);
         ASSERT_TRUE(QFile::link(path, path));
     }},
    {"huge",
     [](const QString& path) {
         writeContent(path, "x");
         ASSERT_EQ(::truncate(path.toUtf8().constData(), off_t{1} << 36), 0);
     }},
    {"empty", [](const QString& path) { writeContent(path, {}); }},
    {"zeros", [](const QString& path) { writeContent(path, QByteArray(5000, '\0')); }},
    {"carets", [](const QString& path) { writeContent(path, QByteArray(5000, '^')); }},
    {"binary",
     [](const QString& path) {
         QByteArray bytes;
         for (int i = 0; i < 4096; ++i)
             bytes += static_cast<char>((i * 7919) >> 3);
         writeContent(path, bytes);
     }},
    {"two-byte text", [](const QString& path) { writeContent(path, QByteArray("\xFF\xFEL\0O\0^\0", 8)); }},
    {"one long line", [](const QString& path) { writeContent(path, QByteArray(900'000, 'a')); }},
};

/// A start that comes to its end or to its window, within the time; gives what it says first, empty for nothing.
/// Crashes are faults, told or not, but where they are counted; those have to be told.
QStringList startOn(const Installed& installed, QString& journal, int* crashes = nullptr) {
    Colleague colleague(installed.home());
    QElapsedTimer time;
    time.start();
    const std::optional<QStringList> words = colleague.hearWithin(longestStart);
    EXPECT_LT(time.elapsed(), longestStart) << "the start hangs";
    const int status = colleague.leave();
    EXPECT_TRUE(status == 0 || status == 1) << "the start crashes without a word: " << qPrintable(colleague.fate());
    journal = colleague.journal();
    const bool crash = journal.contains(u"O motor do banco de dados falhou e o programa terminou");
    if (crashes)
        *crashes += crash ? 1 : 0;
    else
        EXPECT_FALSE(crash) << qPrintable(journal);
    return words.value_or(QStringList());
}

} // namespace

TEST(WrongFiles, NoConfigurationFileHangsOrCrashesTheStart) {
    int starts = 0;
    for (const char* file : {"server_aplic.ini", "server.ini", "server_cep.ini", "paths.ini"})
        for (const Kind& kind : wrongFiles) {
            SCOPED_TRACE(file);
            SCOPED_TRACE(kind.name);
            const Installed installed = Installed::copyOf(Installed::plain());
            kind.make(installed.layout().config(QString::fromLatin1(file)));
            QString journal;
            startOn(installed, journal);
            ++starts;
        }
    std::printf("%d starts\n", starts);
}

TEST(WrongFiles, TheReasonOfASilentFailureStandsInTheJournal) {
    const Installed installed = Installed::copyOf(Installed::plain());
    wrongFiles[1].make(installed.layout().config(u"server.ini"_s));
    QString journal;
    startOn(installed, journal);
    EXPECT_TRUE(journal.contains(u"server.ini")) << qPrintable(journal);
    EXPECT_TRUE(journal.contains(u"não é um arquivo comum")) << qPrintable(journal);
}

TEST(WrongFiles, EveryFaultOfABaseSaysTheSameBoxAndItsOwnReason) {
    struct Fault {
        Kind kind;
        const char* reason;
    };
    const std::vector<Fault> faults{
        {wrongFiles[0], "o arquivo da base não existe"},
        {{"no base", [](const QString& path) { writeContent(path, QByteArray(100'000, 'x')); }},
         "o arquivo não é uma base de dados"},
        {{"another version",
          [](const QString& path) {
              QFile file(path);
              ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(18) && file.write("\x0A\x80", 2) == 2);
          }},
         "e o motor em uso é o Firebird"},
    };
    for (const Fault& fault : faults) {
        SCOPED_TRACE(fault.kind.name);
        const Installed installed = Installed::copyOf(Installed::plain());
        fault.kind.make(installed.production());
        QString journal;
        const QStringList words = startOn(installed, journal);
        ASSERT_EQ(words.value(0), u"error");
        EXPECT_TRUE(words[1].startsWith(u"O Servidor de dados não está respondendo."));
        EXPECT_TRUE(journal.contains(QString::fromUtf8(fault.reason))) << qPrintable(journal);
    }
}

TEST(WrongFiles, ABaseThatFellsTheEngineIsToldByEveryProgram) {
    if (firebird::EngineInUse().number != 3)
        GTEST_SKIP() << "this version of the engine survives the rubbish";
    const QString words = u"O motor do banco de dados falhou e o programa terminou"_s;
    const Installed installed = Installed::copyOf(Installed::plain());
    installed.ruinProduction();
    QString journal;
    int crashes = 0;
    startOn(installed, journal, &crashes);
    EXPECT_EQ(crashes, 1) << qPrintable(journal);
    const QString copy = installed.home() + u"/copia.fbk"_s;
    for (const QStringList& work : {QStringList{u"verify"_s}, QStringList{u"backup"_s, copy}}) {
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QString::fromUtf8(PESSOAS_BASE),
                      QStringList{work[0], u"--home"_s, installed.home()} + work.sliced(1));
        ASSERT_TRUE(program.waitForFinished(60'000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << qPrintable(work[0]);
        EXPECT_EQ(program.exitCode(), 1) << qPrintable(work[0]);
        EXPECT_FALSE(program.readAll().isEmpty());
    }
    EXPECT_FALSE(QFile::exists(copy));

    // The window's program becomes the box, which stands until somebody has read it.
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"VORTA_HOME"_s, installed.home());
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    program.setProcessEnvironment(environment);
    program.start(QString::fromUtf8(PESSOAS), {u"1^1^PRD^False^"_s});
    ASSERT_TRUE(program.waitForStarted());
    QByteArray command;
    QElapsedTimer time;
    for (time.start(); !command.contains("--falha") && time.elapsed() < 20'000;) {
        program.waitForFinished(100);
        QFile line(u"/proc/%1/cmdline"_s.arg(program.processId()));
        if (program.state() == QProcess::NotRunning || !line.open(QIODevice::ReadOnly))
            break;
        command = line.readAll();
    }
    EXPECT_TRUE(command.contains("--falha")) << command.constData();
    EXPECT_TRUE(QString::fromUtf8(program.readAllStandardError()).contains(words));
    // The base is free already.
    EXPECT_FALSE(firebird::PlaceInForceOf(installed.production()));
    program.kill();
    program.waitForFinished();
}

TEST(WrongFiles, CutBasesEndTheStartInOrderAndOverwrittenOnesNeverHangIt) {
    const Installed installed = Installed::copyOf(Installed::plain());
    QFile whole(installed.production());
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray content = whole.readAll();
    quint32 seed = 12345;
    const auto next = [&] { return seed = seed * 1664525U + 1013904223U; };
    const int bases = Times(10, 100);
    int crashes = 0;
    for (int number = 0; number < bases; ++number) {
        SCOPED_TRACE(number);
        const bool cut = number % 2 == 0;
        QByteArray broken = content;
        if (cut)
            broken.truncate(next() % broken.size());
        else
            for (int page = 0; page < 40; ++page)
                std::fill_n(broken.begin() + next() % (broken.size() - 600), 512, static_cast<char>(next() >> 24));
        writeContent(installed.production(), broken);
        QString journal;
        startOn(installed, journal, cut ? nullptr : &crashes);
    }
    // The engine does not survive every page of rubbish; it has written nothing then, and the user is told.
    std::printf("%d bases, %d of the overwritten ones crashed the engine\n", bases, crashes);
}
