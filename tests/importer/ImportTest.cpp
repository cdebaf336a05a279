// Persons of a table, entered by the program on installations of its own.

#include "base/Literals.h"
#include "importer/ImportedTable.h"
#include "kit/Documents.h"
#include "kit/Loader.h"

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>
#include <functional>
#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;

namespace {

/// A plain installation with a table in it.
struct Office {
    explicit Office(const QByteArray& table, bool linksAtOnce = true)
        : installed(Installed::copyOf(Installed::plain())) {
        installed.write(u"pessoas.csv"_s, table);
        if (linksAtOnce)
            for (const QString& role : {u"PESS_TELA_CLIENTE"_s, u"PESS_TELA_FORNECEDOR"_s})
                Switch(installed, role, u"N"_s);
    }
    Said import(const QStringList& options = {}) const { return Import(installed, file(), options); }
    QString file() const { return installed.home() + u"/pessoas.csv"_s; }
    QString refused() const { return installed.home() + u"/pessoas.recusadas.csv"_s; }
    QString textOf(const QString& path) const {
        QFile read(path);
        return read.open(QIODevice::ReadOnly) ? QString::fromUtf8(read.readAll()) : QString();
    }

    Installed installed;
};

const QStringList writing{u"--grava"_s};
const QByteArray head =
    "NOME_PESS;CPF0_CNPJ;ENDE_COML_PESS;BAIR_COML_PESS;CIDA_COML_PESS;UF00_COML_PESS;CEP0_COML_PESS";

QByteArray cpf(quint64 number) {
    return kit::Cpf(8'000'000 + number);
}

/// The obligatory cells of a person.
QByteArray plain(const QByteArray& name, const QByteArray& document) {
    return name + ';' + document + ";Rua Um;Centro;Osasco;SP;06010-000";
}

/// Kills runs at any moment and then lets one go on to the end; `expectWhole` looks at so many persons each time.
void killAndGoOn(const Office& office, qint64 persons, const std::function<void(qint64)>& expectWhole) {
    qint64 before = 0;
    for (int round = 0; round < 4; ++round) {
        QProcess program;
        program.start(QString::fromUtf8(PESSOAS_BASE),
                      {u"importar"_s, u"--home"_s, office.installed.home(), u"--grava"_s, office.file()});
        ASSERT_TRUE(program.waitForStarted());
        QThread::msleep(static_cast<unsigned long>(QRandomGenerator::global()->bounded(40, 400)));
        program.kill();
        program.waitForFinished();
        const qint64 now = Number(office.installed, u"SELECT COUNT(*) FROM PESS"_s);
        EXPECT_GE(now, before);
        expectWhole(now);
        before = now;
    }
    const Said said = office.import(writing);
    EXPECT_EQ(said.code, 0) << said.error;
    EXPECT_TRUE(said.out.contains(u"%1 já cadastrada(s)"_s.arg(before))) << said.out;
    expectWhole(persons);
}

} // namespace

TEST(Import, ATrialEntersEverybodyAndLeavesNothing) {
    const Office office(Persons(12));
    const QString generators =
        u"SELECT GEN_ID(GEN_PESS, 0), GEN_ID(GEN_PESS_CONT, 0), GEN_ID(GEN_CLIE, 0) FROM RDB$DATABASE"_s;
    const auto before = Rows(office.installed, generators);
    const Said said = office.import();
    EXPECT_EQ(said.code, 0) << said.error;
    EXPECT_EQ(said.out, u"Ensaio: nada foi gravado\n12 pessoa(s) a incluir\n0 já cadastrada(s)\n0 recusada(s)\n"
                        "Para gravar, repita o comando com --grava\n");
    ExpectWholePersons(office.installed, 0);
    EXPECT_EQ(Rows(office.installed, generators), before);
    EXPECT_FALSE(QFile::exists(office.refused()));
}

