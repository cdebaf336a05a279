// A program that is killed while it saves, beside a colleague who goes on: nobody freezes, nothing told is lost, no
// person stands half, and the base is sound.

#include "base/Literals.h"
#include "faults/Faults.h"
#include "firebird/RobustMutexes.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;

namespace {

constexpr quint64 documents = 100'000;
/// A colleague that tells no deed for so long stands still.
constexpr int stillness = 10'000;

/// Takes the deeds down that a working colleague tells within that time. False when it stands still.
bool takeDown(Colleague& colleague, int milliseconds, Told& told, qint64& longest, QElapsedTimer& sinceDeed) {
    QElapsedTimer time;
    time.start();
    do {
        const std::optional<QStringList> line =
            colleague.hearWithin(std::max(0, milliseconds - static_cast<int>(time.elapsed())));
        longest = std::max(longest, sinceDeed.elapsed());
        if (!line) {
            if (sinceDeed.elapsed() > stillness || colleague.endsWithin(0))
                return false;
            continue;
        }
        sinceDeed.start();
        if (line->at(0) == u"included")
            told[line->at(1)] = line->at(2);
        EXPECT_NE(line->at(0), u"error") << qPrintable(line->join(u' '));
    } while (time.elapsed() < milliseconds);
    return true;
}

enum class Arrival { Here, Frozen, Gone };

/// How a start beside the others ends; tells what is known of one that comes to nothing.
Arrival arrivalOf(Colleague& colleague) {
    const std::optional<QStringList> words = colleague.hearWithin(2 * stillness);
    if (words && words->at(0) == u"here")
        return Arrival::Here;
    const bool ended = colleague.endsWithin(words ? stillness : 0);
    ADD_FAILURE() << (ended ? "ended at its start with " : "stands still at its start ")
                  << (ended ? qPrintable(colleague.fate()) : "") << "\n"
                  << qPrintable(words.value_or(QStringList()).join(u' ')) << "\n"
                  << qPrintable(colleague.journal());
    return ended ? Arrival::Gone : Arrival::Frozen;
}

} // namespace

TEST(KilledColleague, TheEnginesSharedMutexesOutliveTheirOwners) {
    EXPECT_TRUE(firebird::SharedMutexesAreRobust());
}

TEST(KilledColleague, NobodyFreezesWhenAnotherIsKilledAtAnyMoment) {
    const int sessions = Times(1, 50);
    constexpr int kills = 40;
    int frozen = 0;
    int gone = 0;
    int killed = 0;
    qint64 longest = 0;
    qsizetype deeds = 0;
    for (int session = 0; session < sessions; ++session) {
        const Installed installed = Installed::copyOf(Installed::demonstration());
        Told told;
        bool stands = true;
        {
            Colleague colleague(installed.home());
            ExpectHere(colleague);
            ASSERT_TRUE(Include(colleague, u"COMUM"_s, 900'000'001, told));
            const QString shared = told.firstKey();
            colleague.begin({u"work"_s, u"9999"_s, u"1"_s, shared});
            QElapsedTimer sinceDeed;
            sinceDeed.start();
            for (int kill = 0; kill < kills && stands; ++kill) {
                Colleague victim(installed.home());
                const Arrival arrival = arrivalOf(victim);
                gone += arrival == Arrival::Gone;
                stands = arrival != Arrival::Frozen;
                if (arrival != Arrival::Here)
                    continue;
                victim.begin({u"work"_s, u"9999"_s, QString::number(2 + kill), shared});
                const int moment = QRandomGenerator::global()->bounded(10, 400);
                stands = stands && takeDown(colleague, moment, told, longest, sinceDeed);
                victim.kill();
                // What the victim was told stands as well.
                while (const std::optional<QStringList> line = victim.hearWithin(0))
                    if (line->at(0) == u"included")
                        told[line->at(1)] = line->at(2);
                ++killed;
            }
            stands = stands && takeDown(colleague, 500, told, longest, sinceDeed);
            colleague.kill();
        }
        frozen += stands ? 0 : 1;
        deeds += told.size();
        ExpectWhole(installed, told);
    }
    std::printf("%d sessions, %d kills, %lld inclusions told, %d frozen, %d gone, longest pause %lld ms\n", sessions,
                killed, static_cast<long long>(deeds), frozen, gone, static_cast<long long>(longest));
    EXPECT_EQ(frozen, 0);
    EXPECT_EQ(gone, 0);
}

TEST(KilledColleague, ASaveThatDiesInFrontOfAnyOfItsStatementsLeavesNothingHalf) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    Told told;
    int deaths = 0;
    Colleague colleague(installed.home());
    ExpectHere(colleague);
    for (const bool altered : {false, true}) {
        bool saved = false;
        // Each round dies some statements later, until the save is through before the death.
        for (int statement = 1; !saved; statement += Times(4, 1)) {
            ASSERT_LT(statement, 200);
            ASSERT_TRUE(Include(colleague, u"VIVO %1 %2"_s.arg(altered).arg(statement),
                                documents * 5 + static_cast<quint64>(2 * statement + altered), told));
            Colleague victim(installed.home());
            ExpectHere(victim);
            victim.begin({u"die"_s, QString::number(statement)});
            if (altered)
                victim.begin({u"alter"_s, told.lastKey(), u"U MORTO %1"_s.arg(statement)});
            else
                victim.begin({u"include"_s, u"MORTO %1"_s.arg(statement), u"U MORTO %1"_s.arg(statement),
                              QString::number(documents * 7 + static_cast<quint64>(statement))});
            const std::optional<QStringList> answer = victim.hearWithin(30'000);
            saved = answer && (answer->at(0) == u"included" || answer->at(0) == u"altered");
            if (saved && !altered)
                told[answer->at(1)] = answer->at(2);
            deaths += saved ? 0 : 1;
            victim.kill();
        }
        ASSERT_TRUE(Include(colleague, u"DEPOIS %1"_s.arg(altered), documents * 9 + altered, told));
    }
    EXPECT_EQ(colleague.leave(), 0);
    std::printf("%d deaths\n", deaths);
    EXPECT_GT(deaths, 15);
    ExpectWhole(installed, told);
}
