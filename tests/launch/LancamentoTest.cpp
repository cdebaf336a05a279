#include "launch/Lancamento.h"
#include "base/Literals.h"

#include "LaunchWorld.h"

using namespace vorta;
using namespace vorta::test;

namespace {

struct Inicial : screen::Screen {
    explicit Inicial(screen::Program& program) : Screen(program, u"frmPessoas"_s) {}
    screen::Label lblTituloJanela{this, "lblTituloJanela", u"Pessoas"_s};
    screen::Label lblCodiEmpresa{this, "lblCodiEmpresa"};
    screen::Label lblNomeEmpresa{this, "lblNomeEmpresa"};
    screen::Label lblCodiAmbiente{this, "lblCodiAmbiente"};
};

struct LancamentoTest : testing::Test {
    LaunchWorld world;
    Inicial tela{world.program};
    ContextoExecucao& contexto = world.contexto;
    bool launch(const QString& linha) {
        contexto.LinhaComando = linha;
        return world.run([&] { Lancamento(contexto, tela); });
    }
};

} // namespace

TEST_F(LancamentoTest, FromTheLaunchStringToTheTitleBar) {
    EXPECT_TRUE(launch(u"12^3^PRD^False^"_s));
    EXPECT_EQ(contexto.CodigoUsuario, 12);
    EXPECT_EQ(contexto.CodigoEmpresa, 3);
    EXPECT_EQ(contexto.Ambiente, u"PRD"_s);
    EXPECT_FALSE(contexto.SomenteConsulta);
    EXPECT_EQ(contexto.NomeUsuario, u"MARIA"_s);
    EXPECT_EQ(contexto.CodigoEmpresaTexto, u"0001"_s);
    EXPECT_EQ(tela.caption(), u"ERP VORTA - Nexoria - Release 2015.07.24 (PRD)(0001/MARIA)"_s);
    EXPECT_EQ(tela.lblCodiEmpresa.text(), u"0001"_s);
    EXPECT_EQ(tela.lblNomeEmpresa.text(), u"EMPRESA MODELO"_s);
    EXPECT_EQ(tela.lblCodiAmbiente.text(), u"PRD"_s);
    EXPECT_EQ(tela.lblTituloJanela.foreground(), screen::colour::WindowText);
    EXPECT_TRUE(world.platform.boxes.empty());
    EXPECT_EQ(world.database.sent, QStringList({
                                       u"SELECT CODI_EMPR FROM EMPR WHERE IDEMPR = 3"_s,
                                       u"SELECT PATH_DANFE FROM EMPR WHERE CODI_EMPR = '0001'"_s,
                                       u"SELECT CODI_EMPR FROM EMPR WHERE IDEMPR = 3"_s,
                                       u"SELECT NOME_CONH_EMPR FROM EMPR WHERE IDEMPR = 3"_s,
                                       u"SELECT * FROM USEN WHERE IDUSEN=12"_s,
                                   }));
}

TEST_F(LancamentoTest, OnlyTrueWithItsCapitalIsReadOnly) {
    const std::vector<std::pair<const char*, bool>> casos{
        {"12^3^HIST^True^", true},   {"12^3^HIST^True", true}, {"12^3^HIST^true^", false}, {"12^3^HIST^TRUE^", false},
        {"12^3^HIST^ True^", false}, {"12^3^HIST^1^", false},  {"12^3^HIST^", false},      {"12^3^HIST", false}};
    for (const auto& [linha, somente] : casos) {
        LaunchWorld outro;
        Inicial inicial(outro.program);
        outro.contexto.LinhaComando = QString::fromUtf8(linha);
        EXPECT_TRUE(outro.run([&] { Lancamento(outro.contexto, inicial); })) << linha;
        EXPECT_EQ(outro.contexto.SomenteConsulta, somente) << linha;
        EXPECT_EQ(outro.contexto.Ambiente, u"HIST"_s) << linha;
    }
}

TEST_F(LancamentoTest, AnotherEnvironmentThanProductionTurnsTheTitleRed) {
    EXPECT_TRUE(launch(u"12^3^DEV^False^"_s));
    EXPECT_EQ(tela.lblTituloJanela.foreground(), screen::colour::Red);
    EXPECT_EQ(tela.caption(), u"ERP VORTA - Nexoria - Release 2015.07.24 (DEV)(0001/MARIA)"_s);
    EXPECT_EQ(world.database.opened.front().connectionString, u"localhost:/base/dev.fdb"_s);
}

TEST_F(LancamentoTest, AnEmptyEnvironmentTakesTheFirstLineAndIsRedToo) {
    EXPECT_TRUE(launch(u"12^3^^False^"_s));
    EXPECT_EQ(world.database.opened.front().connectionString, u"localhost:/base/prd.fdb"_s);
    EXPECT_EQ(tela.lblTituloJanela.foreground(), screen::colour::Red);
}

TEST_F(LancamentoTest, ABlankLaunchStringIsIllegal) {
    for (const QString& linha : {QString(), u"    "_s}) {
        LaunchWorld outro;
        Inicial inicial(outro.program);
        outro.contexto.LinhaComando = linha;
        EXPECT_FALSE(outro.run([&] { Lancamento(outro.contexto, inicial); }));
        EXPECT_EQ(outro.box().text, u"Chamada Ilegal para esta rotina!"_s);
        EXPECT_EQ(outro.box().title, QString());
        EXPECT_EQ(outro.box().icon, screen::Icon::None);
        EXPECT_TRUE(outro.database.opened.empty());
        EXPECT_EQ(outro.program.exitCode(), 0);
    }
}

