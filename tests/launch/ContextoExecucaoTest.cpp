#include "launch/ContextoExecucao.h"
#include "base/Literals.h"

#include "support/World.h"

using namespace vorta;
using namespace vorta::test;

namespace {

const std::vector<const char*> textos{"LinhaComando",
                                      "Ambiente",
                                      "NomeUsuario",
                                      "CodigoEmpresaTexto",
                                      "TipoBanco",
                                      "StringConexao",
                                      "Servidor",
                                      "BaseDados",
                                      "UsuarioBanco",
                                      "SenhaBanco",
                                      "StringConexaoFirebird",
                                      "RaizAplicacao",
                                      "PastaAplicacao",
                                      "ArquivoPaths",
                                      "Caminho01",
                                      "Caminho02",
                                      "CaminhoImagens",
                                      "CaminhoImagensDetalhe",
                                      "ExtensaoImagens",
                                      "ExtensaoImagensDetalhe",
                                      "ImagemSemFoto",
                                      "Caminho08",
                                      "Caminho09",
                                      "CaminhoPaginas",
                                      "Caminho11",
                                      "Caminho12",
                                      "CaminhoDanfe",
                                      "SqlConsulta",
                                      "SqlComando",
                                      "SqlLeitura",
                                      "SqlHistorico",
                                      "CorFundo1",
                                      "CorFrente1",
                                      "CorFundo2",
                                      "CorFrente2",
                                      "ModoTela",
                                      "TelaChamadora",
                                      "EnderecoAlvoCep",
                                      "ListaCamposCep",
                                      "TipoConsulta",
                                      "VinculoAtual",
                                      "RetornoPesquisa",
                                      "IdPessoaVinculo",
                                      "ImagemProduto",
                                      "ImagemProdutoDetalhe",
                                      "UltimaFormaBusca",
                                      "UltimoConteudoBusca",
                                      "UltimoTextoBusca",
                                      "UltimoVisualiza",
                                      "UltimoPapelBusca",
                                      "UltimaFormaProduto",
                                      "UltimoTextoProduto",
                                      "UltimoVisualizaProduto",
                                      "UltimaColecaoProduto"};

struct Contada : screen::Screen {
    explicit Contada(ContextoExecucao& contexto) : Screen(contexto.program(), u"frmContada"_s) { ++made; }
    static inline int made = 0;
};

} // namespace

TEST(ContextoExecucao, TextFieldsStartEmptyAndKeepWhatTheyGet) {
    World world;
    for (const char* nome : textos) {
        EXPECT_EQ(world.contexto.Campo(QString::fromUtf8(nome)), QString()) << nome;
        world.contexto.GravaCampo(QString::fromUtf8(nome).toUpper(), QString::fromUtf8(nome));
    }
    for (const char* nome : textos)
        EXPECT_EQ(world.contexto.Campo(QString::fromUtf8(nome).toLower()), QString::fromUtf8(nome))
            << "each has a place of its own";
}

TEST(ContextoExecucao, NumbersAndBooleans) {
    World world;
    ContextoExecucao& contexto = world.contexto;
    for (const QString& nome : {u"CodigoUsuario"_s, u"CodigoEmpresa"_s, u"TopoGridBusca"_s})
        EXPECT_EQ(contexto.Campo(nome), u"0"_s);
    for (const QString& nome : {u"SomenteConsulta"_s, u"PreservaAcentos"_s})
        EXPECT_EQ(contexto.Campo(nome), u"False"_s);
    contexto.GravaCampo(u"CodigoUsuario"_s, u"32767"_s);
    contexto.GravaCampo(u"TopoGridBusca"_s, u"100000"_s);
    contexto.GravaCampo(u"SomenteConsulta"_s, u"True"_s);
    EXPECT_EQ(contexto.CodigoUsuario, 32767);
    EXPECT_EQ(contexto.TopoGridBusca, 100000);
    EXPECT_EQ(contexto.Campo(u"SomenteConsulta"_s), u"True"_s);
    EXPECT_EQ(ErrorOf([&] { contexto.GravaCampo(u"CodigoUsuario"_s, u"32768"_s); }), errorNumber::Overflow);
    EXPECT_EQ(ErrorOf([&] { contexto.GravaCampo(u"CodigoUsuario"_s, u"x"_s); }), errorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([&] { contexto.GravaCampo(u"SomenteConsulta"_s, u"talvez"_s); }), errorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([&] { contexto.Campo(u"Nada"_s); }), errorNumber::NoSuchMember);
}

TEST(ContextoExecucao, EachScreenHasOneInstanceMadeAtItsFirstUse) {
    World world;
    Contada::made = 0;
    world.contexto.RegistraTela(u"frmContada"_s,
                                [](ContextoExecucao& contexto) { return std::make_unique<Contada>(contexto); });
    EXPECT_EQ(Contada::made, 0);
    EXPECT_TRUE(world.contexto.ConheceTela(u"FRMCONTADA"_s));
    EXPECT_FALSE(world.contexto.ConheceTela(u"frmOutra"_s));
    EXPECT_EQ(&world.contexto.Tela(u"frmContada"_s), &world.contexto.Tela(u"FrmContada"_s));
    EXPECT_EQ(Contada::made, 1);
    EXPECT_EQ(ErrorOf([&] { world.contexto.Tela(u"frmOutra"_s); }), errorNumber::ObjectNotSet);
}

TEST(ContextoExecucao, AClosedScreenComesUpAnew) {
    World world;
    Contada::made = 0;
    world.contexto.RegistraTela(u"frmContada"_s,
                                [](ContextoExecucao& contexto) { return std::make_unique<Contada>(contexto); });
    world.contexto.Tela(u"frmContada"_s).setCaption(u"preparada"_s);
    QStringList titulos;
    world.platform.whenShown(u"frmContada"_s, [&](screen::Screen& tela) { titulos += tela.caption(); });
    EXPECT_TRUE(world.run([&] {
        world.contexto.MostraTela(u"frmContada"_s);
        world.contexto.MostraTela(u"frmContada"_s);
    }));
    EXPECT_EQ(titulos, QStringList({u"preparada"_s, QString()}));
    EXPECT_EQ(Contada::made, 2);
}

TEST(ContextoExecucao, TheDateIsThatOfTheMachine) {
    World world;
    EXPECT_EQ(world.contexto.hoje(), QDate(2026, 11, 20));
}
