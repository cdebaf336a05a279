// Many users of one base at once: what they save stands whole, and nobody meets an error that is not his own.

#include "base/Literals.h"
#include "office/Colleague.h"

#include "kit/Loader.h"
#include "kit/MoveToServer.h"

#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <memory>

using namespace vorta;
using test::Colleague;
using test::Installed;

namespace {

using Office = std::vector<std::unique_ptr<Colleague>>;

/// How long the office works; a whole minute is `VORTA_TEST_OFFICE_SECONDS=60`.
int secondsOfWork() {
    constexpr int shortForm = 8;
    const int wanted = qEnvironmentVariableIntValue("VORTA_TEST_OFFICE_SECONDS");
    return wanted > 0 ? wanted : shortForm;
}

/// All users start at once.
Office open(const QString& home, int users) {
    Office office;
    for (int user = 0; user < users; ++user)
        office.push_back(std::make_unique<Colleague>(home));
    for (const std::unique_ptr<Colleague>& colleague : office)
        EXPECT_EQ(colleague->hear(), QStringList{u"here"_s});
    return office;
}

void close(Office& office) {
    for (const std::unique_ptr<Colleague>& colleague : office)
        EXPECT_EQ(colleague->leave(), 0);
}

struct Alteration {
    QString mark;
    qint64 begin;
    qint64 end;
};

/// What the users say that they have done.
struct Deeds {
    QMap<QString, QString> included; ///< key -> name
    QMap<QString, std::vector<Alteration>> altered;
    int alterations = 0;
    int searches = 0;
};

/// Takes down one user's lines up to the end of the work.
void takeDown(Colleague& colleague, Deeds& deeds) {
    for (QStringList line = colleague.hear(); line[0] != u"done"; line = colleague.hear()) {
        if (line[0] == u"included") {
            EXPECT_FALSE(deeds.included.contains(line[1])) << "the same key twice: " << line[1];
            deeds.included[line[1]] = line[2];
        } else if (line[0] == u"altered") {
            ++deeds.alterations;
            deeds.altered[line[1]].push_back({line[2], line[3].toLongLong(), line[4].toLongLong()});
        } else if (line[0] == u"found") {
            // The person included last, whole.
            ++deeds.searches;
            ASSERT_EQ(line.size(), 5) << "not found behind its inclusion";
            EXPECT_EQ(deeds.included.value(line[1]), u"CARGA "_s + line[2]);
            EXPECT_EQ(line[3] + u'/' + line[4], u"3/2"_s);
        } else {
            ADD_FAILURE() << line.join(u' ');
        }
    }
}

/// Persons that all users alter.
QStringList includeShared(Colleague& colleague, int persons) {
    QStringList keys;
    for (int person = 1; person <= persons; ++person) {
        const QStringList answer = colleague.ask(
            {u"include"_s, u"COMUM %1"_s.arg(person), u"INICIO"_s, QString::number(900'000'000 + person)});
        EXPECT_EQ(answer[0], u"included");
        keys += answer.value(1);
    }
    return keys;
}

Deeds letWork(Office& office, int seconds, const QStringList& shared) {
    for (size_t user = 0; user < office.size(); ++user)
        office[user]->begin(QStringList{u"work"_s, QString::number(seconds), QString::number(user + 1)} + shared);
    Deeds deeds;
    for (const std::unique_ptr<Colleague>& colleague : office)
        takeDown(*colleague, deeds);
    return deeds;
}

/// Persons of the test whose lists do not belong to their mark: half a save.
constexpr const char* halfSaved =
    "SELECT P.IDPESS, P.NOME_PESS FROM PESS P WHERE (P.NOME_PESS STARTING WITH 'CARGA ' OR P.NOME_PESS STARTING WITH "
    "'COMUM ') AND ((SELECT COUNT(*) FROM PESS_CONT C WHERE C.IDPESS = P.IDPESS) <> 3 OR (SELECT COUNT(*) FROM "
    "PESS_CONT C WHERE C.IDPESS = P.IDPESS AND C.NOME_PESS_CONT IN (P.OBSE_PESS_0003 || ' A', P.OBSE_PESS_0003 || ' "
    "B', P.OBSE_PESS_0003 || ' C')) <> 3 OR (SELECT COUNT(*) FROM PESS_ATIV A WHERE A.IDPESS = P.IDPESS) <> 2 OR "
    "(SELECT COUNT(*) FROM PESS_ATIV A JOIN ATIV T ON T.IDATIV = A.IDATIV WHERE A.IDPESS = P.IDPESS AND T.DESC_ATIV IN "
    "(P.OBSE_PESS_0001, P.OBSE_PESS_0002)) <> 2)";

/// Every deed stands in the base, once and whole.
void expectWhole(const QString& connection, const Deeds& deeds) {
    kit::Loader base(connection);
    QMap<QString, QString> standing;
    for (const QStringList& row :
         base.rows(u"SELECT IDPESS, NOME_PESS FROM PESS WHERE NOME_PESS STARTING WITH 'CARGA '"_s))
        standing[row[0]] = row[1];
    EXPECT_EQ(standing, deeds.included);
    for (const QStringList& row : base.rows(QString::fromLatin1(halfSaved)))
        ADD_FAILURE() << "half saved: " << row.join(u' ');
    for (const QString& key : deeds.altered.keys()) {
        const QString mark = base.rows(u"SELECT OBSE_PESS_0003 FROM PESS WHERE IDPESS="_s + key)[0][0];
        const std::vector<Alteration>& alterations = deeds.altered[key];
        const auto last = std::find_if(alterations.begin(), alterations.end(),
                                       [&](const Alteration& alteration) { return alteration.mark == mark; });
        ASSERT_NE(last, alterations.end()) << mark;
        for (const Alteration& other : alterations)
            EXPECT_LE(other.begin, last->end) << "a later alteration was lost: " << other.mark;
    }
    for (const char* table : {"PESS", "PESS_CONT", "PESS_ATIV"})
        EXPECT_EQ(base.number(u"SELECT COUNT(*) - COUNT(DISTINCT ID%1) FROM %1"_s.arg(QString::fromLatin1(table))), 0)
            << "keys given twice in " << table;
}

void report(const Deeds& deeds, int users, int seconds) {
    std::printf("%d users, %d s: %lld inclusions, %d alterations, %d searches\n", users, seconds,
                static_cast<long long>(deeds.included.size()), deeds.alterations, deeds.searches);
}

} // namespace