TEST(Import, PersonsComeWholeAndASecondTimeNotAtAll) {
    const Office office(Persons(12));
    const Said said = office.import(writing);
    EXPECT_EQ(said.code, 0) << said.error;
    EXPECT_TRUE(said.out.contains(u"12 pessoa(s) incluída(s)\n0 já cadastrada(s)\n0 recusada(s)\n"_s)) << said.out;
    ExpectWholePersons(office.installed, 12);
    const auto rows = Rows(office.installed,
                           u"SELECT NOME_PESS, NOME_CONH, PSFI_PSJU, CPF0_CNPJ, ENDE_COML_PESS, CIDA_COML_PESS, "
                           "CODI_MUNI_COML_PESS, CEP0_COML_PESS, PAIS_COML_PESS, EMAI_PESS, USER_INCL FROM PESS WHERE "
                           "NUME_COML_PESS = '3'"_s);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0], (QStringList{u"IMPORTADA 3"_s, u"IMPORTADA 3"_s, u"F"_s,
                                    QString::fromLatin1(kit::Cpf(7'000'003)), u"RUA DA IMPORTACAO"_s, u"OSASCO"_s,
                                    u"3534401"_s, u"01310-100"_s, u"BRASIL"_s, u"A3@EXEMPLO.COM.BR"_s, u"1"_s}));
    EXPECT_EQ(Rows(office.installed, u"SELECT CARG_PESS_CONT, NOME_PESS_CONT, DATA_NASC FROM PESS_CONT WHERE "
                                     "NOME_PESS_CONT = 'CONTATO B 3'"_s)[0],
              (QStringList{u"GERENTE"_s, u"CONTATO B 3"_s, u"05/08"_s}));

    for (const QStringList& options : {QStringList(), writing}) {
        const Said again = office.import(options);
        EXPECT_EQ(again.code, 0) << again.error;
        EXPECT_TRUE(again.out.contains(u"\n12 já cadastrada(s)\n0 recusada(s)\n"_s)) << again.out;
    }
    ExpectWholePersons(office.installed, 12);
}

TEST(Import, RefusedRowsAreMendedAndImportedAgain) {
    const Office office(head + ";EMAI_PESS;NUME_COML_PESS;IDVEND;RAMO1;TELE_0001_PESS\n" + plain("Boa", cpf(1)) + "\n" +
                        plain("CPF errado", "111.222.333-44") + "\n" + plain("", cpf(3)) + "\n" +
                        plain("E-mail", cpf(4)) + ";sem-arroba\n" + plain("Apóstrofo", cpf(5)) + ";;D'água\n" +
                        plain("Vendedor", cpf(6)) + ";;;NINGUEM\n" + plain("Ramo", cpf(7)) + ";;;;Pesca em Marte\n" +
                        plain(QByteArray(51, 'x'), cpf(8)) + "\nSem rua;" + cpf(9) + ";;Centro;Osasco;SP;06010-000\n" +
                        plain("Fone", cpf(10)) + ";;;;;123\n" + plain("Boa outra vez", cpf(1)) + "\n" +
                        plain("=Fórmula", "x") + "\n" + plain("Última", cpf(12)) + "\n");
    for (const bool trial : {true, false}) {
        const Said said = office.import(trial ? QStringList() : writing);
        EXPECT_EQ(said.code, 1) << said.error;
        EXPECT_TRUE(said.out.contains(u"11 recusada(s)\n"_s)) << said.out;
    }
    EXPECT_EQ(Number(office.installed, u"SELECT COUNT(*) FROM PESS"_s), 2);
    EXPECT_EQ(Number(office.installed, u"SELECT COUNT(*) FROM PESS_ATIV"_s), 0);

    const QString list = office.textOf(office.refused());
    const QStringList lines = list.split(u"\r\n"_s, Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 12) << list;
    EXPECT_TRUE(lines[0].startsWith(u"MOTIVO;LINHA;NOME_PESS;CPF0_CNPJ;"_s)) << lines[0];
    const char16_t* const reasons[]{
        u"CPF Incorreto!;3;",
        u"Nome Inválido!!!;4;",
        u"\"O nº de arrobas (@) do e-mail é inválido!!!",
        u"txtNumero: o campo não aceita apóstrofo;6;",
        u"\"cboVendedor: não existe vendedor \"\"NINGUEM\"\"\";7;",
        u"\"Esta Atividade não Existe!; ramo de atividade: \"\"Pesca em Marte\"\"\";8;",
        u"txtDescricao: 51 caracteres, cabem 50;9;",
        u"Endereço Comercial Inválido!;10;",
        u"Obrigatório Informar um Telefone!;11;",
        u"a mesma pessoa já está na linha 2 do arquivo;12;",
        u"\"mskCodigo: o campo não aceita \"\"x\"\"\";13;'=Fórmula;",
    };
    for (size_t at = 0; at < std::size(reasons); ++at)
        EXPECT_TRUE(lines[static_cast<qsizetype>(at) + 1].startsWith(QString::fromUtf16(reasons[at])))
            << lines[static_cast<qsizetype>(at) + 1];
    EXPECT_EQ(office.textOf(office.installed.home() + u"/pessoas.recusadas-2.csv"_s), list);

    office.installed.write(u"pessoas.recusadas.csv"_s,
                           QString(list).replace(u"111.222.333-44"_s, QString::fromLatin1(cpf(2))).toUtf8());
    const Said mended = Import(office.installed, office.refused(), writing);
    EXPECT_TRUE(mended.out.contains(u"1 pessoa(s) incluída(s)\n0 já cadastrada(s)\n10 recusada(s)\n"_s)) << mended.out;
    EXPECT_EQ(office.textOf(office.installed.home() + u"/pessoas.recusadas.recusadas.csv"_s).count(u"MOTIVO"_s), 1);
}

