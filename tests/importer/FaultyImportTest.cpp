// Files that are no tables, bases that cannot be used.

#include "base/Literals.h"
#include "importer/ImportedTable.h"
#include "kit/Loader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/mount.h>

using namespace vorta;
using namespace vorta::test;

namespace {

const QStringList writing{u"--grava"_s};

/// The program refuses the file in these words, before anything is written.
void expectRefused(const Installed& installed, const QString& file, const QString& words) {
    const Said said = Import(installed, file, writing);
    EXPECT_EQ(said.code, 1);
    EXPECT_TRUE(said.error.contains(words)) << said.error;
    EXPECT_EQ(said.out, QString());
    EXPECT_EQ(Number(installed, u"SELECT COUNT(*) FROM PESS"_s), 0);
}

} // namespace

TEST(FaultyImport, FilesOfOtherKinds) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QString home = installed.home(), file = home + u"/x.csv"_s;
    expectRefused(installed, home + u"/nada.csv"_s, u"Arquivo não encontrado: "_s);
    expectRefused(installed, home, u" não é um arquivo comum"_s);
    expectRefused(installed, u"/dev/null"_s, u" não é um arquivo comum"_s);
    const std::pair<QByteArray, QString> contents[]{
        {"", u"está vazio"_s},
        {QByteArray("PK\3\4\0\0\0\0", 8), u"o arquivo não é um texto"_s},
        {QByteArray(10'000'000, 'x'), u"mais de 1 MB sem fim de registro"_s},
        {Persons(3) + "\"" + QByteArray(10'000'000, 'x'), u"mais de 1 MB sem fim de registro"_s},
        {Persons(3) + "a;\"b\r\n", u"há aspas abertas"_s},
        {"Nome;Fone\r\nA;1\r\n", u"coluna desconhecida: Nome; coluna desconhecida: Fone"_s},
    };
    for (const auto& [content, words] : contents) {
        installed.write(u"x.csv"_s, content);
        expectRefused(installed, file, words);
    }
    installed.write(u"x.csv"_s, Persons(3));
    EXPECT_TRUE(Import(installed, file, {u"--colunas"_s, home + u"/nomes"_s}).error.contains(u"não pode ser lido"_s));
    installed.write(u"nomes"_s, "sem igual\n");
    EXPECT_TRUE(Import(installed, file, {u"--colunas"_s, home + u"/nomes"_s}).error.contains(u"linha 1"_s));
    EXPECT_TRUE(Import(installed, file, {u"--chamada"_s, u"1^1^PRD^True^"_s}).error.contains(u"só para consulta"_s));
    EXPECT_EQ(QDir(home).entryList({u"*recusadas*"_s}), QStringList());
}

TEST(FaultyImport, BasesThatCannotBeOpened) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QString file = installed.home() + u"/x.csv"_s;
    installed.write(u"x.csv"_s, Persons(3));
    {
        kit::Loader elsewhere(installed.production()); // with locks in another place
        const Said said = Import(installed, file, writing);
        EXPECT_EQ(said.code, 1);
        EXPECT_TRUE(said.error.contains(u"O Servidor de dados não está respondendo."_s)) << said.error;
    }
    EXPECT_EQ(Import(installed, file, {u"--chamada"_s, u"1^1^XYZ^False^"_s}).code, 1);
    QFile::remove(installed.production());
    const Said said = Import(installed, file, writing);
    EXPECT_EQ(said.code, 1);
    EXPECT_TRUE(said.error.contains(u"O Servidor de dados não está respondendo."_s)) << said.error;
}

TEST(FaultyImport, AFullDiskStopsTheRunBetweenTwoPersons) {
    const QTemporaryDir folder;
    if (::mount("tmpfs", folder.path().toUtf8().constData(), "tmpfs", 0, "size=40m,mode=0755") != 0)
        GTEST_SKIP() << "only root can mount a small disk";
    {
        const Installed installed = Installed::copyOf(Installed::plain());
        const QString base = folder.path() + u"/pessoas.fdb"_s, file = installed.home() + u"/x.csv"_s;
        for (const QString& role : {u"PESS_TELA_CLIENTE"_s, u"PESS_TELA_FORNECEDOR"_s})
            Switch(installed, role, u"N"_s);
        ASSERT_TRUE(QFile::copy(installed.production(), base));
        ASSERT_TRUE(QFile::remove(installed.production()));
        ASSERT_TRUE(QFile::link(base, installed.production()));
        QFile fill(folder.path() + u"/enchimento"_s);
        ASSERT_TRUE(fill.open(QIODevice::WriteOnly));
        while (fill.write(QByteArray(1 << 16, 'x')) == 1 << 16 && fill.flush()) {
        }
        constexpr qint64 left = 2'000'000; // the base can be opened, and grows for a while
        ASSERT_TRUE(fill.resize(fill.size() - left));
        installed.write(u"x.csv"_s, Persons(2000));
        const Said said = Import(installed, file, writing);
        EXPECT_EQ(said.code, 1);
        EXPECT_TRUE(said.error.contains(u"está cheio"_s)) << said.error;
        EXPECT_EQ(said.out, QString());
        fill.close();
        fill.remove();
        const qint64 kept = Number(installed, u"SELECT COUNT(*) FROM PESS"_s);
        EXPECT_LT(kept, 2000);
        ExpectWholePersons(installed, kept);
        std::printf("%lld persons before the disk was full\n", static_cast<long long>(kept));
        const Said again = Import(installed, file, writing);
        EXPECT_EQ(again.code, 0) << again.error;
        ExpectWholePersons(installed, 2000);
    }
    ::umount2(folder.path().toUtf8().constData(), MNT_DETACH);
}
