#include "person/ContatosPessoa.h"
#include "base/Literals.h"

#include "person/PessoasFixture.h"

namespace vorta::test {

class ContatosPessoa : public PessoasFixture {
  protected:
    void SetUp() override {
        PreparaGridContatos(tela);
        PreparaGridAtividades(tela);
        contexto.ModoTela = u"A"_s;
        tela.LiberaCampos();
        database.answer(u"desc_ativ='COMERCIO'"_s, {{u"idAtiv"_s}, {{number(33)}}});
    }
    void DigitaContato(const char16_t* nascimento = u"31/12") {
        tela.cboTipoContato.setText(u"COMPRAS"_s);
        tela.txtNomeContato.setText(u"Ana"_s);
        tela.txtFoneContato.setText(u"3333"_s);
        tela.txtEmailContato.setText(u"A@B.com"_s);
        tela.mskDtNascCont.setText(QString::fromUtf16(nascimento));
    }
};

TEST_F(ContatosPessoa, IncludesARowAndEmptiesTheFields) {
    DigitaContato();
    Clica(tela.cmdIncluirContato);
    ASSERT_EQ(tela.Flex.Rows(), 2);
    EXPECT_EQ(tela.Flex.cell(1, 0), QString());
    EXPECT_EQ(tela.Flex.cell(1, 1), u"COMPRAS");
    EXPECT_EQ(tela.Flex.cell(1, 4), u"A@B.com");
    EXPECT_EQ(tela.Flex.cell(1, 5), u"31/12");
    EXPECT_EQ(tela.txtNomeContato.text(), QString());
    EXPECT_EQ(tela.mskDtNascCont.text(), u"__/__");
    EXPECT_EQ(tela.focus(), &tela.cboTipoContato);
}

TEST_F(ContatosPessoa, WithoutTypeOrNameNothingHappens) {
    DigitaContato();
    tela.txtNomeContato.setText({});
    Clica(tela.cmdIncluirContato);
    EXPECT_EQ(tela.Flex.Rows(), 1);
    EXPECT_EQ(tela.txtFoneContato.text(), u"3333");
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(ContatosPessoa, BirthdayMustBeADayOfThisYear) {
    DigitaContato(u"29/02");
    Clica(tela.cmdIncluirContato);
    EXPECT_EQ(tela.Flex.Rows(), 1);
    EXPECT_EQ(platform.boxes[0].text, u"Formato de Data Inválida!");
    EXPECT_EQ(platform.boxes[0].title, u"Data de Aniversário");
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Information);
    EXPECT_EQ(tela.focus(), &tela.mskDtNascCont);
    DigitaContato(u"");
    Clica(tela.cmdIncluirContato);
    ASSERT_EQ(tela.Flex.Rows(), 2);
    EXPECT_EQ(tela.Flex.cell(1, 5), QString());
}

TEST_F(ContatosPessoa, DoubleClickTakesARowBackIntoTheFields) {
    DigitaContato();
    Clica(tela.cmdIncluirContato);
    DigitaContato(u"");
    Clica(tela.cmdIncluirContato);
    user.doubleClickCell(tela.Flex, 1, 2);
    EXPECT_EQ(tela.Flex.Rows(), 2);
    EXPECT_EQ(tela.txtNomeContato.text(), u"Ana");
    EXPECT_EQ(tela.mskDtNascCont.text(), u"31/12");
    user.doubleClickCell(tela.Flex, 1, 2);
    EXPECT_EQ(tela.Flex.Rows(), 1);
    EXPECT_EQ(tela.Flex.Cols(), 6);
    EXPECT_EQ(tela.mskDtNascCont.text(), u"31/12") << "an empty birthday leaves the field alone";
    user.doubleClickCell(tela.Flex, 0, 2);
    EXPECT_TRUE(platform.addresses.isEmpty());
}

TEST_F(ContatosPessoa, DoubleClickWritesAMailWhileIdle) {
    DigitaContato();
    Clica(tela.cmdIncluirContato);
    contexto.ModoTela = u" "_s;
    user.doubleClickCell(tela.Flex, 1, 2);
    EXPECT_EQ(platform.addresses, QStringList{u"mailto:a@b.com"_s});
    EXPECT_EQ(tela.Flex.Rows(), 2);
    tela.Flex.AddItem(tela.Flex.cell(1, 0) + u"\tSEM E-MAIL"_s);
    user.doubleClickCell(tela.Flex, 2, 2);
    EXPECT_EQ(platform.addresses.size(), 1);
}

TEST_F(ContatosPessoa, BranchesMustExist) {
    tela.cboAtividades.setText(u"COMERCIO"_s);
    Clica(tela.cmdIncluirAtividades);
    ASSERT_EQ(tela.FlexAtividades.Rows(), 2);
    EXPECT_EQ(tela.FlexAtividades.cell(1, 1), u"COMERCIO");
    EXPECT_EQ(tela.cboAtividades.text(), QString());
    EXPECT_EQ(tela.focus(), &tela.cboAtividades);

    tela.cboAtividades.setText(u"NADA"_s);
    user.focus(tela.txtBairro);
    EXPECT_EQ(platform.boxes[0].text, u"Esta Atividade não Existe!");
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Information);
    EXPECT_EQ(platform.boxes[0].title, ContextoExecucao::Titulo());
    EXPECT_EQ(tela.focus(), &tela.cboAtividades);
    EXPECT_EQ(tela.cboAtividades.text(), QString());

    user.focus(tela.cmdIncluirAtividades);
    tela.cboAtividades.setText(u"NADA"_s);
    Clica(tela.cmdIncluirAtividades);
    EXPECT_EQ(platform.boxes[1].text, u"Este Ramo de Atividade não existe!");
    EXPECT_EQ(platform.boxes[1].icon, screen::Icon::Critical);
    EXPECT_EQ(tela.FlexAtividades.Rows(), 2);
}

TEST_F(ContatosPessoa, ClickTakesABranchBack) {
    tela.FlexAtividades.AddItem(u"\tCOMERCIO\t"_s);
    user.clickCell(tela.FlexAtividades, 0, 1);
    EXPECT_EQ(tela.FlexAtividades.Rows(), 2);
    contexto.ModoTela = u" "_s;
    user.clickCell(tela.FlexAtividades, 1, 1);
    EXPECT_EQ(tela.FlexAtividades.Rows(), 2);
    contexto.ModoTela = u"I"_s;
    user.clickCell(tela.FlexAtividades, 1, 1);
    EXPECT_EQ(tela.FlexAtividades.Rows(), 1);
    EXPECT_EQ(tela.cboAtividades.text(), u"COMERCIO");
}

TEST_F(ContatosPessoa, ListsDropDownByWhatWasTyped) {
    database.sent.clear();
    tela.cboTipoContato.setText(u"comp"_s);
    user.dropDown(tela.cboTipoContato);
    EXPECT_EQ(
        database.sent.last(),
        u"SELECT DESC_CARG FROM CARG  WHERE DATA_DESA IS NULL AND (CARG.DESC_CARG LIKE '%COMP%') ORDER BY DESC_CARG");
}

} // namespace vorta::test