TEST(Import, TheCheckedEntryIsWalkedWhereTheCompanyAsksForIt) {
    const Office office(head + "\n" + plain("Primeira", cpf(1)) + "\n" + plain("Primeira", cpf(2)) + "\n" +
                        plain("Sem documento", "") + "\n" + plain("Sem documento", "") + "\n" +
                        plain("Joana d'Arc", cpf(3)) + "\n");
    Switch(office.installed, u"PESS_CHECA_ENTRADA"_s, u"S"_s);
    const Said said = office.import(writing);
    EXPECT_TRUE(said.out.contains(u"3 pessoa(s) incluída(s)\n0 já cadastrada(s)\n2 recusada(s)\n"_s)) << said.out;
    const auto rows = Rows(office.installed, u"SELECT NOME_PESS, NOME_CONH, CPF0_CNPJ FROM PESS ORDER BY IDPESS"_s);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0], (QStringList{u"PRIMEIRA"_s, u"PRIMEIRA"_s, QString::fromLatin1(cpf(1))}));
    EXPECT_EQ(rows[1], (QStringList{u"SEM DOCUMENTO"_s, u"SEM DOCUMENTO"_s, u"000.000.000-00"_s}));
    EXPECT_EQ(rows[2][0], u"JOANA D\u00b4ARC");
    const QString list = office.textOf(office.refused());
    EXPECT_TRUE(list.contains(u"Já Existe Cadastro Com Esta Razão Social"_s)) << list;
    EXPECT_TRUE(list.contains(u"a mesma pessoa já está na linha 4 do arquivo;5;"_s)) << list;
    const Said again = office.import(writing);
    EXPECT_TRUE(again.out.contains(u"0 pessoa(s) incluída(s)\n3 já cadastrada(s)\n2 recusada(s)\n"_s)) << again.out;
}

TEST(Import, RolesComeByTheirScreensWithTheirFields) {
    const Office office("NOME_PESS;CPF0_CNPJ;ENDE_COML_PESS;BAIR_COML_PESS;CIDA_COML_PESS;UF00_COML_PESS;"
                        "CEP0_COML_PESS;PAPEIS;CLIENTE.txtLimiCred;CLIENTE.cboRevenda;ARQUITETO.txtCREA;"
                        "MOTORISTA.txtCNH\n" +
                            plain("Todos", cpf(1)) +
                            ";Cliente Fornecedor Transportadora Vendedor Motorista Arquiteto Decorador;1500,00;Sim;"
                            "C-9;777\n" +
                            plain("Campo alheio", cpf(2)) + ";Cliente;abc\n",
                        false);
    const Said said = office.import(writing);
    EXPECT_EQ(said.code, 1) << said.error;
    EXPECT_TRUE(said.out.contains(u"1 pessoa(s) incluída(s)"_s)) << said.out << office.textOf(office.refused());
    EXPECT_EQ(Rows(office.installed, u"SELECT LIMI_CRED, REVE FROM CLIE"_s)[0], (QStringList{u"1500"_s, u"S"_s}));
    EXPECT_EQ(Rows(office.installed, u"SELECT ARQT_CREA FROM ARQT"_s)[0][0], u"C-9");
    EXPECT_EQ(Rows(office.installed, u"SELECT CNH0_MOTO FROM MOTO"_s)[0][0], u"777");
    for (const char* table : {"CLIE", "FORN", "TRPT", "VEND", "MOTO", "ARQT", "DECO", "PESS"})
        EXPECT_EQ(Number(office.installed, u"SELECT COUNT(*) FROM "_s + QString::fromLatin1(table)), 1) << table;
}

