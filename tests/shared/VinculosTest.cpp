#include "shared/Vinculos.h"
#include "base/Literals.h"

#include "support/World.h"

using namespace vorta;
using namespace vorta::test;

namespace {

using C = ContextoExecucao;

struct FuncaoVinculo {
    QString (*vinculo)(C& contexto, const QString& idpess);
    const char* enviado;
    const char* coluna;
};

const std::vector<FuncaoVinculo> papeisTestados{
    {VinculoCliente, "SELECT IDCLIE FROM CLIE WHERE IDPESS = 7", "idclie"},
    {VinculoMotorista, "SELECT IDMOTO FROM MOTO WHERE IDPESS = 7", "idmoto"},
    {VinculoTransportadora, "SELECT IDTRPT FROM TRPT WHERE IDPESS = 7", "idtrpt"},
    {VinculoVendedor, "SELECT IDVEND FROM VEND WHERE IDPESS = 7", "idvend"},
    {VinculoFornecedor, "SELECT IDFORN FROM FORN WHERE IDPESS = 7", "idforn"},
    {VinculoDecorador, "SELECT IDDECO FROM DECO WHERE IDPESS = 7", "iddeco"},
    {VinculoArquiteto, "SELECT IDARQT FROM ARQT WHERE IDPESS = 7", "idarqt"},
};

const QStringList botoes{u"cmdCliente"_s,    u"cmdTransportadora"_s, u"cmdVendedor"_s, u"cmdMotorista"_s,
                         u"cmdFornecedor"_s, u"cmdDecorador"_s,      u"cmdArquiteto"_s};

struct Tela : screen::Screen {
    explicit Tela(screen::Program& program) : Screen(program, u"frmPessoas"_s) {}
    screen::TextField txtRowID{this, "txtRowID"};
    screen::Button cmdCliente{this, "cmdCliente"};
    screen::Button cmdTransportadora{this, "cmdTransportadora"};
    screen::Button cmdFornecedor{this, "cmdFornecedor"};
    screen::Button cmdVendedor{this, "cmdVendedor"};
    screen::Button cmdMotorista{this, "cmdMotorista"};
    screen::Button cmdDecorador{this, "cmdDecorador"};
    screen::Button cmdArquiteto{this, "cmdArquiteto"};
};

QStringList figuras(const Tela& tela) {
    QStringList nomes;
    for (const QString& botao : botoes)
        nomes += tela.field(botao).picture();
    return nomes;
}

} // namespace

TEST(Vinculos, DeactivatedRowsCountWhileTheLinkStateIsSOnly) {
    for (const FuncaoVinculo& papel : papeisTestados)
        for (const QString& estado : {u"N"_s, u" "_s, QString(), u"S"_s}) {
            World world;
            world.connect();
            world.contexto.VinculoAtual = estado;
            EXPECT_EQ(papel.vinculo(world.contexto, u"7"_s), u"0"_s);
            const QString filtro = estado == u"S" ? QString() : u" AND DATA_DESA IS NULL"_s;
            EXPECT_EQ(world.database.sent, QStringList(QString::fromUtf8(papel.enviado) + filtro));
            world.database.answer(u""_s, {{QString::fromUtf8(papel.coluna)}, {{number(12)}}});
            EXPECT_EQ(papel.vinculo(world.contexto, u"7"_s), u"12"_s);
        }
}

TEST(Vinculos, WithoutAPersonAllButtonsShowNoLinkAndNothingIsAsked) {
    World world;
    world.platform.everyFileExists = true;
    world.contexto.CaminhoImagens = u"/img/"_s;
    world.contexto.VinculoAtual = u"S"_s;
    Tela tela(world.program);
    tela.txtRowID.setText(u"  "_s);
    AtualizaIndicadoresVinculo(world.contexto, tela);
    EXPECT_EQ(figuras(tela), QStringList(7, u"/img/semvinculo.bmp"_s));
    EXPECT_EQ(world.contexto.VinculoAtual, u"N"_s);
    EXPECT_TRUE(world.database.sent.isEmpty());
}