TEST_F(LancamentoTest, TheMarkerFileReplacesTheLaunchString) {
    world.platform.files[u"/vorta/config/ORBALUX.txt"_s] = {};
    EXPECT_EQ(IdentificaInstalacao(contexto), u"ORBALUX"_s);
    EXPECT_TRUE(launch(u"7^2^DEV^True^"_s));
    EXPECT_EQ(contexto.LinhaComando, u"1^1^PRD^False^"_s);
    EXPECT_EQ(contexto.CodigoUsuario, 1);
    EXPECT_EQ(contexto.CodigoEmpresa, 1);
    EXPECT_EQ(contexto.Ambiente, u"PRD"_s);
    EXPECT_FALSE(contexto.SomenteConsulta);
}

TEST_F(LancamentoTest, WithoutTheMarkerItIsACustomer) {
    EXPECT_EQ(IdentificaInstalacao(contexto), u"CLIENTE"_s);
}

TEST_F(LancamentoTest, TextsWithoutDigitsAreNumberZero) {
    EXPECT_TRUE(launch(u"abc^x^PRD^False^"_s));
    EXPECT_EQ(contexto.CodigoUsuario, 0);
    EXPECT_EQ(contexto.CodigoEmpresa, 0);
}

TEST_F(LancamentoTest, NumbersBeyondSixteenBitsEndTheProcess) {
    EXPECT_FALSE(launch(u"32768^1^PRD^False^"_s));
    EXPECT_EQ(world.failure(), errorNumber::Overflow);
    EXPECT_TRUE(world.database.opened.empty());
}

TEST_F(LancamentoTest, AnUnknownEnvironmentIsStoppedByTheConfiguration) {
    for (const QString& linha : {u"12^3^prd^False^"_s, u"12^3^TESTE^False^"_s, u"12"_s}) {
        LaunchWorld outro;
        Inicial inicial(outro.program);
        outro.contexto.LinhaComando = linha;
        EXPECT_FALSE(outro.run([&] { Lancamento(outro.contexto, inicial); }));
        EXPECT_EQ(outro.box().title, u"Falha de Conexão com o Servidor"_s);
    }
}

TEST_F(LancamentoTest, UnknownUserAndCompanyLeaveTheTitleEmpty) {
    world.database.answer(u"EMPR"_s, {});
    world.database.answer(u"USEN"_s, {});
    EXPECT_TRUE(launch(u"99^99^PRD^False^"_s));
    EXPECT_EQ(tela.caption(), u"ERP VORTA - Nexoria - Release 2015.07.24 (PRD)(/)"_s);
    EXPECT_EQ(tela.lblNomeEmpresa.text(), QString());
}

TEST_F(LancamentoTest, WithoutAConnectionTheFirstLookupEndsTheProcess) {
    world.lines(u"server.ini"_s) = {u"SRV^BASE^u^s^firebird^x^False"_s};
    EXPECT_FALSE(launch(u"12^3^PRD^False^"_s));
    EXPECT_EQ(world.failure(), errorNumber::ObjectNotSet);
    EXPECT_EQ(world.platform.boxes.size(), 1u);
}

TEST(LeUsuario, ALostConnectionEndsTheProcessWithItsBox) {
    World world;
    world.connect();
    world.database.fail(u"USEN"_s, errorNumber::ConnectionFailed);
    EXPECT_FALSE(world.run([&] { LeUsuario(world.contexto, 1); }));
    ASSERT_EQ(world.platform.boxes.size(), 1u);
    EXPECT_EQ(world.platform.boxes[0].title, u"Falha de Conexão (FIREBIRD)"_s);
    EXPECT_EQ(world.platform.boxes[0].text,
              u"Ocorreu uma Falha de Conexão com o Servidor de Banco de Dados (FIREBIRD).\n"
              "Tente Novamente, Caso o Problema Persista, Contate o Desenvolvedor!"_s);
    EXPECT_EQ(world.platform.boxes[0].icon, screen::Icon::Critical);
    EXPECT_EQ(world.contexto.ConexaoPrincipal, nullptr);
}

TEST(LeUsuario, OtherErrorsAreIgnored) {
    World world;
    world.connect();
    world.database.fail(u"USEN"_s, errorNumber::StatementRefused);
    EXPECT_TRUE(world.run([&] { LeUsuario(world.contexto, 1); }));
    EXPECT_TRUE(world.platform.boxes.empty());
}

TEST(TituloTela, RoleScreensNameNoCompany) {
    World world;
    world.contexto.NomeUsuario = u"MARIA"_s;
    world.contexto.CodigoEmpresaTexto = u"0001"_s;
    EXPECT_EQ(TituloTela(world.contexto, u" - Cadastro de Fornecedor "_s),
              u"ERP VORTA - Nexoria - Release 2015.07.24 - Cadastro de Fornecedor (/MARIA)"_s);
}

TEST(AjustaLarguraLista, WidensTheDroppedPart) {
    World world;
    screen::Screen tela(world.program, u"frmTeste"_s);
    screen::ListField lista(&tela, "cboProduto");
    AjustaLarguraLista(lista, 700);
    EXPECT_EQ(lista.dropWidth(), 700);
}
