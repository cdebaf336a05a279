#include "kit/Installed.h"

#include <QDir>
#include <QProcess>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

struct Outcome {
    int code;
    QString out, error;
};

Outcome run(const QStringList& arguments) {
    QProcess program;
    program.start(QStringLiteral(PESSOAS_BASE), arguments);
    const bool ended = program.waitForFinished(120'000);
    return {ended ? program.exitCode() : -1, QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

QStringList words(const char* line) {
    return QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

TEST(Program, wrong_use_ends_in_2_and_tells_the_right_one) {
    for (const char* line :
         {"", "outro", "create", "create --home", "create --home /x --gente 5", "create --home /x --people muitas",
          "create --home /x --people 1000001", "create --home /x --seed -", "ddl", "ddl oracle", "cep --home /x",
          "check", "check --home /x y"}) {
        const Outcome outcome = run(words(line));
        EXPECT_EQ(outcome.code, 2) << line;
        EXPECT_TRUE(outcome.error.startsWith(QStringLiteral("uso: pessoas-base create"))) << line;
    }
}

TEST(Program, creates_checks_and_refuses_a_second_time) {
    const QTemporaryDir folder;
    const QString home = folder.filePath(QStringLiteral("vorta"));
    const Outcome created = run({QStringLiteral("create"), QStringLiteral("--home"), home, QStringLiteral("--people"),
                                 QStringLiteral("25"), QStringLiteral("--seed"), QStringLiteral("5")});
    EXPECT_EQ(created.code, 0) << created.error;
    const Outcome checked = run({QStringLiteral("check"), QStringLiteral("--home"), home});
    EXPECT_EQ(checked.code, 0) << checked.out;
    const Outcome again = run({QStringLiteral("create"), QStringLiteral("--home"), home});
    EXPECT_EQ(again.code, 1);
    EXPECT_EQ(again.error, u"Já existe uma instalação em "_qs + home + u"; nada foi alterado\n"_qs);
    EXPECT_EQ(run({QStringLiteral("check"), QStringLiteral("--home"), home}).code, 0);
}

TEST(Program, a_place_that_cannot_be_written_ends_in_1) {
    const Outcome outcome = run({QStringLiteral("create"), QStringLiteral("--home"), QStringLiteral("/proc/vorta")});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.error, QStringLiteral("Não foi possível criar a pasta /proc/vorta/config/\n"));
}

TEST(Program, a_folder_without_installation_is_told_and_left_alone) {
    const QTemporaryDir folder;
    const Outcome outcome = run({QStringLiteral("check"), QStringLiteral("--home"), folder.path()});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.error, folder.path() + QStringLiteral(" não contém uma instalação\n"));
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(Program, prints_the_definitions_of_either_engine) {
    for (const char* engine : {"firebird", "sqlserver"}) {
        const Outcome outcome = run({QStringLiteral("ddl"), QString::fromLatin1(engine)});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_TRUE(outcome.out.contains(QStringLiteral("CREATE TABLE PESS ("))) << engine;
    }
}

TEST(Program, the_firebird_definitions_run_in_the_engines_own_tool) {
    const QTemporaryDir folder;
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ISC_USER"), QStringLiteral("SYSDBA"));
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral("isql-fb"), {QStringLiteral("-q"), QStringLiteral("-b")});
    tool.write("CREATE DATABASE '" + folder.filePath(QStringLiteral("x.fdb")).toUtf8() +
               "' PAGE_SIZE 16384 DEFAULT CHARACTER SET WIN1252 COLLATION WIN_PTBR;\n");
    tool.write(run({QStringLiteral("ddl"), QStringLiteral("firebird")}).out.toUtf8());
    tool.closeWriteChannel();
    ASSERT_TRUE(tool.waitForFinished(60'000));
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().constData();
}

TEST(Program, a_list_of_postal_codes_with_mistakes_ends_in_1) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QString list = installed.home() + QStringLiteral("/lista.tsv");
    installed.write(QStringLiteral("lista.tsv"), "cep\ttipo\tabreviatura\tlogradouro\tbairro\tcidade\tuf\nx\n");
    const Outcome refused = run({QStringLiteral("cep"), QStringLiteral("--home"), installed.home(), list});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.error, QStringLiteral("linha 2: esperados 7 campos separados por tabulação, há 1\n"
                                            "1 erro(s); nada foi carregado\n"));
    installed.write(QStringLiteral("lista.tsv"), "cep\ttipo\tabreviatura\tlogradouro\tbairro\tcidade\tuf\n"
                                                 "04000000\tRua\tR\tAlegre\tCentro\tCampinas\tSP\n");
    const Outcome loaded = run({QStringLiteral("cep"), QStringLiteral("--home"), installed.home(), list});
    EXPECT_EQ(loaded.code, 0) << loaded.error;
    EXPECT_EQ(loaded.out, QStringLiteral("1 logradouros carregados\n"));
}
