// Several users of one machine share an installation. Wants to be root, who alone can become them.

#include "base/Literals.h"
#include "faults/Faults.h"
#include "firebird/EngineRoot.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <filesystem>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace vorta;
using namespace vorta::test;

namespace {

constexpr gid_t office = 48'800;
constexpr uid_t maria = 48'801;
constexpr uid_t joao = 48'802;
constexpr uid_t stranger = 48'803;

/// A user of the machine: a number, the office's group or none, a folder of his own, and a mask.
class Person {
  public:
    Person(const QTemporaryDir& folder, uid_t user, gid_t group, mode_t mask)
        : home_(folder.filePath(u"casa-%1"_s.arg(user))), user_(user), group_(group), mask_(mask) {
        QDir().mkpath(home_);
        EXPECT_EQ(::chown(home_.toUtf8().constData(), user, group), 0);
        EXPECT_EQ(::chmod(home_.toUtf8().constData(), 0700), 0);
    }
    void become(QProcess& process) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, home_);
        environment.remove(u"FIREBIRD"_s);
        environment.remove(u"FIREBIRD_LOCK"_s);
        environment.remove(u"XDG_CACHE_HOME"_s);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setWorkingDirectory(u"/"_s);
        process.setChildProcessModifier([*this] {
            ::umask(mask_);
            if (::setgroups(0, nullptr) != 0 || ::setgid(group_) != 0 || ::setuid(user_) != 0)
                ::_exit(126);
        });
    }
    /// Runs to the end; gives the exit status and the words.
    int run(const QString& program, const QStringList& arguments, QString& words) const {
        QProcess process;
        become(process);
        process.start(program, arguments);
        process.waitForFinished(120'000);
        words = QString::fromUtf8(process.readAll());
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    const QString& home() const { return home_; }

  private:
    QString home_;
    uid_t user_;
    gid_t group_;
    mode_t mask_;
};

/// One inclusion by that user: what the user's program answers.
QString includeAs(const Person& person, const QString& installation, const QString& name, const QString& document) {
    QProcess process;
    person.become(process);
    process.start(QString::fromUtf8(OFFICE_USER), {installation});
    process.write(u"include\t%1\tU %1\t%2\n"_s.arg(name, document).toUtf8());
    process.closeWriteChannel();
    process.waitForFinished(60'000);
    return QString::fromUtf8(process.readAll());
}

/// A user's program that stays open.
class Session {
  public:
    Session(const Person& person, const QString& installation) {
        person.become(process_);
        process_.start(QString::fromUtf8(OFFICE_USER), {installation});
    }
    ~Session() { leave(); }
    QString ask(const QString& command) {
        process_.write(command.toUtf8() + '\n');
        return hear();
    }
    QString hear() {
        while (!process_.canReadLine())
            if (!process_.waitForReadyRead(60'000))
                return {};
        return QString::fromUtf8(process_.readLine()).trimmed();
    }
    int leave() {
        process_.closeWriteChannel();
        process_.waitForFinished(60'000);
        return process_.exitCode();
    }

  private:
    QProcess process_;
};

class OtherUsers : public testing::Test {
  protected:
    void SetUp() override {
        if (::geteuid() != 0)
            GTEST_SKIP() << "only root can become other users";
        ASSERT_TRUE(folder_.isValid());
        ASSERT_EQ(::chmod(folder_.path().toUtf8().constData(), 0755), 0);
        QDir().mkpath(installation());
        ASSERT_EQ(::chown(installation().toUtf8().constData(), maria, office), 0);
        ASSERT_EQ(::chmod(installation().toUtf8().constData(), 02770), 0);
    }
    QString installation() const { return folder_.filePath(u"vorta"_s); }

    QTemporaryDir folder_;
};

} // namespace

TEST_F(OtherUsers, ShareAnInstallationWhateverMaskItsMakerAndTheyHave) {
    for (const mode_t mask : {0077, 0022, 0007}) {
        SCOPED_TRACE(mask);
        const Person maker(folder_, maria, office, mask);
        const Person colleague(folder_, joao, office, mask);
        const Person outside(folder_, stranger, stranger, mask);
        QString words;
        ASSERT_EQ(
            maker.run(QString::fromUtf8(PESSOAS_BASE), {u"create"_s, u"--home"_s, installation(), u"--demo"_s}, words),
            0)
            << qPrintable(words);
        // In turns, so that each meets the lock files of the other.
        for (const QString& number : {u"1"_s, u"2"_s}) {
            const QString hers = includeAs(maker, installation(), u"MARIA "_s + number, u"600000"_s + number);
            EXPECT_TRUE(hers.contains(u"included")) << qPrintable(hers);
            const QString his = includeAs(colleague, installation(), u"JOAO "_s + number, u"700000"_s + number);
            EXPECT_TRUE(his.contains(u"included")) << qPrintable(his);
        }
        EXPECT_FALSE(includeAs(outside, installation(), u"ESTRANHO"_s, u"8000001"_s).contains(u"included"));
        EXPECT_EQ(colleague.run(QString::fromUtf8(PESSOAS_BASE), {u"check"_s, u"--home"_s, installation()}, words), 0)
            << qPrintable(words);
        for (const QFileInfo& entry : QDir(installation()).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
            ASSERT_TRUE(QDir(entry.filePath()).removeRecursively());
    }
}

TEST_F(OtherUsers, WorkOnOneBaseAtTheSameTime) {
    const Person hers(folder_, maria, office, 0077);
    const Person his(folder_, joao, office, 0077);
    QString words;
    ASSERT_EQ(hers.run(QString::fromUtf8(PESSOAS_BASE), {u"create"_s, u"--home"_s, installation(), u"--demo"_s}, words),
              0)
        << qPrintable(words);
    Session one(hers, installation()), other(his, installation());
    for (Session* session : {&one, &other})
        ASSERT_EQ(session->hear(), u"here"_s);
    for (int person = 1; person <= 30; ++person)
        for (Session* session : {&one, &other}) {
            const QString name = (session == &one ? u"MARIA %1"_s : u"JOAO %1"_s).arg(person);
            const int document = (session == &one ? 6'100'000 : 6'200'000) + person;
            const QString answer = session->ask(u"include\t%1\tU %1\t%2"_s.arg(name).arg(document));
            EXPECT_TRUE(answer.startsWith(u"included")) << qPrintable(answer);
        }
    // A copy by one of them, which is his alone.
    const QString copy = his.home() + u"/copia.fbk"_s, shared = installation() + u"/copia.fbk"_s;
    for (const QString& file : {copy, shared}) {
        EXPECT_EQ(his.run(QString::fromUtf8(PESSOAS_BASE), {u"backup"_s, u"--home"_s, installation(), file}, words), 0)
            << qPrintable(words);
        EXPECT_EQ(his.run(u"/bin/cat"_s, {file}, words), 0);
        EXPECT_NE(hers.run(u"/bin/cat"_s, {file}, words), 0);
    }
    for (Session* session : {&one, &other})
        EXPECT_EQ(session->leave(), 0);
}

TEST_F(OtherUsers, AreNotShutOutByTheAdministratorsCommands) {
    const Person maker(folder_, maria, office, 0077);
    const Person colleague(folder_, joao, office, 0077);
    const Person root(folder_, 0, 0, 0077);
    QString words;
    ASSERT_EQ(maker.run(QString::fromUtf8(PESSOAS_BASE), {u"create"_s, u"--home"_s, installation()}, words), 0)
        << qPrintable(words);
    const QString copy = root.home() + u"/copia.fbk"_s;
    for (const QStringList& command :
         {QStringList{u"check"_s}, QStringList{u"backup"_s, copy}, QStringList{u"verify"_s},
          QStringList{u"restore"_s, u"--replace"_s, copy}, QStringList{u"check"_s}}) {
        SCOPED_TRACE(qPrintable(command.join(u' ')));
        EXPECT_EQ(root.run(QString::fromUtf8(PESSOAS_BASE),
                           QStringList{command[0], u"--home"_s, installation()} + command.sliced(1), words),
                  0)
            << qPrintable(words);
        for (const Person* person : {&maker, &colleague})
            EXPECT_EQ(person->run(QString::fromUtf8(PESSOAS_BASE), {u"check"_s, u"--home"_s, installation()}, words), 0)
                << qPrintable(words);
    }
    // Beside a program of the administrator's that is open.
    Session open(root, installation());
    ASSERT_EQ(open.hear(), u"here"_s);
    for (const Person* person : {&maker, &colleague}) {
        const QString document = person == &maker ? u"6300001"_s : u"6300002"_s;
        const QString answer = includeAs(*person, installation(), u"AO LADO"_s, document);
        EXPECT_TRUE(answer.contains(u"included")) << qPrintable(answer);
    }
    const QString own = open.ask(u"include\tRAIZ\tU RAIZ\t6300003"_s);
    EXPECT_TRUE(own.startsWith(u"included")) << qPrintable(own);
    EXPECT_EQ(open.leave(), 0);
}

TEST_F(OtherUsers, LoadNothingThatAColleagueCanWrite) {
    const Person victim(folder_, maria, office, 0022);
    const Person colleague(folder_, joao, office, 0022);
    QString words;
    ASSERT_EQ(victim.run(QString::fromUtf8(PESSOAS_BASE), {u"create"_s, u"--home"_s, installation()}, words), 0)
        << qPrintable(words);
    // What the engine would run and obey, were it still looked for here.
    ASSERT_EQ(colleague.run(
                  u"/bin/sh"_s,
                  {u"-c"_s,
                   u"mkdir -p '%1/firebird/intl' '%1/firebird/plugins' '%1/firebird/lib' && for f in intl/libfbintl.so "
                   "intl/fbintl.so plugins/libEngine12.so lib/libib_util.so firebird.conf plugins.conf; do "
                   "echo lixo > '%1/firebird/'$f; done"_s.arg(installation())},
                  words),
              0)
        << qPrintable(words);
    const QString answer = includeAs(victim, installation(), u"VITIMA"_s, u"9000001"_s);
    EXPECT_TRUE(answer.contains(u"included")) << qPrintable(answer);
    // Everything that the process has mapped to run is root's or the user's own.
    QProcess process;
    victim.become(process);
    process.start(QString::fromUtf8(OFFICE_USER), {installation()});
    ASSERT_TRUE(process.waitForReadyRead(60'000));
    ASSERT_TRUE(process.readAll().contains("here"));
    QFile maps(u"/proc/%1/maps"_s.arg(process.processId()));
    ASSERT_TRUE(maps.open(QIODevice::ReadOnly));
    int loaded = 0;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        const qsizetype path = line.indexOf('/');
        if (path < 0 || !line.contains("r-x"))
            continue;
        const QByteArray file = line.mid(path);
        struct stat found {};
        ASSERT_EQ(::stat(file.constData(), &found), 0) << file.constData();
        EXPECT_TRUE(found.st_uid == 0 || found.st_uid == maria) << file.constData();
        EXPECT_EQ(found.st_mode & S_IWOTH, 0U) << file.constData();
        EXPECT_FALSE(QString::fromUtf8(file).startsWith(installation())) << file.constData();
        ++loaded;
    }
    EXPECT_GT(loaded, 10);
    process.closeWriteChannel();
    process.waitForFinished(60'000);
}

TEST_F(OtherUsers, AFolderThatOthersCanWriteIsNoPlaceForTheEngine) {
    const QString open = folder_.filePath(u"aberta"_s);
    QDir().mkpath(open + u"/dentro"_s);
    EXPECT_FALSE(firebird::OthersCanWrite(open + u"/dentro"_s));
    ASSERT_EQ(::chmod(open.toUtf8().constData(), 0777), 0);
    EXPECT_TRUE(firebird::OthersCanWrite(open + u"/dentro"_s));
    ASSERT_EQ(::chmod(open.toUtf8().constData(), 01777), 0); // each may change only his own there
    EXPECT_FALSE(firebird::OthersCanWrite(open + u"/dentro"_s));
    ASSERT_EQ(::chown((open + u"/dentro"_s).toUtf8().constData(), joao, office), 0);
    EXPECT_TRUE(firebird::OthersCanWrite(open + u"/dentro"_s));
}
