// Files that are no tables, bases that cannot be used.

#include "base/Literals.h"
#include "importer/ImportedTable.h"
#include "kit/Loader.h"
#include "kit/SmallDisk.h"
#include "servers/FirebirdServer.h"

#include <QDir>
#include <QFile>
#include <future>
#include <gtest/gtest.h>

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
    const Installed installed = Installed::copyOf(Installed::plain());
    const QString file = installed.home() + u"/x.csv"_s;
    for (const QString& role : {u"PESS_TELA_CLIENTE"_s, u"PESS_TELA_FORNECEDOR"_s})
        Switch(installed, role, u"N"_s);
    installed.write(u"x.csv"_s, Persons(2000));
    // The locks have their room elsewhere: the run begins, and the base grows into what is left of its own.
    SmallDisk disk(installed.home() + u"/base"_s, "size=40m,mode=0755");
    NEED_MOUNTED(disk);
    disk.fill();
    const Said said = Import(installed, file, writing);
    disk.empty();
    const qint64 kept = Number(installed, u"SELECT COUNT(*) FROM PESS"_s);
    std::printf("%lld persons before the disk was full\n", static_cast<long long>(kept));
    EXPECT_GT(kept, 0);
    EXPECT_LT(kept, 2000);
    EXPECT_EQ(said.code, 1);
    EXPECT_EQ(said.out, QString());
    EXPECT_TRUE(said.error.startsWith(u"A importação parou depois de %1 pessoa(s) incluída(s). Repita o comando para "
                                      "continuar: as já incluídas não se repetem\n"_s.arg(kept)))
        << said.error;
    EXPECT_TRUE(said.error.contains(u"o disco está cheio"_s)) << said.error;
    ExpectWholePersons(installed, kept);
    const Said again = Import(installed, file, writing);
    EXPECT_EQ(again.code, 0) << again.error;
    EXPECT_TRUE(again.out.contains(u"\n%1 já cadastrada(s)\n0 recusada(s)\n"_s.arg(kept))) << again.out;
    ExpectWholePersons(installed, 2000);
}

TEST(FaultyImport, AServerThatFallsLeavesWholePersonsAndTheNextRunGoesOn) {
    constexpr int persons = 120;
    const Installed installed = Installed::copyOf(Installed::plain());
    const QString file = installed.home() + u"/x.csv"_s;
    for (const QString& role : {u"PESS_TELA_CLIENTE"_s, u"PESS_TELA_FORNECEDOR"_s})
        Switch(installed, role, u"N"_s);
    installed.write(u"x.csv"_s, Persons(persons));
    const QStringList before = *kit::LinesOf(installed.layout().config(u"server.ini"_s));
    Said said;
    qint64 seen = 0;
    {
        servers::FirebirdServer server;
        const QString connection = server.connectionString(installed.production());
        installed.write(
            u"config/server.ini"_s,
            u"127.0.0.1^pessoas^^^FIREBIRD^%1^False^\n%2\n%3\n"_s.arg(connection, before[1], before[2]).toUtf8());
        kit::Loader watch(connection);
        std::future<Said> run = std::async(std::launch::async, [&] { return Import(installed, file, writing); });
        for (; seen < 5 && run.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready; watch.commit())
            seen = watch.number(u"SELECT COUNT(*) FROM PESS"_s);
        server.kill();
        said = run.get();
    }
    installed.write(u"config/server.ini"_s, before.join(u'\n').toUtf8());
    const qint64 kept = Number(installed, u"SELECT COUNT(*) FROM PESS"_s);
    std::printf("%lld persons before the server fell\n", static_cast<long long>(kept));
    EXPECT_GE(kept, seen);
    EXPECT_LT(kept, persons);
    EXPECT_EQ(said.code, 1);
    EXPECT_EQ(said.out, QString());
    // The first line is the journal's, of the closing that found nobody. The last person may stand and be told to
    // nobody.
    const auto told = [](qint64 count) {
        return u"%1\nA importação parou depois de %2 pessoa(s) incluída(s). Repita o comando para continuar: as já "
               "incluídas não se repetem\nErro -2147467259: %1\n"_s
                   .arg(u"A ligação com o servidor do banco de dados caiu"_s)
                   .arg(count);
    };
    EXPECT_TRUE(said.error == told(kept) || said.error == told(kept - 1)) << said.error;
    ExpectWholePersons(installed, kept);
    const Said again = Import(installed, file, writing);
    EXPECT_EQ(again.code, 0) << again.error;
    ExpectWholePersons(installed, persons);
}