TEST(Vinculos, EachRoleIsAskedInItsOrderAndShown) {
    World world;
    world.connect();
    world.platform.everyFileExists = true;
    world.contexto.CaminhoImagens = u"/img/"_s;
    world.contexto.VinculoAtual = u"S"_s;
    world.database.answer(u"FROM CLIE"_s, {{u"idclie"_s}, {{number(3)}}});
    world.database.answer(u"FROM MOTO"_s, {{u"idmoto"_s}, {{number(0)}}});
    world.database.answer(u"FROM ARQT"_s, {{u"idarqt"_s}, {{number(5)}}});
    Tela tela(world.program);
    tela.txtRowID.setText(u"7"_s);
    AtualizaIndicadoresVinculo(world.contexto, tela);
    QStringList tabelas;
    for (const QString& enviado : world.database.sent) {
        EXPECT_TRUE(enviado.endsWith(u" WHERE IDPESS = 7 AND DATA_DESA IS NULL")) << enviado;
        tabelas += enviado.section(u' ', 3, 3);
    }
    EXPECT_EQ(tabelas, QStringList({u"CLIE"_s, u"TRPT"_s, u"VEND"_s, u"MOTO"_s, u"FORN"_s, u"DECO"_s, u"ARQT"_s}));
    QStringList esperado(7, u"/img/semvinculo.bmp"_s);
    esperado[0] = esperado[6] = u"/img/comvinculo.bmp"_s;
    EXPECT_EQ(figuras(tela), esperado);
    EXPECT_EQ(world.contexto.VinculoAtual, u"N"_s);
}

TEST(Vinculos, AMissingPictureOrButtonIsAnError) {
    World world;
    world.contexto.CaminhoImagens = u"/img"_s;
    Tela tela(world.program);
    EXPECT_EQ(ErrorOf([&] { AtualizaIndicadoresVinculo(world.contexto, tela); }), errorNumber::FileNotFound);
    struct Outra : screen::Screen {
        explicit Outra(screen::Program& program) : Screen(program, u"frmOutra"_s) {}
        screen::TextField txtRowID{this, "txtRowID"};
    } outra(world.program);
    EXPECT_EQ(ErrorOf([&] { AtualizaIndicadoresVinculo(world.contexto, outra); }), errorNumber::NoSuchMember);
}

namespace {

struct Busca {
    const char* documento;
    const char* papel;
    const char* enviado; ///< from "FROM" on
    const char* depois;
};

} // namespace

TEST(Vinculos, DocumentsAreMaskedByTheirLength) {
    const std::vector<Busca> casos{
        {" 11144477735 ", "", "FROM PESS WHERE PESS.CPF0_CNPJ='111.444.777-35'", "111.444.777-35"},
        {"11222333000181", "", "FROM PESS WHERE PESS.CPF0_CNPJ='11.222.333/0001-81'", "11.222.333/0001-81"},
        {"12345678", "CLIENTE", "FROM PESS, CLIE WHERE PESS.IDPESS = CLIE.IDPESS AND PESS.CPF0_CNPJ LIKE '12.345.678%'",
         "12.345.678"},
        {"12abc34501de35", "", "FROM PESS WHERE PESS.CPF0_CNPJ='12.ABC.345/01DE-35'", "12.abc.345/01de-35"},
        {"12ABC345", "", "FROM PESS WHERE PESS.CPF0_CNPJ LIKE '12.ABC.345%'", "12.ABC.345"},
        {"12.345.678", "", "FROM PESS WHERE PESS.CPF0_CNPJ LIKE '12.345.678%'", "12.345.678"},
        {"111.444.777-35", "", "FROM PESS WHERE PESS.CPF0_CNPJ='111.444.777-35'", "111.444.777-35"},
        {"123", "", "FROM PESS WHERE PESS.CPF0_CNPJ='123'", "123"},
        {"1", "REMETENTE", "FROM PESS, CLIE_REME WHERE PESS.IDPESS = CLIE_REME.IDPESS AND PESS.CPF0_CNPJ='1'", "1"},
        {"1", "DESTINATARIO", "FROM PESS, CLIE_DEST WHERE PESS.IDPESS = CLIE_DEST.IDPESS AND PESS.CPF0_CNPJ='1'", "1"},
        {"1", "FORNECEDOR", "FROM PESS, FORN WHERE PESS.IDPESS = FORN.IDPESS AND PESS.CPF0_CNPJ='1'", "1"},
        {"1", "MOTORISTA", "FROM PESS, MOTO WHERE PESS.IDPESS = MOTO.IDPESS AND PESS.CPF0_CNPJ='1'", "1"},
        {"1", "TRANSPORTADORA", "FROM PESS, TRPT WHERE PESS.IDPESS = TRPT.IDPESS AND PESS.CPF0_CNPJ='1'", "1"},
        {"1", "DECORADOR", "FROM PESS, DECO WHERE PESS.IDPESS = DECO.IDPESS AND PESS.CPF0_CNPJ='1'", "1"},
        {"1", "ARQUITETO", "FROM PESS, ARQT WHERE PESS.IDPESS = ARQT.IDPESS AND PESS.CPF0_CNPJ='1'", "1"},
        {"1", "VENDEDOR", "FROM PESS, VEND WHERE PESS.IDPESS = VEND.IDPESS AND PESS.CPF0_CNPJ='1'", "1"},
        {"1", "PROSPECT", "FROM PESS WHERE PESS.CPF0_CNPJ='1'", "1"},
        {"1", "OUTRO", "FROM PESS WHERE PESS.CPF0_CNPJ='1'", "1"},
    };
    for (const Busca& caso : casos) {
        World world;
        world.connect();
        QString documento = QString::fromUtf8(caso.documento);
        RetornaPessoaPorDocumento(world.contexto, documento, QString::fromUtf8(caso.papel));
        EXPECT_EQ(world.database.sent,
                  QStringList(u"SELECT PESS.IDPESS, PESS.NOME_PESS "_s + QString::fromUtf8(caso.enviado)))
            << caso.documento;
        EXPECT_EQ(documento, QString::fromUtf8(caso.depois));
    }
}

