// The program that plays scenarios, from outside: arguments, result lines, exit status, the installation it works on.

#include "base/Literals.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

namespace vorta::robot {

namespace {

struct Outcome {
    int status = -1;
    QString printed;
    QString complaint;
};

Outcome RunProgram(const QStringList& arguments, const QString& homeOfEnvironment = {}) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"VORTA_HOME"_s, homeOfEnvironment);
    process.setProcessEnvironment(environment);
    process.start(QString::fromUtf8(ROTEIRO), arguments);
    process.waitForFinished();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

/// The processes of a name that a process has started.
QStringList ChildrenOf(qint64 process, const QByteArray& name) {
    const QString proc = u"/proc/"_s;
    QFile children(proc + u"%1/task/%1/children"_s.arg(process));
    QStringList found;
    if (children.open(QIODevice::ReadOnly))
        for (const QByteArray& child : children.readAll().split(' ')) {
            QFile comm(proc + QString::fromLatin1(child) + u"/comm"_s);
            if (comm.open(QIODevice::ReadOnly) && comm.readAll().trimmed() == name)
                found += QString::fromLatin1(child);
        }
    return found;
}

/// True when the process has ended within the time that a busy machine may need; one that nobody has buried yet has no
/// root any more.
bool EndsSoon(const QString& process) {
    constexpr int patience = 10'000;
    QElapsedTimer waited;
    for (waited.start(); !waited.hasExpired(patience); QThread::msleep(20))
        if (!QFile::exists(u"/proc/%1/root/"_s.arg(process)))
            return true;
    return false;
}

QString ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"no file"_s;
}

class TheProgram : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        folder_ = new QTemporaryDir;
        const int status = QProcess::execute(QString::fromUtf8(BASE), {u"create"_s, u"--home"_s, home()});
        ASSERT_EQ(status, 0);
    }
    static void TearDownTestSuite() {
        delete folder_;
        folder_ = nullptr;
    }

    static QString path(const char* name) { return folder_->filePath(QString::fromUtf8(name)); }
    static QString home() { return path("home"); }
    /// Writes a scenario and gives its path.
    static QString write(const char* name, const char* text) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

  private:
    static inline QTemporaryDir* folder_ = nullptr;
};

const QString homeSwitch = u"--home"_s;
const QString engineSwitch = u"--engine"_s;
const QString server = u"server"_s;
const QString sqlServer = u"sqlserver"_s;

} // namespace

TEST_F(TheProgram, PrintsAResultLineForEachFileAndTheirNumbers) {
    const QString good = write("bom.roteiro", "launch \"1^1^PRD^False^\"\nexpect screen frmPessoas\n");
    const QString bad = write("mau.roteiro", "# one\nlaunch \"1^1^PRD^False^\"\nexpect mode \"I\"\n");
    const Outcome run = RunProgram({homeSwitch, home(), good, bad});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.printed, u"ok %1\nnot ok %2:3: expected mode \"I\", was \"\"\n1 passed, 1 failed\n"_s.arg(good, bad));
}

TEST_F(TheProgram, EndsWithZeroWhenAllPassed) {
    const Outcome run = RunProgram({write("açúcar.roteiro", "launch \"\"\nexpect ended\n")}, home());
    EXPECT_EQ(run.status, 0) << run.printed;
    EXPECT_EQ(run.complaint, QString());
}

TEST_F(TheProgram, PlaysEveryFileOnAFreshCopy) {
    const QString file = write("copia.roteiro", "sql \"INSERT INTO PESS (IDPESS, NOME_PESS) VALUES (1, 'A')\"\n"
                                                "expect query \"SELECT COUNT(*) FROM PESS\" \"1\"\n");
    const Outcome run = RunProgram({homeSwitch, home(), file, file});
    EXPECT_EQ(run.status, 0) << run.printed;
}

TEST_F(TheProgram, TracesTheStatementsOfAllFiles) {
    const QString file = write("rastro.roteiro", "sql \"DELETE FROM PESS\"\nlaunch \"98^99^PRD^False^\"\n");
    const Outcome run = RunProgram({homeSwitch, home(), u"--trace"_s, path("rastro"), file, file});
    EXPECT_EQ(run.status, 0) << run.printed;
    const QString trace = ContentOf(path("rastro"));
    EXPECT_EQ(trace.count(u"SELECT * FROM USEN WHERE IDUSEN=98\n"_s), 2);
    EXPECT_FALSE(trace.contains(u"DELETE"_s));
}

TEST_F(TheProgram, PlaysTheSameFileOnRealWindows) {
    const QString file = write("janela.roteiro", "launch \"1^1^PRD^False^\"\nclick cmdINCLUIR\ntype txtNumero \"12\"\n"
                                                 "expect txtNumero text \"12\"\nexpect focus txtNumero\n");
    const Outcome run = RunProgram({homeSwitch, home(), u"--desktop"_s, file});
    EXPECT_EQ(run.status, 0) << run.printed;
}