TEST(Import, RolesComeWithTheirContacts) {
    const QByteArray roles[]{"CLIENTE", "FORNECEDOR", "TRANSPORTADORA", "ARQUITETO", "DECORADOR"};
    QByteArray table = head + ";PAPEIS", cells = ";Cliente Fornecedor Transportadora Arquiteto Decorador";
    for (const QByteArray& role : roles) {
        for (const char* column : {"1_TIPO", "1_NOME", "1_FONE", "1_EMAIL", "2_ANIVERSARIO", "2_NOME", "2_TIPO"})
            table += ';' + role + ".CONTATO" + column;
        cells += ";Diretor;Rui de " + role + ";11 5555-0000;rui@exemplo.com.br;5/8;Ana de " + role + ";Gerente";
    }
    table += '\n' + plain("Todos", cpf(1)) + cells + '\n' + plain("Nenhum", cpf(2)) + ";Cliente Fornecedor\n" +
             plain("Sem tipo", cpf(3)) + ";Cliente;;Rui\n" + plain("Sem arroba", cpf(4)) +
             ";Cliente;Diretor;Rui;;sem-arroba\n" + plain("Sem dia", cpf(5)) +
             ";Cliente;Diretor;Rui;;;31/2;Ana;Gerente\n" + plain("Sem papel", cpf(6)) + ";Fornecedor;Diretor;Rui\n";
    const Office office(table, false);
    const Said said = office.import(writing);
    const QString list = office.textOf(office.refused());
    EXPECT_TRUE(said.out.contains(u"2 pessoa(s) incluída(s)\n0 já cadastrada(s)\n4 recusada(s)\n"_s))
        << said.out << list;
    for (const char* words :
         {"um contato de Cliente precisa de tipo e de nome;4;", "O nº de arrobas (@) do e-mail é inválido!!!",
          "Data Inválida!", "Há dados de Cliente, que não está em PAPEIS;7;"})
        EXPECT_TRUE(list.contains(QString::fromUtf8(words))) << words << '\n' << qPrintable(list);
    for (const char* role : {"CLIE", "FORN", "TRPT", "ARQT", "DECO"}) {
        const QString contacts = QString::fromLatin1(role) + u"_CONT"_s;
        const auto rows =
            Rows(office.installed,
                 u"SELECT CARG_%1, NOME_%1, TELE_%1, EMAI_%1, DATA_NASC FROM %1 ORDER BY NOME_%1 DESC"_s.arg(contacts));
        ASSERT_EQ(rows.size(), 2U) << role;
        EXPECT_TRUE(rows[0][1].startsWith(u"RUI DE "_s)) << qPrintable(rows[0].join(u'|'));
        EXPECT_EQ(rows[0][3] + u'|' + rows[0][2], u"RUI@EXEMPLO.COM.BR|11 5555-0000");
        EXPECT_EQ(rows[1][0] + u'|' + rows[1][4], u"GERENTE|05/08");
        EXPECT_EQ(Number(office.installed,
                         u"SELECT COUNT(*) FROM %1 C JOIN %2 R ON R.ID%2 = C.ID%2 JOIN PESS P ON P.IDPESS = R.IDPESS "
                         "WHERE P.NOME_PESS = 'TODOS'"_s.arg(contacts, QString::fromLatin1(role))),
                  2);
    }
    EXPECT_EQ(Number(office.installed, u"SELECT COUNT(*) FROM CLIE"_s), 2);
}

TEST(Import, NamesBehindTheKeysOfARoleMustExist) {
    const Office office(head +
                            ";PAPEIS;CLIENTE.cboTipoCli;CLIENTE.cboVendedor;CLIENTE.cboRegimeEspecialICMS;"
                            "ARQUITETO.cboBancoCartao\n" +
                            plain("Boa", cpf(1)) + ";Cliente Arquiteto;OURO;;;BANCO DO BRASIL S.A.\n" +
                            plain("Tipo", cpf(2)) + ";Cliente;LATA\n" + plain("Vendedor", cpf(3)) +
                            ";Cliente;;NINGUEM\n" + plain("Regime", cpf(4)) + ";Cliente;;;NENHUM\n" +
                            plain("Banco", cpf(5)) + ";Arquiteto;;;;NENHUM\n",
                        false);
    const Said said = office.import(writing);
    const QString list = office.textOf(office.refused());
    EXPECT_TRUE(said.out.contains(u"1 pessoa(s) incluída(s)\n0 já cadastrada(s)\n4 recusada(s)\n"_s))
        << said.out << list;
    for (const char* words : {"não existe tipo de cliente \"\"LATA\"\"", "não existe vendedor \"\"NINGUEM\"\"",
                              "não existe regime especial \"\"NENHUM\"\"", "Banco Inválido"})
        EXPECT_TRUE(list.contains(QString::fromUtf8(words))) << words << '\n' << qPrintable(list);
    EXPECT_EQ(Number(office.installed, u"SELECT COUNT(*) FROM CLIE WHERE IDTIPO_CLIE > 0"_s), 1);
}

