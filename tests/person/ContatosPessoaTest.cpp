#include "person/ContatosPessoa.h"
#include "base/Literals.h"

#include "person/PessoasTest.h"

namespace vorta::test {

class ContatosPessoa : public PessoasTest {
  protected:
    void SetUp() override {
        tela.contatos.PreparaGridContatos();
        PreparaGridAtividades(tela);
        contexto.ModoTela = u"A"_s;
        tela.LiberaCampos();
        database.answer(u"desc_ativ='COMERCIO'"_s, {{u"idAtiv"_s}, {{number(33)}}});
    }
    void typeContact(const char16_t* nascimento = u"31/12") {
        tela.contatos.cboTipoContato.setText(u"COMPRAS"_s);
        tela.contatos.txtNomeContato.setText(u"Ana"_s);
        tela.contatos.txtFoneContato.setText(u"3333"_s);
        tela.contatos.txtEmailContato.setText(u"A@B.com"_s);
        tela.contatos.mskDtNasc.setText(QString::fromUtf16(nascimento));
    }
};

TEST_F(ContatosPessoa, IncludesARowAndEmptiesTheFields) {
    typeContact();
    click(tela.contatos.cmdIncluirContato);
    ASSERT_EQ(tela.contatos.Flex.Rows(), 2);
    EXPECT_EQ(tela.contatos.Flex.cell(1, 0), QString());
    EXPECT_EQ(tela.contatos.Flex.cell(1, 1), u"COMPRAS");
    EXPECT_EQ(tela.contatos.Flex.cell(1, 4), u"A@B.com");
    EXPECT_EQ(tela.contatos.Flex.cell(1, 5), u"31/12");
    EXPECT_EQ(tela.contatos.txtNomeContato.text(), QString());
    EXPECT_EQ(tela.contatos.mskDtNasc.text(), u"__/__");
    EXPECT_EQ(tela.focus(), &tela.contatos.cboTipoContato);
}

TEST_F(ContatosPessoa, WithoutTypeOrNameNothingHappens) {
    typeContact();
    tela.contatos.txtNomeContato.setText({});
    click(tela.contatos.cmdIncluirContato);
    EXPECT_EQ(tela.contatos.Flex.Rows(), 1);
    EXPECT_EQ(tela.contatos.txtFoneContato.text(), u"3333");
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(ContatosPessoa, BirthdayMustBeADayOfThisYear) {
    typeContact(u"29/02");
    click(tela.contatos.cmdIncluirContato);
    EXPECT_EQ(tela.contatos.Flex.Rows(), 1);
    EXPECT_EQ(platform.boxes[0].text, u"Formato de Data Inválida!");
    EXPECT_EQ(platform.boxes[0].title, u"Data de Aniversário");
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Information);
    EXPECT_EQ(tela.focus(), &tela.contatos.mskDtNasc);
    typeContact(u"");
    click(tela.contatos.cmdIncluirContato);
    ASSERT_EQ(tela.contatos.Flex.Rows(), 2);
    EXPECT_EQ(tela.contatos.Flex.cell(1, 5), QString());
}

TEST_F(ContatosPessoa, DoubleClickTakesARowBackIntoTheFields) {
    typeContact();
    click(tela.contatos.cmdIncluirContato);
    typeContact(u"");
    click(tela.contatos.cmdIncluirContato);
    user.doubleClickCell(tela.contatos.Flex, 1, 2);
    EXPECT_EQ(tela.contatos.Flex.Rows(), 2);
    EXPECT_EQ(tela.contatos.txtNomeContato.text(), u"Ana");
    EXPECT_EQ(tela.contatos.mskDtNasc.text(), u"31/12");
    user.doubleClickCell(tela.contatos.Flex, 1, 2);
    EXPECT_EQ(tela.contatos.Flex.Rows(), 1);
    EXPECT_EQ(tela.contatos.Flex.Cols(), 6);
    EXPECT_EQ(tela.contatos.mskDtNasc.text(), u"31/12") << "an empty birthday leaves the field alone";
    user.doubleClickCell(tela.contatos.Flex, 0, 2);
    EXPECT_TRUE(platform.addresses.isEmpty());
}

TEST_F(ContatosPessoa, DoubleClickWritesAMailWhileIdle) {
    typeContact();
    click(tela.contatos.cmdIncluirContato);
    contexto.ModoTela = u" "_s;
    user.doubleClickCell(tela.contatos.Flex, 1, 2);
    EXPECT_EQ(platform.addresses, QStringList{u"mailto:a@b.com"_s});
    EXPECT_EQ(tela.contatos.Flex.Rows(), 2);
    tela.contatos.Flex.AddItem(tela.contatos.Flex.cell(1, 0) + u"\tSEM E-MAIL"_s);
    user.doubleClickCell(tela.contatos.Flex, 2, 2);
    EXPECT_EQ(platform.addresses.size(), 1);
}

TEST_F(ContatosPessoa, BranchesMustExist) {
    tela.cboAtividades.setText(u"COMERCIO"_s);
    click(tela.cmdIncluirAtividades);
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
    click(tela.cmdIncluirAtividades);
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
    forget();
    tela.contatos.cboTipoContato.setText(u"comp"_s);
    user.dropDown(tela.contatos.cboTipoContato);
    EXPECT_EQ(
        database.sent.last(),
        u"SELECT DESC_CARG FROM CARG  WHERE DATA_DESA IS NULL AND (CARG.DESC_CARG LIKE '%COMP%') ORDER BY DESC_CARG");
}

} // namespace vorta::test
