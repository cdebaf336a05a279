#include "shared/TextoEntrada.h"
#include "base/Literals.h"

#include "support/World.h"

using namespace vorta;
using namespace vorta::test;

namespace {

struct Tela : screen::Screen {
    explicit Tela(screen::Program& program) : Screen(program, u"frmTeste"_s) {}
    screen::TextField txtNome{this, "txtNome"};
    screen::MaskedField mskCEP{this, "mskCEP", u"#####-###"_s};
    screen::ListField cboCidade{this, "cboCidade"};
    screen::Button cmdSair{this, "cmdSair"};
    screen::TextField txtObs{this, "txtObs"};
};

} // namespace

TEST(TextoEntrada, ColumnsOfFixedWidth) {
    struct Caso {
        const char* texto;
        qint16 largura;
        bool aEsquerda;
        const char* resultado;
        const char* depois;
    };
    const std::vector<Caso> casos{
        {"ABCDEF", 6, true, "ABCDEF", "ABCDEF"}, {"  AB ", 4, false, "  AB", "AB"},
        {" AB ", 4, true, "AB  ", "AB"},         {"", 3, true, "   ", "   "},
        {"    ", 3, false, "   ", "   "},        {"São", 4, true, "São ", "São"},
    };
    for (const Caso& caso : casos) {
        QString texto = QString::fromUtf8(caso.texto);
        EXPECT_EQ(AlinhaTexto(texto, caso.largura, caso.aEsquerda), QString::fromUtf8(caso.resultado)) << caso.texto;
        EXPECT_EQ(texto, QString::fromUtf8(caso.depois)) << caso.texto;
    }
    QString longo = u"ABCDEF"_s;
    EXPECT_EQ(AlinhaTexto(longo, 3, true), u"ABC"_s);
    EXPECT_EQ(AlinhaTexto(data::Value(), 3, true), u"   "_s);
    EXPECT_EQ(AlinhaTexto(number(42), 5, false), u"   42"_s);
}

TEST(TextoEntrada, Substitution) {
    QString texto = u"01/05"_s;
    EXPECT_EQ(SubstituiTexto(texto, u"/"_s, u" "_s), u"01 05"_s);
    EXPECT_EQ(texto, u"01 05"_s);
    texto = u"a--b"_s;
    EXPECT_EQ(SubstituiTexto(texto, u" - "_s, u""_s), u"ab"_s);
}

TEST(TextoEntrada, AccentsOfVowelsAndCedillas) {
    World world;
    EXPECT_EQ(RemoveAcentos(world.contexto, u"AÇÃO"_s), u"ACAO"_s);
    EXPECT_EQ(RemoveAcentos(world.contexto, u"ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÒÓÔÕÖÙÚÛÜàáâãäåçèéêëìíîïòóôõöùúûü"_s),
              u"AAAAAACEEEEIIIIOOOOOUUUUaaaaaaceeeeiiiiooooouuuu"_s);
    EXPECT_EQ(RemoveAcentos(world.contexto, u"Ññ Ýÿ ß"_s), u"Ññ Ýÿ ß"_s);
    world.contexto.PreservaAcentos = true;
    EXPECT_EQ(RemoveAcentos(world.contexto, u"AÇÃO"_s), u"AÇÃO"_s);
}

TEST(TextoEntrada, WritesGoInCapitalsWithoutAccents) {
    World world;
    world.connect();
    data::Statement comando("update pess set nome_pess='");
    comando += u"João d´Ávila"_s;
    comando << "' where idpess=7";
    ExecutaSemAcentos(world.contexto, comando);
    world.contexto.PreservaAcentos = true;
    ExecutaSemAcentos(world.contexto, comando);
    EXPECT_EQ(world.database.writes, QStringList({u"UPDATE PESS SET NOME_PESS='JOAO D´AVILA' WHERE IDPESS=7"_s,
                                                  u"UPDATE PESS SET NOME_PESS='JOÃO D´ÁVILA' WHERE IDPESS=7"_s}));
}

TEST(TextoEntrada, SelectsTextAndMaskedFieldsOnly) {
    World world;
    Tela tela(world.program);
    SelecionaTexto(tela); // no focus, nothing to do
    tela.txtNome.setText(u"MARIA"_s);
    tela.cboCidade.setText(u"SANTOS"_s);
    tela.SetFocus(tela.txtNome);
    SelecionaTexto(tela);
    EXPECT_EQ(tela.txtNome.selectionStart(), 0);
    EXPECT_EQ(tela.txtNome.selectionLength(), 5);
    tela.SetFocus(tela.mskCEP);
    SelecionaTexto(tela);
    EXPECT_EQ(tela.mskCEP.selectionLength(), 9);
    tela.SetFocus(tela.cboCidade);
    SelecionaTexto(tela);
    EXPECT_EQ(tela.cboCidade.selectionLength(), 0);
}

TEST(TextoEntrada, ClearingAMaskedFieldKeepsItsMask) {
    World world;
    Tela tela(world.program);
    tela.mskCEP.setText(u"11015-200"_s);
    LimpaMascara(tela.mskCEP);
    EXPECT_EQ(tela.mskCEP.text(), u"_____-___"_s);
    EXPECT_EQ(tela.mskCEP.mask(), u"#####-###"_s);
}

TEST(TextoEntrada, MailAddressInLowerCase) {
    World world;
    AbreEmail(world.contexto, u"   "_s);
    EXPECT_TRUE(world.platform.addresses.isEmpty());
    AbreEmail(world.contexto, u" MARIA@Casa.COM "_s);
    EXPECT_EQ(world.platform.addresses, QStringList(u"mailto:maria@casa.com"_s));
}

TEST(TextoEntrada, TrimsTheFieldsNamedTxt) {
    World world;
    Tela tela(world.program);
    tela.txtNome.setText(u"  MARIA "_s);
    tela.txtObs.setText(u"   "_s);
    tela.cboCidade.setText(u" SANTOS "_s);
    TrimCamposTexto(tela);
    EXPECT_EQ(tela.txtNome.text(), u"MARIA"_s);
    EXPECT_EQ(tela.txtObs.text(), QString());
    EXPECT_EQ(tela.cboCidade.text(), u" SANTOS "_s);
}

TEST(TextoEntrada, LockedFieldsAreGreyAndFreeOnesWhite) {
    World world;
    Tela tela(world.program);
    BloqueiaCampo(tela.txtNome);
    BloqueiaCampo(tela.mskCEP);
    EXPECT_TRUE(tela.txtNome.locked());
    EXPECT_TRUE(tela.txtNome.enabled());
    EXPECT_FALSE(tela.mskCEP.enabled());
    EXPECT_EQ(tela.txtNome.background(), screen::colour::Locked);
    EXPECT_EQ(tela.mskCEP.background(), screen::colour::Locked);
    LiberaCampo(tela.txtNome);
    LiberaCampo(tela.mskCEP);
    EXPECT_FALSE(tela.txtNome.locked());
    EXPECT_TRUE(tela.mskCEP.enabled());
    EXPECT_EQ(tela.mskCEP.background(), screen::colour::Free);
}