TEST(Office, TwentyUsersOfAServerLoseNothing) {
    constexpr int users = 20;
    constexpr int sharedPersons = 10;
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const servers::FirebirdServer server;
    const QString connection = test::MoveToServer(installed, server);

    Office office = open(installed.home(), users);
    const QStringList shared = includeShared(*office[0], sharedPersons);
    const Deeds deeds = letWork(office, secondsOfWork(), shared);
    close(office);
    report(deeds, users, secondsOfWork());
    EXPECT_GE(deeds.included.size(), users);
    EXPECT_EQ(deeds.searches, deeds.included.size());
    expectWhole(connection, deeds);
}

TEST(Office, ThreeWindowsOnOneEmbeddedBaseSaveByTurns) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    Office office = open(installed.home(), 3);
    const QString name = u"COMUM 1"_s;
    const QStringList answer = office[0]->ask({u"include"_s, name, u"PRIMEIRO"_s, u"900000001"_s});
    ASSERT_EQ(answer[0], u"included");
    // The others had their windows open before the person was there.
    for (const char* mark : {"SEGUNDO", "TERCEIRO", "QUARTO", "QUINTO", "SEXTO"})
        for (size_t turn = 0; turn < office.size(); ++turn) {
            const QString written = u"%1 %2"_s.arg(QString::fromLatin1(mark)).arg(turn);
            ASSERT_EQ(office[turn]->ask({u"alter"_s, answer[1], written})[0], u"altered");
            for (const std::unique_ptr<Colleague>& reader : office)
                EXPECT_EQ(reader->ask({u"find"_s, name}),
                          (QStringList{u"found"_s, answer[1], written, u"3"_s, u"2"_s}));
        }
    close(office);
}

/// Copies and verifications by the program itself, for as long as somebody works.
class Keeper {
  public:
    Keeper(const Installed& installed, const QString& copies) : home_(installed.home()), copies_(copies) {}

    /// Every command must succeed. Gives the number of copies.
    int keep(const std::function<bool()>& working) {
        int made = 0;
        while (working()) {
            ++made;
            run({u"backup"_s, u"--home"_s, home_, copyOf(made)});
            run({u"verify"_s, u"--home"_s, home_});
        }
        return made;
    }
    QString copyOf(int number) const { return u"%1/%2.fbk"_s.arg(copies_).arg(number); }
    void run(const QStringList& arguments) const {
        QProcess program;
        program.start(QString::fromUtf8(PESSOAS_BASE), arguments);
        EXPECT_TRUE(program.waitForFinished(120'000));
        EXPECT_EQ(program.exitCode(), 0) << arguments.join(u' ') << "\n"
                                         << program.readAllStandardOutput().constData()
                                         << program.readAllStandardError().constData();
    }

  private:
    QString home_, copies_;
};

TEST(Office, CopiesBesideWorkingColleaguesAreWholeAndHarmNobody) {
    constexpr int users = 3;
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QTemporaryDir copies;
    Office office = open(installed.home(), users);
    const QStringList shared = includeShared(*office[0], 2);
    const Keeper keeper(installed, copies.path());
    std::atomic<bool> working = true;
    std::future<int> made =
        std::async(std::launch::async, [&] { return Keeper(keeper).keep([&] { return working.load(); }); });
    const Deeds deeds = letWork(office, secondsOfWork(), shared);
    working = false;
    const int copiesMade = made.get();
    close(office);
    report(deeds, users, secondsOfWork());
    std::printf("%d copies and verifications\n", copiesMade);
    EXPECT_GT(copiesMade, 0);
    expectWhole(installed.production(), deeds);
    keeper.run({u"verify"_s, u"--home"_s, installed.home()});
    for (int number = 1; number <= copiesMade; ++number) {
        keeper.run({u"restore"_s, u"--home"_s, installed.home(), u"--replace"_s, keeper.copyOf(number)});
        kit::Loader base(installed.production());
        for (const QStringList& row : base.rows(QString::fromLatin1(halfSaved)))
            ADD_FAILURE() << "half saved in copy " << number << ": " << row.join(u' ');
    }
}

TEST(Office, FourWindowsOnOneEmbeddedBaseWorkAtOnce) {
    constexpr int users = 4;
    constexpr int seconds = 3;
    const Installed installed = Installed::copyOf(Installed::demonstration());
    Office office = open(installed.home(), users);
    const QStringList shared = includeShared(*office[0], 2);
    const Deeds deeds = letWork(office, seconds, shared);
    close(office); // only then may somebody with another folder of locks open the base
    report(deeds, users, seconds);
    EXPECT_GE(deeds.included.size(), users);
    expectWhole(installed.production(), deeds);
}
