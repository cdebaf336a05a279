// The server falls, or falls silent.

#include "base/Literals.h"
#include "faults/Faults.h"
#include "kit/Loader.h"
#include "servers/FirebirdServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;

namespace {

/// Lets production be opened by the server, which opens the very file.
void writeServerLine(const Installed& installed, const servers::FirebirdServer& server, const QStringList& before) {
    installed.write(u"config/server.ini"_s,
                    u"127.0.0.1^pessoas^^^FIREBIRD^%1^False^\n%2\n%3\n"_s
                        .arg(server.connectionString(installed.production()), before[1], before[2])
                        .toUtf8());
}

} // namespace

TEST(KilledServer, EndsTheProgramsInOrderAndLosesNothingThatWasTold) {
    const int falls = Times(2, 25);
    constexpr int users = 3;
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QStringList before = *kit::LinesOf(installed.layout().config(u"server.ini"_s));
    Told told;
    for (int fall = 0; fall < falls; ++fall) {
        servers::FirebirdServer server;
        writeServerLine(installed, server, before);
        std::vector<std::unique_ptr<Colleague>> all;
        for (int user = 0; user < users; ++user)
            all.push_back(std::make_unique<Colleague>(installed.home()));
        for (const auto& colleague : all)
            ExpectHere(*colleague);
        ASSERT_TRUE(Include(*all[0], u"QUEDA %1"_s.arg(fall), 6'000'000 + static_cast<quint64>(fall), told));
        const QString shared = told.lastKey();
        for (int user = 0; user < users; ++user)
            all[user]->begin({u"work"_s, u"30"_s, QString::number(10 * fall + user + 10), shared});
        QElapsedTimer time;
        time.start();
        const int moment = 300 + 97 * fall % 700;
        const auto note = [&](int milliseconds) {
            for (const auto& colleague : all)
                while (const std::optional<QStringList> line = colleague->hearWithin(milliseconds))
                    if (line->at(0) == u"included")
                        told[line->at(1)] = line->at(2);
        };
        while (time.elapsed() < moment)
            note(5);
        server.kill();
        for (const auto& colleague : all) {
            note(1000);
            EXPECT_TRUE(colleague->endsWithin(20'000)) << "it goes on without its server";
            EXPECT_EQ(colleague->leave(), 1);
        }
        note(0);
    }
    installed.write(u"config/server.ini"_s, before.join(u'\n').toUtf8());
    std::printf("%d falls, %lld inclusions told\n", falls, static_cast<long long>(told.size()));
    ExpectWhole(installed, told);
}

TEST(StoppedServer, IsToldInTheJournalAndTheProgramGoesOnWhenItAnswers) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    servers::FirebirdServer server;
    const QStringList before = *kit::LinesOf(installed.layout().config(u"server.ini"_s));
    writeServerLine(installed, server, before);
    Colleague colleague(installed.home());
    ExpectHere(colleague);
    server.pause();
    colleague.begin({u"include"_s, u"ESPERA"_s, u"U ESPERA"_s, u"6500001"_s});
    EXPECT_FALSE(colleague.hearWithin(7'500));
    server.resume();
    EXPECT_EQ(colleague.hear()[0], u"included");
    EXPECT_TRUE(colleague.journal().contains(u"O banco de dados não responde há 5 segundos"))
        << qPrintable(colleague.journal());
    server.pause();
    colleague.begin({u"find"_s, u"ESPERA"_s});
    EXPECT_TRUE(colleague.endsWithin(45'000)) << "a program without windows waits for ever";
    EXPECT_EQ(colleague.leave(), 1);
    server.resume();
}

TEST(StoppedServer, BringsTheWindowsUserABoxAndLetsTheSystemEndTheProgram) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    servers::FirebirdServer server;
    const QStringList before = *kit::LinesOf(installed.layout().config(u"server.ini"_s));
    writeServerLine(installed, server, before);
    server.pause();
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"VORTA_HOME"_s, installed.home());
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    program.setProcessEnvironment(environment);
    program.start(QString::fromUtf8(PESSOAS), {u"1^1^PRD^False^"_s});
    ASSERT_TRUE(program.waitForStarted());
    const auto boxes = [&] {
        int found = 0;
        for (const QString& number : QDir(u"/proc"_s).entryList({u"[0-9]*"_s})) {
            QFile words(u"/proc/%1/cmdline"_s.arg(number));
            QFile about(u"/proc/%1/stat"_s.arg(number));
            if (words.open(QIODevice::ReadOnly) && about.open(QIODevice::ReadOnly))
                found += words.readAll().contains("--aguardar") &&
                         about.readAll().contains(") S " + QByteArray::number(program.processId()) + ' ');
        }
        return found;
    };
    QElapsedTimer time;
    for (time.start(); boxes() == 0 && time.elapsed() < 15'000;)
        program.waitForFinished(100);
    EXPECT_EQ(boxes(), 1);
    EXPECT_LT(time.elapsed(), 10'000);
    program.terminate();
    EXPECT_TRUE(program.waitForFinished(10'000)) << "the system cannot end it";
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(QString::fromUtf8(program.readAllStandardError()).contains(u"não responde há"));
    server.resume();
}
