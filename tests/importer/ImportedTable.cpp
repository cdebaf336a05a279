#include "importer/ImportedTable.h"

#include "base/Literals.h"
#include "kit/Documents.h"
#include "kit/Loader.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace vorta::test {

Said Import(const Installed& installed, const QString& file, const QStringList& options) {
    QProcess program;
    program.start(QString::fromUtf8(PESSOAS_BASE),
                  QStringList{u"importar"_s, u"--home"_s, installed.home()} + options + QStringList{file});
    const bool ended = program.waitForFinished(240'000);
    return {ended ? program.exitCode() : -1, QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

QByteArray Persons(int count, int from) {
    QByteArray table = "NOME_PESS;CPF0_CNPJ;CEP0_COML_PESS;ENDE_COML_PESS;NUME_COML_PESS;BAIR_COML_PESS;UF00_COML_PESS;"
                       "CIDA_COML_PESS;TELE_0001_PESS;EMAI_PESS;CONTATO1_TIPO;CONTATO1_NOME;CONTATO2_TIPO;"
                       "CONTATO2_NOME;CONTATO2_ANIVERSARIO;RAMO1;PAPEIS\r\n";
    for (int number = from; number < from + count; ++number) {
        const QByteArray mark = QByteArray::number(number);
        table += "Importada " + mark + ';' + kit::Cpf(static_cast<quint64>(7'000'000 + number)) +
                 ";01310-100;Rua da Importação;" + mark + ";Centro;SP;Osasco;11 4000-0001;a" + mark +
                 "@exemplo.com.br;Diretor;Contato A " + mark + ";Gerente;Contato B " + mark +
                 ";5/8;Informática;Cliente, Fornecedor\r\n";
    }
    return table;
}

std::vector<QStringList> Rows(const Installed& installed, const QString& query) {
    return kit::Loader(installed.production()).rows(query);
}

qint64 Number(const Installed& installed, const QString& query) {
    return kit::Loader(installed.production()).number(query);
}

void Switch(const Installed& installed, const QString& name, const QString& value) {
    kit::Loader loader(installed.production());
    loader.run(u"INSERT INTO EMPR_CNFG (IDEMPR_CNFG, NOME_PARA, VALO_PARA) VALUES (GEN_ID(GEN_PESS, 0) + 900 + "
               "(SELECT COUNT(*) FROM EMPR_CNFG), '%1', '%2')"_s.arg(name, value));
    loader.commit();
}

void ExpectWholePersons(const Installed& installed, qint64 count) {
    kit::Loader loader(installed.production());
    EXPECT_EQ(loader.number(u"SELECT COUNT(*) FROM PESS"_s), count);
    EXPECT_EQ(loader.number(u"SELECT COUNT(DISTINCT CPF0_CNPJ) FROM PESS"_s), count);
    EXPECT_EQ(loader.number(u"SELECT COUNT(*) FROM PESS P WHERE (SELECT COUNT(*) FROM PESS_CONT C WHERE C.IDPESS = "
                            "P.IDPESS) = 2 AND (SELECT COUNT(*) FROM PESS_ATIV A WHERE A.IDPESS = P.IDPESS) = 1 AND "
                            "P.IDCLIE = (SELECT IDCLIE FROM CLIE WHERE IDPESS = P.IDPESS) AND "
                            "P.IDFORN = (SELECT IDFORN FROM FORN WHERE IDPESS = P.IDPESS)"_s),
              count);
    for (const QString& table : {u"PESS_CONT"_s, u"PESS_ATIV"_s, u"CLIE"_s, u"FORN"_s})
        EXPECT_EQ(loader.number(u"SELECT COUNT(*) FROM "_s + table), table == u"PESS_CONT" ? 2 * count : count)
            << qPrintable(table);
}

} // namespace vorta::test
