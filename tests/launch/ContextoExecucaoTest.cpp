#include "launch/ContextoExecucao.h"

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
    explicit Contada(ContextoExecucao& contexto) : Screen(contexto.program(), QStringLiteral("frmContada")) { ++made; }
    static inline int made = 0;
};

} // namespace

TEST(ContextoExecucao, TextFieldsStartEmptyAndKeepWhatTheyGet) {
    World mundo;
    for (const char* nome : textos) {
        EXPECT_EQ(mundo.contexto.Campo(QString::fromUtf8(nome)), QString()) << nome;
        mundo.contexto.GravaCampo(QString::fromUtf8(nome).toUpper(), QString::fromUtf8(nome));
    }
    for (const char* nome : textos)
        EXPECT_EQ(mundo.contexto.Campo(QString::fromUtf8(nome).toLower()), QString::fromUtf8(nome))
            << "each has a place of its own";
}

TEST(ContextoExecucao, NumbersAndBooleans) {
    World mundo;
    ContextoExecucao& contexto = mundo.contexto;
    for (const QString& nome : {u"CodigoUsuario"_qs, u"CodigoEmpresa"_qs, u"TopoGridBusca"_qs})
        EXPECT_EQ(contexto.Campo(nome), u"0"_qs);
    for (const QString& nome : {u"SomenteConsulta"_qs, u"PreservaAcentos"_qs})
        EXPECT_EQ(contexto.Campo(nome), u"False"_qs);
    contexto.GravaCampo(u"CodigoUsuario"_qs, u"32767"_qs);
    contexto.GravaCampo(u"TopoGridBusca"_qs, u"100000"_qs);
    contexto.GravaCampo(u"SomenteConsulta"_qs, u"True"_qs);
    EXPECT_EQ(contexto.CodigoUsuario, 32767);
    EXPECT_EQ(contexto.TopoGridBusca, 100000);
    EXPECT_EQ(contexto.Campo(u"SomenteConsulta"_qs), u"True"_qs);
    EXPECT_EQ(errorOf([&] { contexto.GravaCampo(u"CodigoUsuario"_qs, u"32768"_qs); }), errorNumber::Overflow);
    EXPECT_EQ(errorOf([&] { contexto.GravaCampo(u"CodigoUsuario"_qs, u"x"_qs); }), errorNumber::TypeMismatch);
    EXPECT_EQ(errorOf([&] { contexto.GravaCampo(u"SomenteConsulta"_qs, u"talvez"_qs); }), errorNumber::TypeMismatch);
    EXPECT_EQ(errorOf([&] { contexto.Campo(u"Nada"_qs); }), errorNumber::NoSuchMember);
}

TEST(ContextoExecucao, EachScreenHasOneInstanceMadeAtItsFirstUse) {
    World mundo;
    Contada::made = 0;
    mundo.contexto.RegistraTela(u"frmContada"_qs,
                                [](ContextoExecucao& contexto) { return std::make_unique<Contada>(contexto); });
    EXPECT_EQ(Contada::made, 0);
    EXPECT_TRUE(mundo.contexto.ConheceTela(u"FRMCONTADA"_qs));
    EXPECT_FALSE(mundo.contexto.ConheceTela(u"frmOutra"_qs));
    EXPECT_EQ(&mundo.contexto.Tela(u"frmContada"_qs), &mundo.contexto.Tela(u"FrmContada"_qs));
    EXPECT_EQ(Contada::made, 1);
    EXPECT_EQ(errorOf([&] { mundo.contexto.Tela(u"frmOutra"_qs); }), errorNumber::ObjectNotSet);
}

TEST(ContextoExecucao, AClosedScreenComesUpAnew) {
    World mundo;
    Contada::made = 0;
    mundo.contexto.RegistraTela(u"frmContada"_qs,
                                [](ContextoExecucao& contexto) { return std::make_unique<Contada>(contexto); });
    mundo.contexto.Tela(u"frmContada"_qs).setCaption(u"preparada"_qs);
    QStringList titulos;
    mundo.platform.whenShown(u"frmContada"_qs, [&](screen::Screen& tela) { titulos += tela.caption(); });
    EXPECT_TRUE(mundo.run([&] {
        mundo.contexto.MostraTela(u"frmContada"_qs);
        mundo.contexto.MostraTela(u"frmContada"_qs);
    }));
    EXPECT_EQ(titulos, QStringList({u"preparada"_qs, QString()}));
    EXPECT_EQ(Contada::made, 2);
}

TEST(ContextoExecucao, TheDateIsThatOfTheMachine) {
    World mundo;
    EXPECT_EQ(mundo.contexto.hoje(), QDate(2026, 11, 20));
}