TEST(Import, ACompanyWithoutTheScreenOfARoleTakesNoContactsOfIt) {
    const Office office(head + ";PAPEIS;CLIENTE.CONTATO1_TIPO;CLIENTE.CONTATO1_NOME\n" + plain("Com", cpf(1)) +
                        ";Cliente;Diretor;Rui\n" + plain("Sem", cpf(2)) + ";Cliente\n");
    const Said said = office.import(writing);
    EXPECT_TRUE(said.out.contains(u"1 pessoa(s) incluída(s)\n0 já cadastrada(s)\n1 recusada(s)\n"_s)) << said.out;
    EXPECT_TRUE(
        office.textOf(office.refused())
            .contains(u"a empresa liga Cliente sem tela: os seus campos e contatos não podem ser informados"_s));
    EXPECT_EQ(Number(office.installed, u"SELECT COUNT(*) FROM CLIE"_s), 1);
}

TEST(Import, ARoleThatCannotBeHadTakesThePersonBack) {
    const Office office(Persons(3));
    Switch(office.installed, u"PESS_BOTAO_FORNECEDOR"_s, u"N"_s);
    const Said said = office.import(writing);
    EXPECT_TRUE(said.out.contains(u"0 pessoa(s) incluída(s)\n0 já cadastrada(s)\n3 recusada(s)\n"_s)) << said.out;
    EXPECT_TRUE(office.textOf(office.refused()).contains(u"a empresa não usa o papel Fornecedor;4;"_s));
    ExpectWholePersons(office.installed, 0);
}

TEST(Import, ColumnsOfOtherNamesCommasAndWindowsLetters) {
    const Office office("Raz\xE3o,Documento,Rua,BAIR_COML_PESS,CIDA_COML_PESS,UF00_COML_PESS,CEP0_COML_PESS,Saldo\r\n"
                        "A\xE7o,\"" +
                        cpf(1) + "\",\"Rua Um, fundos\",Centro,S\xE3o Paulo,SP,1310100,\"1,50\"\r\n");
    office.installed.write(u"nomes.txt"_s,
                           "# nomes\nRazão = NOME_PESS\nDocumento=mskCodigo\n\nRua = txtEndereco\nSaldo = -\n");
    const Said said = office.import({u"--grava"_s, u"--colunas"_s, office.installed.home() + u"/nomes.txt"_s});
    EXPECT_EQ(said.code, 0) << said.error;
    EXPECT_EQ(
        Rows(office.installed, u"SELECT NOME_PESS, ENDE_COML_PESS, CEP0_COML_PESS, CODI_MUNI_COML_PESS FROM PESS"_s)[0],
        (QStringList{u"ACO"_s, u"RUA UM, FUNDOS"_s, u"01310-100"_s, u"3550308"_s}));
}

TEST(Import, KilledAnywhereLeavesWholePersonsAndGoesOn) {
    constexpr int persons = 40;
    const Office office(Persons(persons));
    killAndGoOn(office, persons, [&](qint64 count) { ExpectWholePersons(office.installed, count); });
}

TEST(Import, KilledAnywhereLeavesWholeRolesOfTheirScreens) {
    constexpr int persons = 40;
    QByteArray table = head + ";PAPEIS;ARQUITETO.CONTATO1_TIPO;ARQUITETO.CONTATO1_NOME;ARQUITETO.CONTATO2_TIPO;"
                              "ARQUITETO.CONTATO2_NOME\n";
    for (int number = 1; number <= persons; ++number)
        table += plain("Arquiteta " + QByteArray::number(number), cpf(static_cast<quint64>(number))) +
                 ";Arquiteto;Diretor;Rui;Gerente;Ana\n";
    const Office office(table, false);
    killAndGoOn(office, persons, [&](qint64 count) {
        const QString whole = u"SELECT COUNT(*) FROM PESS P JOIN ARQT R ON R.IDPESS = P.IDPESS AND R.IDARQT = P.IDARQT "
                              "WHERE (SELECT COUNT(*) FROM ARQT_CONT C WHERE C.IDARQT = R.IDARQT) = 2"_s;
        EXPECT_EQ(Number(office.installed, u"SELECT COUNT(*) FROM PESS"_s), count);
        EXPECT_EQ(Number(office.installed, whole), count);
        EXPECT_EQ(Number(office.installed, u"SELECT COUNT(*) FROM ARQT_CONT"_s), 2 * count);
    });
}