TEST(Vinculos, WhatTheDocumentSearchTells) {
    const FakeRows uma{{u"IDPESS"_s, u"NOME_PESS"_s}, {{number(7), text("MARIA")}}};
    const FakeRows duas{{u"IDPESS"_s, u"NOME_PESS"_s}, {{number(7), text("MARIA")}, {number(8), text("ANA")}}};
    struct Caso {
        const char* documento;
        const char* papel;
        std::optional<FakeRows> linhas;
        const char* nome;
        const char* retorno;
    };
    const std::vector<Caso> casos{
        {"123", "", std::nullopt, "", "CNPJ/CPF não localizado!"},
        {"123", "", uma, "MARIA", "[ID]MARIA"},
        {"123", "", duas, "",
         "Atenção! Você está com problemas de cadastros, duplicidades de CNPJ/CPF foram detectados!"},
        {"12345678", "", duas, "",
         "Atenção! A Empresa possui mais de uma filial...deverá ser digitado o CNPJ completo!"},
        {"123", "CLIENTE", std::nullopt, "", "Não Existe vinculo como [CLIENTE]"},
        {"123", "CLIENTE", uma, "MARIA", "[ID]MARIA"},
        {"123", "CLIENTE", duas, "", "Não Existe vinculo como [CLIENTE]"},
        {"12345678", "PROSPECT", duas, "", "Não Existe vinculo como [PROSPECT]"},
    };
    for (const Caso& caso : casos) {
        World world;
        world.connect();
        if (caso.linhas)
            world.database.answer(u"PESS"_s, *caso.linhas);
        world.contexto.RetornoPesquisa = u"velho"_s;
        QString documento = QString::fromUtf8(caso.documento);
        EXPECT_EQ(RetornaPessoaPorDocumento(world.contexto, documento, QString::fromUtf8(caso.papel)),
                  QString::fromUtf8(caso.nome));
        EXPECT_EQ(world.contexto.RetornoPesquisa, QString::fromUtf8(caso.retorno));
    }
}

TEST(Vinculos, BackReferencesOfThePerson) {
    World world;
    world.connect();
    GravaVinculoPess(world.contexto, u"7"_s, "idCLIE", u"12"_s);
    LimpaVinculoPess(world.contexto, u"7"_s, "idFORN");
    EXPECT_EQ(world.database.writes, QStringList({u"UPDATE PESS SET IDCLIE = 12 WHERE IDPESS = 7"_s,
                                                  u"UPDATE PESS SET IDFORN = 0 WHERE IDPESS = 7"_s}));
}
