// A row that somebody else keeps, and a folder that goes.

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/Connection.h"
#include "faults/Faults.h"
#include "firebird/FirebirdAdapter.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QThread>
#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;

namespace {

std::unique_ptr<data::Connection> open(const QString& base) {
    auto connection = std::make_unique<data::Connection>([](data::Engine) { return data::MakeFirebirdAdapter(); });
    connection->Open(data::Engine::Firebird, base);
    return connection;
}

/// The engine counts a wait in whole seconds of a clock that goes on by ticks: begun at the end of one, or in the first
/// tick of the next, it is up to a second shorter.
void awaitSecond() {
    constexpr qint64 second = 1'000;
    constexpr qint64 ticks = 50;
    QThread::msleep(static_cast<unsigned long>(second - QDateTime::currentMSecsSinceEpoch() % second + ticks));
}

const data::Statement alteration("UPDATE PESS SET OBSE_PESS_0001 = '1' WHERE IDPESS = 1");

} // namespace

TEST(HeldRow, IsWaitedForOnceAndToldInPortuguese) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const auto holder = open(installed.production());
    const auto other = open(installed.production());
    for (const bool inTransaction : {false, true}) {
        holder->BeginTrans();
        holder->Execute(alteration);
        if (inTransaction)
            other->BeginTrans();
        awaitSecond();
        QElapsedTimer time;
        time.start();
        try {
            other->Execute(alteration);
            ADD_FAILURE() << "a row that is held has been written";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), errorNumber::StatementRefused);
            EXPECT_EQ(error.description(), u"O registro está sendo gravado por outro usuário e não foi liberado em 4 "
                                           "segundos. Tente novamente."_s);
        }
        EXPECT_GE(time.elapsed(), 3'500);
        EXPECT_LE(time.elapsed(), 5'500);
        holder->CommitTrans();
        if (inTransaction)
            other->CommitTrans();
    }
    other->Execute(alteration);
}

TEST(RemovedHome, IsAnErrorThatIsToldAndNoCrash) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    for (const bool working : {true, false}) {
        const Installed copy = Installed::copyOf(installed);
        Colleague colleague(copy.home());
        ExpectHere(colleague);
        ASSERT_TRUE(QDir(copy.home()).removeRecursively());
        if (working) {
            const QStringList answer = colleague.ask({u"include"_s, u"SEM CASA"_s, u"U"_s, u"4000001"_s});
            EXPECT_EQ(answer[0], u"error");
            // Whatever of the installation is missed first.
            EXPECT_TRUE(answer.value(1).startsWith(u"Erro ")) << qPrintable(answer.join(u' '));
        }
        EXPECT_EQ(colleague.leave(), working ? 1 : 0);
        EXPECT_TRUE(colleague.journal().contains(u"foi removida")) << qPrintable(colleague.journal());
    }
}
