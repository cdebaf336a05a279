// A program that is killed while it saves, beside a colleague who goes on: nobody freezes, nothing told is lost, no
// person stands half, and the base is sound.

#include "base/Literals.h"
#include "faults/Faults.h"
#include "kit/Loader.h"
#include "shared/Papeis.h"
#include "system/SharedMutexes.h"

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
    EXPECT_TRUE(system::SharedMutexesAreRobust());
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

namespace {

/// One role whose key a generator gives, and one whose screen keeps the person's link.
bool isOfTheShortForm(TipoPapel role) {
    return role == TipoPapel::Fornecedor || role == TipoPapel::Decorador;
}

/// The role rows of a person of this test that stand half: their contacts are not the three of one save, they are not
/// alone, or the person does not know of them where their screen tells it.
QString halfRoles(const Papel& role) {
    const QString table = role.tabela.toString().toUpper(), key = role.chave.toString().toUpper();
    QString half = u"(SELECT COUNT(*) FROM %1 O WHERE O.IDPESS = R.IDPESS) <> 1"_s.arg(table);
    if (role.contatos)
        half += u" OR (SELECT COUNT(*) FROM %1 C WHERE C.%2 = R.%2) <> 3 OR (SELECT COUNT(DISTINCT LEFT(C.NOME_%1, "
                "CHAR_LENGTH(C.NOME_%1) - 2)) FROM %1 C WHERE C.%2 = R.%2) <> 1"_s.arg(
                    role.contatos->tabela.toString().toUpper(), key);
    if (role.tipo == TipoPapel::Motorista || role.tipo == TipoPapel::Decorador || role.tipo == TipoPapel::Arquiteto)
        half += u" OR P.%1 IS DISTINCT FROM R.%1"_s.arg(key);
    return u"SELECT R.%2 FROM %1 R JOIN PESS P ON P.IDPESS = R.IDPESS WHERE P.OBSE_PESS_0003 STARTING WITH 'U PAPEL' "
           "AND (%3)"_s.arg(table, key, half);
}

} // namespace

TEST(KilledColleague, ARolesSaveThatDiesInFrontOfAnyOfItsStatementsLeavesNothingHalf) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    Told told;
    int deaths = 0;
    Colleague colleague(installed.home());
    ExpectHere(colleague);
    // In the short form nobody saves between the kills: the engine takes two seconds to find that whoever held a page
    // is dead.
    QStringList persons;
    quint64 document = documents * 11;
    const auto newPerson = [&](int ahead) {
        while (persons.size() < ahead) {
            const QString name = u"PAPEL %1"_s.arg(++document);
            EXPECT_TRUE(Include(colleague, name, document, told));
            persons += told.key(name);
        }
        return persons.takeFirst();
    };
    const auto saveRole = [&](const QString& person, const QString& table, const QString& mark) {
        const QStringList answer = colleague.ask({u"role"_s, person, table, mark});
        return answer[0] == u"role" ? answer[0] : answer.join(u' ');
    };
    for (const Papel& role : papeis) {
        if (Times(isOfTheShortForm(role.tipo), true) == 0)
            continue;
        const QString table = role.tabela.toString();
        SCOPED_TRACE(qPrintable(table));
        for (const bool altered : {false, true}) {
            QString person = newPerson(Times(5, 1));
            if (altered)
                ASSERT_EQ(saveRole(person, table, u"PRIMEIRO"_s), u"role"_s);
            bool saved = false;
            for (int statement = 1; !saved; statement += Times(9, 1)) {
                ASSERT_LT(statement, 40);
                Colleague victim(installed.home());
                ExpectHere(victim);
                victim.begin({u"die-in-role"_s, QString::number(statement)});
                victim.begin({u"role"_s, person, table, u"MORTO %1"_s.arg(statement)});
                const std::optional<QStringList> answer = victim.hearWithin(30'000);
                EXPECT_TRUE(!answer || answer->at(0) == u"role") << qPrintable(answer->join(u' '));
                saved = answer.has_value();
                deaths += saved ? 0 : 1;
                victim.kill();
                if (!altered && !saved)
                    person = newPerson(1);
            }
            // The colleague goes on where the dead one stopped.
            ASSERT_EQ(saveRole(person, table, u"DEPOIS"_s), u"role"_s);
        }
    }
    EXPECT_EQ(colleague.leave(), 0);
    std::printf("%d deaths\n", deaths);
    EXPECT_GT(deaths, 8);
    ExpectWhole(installed, told);
    kit::Loader loader(installed.production());
    for (const Papel& role : papeis)
        for (const QStringList& row : loader.rows(halfRoles(role)))
            ADD_FAILURE() << "half saved: " << qPrintable(role.tabela.toString() + u' ' + row.join(u' '));
    EXPECT_GT(loader.number(u"SELECT COUNT(*) FROM DECO R JOIN PESS P ON P.IDPESS = R.IDPESS WHERE P.OBSE_PESS_0003 "
                            "STARTING WITH 'U PAPEL'"_s),
              1);
}
