#include "base/Literals.h"
#include "kit/Copies.h"
#include "kit/Documents.h"
#include "kit/Installed.h"
#include "kit/Loader.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QThread>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <optional>

using namespace vorta;
using kit::Loader;
using test::Installed;

namespace {

struct Outcome {
    int code;
    QString out, error;
};

Outcome run(const QStringList& arguments) {
    QProcess program;
    program.start(QString::fromUtf8(PESSOAS_BASE), arguments);
    const bool ended = program.waitForFinished(120'000);
    return {ended ? program.exitCode() : -1, QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

void pressCtrlC(const QProcess& program) {
    const auto process = static_cast<pid_t>(program.processId());
    ASSERT_GT(process, 0) << "it was over before it could be stopped";
    ::kill(process, SIGINT);
}

/// Starts a command and presses Ctrl+C when it has come so far.
Outcome interrupt(const QStringList& arguments, const std::function<bool()>& isUnderWay) {
    constexpr int patience = 120'000;
    QProcess program;
    program.start(QString::fromUtf8(PESSOAS_BASE), arguments);
    QElapsedTimer since;
    since.start();
    while (!isUnderWay() && since.elapsed() < patience && !program.waitForFinished(10))
        ;
    pressCtrlC(program);
    EXPECT_TRUE(program.state() == QProcess::NotRunning || program.waitForFinished(patience));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

/// Starts a command and presses Ctrl+C so much later; none when that has ended it at once.
std::optional<Outcome> interruptAfter(unsigned long milliseconds, const QStringList& arguments) {
    QProcess program;
    program.start(QString::fromUtf8(PESSOAS_BASE), arguments);
    EXPECT_TRUE(program.waitForStarted());
    QThread::msleep(milliseconds);
    if (program.state() == QProcess::Running)
        pressCtrlC(program);
    EXPECT_TRUE(program.state() == QProcess::NotRunning || program.waitForFinished(120'000));
    if (program.exitStatus() != QProcess::NormalExit)
        return std::nullopt;
    return Outcome{program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
                   QString::fromUtf8(program.readAllStandardError())};
}

QString interrupted() {
    return u"Interrompido; o que não tinha terminado foi desfeito\n"_s;
}

QStringList words(const char* line) {
    return QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

TEST(Program, WrongUseEndsIn2AndTellsTheRightOne) {
    for (const char* line : {"",
                             "outro",
                             "create",
                             "create --home",
                             "create --home /x --gente 5",
                             "create --home /x --people muitas",
                             "create --home /x --people 1000001",
                             "create --home /x --seed -",
                             "ddl",
                             "ddl oracle",
                             "cep --home /x",
                             "check",
                             "check --home /x y",
                             "backup --home /x",
                             "backup --home /x --base OUTRA y",
                             "backup x",
                             "restore --home /x",
                             "restore --home /x --replace",
                             "verify",
                             "verify --home /x y",
                             "upgrade",
                             "upgrade --home /x y",
                             "indexes",
                             "indexes firebird",
                             "indexes sqlserver y",
                             "importar --home /x",
                             "importar x.csv",
                             "importar --home /x --outra x.csv"}) {
        const Outcome outcome = run(words(line));
        EXPECT_EQ(outcome.code, 2) << line;
        EXPECT_TRUE(outcome.error.startsWith(u"uso: pessoas-base create"_s)) << line;
    }
}

TEST(Program, CreatesChecksAndRefusesASecondTime) {
    const QTemporaryDir folder;
    const QString home = folder.filePath(u"vorta"_s);
    const Outcome created = run({u"create"_s, u"--home"_s, home, u"--people"_s, u"25"_s, u"--seed"_s, u"5"_s});
    EXPECT_EQ(created.code, 0) << created.error;
    const Outcome checked = run({u"check"_s, u"--home"_s, home});
    EXPECT_EQ(checked.code, 0) << checked.out;
    const Outcome again = run({u"create"_s, u"--home"_s, home});
    EXPECT_EQ(again.code, 1);
    EXPECT_EQ(again.error, u"Já existe uma instalação em "_s + home + u"; nada foi alterado\n"_s);
    EXPECT_EQ(run({u"check"_s, u"--home"_s, home}).code, 0);
}

TEST(Program, CopiesVerifiesAndRestores) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QString home = installed.home(), file = home + u"/copia.fbk"_s;
    const Outcome copied = run({u"backup"_s, u"--home"_s, home, file});
    EXPECT_EQ(copied.code, 0) << copied.error;
    EXPECT_EQ(copied.out, u"Base PRD copiada para %1 (%2 bytes)\n"_s.arg(file, QString::number(QFile(file).size())));
    EXPECT_EQ(run({u"backup"_s, u"--home"_s, home, file}).code, 1);
    const Outcome verified = run({u"verify"_s, u"--home"_s, home, u"--base"_s, u"prd"_s});
    EXPECT_EQ(verified.code, 0);
    EXPECT_EQ(verified.out, u"ok     páginas, registros e índices da base inteira\n"
                            "ok     contatos, ramos de atividade e vínculos: todos com a sua pessoa\n"
                            "Nenhuma falta encontrada\n"_s);
    EXPECT_EQ(run({u"restore"_s, u"--home"_s, home, file}).code, 1);
    const Outcome restored = run({u"restore"_s, u"--home"_s, home, u"--replace"_s, file});
    EXPECT_EQ(restored.code, 0) << restored.error;
    EXPECT_TRUE(restored.out.startsWith(u"Base PRD restaurada e verificada: "_s + installed.production()))
        << restored.out;
}

TEST(Program, UpgradesWhatAnOlderVersionHasLeft) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QStringList upgrade{u"upgrade"_s, u"--home"_s, installed.home()};
    {
        kit::Loader loader(installed.production());
        loader.run(
            u"UPDATE muni_ibge SET desc_muni_ibge = 'Santa Bárbara d''Oeste' WHERE codi_muni_ibge = '3545803'"_s);
        loader.commit();
    }
    EXPECT_EQ(run(upgrade).out, u"1 nome(s) com apóstrofo corrigido(s)\n"_s);
    EXPECT_EQ(run(upgrade).out, u"Nada a mudar\n"_s);
    EXPECT_EQ(run({u"upgrade"_s, u"--home"_s, u"/nao_ha"_s}).code, 1);
}

TEST(Program, BringsTheIndexesUpToDate) {
    const Installed installed = Installed::copyOf(Installed::plain());
    {
        kit::Loader loader(installed.production());
        loader.run(u"CREATE INDEX PESS_IX9 ON PESS (DATA_DESA)"_s);
        loader.commit();
    }
    EXPECT_EQ(run({u"check"_s, u"--home"_s, installed.home()}).code, 1);
    const Outcome done = run({u"indexes"_s, u"--home"_s, installed.home(), u"--base"_s, u"prd"_s});
    EXPECT_EQ(done.code, 0) << done.error;
    EXPECT_EQ(done.out, u"removido: PESS_IX9\nBase PRD: os índices estão em dia\n"_s);
    EXPECT_EQ(run({u"check"_s, u"--home"_s, installed.home()}).code, 0);
    EXPECT_TRUE(run({u"indexes"_s, u"sqlserver"_s}).out.contains(u"CREATE INDEX PESS_IX1 ON PESS (idPESS);\nGO\n"_s));
}

TEST(Program, AFailureOfTheEngineIsToldInTheProgramsWords) {
    const Installed installed = Installed::copyOf(Installed::plain());
    installed.write(u"base/historico.fdb"_s, QByteArray(100'000, 'x'));
    QFile::remove(installed.production());
    const QString file = installed.home() + u"/copia.fbk"_s;
    EXPECT_EQ(run({u"backup"_s, u"--home"_s, installed.home(), file}).error,
              u"Um arquivo da base não existe ou não pode ser lido ou gravado\n"_s);
    EXPECT_EQ(run({u"backup"_s, u"--home"_s, installed.home(), u"--base"_s, u"HIST"_s, file}).error,
              u"O arquivo não é uma base, ou está danificado\n"_s);
    EXPECT_FALSE(QFile::exists(file));
    const Outcome checked = run({u"check"_s, u"--home"_s, installed.home()});
    EXPECT_EQ(checked.code, 1);
    EXPECT_TRUE(checked.out.endsWith(u"\n2 faltas encontradas\n"_s)) << checked.out;
}

TEST(Program, APlaceThatCannotBeWrittenEndsIn1) {
    const Outcome outcome = run({u"create"_s, u"--home"_s, u"/proc/vorta"_s});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.error, u"Não foi possível criar a pasta /proc/vorta/config/\n"_s);
}

TEST(Program, AFolderWithoutInstallationIsToldAndLeftAlone) {
    const QTemporaryDir folder;
    const Outcome outcome = run({u"check"_s, u"--home"_s, folder.path()});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.error, folder.path() + u" não contém uma instalação\n"_s);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(Program, PrintsTheDefinitionsOfEitherEngine) {
    for (const char* engine : {"firebird", "sqlserver"}) {
        const Outcome outcome = run({u"ddl"_s, QString::fromLatin1(engine)});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_TRUE(outcome.out.contains(u"CREATE TABLE PESS ("_s)) << engine;
    }
}

TEST(Program, TheFirebirdDefinitionsRunInTheEnginesOwnTool) {
    const QTemporaryDir folder;
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"ISC_USER"_s, u"SYSDBA"_s);
    tool.setProcessEnvironment(environment);
    tool.start(u"isql-fb"_s, {u"-q"_s, u"-b"_s});
    tool.write("CREATE DATABASE '" + folder.filePath(u"x.fdb"_s).toUtf8() +
               "' PAGE_SIZE 16384 DEFAULT CHARACTER SET WIN1252 COLLATION WIN_PTBR;\n");
    tool.write(run({u"ddl"_s, u"firebird"_s}).out.toUtf8());
    tool.closeWriteChannel();
    ASSERT_TRUE(tool.waitForFinished(60'000));
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().constData();
}

TEST(Program, ACreationThatIsInterruptedLeavesNothing) {
    const QTemporaryDir folder;
    const QString base = folder.filePath(u"casa/base/pessoas.fdb"_s);
    const Outcome outcome =
        interrupt({u"create"_s, u"--home"_s, folder.filePath(u"casa"_s), u"--people"_s, u"300000"_s},
                  [&] { return QFileInfo(base).size() > 20'000'000; });
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.error, interrupted());
    EXPECT_FALSE(QFile::exists(base));
    EXPECT_FALSE(QFile::exists(folder.filePath(u"casa/config"_s)));
}

TEST(Program, APostalCodeListThatIsInterruptedLeavesTheOldOne) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QString before = run({u"check"_s, u"--home"_s, installed.home()}).out;
    QByteArray list = "cep\ttipo\tabreviatura\tlogradouro\tbairro\tcidade\tuf\n";
    for (int street = 0; street < 300'000; ++street)
        list += QByteArray::number(10'000'000 + street) + "\tRua\tR\tAlegre " + QByteArray::number(street) +
                "\tCentro\tCampinas\tSP\n";
    installed.write(u"lista.tsv"_s, list);
    const QString base = installed.home() + u"/base/cep.fdb"_s;
    const qint64 size = QFileInfo(base).size();
    const Outcome outcome = interrupt({u"cep"_s, u"--home"_s, installed.home(), installed.home() + u"/lista.tsv"_s},
                                      [&] { return QFileInfo(base).size() > size; });
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.error, interrupted());
    Loader loader(base);
    EXPECT_EQ(loader.number(u"SELECT COUNT(*) FROM LOGR WHERE CEP8_LOGR BETWEEN '10000000' AND '10300000' AND "
                            "NOME_LOGR STARTING WITH 'Alegre '"_s),
              0);
    EXPECT_GT(loader.number(u"SELECT COUNT(*) FROM LOGR"_s), 0);
}

TEST(Program, ACopyOrARestorationThatIsInterruptedLeavesNothing) {
    const kit::Progress stop = [](const QString&, qint64, qint64) { throw kit::Interrupted(); };
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"copia.fbk"_s);
    EXPECT_THROW(kit::BackUpBase(installed.home(), u"PRD"_s, copy, stop), kit::Interrupted);
    EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::Files));
    kit::BackUpBase(installed.home(), u"PRD"_s, copy);
    const QStringList before = QDir(installed.layout().bases()).entryList(QDir::Files);
    EXPECT_THROW(kit::RestoreBase(installed.home(), u"PRD"_s, copy, true, stop), kit::Interrupted);
    EXPECT_EQ(QDir(installed.layout().bases()).entryList(QDir::Files), before);
    EXPECT_GT(Loader(installed.production()).number(u"SELECT COUNT(*) FROM PESS"_s), 0);
}

TEST(Program, AnImportThatIsInterruptedKeepsWholePersonsAndTellsHowMany) {
    const Installed installed = Installed::copyOf(Installed::plain());
    QByteArray table = "NOME_PESS;CPF0_CNPJ;ENDE_COML_PESS;BAIR_COML_PESS;CIDA_COML_PESS;UF00_COML_PESS;"
                       "CEP0_COML_PESS;CONTATO1_TIPO;CONTATO1_NOME\n";
    for (quint64 number = 0; number < 20'000; ++number)
        table += "Um " + QByteArray::number(number) + ';' + kit::Cpf(8'000'000 + number) +
                 ";Rua Um;Centro;Osasco;SP;06010-000;Diretor;Ana\n";
    installed.write(u"pessoas.csv"_s, table);
    const qint64 size = QFileInfo(installed.production()).size();
    const Outcome outcome =
        interrupt({u"importar"_s, u"--home"_s, installed.home(), u"--grava"_s, installed.home() + u"/pessoas.csv"_s},
                  [&] { return QFileInfo(installed.production()).size() > size; });
    Loader loader(installed.production());
    const qint64 persons = loader.number(u"SELECT COUNT(*) FROM PESS WHERE NOME_PESS STARTING WITH 'UM '"_s);
    EXPECT_GT(persons, 0);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.error, u"A importação parou depois de %1 pessoa(s) incluída(s). Repita o comando para continuar: "
                             "as já incluídas não se repetem\n"_s.arg(persons) +
                                 interrupted());
    EXPECT_EQ(loader.number(u"SELECT COUNT(*) FROM PESS_CONT WHERE NOME_PESS_CONT = 'ANA'"_s), persons);
}

TEST(Program, CtrlCIsToldInTheseWordsAtAnyMoment) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const QTemporaryDir folder;
    const QString home = installed.home();
    int heard = 0;
    for (const unsigned long milliseconds : {20, 40, 70, 110, 160, 250, 400})
        for (const QStringList& command :
             {QStringList{u"check"_s, u"--home"_s, home}, QStringList{u"verify"_s, u"--home"_s, home},
              QStringList{u"conferir"_s, u"--home"_s, home},
              QStringList{u"backup"_s, u"--home"_s, home, folder.filePath(u"copia-%1.fbk"_s.arg(milliseconds))},
              QStringList{u"create"_s, u"--home"_s, folder.filePath(u"nova-%1"_s.arg(milliseconds))}}) {
            const std::optional<Outcome> outcome = interruptAfter(milliseconds, command);
            if (!outcome || outcome->error.isEmpty())
                continue; // it had not begun, or had come to its end
            EXPECT_EQ(outcome->error, interrupted()) << command.front() << " after " << milliseconds;
            EXPECT_EQ(outcome->out, QString()) << command.front() << " after " << milliseconds;
            ++heard;
        }
    EXPECT_GT(heard, 0);
}

TEST(Program, AListOfPostalCodesWithMistakesEndsIn1) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QString list = installed.home() + u"/lista.tsv"_s;
    installed.write(u"lista.tsv"_s, "cep\ttipo\tabreviatura\tlogradouro\tbairro\tcidade\tuf\nx\n");
    const Outcome refused = run({u"cep"_s, u"--home"_s, installed.home(), list});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.error, u"linha 2: esperados 7 campos separados por tabulação, há 1\n"
                             "1 erro(s); nada foi carregado\n"_s);
    installed.write(u"lista.tsv"_s, "cep\ttipo\tabreviatura\tlogradouro\tbairro\tcidade\tuf\n"
                                    "04000000\tRua\tR\tAlegre\tCentro\tCampinas\tSP\n");
    const Outcome loaded = run({u"cep"_s, u"--home"_s, installed.home(), list});
    EXPECT_EQ(loaded.code, 0) << loaded.error;
    EXPECT_EQ(loaded.out, u"1 logradouros carregados\n"_s);
}