TEST_F(TheProgram, PlaysOverTheWireOfAServer) {
    const QString file = write(
        "servidor.roteiro", "expect query \"SELECT RDB$GET_CONTEXT('SYSTEM', 'NETWORK_PROTOCOL') FROM RDB$DATABASE\" "
                            "\"TCPv4\"\n"
                            "expect cepquery \"SELECT RDB$GET_CONTEXT('SYSTEM', 'NETWORK_PROTOCOL') FROM "
                            "RDB$DATABASE\" \"TCPv4\"\n"
                            "file config/server.ini \"srv^^^^FIREBIRD^{home}/base/pessoas.fdb^False^\"\n"
                            "launch \"1^1^PRD^False^\"\n"
                            "expect context Servidor \"srv\"\n"
                            "expect query \"SELECT MON$REMOTE_PROTOCOL FROM MON$ATTACHMENTS WHERE MON$SYSTEM_FLAG = "
                            "0\" \"TCPv4\\nTCPv4\"\n");
    const Outcome run = RunProgram({homeSwitch, home(), engineSwitch, server, file});
    EXPECT_EQ(run.status, 0) << run.printed.toStdString() << run.complaint.toStdString();
    EXPECT_EQ(RunProgram({homeSwitch, home(), file}).status, 1) << "an embedded base has no wire";
}

TEST_F(TheProgram, PlaysLinesOfEachTagOfSqlServer) {
    constexpr struct {
        const char* given;
        const char* line;
        const char* postalCodeLine; ///< its file knows two of the tags
    } tags[] = {{"", "MS-SQL", "MS-SQL"},
                {"MS-SQL", "MS-SQL", "MS-SQL"},
                {"MSSQL", "MSSQL", "MSSQL"},
                {"MS-SQL2005WEB", "MS-SQL2005WEB", "MS-SQL"},
                {"MS-SQL2008WEB", "MS-SQL2008WEB", "MS-SQL"},
                {"MS-SQL-REMOTO", "MS-SQL-REMOTO", "MS-SQL"}};
    for (const auto& tag : tags) {
        const QString text = u"launch \"1^1^PRD^False^\"\nexpect context TipoBanco \"%1\"\n"
                             "expect query \"SELECT DB_NAME()\" \"VORTA\"\nopen frmBROWSE_CEPS\n"
                             "type txtCEP \"00000000\"\nclick cmdPesquisa\n"
                             "expect context TipoBanco \"%2\"\n"
                             "expect cepquery \"SELECT DB_NAME()\" \"CEP\"\n"_s.arg(
                                 QString::fromLatin1(tag.line), QString::fromLatin1(tag.postalCodeLine));
        const QString file = write("etiqueta.roteiro", text.toUtf8().constData());
        const Outcome run =
            RunProgram({homeSwitch, home(), engineSwitch, sqlServer, u"--tag"_s, QString::fromLatin1(tag.given), file});
        EXPECT_EQ(run.status, 0) << tag.given << run.printed.toStdString() << run.complaint.toStdString();
    }
}

TEST_F(TheProgram, TakesItsServerAlongWhenItIsKilled) {
    const QString file = write("longo.roteiro", "launch \"1^1^PRD^False^\"\n");
    const QTemporaryDir leftovers; // nobody is there any more to remove them
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TMPDIR"_s, leftovers.path());
    process.setProcessEnvironment(environment);
    process.start(QString::fromUtf8(ROTEIRO),
                  QStringList{homeSwitch, home(), engineSwitch, server} + QStringList(1000, file));
    ASSERT_TRUE(process.waitForReadyRead());
    const QStringList servers = ChildrenOf(process.processId(), "firebird");
    ASSERT_EQ(servers.size(), 1);
    process.kill();
    process.waitForFinished();
    EXPECT_TRUE(EndsSoon(servers[0]));
}

TEST_F(TheProgram, RefusesUnusableArguments) {
    const QString good = write("bom.roteiro", "");
    const QString latin = write("latino.roteiro", "# \xE7\n");
    for (const QStringList& arguments :
         {QStringList{}, QStringList{good, u"--nada"_s}, QStringList{good, homeSwitch},
          QStringList{path("nenhum.roteiro")}, QStringList{good, path("nenhum.roteiro")}, QStringList{latin},
          QStringList{good, u"--trace"_s, path("no/such/file")}, QStringList{good, engineSwitch},
          QStringList{good, engineSwitch, u"oracle"_s}, QStringList{good, u"--tag"_s, u"MS-SQL"_s},
          QStringList{good, engineSwitch, sqlServer, u"--tag"_s, u"FIREBIRD"_s},
          QStringList{good, engineSwitch, sqlServer, u"--server"_s, u"server=x"_s}}) {
        const Outcome run = RunProgram(arguments, home());
        EXPECT_EQ(run.status, 2) << arguments.join(u' ');
        EXPECT_EQ(run.printed, QString());
        EXPECT_FALSE(run.complaint.isEmpty());
    }
    EXPECT_EQ(RunProgram({homeSwitch, path("no_home"), good}).status, 2);
}

} // namespace vorta::robot
