// Persons of a table on a server of the other engine, and connections that are lost in the middle of a run.

#include "base/Literals.h"
#include "data/Recordset.h"
#include "importer/ImportedTable.h"
#include "kit/Ddl.h"
#include "odbc/OdbcAdapter.h"
#include "servers/TdsServer.h"

#include <QMap>
#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;

namespace {

constexpr int persons = 8;

/// What the screens look up for the persons of `Persons`: a table, its columns, its rows.
constexpr const char* referenceRows[][3]{
    {"EMPR", R"("idempr", "codi_empr", "UF00_COML_EMPR", "STAT_CEP8")", R"([1, "0001", "SP", "S"])"},
    {"USEN", R"("IDUSEN", "usen", "NOME_USER")", R"([1, "ADMIN", "ADMINISTRADOR"])"},
    {"UF00", R"("IDUF00", "CODI_UF00")", R"([1, "SP"])"},
    {"pais", R"("idpais", "nome_pais")", R"([1, "BRASIL"])"},
    {"muni_ibge", R"("idmuni_ibge", "codi_muni_ibge", "desc_muni_ibge", "uf00_muni_ibge")",
     R"([1, "3534401", "Osasco", "SP"])"},
    {"carg", R"("idcarg", "desc_carg")", R"([1, "DIRETOR"], [2, "GERENTE"])"},
    {"ativ", R"("idativ", "desc_ativ")", R"([1, "Informática"])"},
    {"empr_cnfg", R"("idempr_cnfg", "nome_para", "valo_para")",
     R"([1, "PESS_TELA_CLIENTE", "N"], [2, "PESS_TELA_FORNECEDOR", "N"])"},
};

/// Rows of which each person has so many.
struct Share {
    data::Piece query;
    int each;
};
constexpr Share shares[]{
    {"select idpess from pess_cont", 2},
    {"select idpess from pess_ativ", 1},
    {"select idpess from clie", 1},
    {"select idpess from forn", 1},
    {"select clie.idpess from clie, pess where pess.idpess = clie.idpess and pess.idclie = clie.idclie", 1},
    {"select forn.idpess from forn, pess where pess.idpess = forn.idpess and pess.idforn = forn.idforn", 1},
};

/// An installation whose production stands on the test server, started with those options, and a table of persons.
class SqlServerOffice {
  public:
    explicit SqlServerOffice(const QStringList& options = {}) : installed_(Installed::copyOf(Installed::plain())) {
        installed_.write(u"pessoas.csv"_s, Persons(persons));
        installed_.write(u"tabelas.sql"_s, kit::Script(data::Engine::SqlServer).toUtf8());
        QByteArray lines;
        for (const auto& [table, columns, rows] : referenceRows)
            lines += QByteArray(R"({"table": ")") + table + R"(", "columns": [)" + columns + R"(], "rows": [)" + rows +
                     "]}\n";
        installed_.write(u"linhas.jsonl"_s, lines);
        const QString home = installed_.home() + u'/';
        server_ = std::make_unique<servers::TdsServer>(QStringList{u"--collation"_s, u"Latin1_General_CI_AI"_s,
                                                                   u"--ddl"_s, home + u"tabelas.sql"_s, u"--load"_s,
                                                                   home + u"linhas.jsonl"_s} +
                                                       options);
        const QStringList before = *kit::LinesOf(installed_.layout().config(u"server.ini"_s));
        installed_.write(u"config/server.ini"_s,
                         u"127.0.0.1,%1^VORTA^vorta^vorta^MS-SQL^^False^\n%2\n%3\n"_s.arg(server_->port())
                             .arg(before[1], before[2])
                             .toUtf8());
    }

    Said import(const QStringList& options) const {
        return Import(installed_, installed_.home() + u"/pessoas.csv"_s, options);
    }
    QStringList trace() const { return server_->trace(); }

    /// So many persons stand on the server, each with two contacts, a branch and its two roles.
    void expectWhole(int count) const {
        data::Connection connection([](data::Engine) { return data::MakeOdbcAdapter(); });
        connection.Open(data::Engine::SqlServer, server_->connectionString());
        const QMap<QString, int> standing = rowsByPerson(connection, "select idpess from pess");
        EXPECT_EQ(standing.size(), count);
        for (const auto& [query, each] : shares) {
            const QMap<QString, int> found = rowsByPerson(connection, query);
            EXPECT_EQ(found.keys(), standing.keys()) << qPrintable(query.toString());
            for (const auto& [person, rows] : found.asKeyValueRange())
                EXPECT_EQ(rows, each) << qPrintable(query.toString() + u' ' + person);
        }
    }

  private:
    static QMap<QString, int> rowsByPerson(data::Connection& connection, data::Piece query) {
        QMap<QString, int> rows;
        data::Recordset found;
        for (found.Open(data::Statement(query), connection); !found.Eof(); found.MoveNext())
            ++rows[found.Fields("idpess").text()];
        return rows;
    }

    Installed installed_;
    std::unique_ptr<servers::TdsServer> server_;
};

struct Loss {
    const char* description;
    QStringList options; ///< of the server that loses the connection
    int told;            ///< persons that the run counts
    int kept;            ///< persons that stand then
};

} // namespace

TEST(SqlServerImport, PersonsComeWholeAndASecondTimeNotAtAll) {
    const SqlServerOffice office;
    const Said trial = office.import({});
    EXPECT_EQ(trial.code, 0) << trial.error;
    EXPECT_TRUE(trial.out.startsWith(u"Ensaio: nada foi gravado\n%1 pessoa(s) a incluir\n"_s.arg(persons)))
        << trial.out;
    office.expectWhole(0);
    for (const bool again : {false, true}) {
        const Said said = office.import({u"--grava"_s});
        EXPECT_EQ(said.code, 0) << said.error;
        EXPECT_TRUE(said.out.contains(
            u"\n%1 pessoa(s) incluída(s)\n%2 já cadastrada(s)\n0 recusada(s)\n"_s.arg(again ? 0 : persons)
                .arg(again ? persons : 0)))
            << said.out;
        office.expectWhole(persons);
    }
}

TEST(SqlServerImport, ALostConnectionLeavesWholePersonsAndTheNextRunGoesOn) {
    const Loss losses[]{
        {"in front of a person's row", {u"--drop-on"_s, u"INSERT INTO PESS .*IMPORTADA 5'"_s}, 4, 4},
        {"among a person's contacts", {u"--drop-on"_s, u"INSERT INTO PESS_CONT .*CONTATO B 5'"_s}, 4, 4},
        {"in front of a role's link", {u"--drop-on"_s, u"UPDATE PESS SET IDFORN"_s}, 0, 0},
        {"in front of the end of a transaction", {u"--drop-on"_s, u"COMMIT"_s}, 0, 0},
        {"behind the end of a transaction, before its answer", {u"--drop-behind"_s, u"COMMIT"_s}, 0, 1},
    };
    for (const Loss& loss : losses) {
        SCOPED_TRACE(loss.description);
        const SqlServerOffice office(loss.options + QStringList{u"--drop-once"_s});
        const Said said = office.import({u"--grava"_s});
        EXPECT_EQ(said.code, 1);
        EXPECT_EQ(said.out, QString());
        const QString told = loss.told == 0
                                 ? QString()
                                 : u"A importação parou depois de %1 pessoa(s) incluída(s). Repita o comando "
                                   "para continuar: as já incluídas não se repetem\n"_s.arg(loss.told);
        EXPECT_EQ(said.error, told + u"Erro -2147467259: Falha de conexão com o banco de dados\n"_s);
        office.expectWhole(loss.kept);
        const Said next = office.import({u"--grava"_s});
        EXPECT_EQ(next.code, 0) << next.error;
        EXPECT_TRUE(next.out.contains(
            u"\n%1 pessoa(s) incluída(s)\n%2 já cadastrada(s)\n0 recusada(s)\n"_s.arg(persons - loss.kept)
                .arg(loss.kept)))
            << next.out;
        office.expectWhole(persons);
    }
}
