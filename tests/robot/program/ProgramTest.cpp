// The program that plays scenarios, from outside: arguments, result lines, exit status, the installation it works on.

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
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
    environment.insert(QStringLiteral("VORTA_HOME"), homeOfEnvironment);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ROTEIRO), arguments);
    process.waitForFinished();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QString ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QStringLiteral("no file");
}

class TheProgram : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        folder_ = new QTemporaryDir;
        const int status =
            QProcess::execute(QStringLiteral(BASE), {QStringLiteral("create"), QStringLiteral("--home"), home()});
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

const QString homeSwitch = QStringLiteral("--home");

} // namespace

TEST_F(TheProgram, printsAResultLineForEachFileAndTheirNumbers) {
    const QString good = write("bom.roteiro", "launch \"1^1^PRD^False^\"\nexpect screen frmPessoas\n");
    const QString bad = write("mau.roteiro", "# one\nlaunch \"1^1^PRD^False^\"\nexpect mode \"I\"\n");
    const Outcome run = RunProgram({homeSwitch, home(), good, bad});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.printed,
              QStringLiteral("ok %1\nnot ok %2:3: expected mode \"I\", was \"\"\n1 passed, 1 failed\n").arg(good, bad));
}

TEST_F(TheProgram, endsWithZeroWhenAllPassed) {
    const Outcome run = RunProgram({write("açúcar.roteiro", "launch \"\"\nexpect ended\n")}, home());
    EXPECT_EQ(run.status, 0) << run.printed;
    EXPECT_EQ(run.complaint, QString());
}

TEST_F(TheProgram, playsEveryFileOnAFreshCopy) {
    const QString file = write("copia.roteiro", "sql \"INSERT INTO PESS (IDPESS, NOME_PESS) VALUES (1, 'A')\"\n"
                                                "expect query \"SELECT COUNT(*) FROM PESS\" \"1\"\n");
    const Outcome run = RunProgram({homeSwitch, home(), file, file});
    EXPECT_EQ(run.status, 0) << run.printed;
}

TEST_F(TheProgram, tracesTheStatementsOfAllFiles) {
    const QString file = write("rastro.roteiro", "sql \"DELETE FROM PESS\"\nlaunch \"98^99^PRD^False^\"\n");
    const Outcome run = RunProgram({homeSwitch, home(), QStringLiteral("--trace"), path("rastro"), file, file});
    EXPECT_EQ(run.status, 0) << run.printed;
    const QString trace = ContentOf(path("rastro"));
    EXPECT_EQ(trace.count(QStringLiteral("SELECT * FROM USEN WHERE IDUSEN=98\n")), 2);
    EXPECT_FALSE(trace.contains(QStringLiteral("DELETE")));
}

TEST_F(TheProgram, playsTheSameFileOnRealWindows) {
    const QString file = write("janela.roteiro", "launch \"1^1^PRD^False^\"\nclick cmdINCLUIR\ntype txtNumero \"12\"\n"
                                                 "expect txtNumero text \"12\"\nexpect focus txtNumero\n");
    const Outcome run = RunProgram({homeSwitch, home(), QStringLiteral("--desktop"), file});
    EXPECT_EQ(run.status, 0) << run.printed;
}

TEST_F(TheProgram, refusesUnusableArguments) {
    const QString good = write("bom.roteiro", "");
    const QString latin = write("latino.roteiro", "# \xE7\n");
    for (const QStringList& arguments :
         {QStringList{}, QStringList{good, QStringLiteral("--nada")}, QStringList{good, homeSwitch},
          QStringList{path("nenhum.roteiro")}, QStringList{good, path("nenhum.roteiro")}, QStringList{latin},
          QStringList{good, QStringLiteral("--trace"), path("no/such/file")}}) {
        const Outcome run = RunProgram(arguments, home());
        EXPECT_EQ(run.status, 2) << arguments.join(u' ');
        EXPECT_EQ(run.printed, QString());
        EXPECT_FALSE(run.complaint.isEmpty());
    }
    EXPECT_EQ(RunProgram({homeSwitch, path("no_home"), good}).status, 2);
}

} // namespace vorta::robot
