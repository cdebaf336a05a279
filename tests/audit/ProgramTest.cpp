#include "audit/SampleRegister.h"
#include "firebird/Services.h"
#include "kit/Loader.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>
#include <sys/mount.h>

using namespace vorta;
using namespace vorta::test;

namespace {

struct Outcome {
    int code;
    QString out, error;
};

Outcome conferir(const QStringList& arguments) {
    QProcess program;
    program.start(QString::fromUtf8(PESSOAS_BASE), QStringList{u"conferir"_s} + arguments);
    const bool ended = program.waitForFinished(120'000);
    return {ended ? program.exitCode() : -1, QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

/// The sample behind a closed connection, so that the program has it to itself.
struct ClosedSample : EmbeddedSample {
    explicit ClosedSample(const std::vector<SampleRows>& rows) : EmbeddedSample(rows) { connection().Close(); }
    QString home() const { return installed().home(); }
};

std::vector<SampleRows> nobodyHasADocument(int persons) {
    static std::vector<std::string> kept;
    kept.clear();
    for (int id = 1; id <= persons; ++id)
        kept.push_back(std::to_string(id) + ", 'PESSOA SEM DOCUMENTO " + std::to_string(id) + "'");
    SampleRows rows{"PESS", "IDPESS, NOME_PESS", {}};
    for (const std::string& each : kept)
        rows.values.push_back(each.c_str());
    return {rows};
}

/// A file system of some pages, gone with the object.
class SmallDisk {
  public:
    SmallDisk()
        : mounted_(::mount("tmpfs", folder_.path().toUtf8().constData(), "tmpfs", 0, "size=16k,mode=700") == 0) {}
    ~SmallDisk() {
        if (mounted_)
            ::umount2(folder_.path().toUtf8().constData(), MNT_DETACH);
    }
    bool mounted() const { return mounted_; }
    QString path() const { return folder_.path(); }

  private:
    QTemporaryDir folder_;
    bool mounted_;
};

} // namespace

TEST(Conferir, CountsOnTheTerminalAndWritesItsFiles) {
    const ClosedSample sample(sampleRows());
    const QTemporaryDir folder;
    const QString csv = folder.filePath(u"a.csv"_s), html = folder.filePath(u"a.html"_s);
    const Outcome outcome = conferir({u"--home"_s, sample.home(), u"--csv"_s, csv, u"--html"_s, html});
    EXPECT_EQ(outcome.code, 1) << outcome.error;
    EXPECT_EQ(outcome.error, QString());
    const QStringList lines = outcome.out.split(u'\n');
    EXPECT_EQ(lines[0], u"Base PRD: 20 pessoas conferidas, 1 delas desativadas"_s);
    EXPECT_TRUE(lines.contains(u"        3  Sem documento"_s)) << outcome.out;
    EXPECT_TRUE(lines.contains(u"        2  Mesmo telefone"_s)) << outcome.out;
    EXPECT_TRUE(lines.contains(u"41 achado(s)"_s)) << outcome.out;
    QFile sheet(csv), page(html);
    ASSERT_TRUE(sheet.open(QIODevice::ReadOnly) && page.open(QIODevice::ReadOnly));
    EXPECT_EQ(sheet.readAll().count('\n'), 42);
    EXPECT_TRUE(page.readAll().contains("BETO"));
}

TEST(Conferir, AnEmptyRegisterHasNothingToMend) {
    const Outcome outcome = conferir({u"--home"_s, Installed::plain().home(), u"--base"_s, u"DEV"_s});
    EXPECT_EQ(outcome.code, 0) << outcome.error;
    EXPECT_TRUE(outcome.out.startsWith(u"Base DEV: 0 pessoas conferidas"_s)) << outcome.out;
    EXPECT_TRUE(outcome.out.endsWith(u"Nada a corrigir\n"_s)) << outcome.out;
}

TEST(Conferir, FillsMunicipalCodesOnlyWhenTold) {
    const ClosedSample sample(sampleRows());
    const QString query = u"SELECT CODI_MUNI_COML_PESS FROM PESS WHERE IDPESS = 2"_s;
    const QStringList words{u"--home"_s, sample.home(), u"--corrige-municipios"_s};
    const Outcome trial = conferir(words);
    EXPECT_EQ(trial.code, 0) << trial.error;
    EXPECT_TRUE(trial.out.contains(u"1 código(s) de município seriam preenchidos"_s)) << trial.out;
    EXPECT_EQ(sample.rows(query), QStringList(QString()));
    const Outcome outcome = conferir(words + QStringList{u"--grava"_s});
    EXPECT_EQ(outcome.code, 0) << outcome.error;
    EXPECT_TRUE(outcome.out.contains(u"1 código(s) de município preenchido(s)"_s)) << outcome.out;
    EXPECT_EQ(sample.rows(query), QStringList(u"3550308"_s));
}

TEST(Conferir, WrongUseEndsIn2) {
    const QString home = Installed::plain().home();
    for (const QStringList& words :
         {QStringList{}, QStringList{u"--home"_s}, QStringList{u"--home"_s, home, u"mais"_s},
          QStringList{u"--home"_s, home, u"--base"_s, u"CEP"_s},
          QStringList{u"--home"_s, home, u"--base"_s, u"OUTRA"_s}, QStringList{u"--home"_s, home, u"--grava"_s},
          QStringList{u"--home"_s, home, u"--corrige-municipios"_s, u"--html"_s, u"x"_s}}) {
        const Outcome outcome = conferir(words);
        EXPECT_EQ(outcome.code, 2) << words.join(u' ');
        EXPECT_TRUE(outcome.error.startsWith(u"uso: pessoas-base"_s));
    }
}

TEST(Conferir, TellsInPortugueseWhatIsMissing) {
    const Outcome nowhere = conferir({u"--home"_s, u"/nao/existe"_s});
    EXPECT_EQ(nowhere.code, 1);
    EXPECT_EQ(nowhere.error, u"/nao/existe não contém uma instalação\n"_s);

    const Installed gone = Installed::copyOf(Installed::plain());
    ASSERT_TRUE(QFile::remove(gone.production()));
    const Outcome missing = conferir({u"--home"_s, gone.home()});
    EXPECT_EQ(missing.code, 1);
    EXPECT_TRUE(missing.error.contains(u"o arquivo da base não existe"_s)) << missing.error;
    EXPECT_TRUE(missing.error.contains(u"O Servidor de dados não está respondendo."_s)) << missing.error;

    const Installed other = Installed::copyOf(Installed::plain());
    ASSERT_TRUE(QFile::remove(other.production()));
    other.write(QDir(other.home()).relativeFilePath(other.production()), QByteArray(100'000, 'x'));
    const Outcome wrong = conferir({u"--home"_s, other.home()});
    EXPECT_EQ(wrong.code, 1);
    EXPECT_FALSE(wrong.error.isEmpty());
}

TEST(Conferir, ABaseThatIsClosedIsTold) {
    const ClosedSample sample(sampleRows());
    firebird::ShutDown(firebird::ReadConnectionText(sample.installed().production()));
    const QTemporaryDir folder;
    const Outcome outcome =
        conferir({u"--home"_s, sample.home(), u"--csv"_s, folder.filePath(u"a.csv"_s), u"--corrige-municipios"_s});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.error.contains(u"fechada"_s)) << outcome.error;
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(Conferir, AFullDiskLeavesNoFile) {
    const ClosedSample sample(nobodyHasADocument(600));
    const SmallDisk disk;
    if (!disk.mounted())
        GTEST_SKIP() << "only root can mount a small disk";
    const Outcome outcome = conferir({u"--home"_s, sample.home(), u"--csv"_s, disk.path() + u"/a.csv"_s});
    EXPECT_EQ(outcome.code, 1) << outcome.out;
    EXPECT_EQ(outcome.error, u"O arquivo %1/a.csv não pôde ser gravado: o disco está cheio\n"_s.arg(disk.path()));
    EXPECT_TRUE(QDir(disk.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
    const Outcome unwritable = conferir({u"--home"_s, sample.home(), u"--html"_s, u"/nao/existe/a.html"_s});
    EXPECT_EQ(unwritable.code, 1);
    EXPECT_EQ(unwritable.error,
              u"O arquivo /nao/existe/a.html não pôde ser gravado: a pasta /nao/existe não existe\n"_s);
}
