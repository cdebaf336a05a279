#include "base/Literals.h"
#include "person/PessoasTest.h"

namespace vorta::test {

struct Falha {
    const char* campo;
    const char* parametro;
    const char* mensagem;
};

/// In the order of the checks: with everything empty each one comes up when those before it are satisfied.
constexpr Falha falhas[]{
    {"txtDescricao", nullptr, "Nome Inválido!!!"},
    {"txtNomeFantasia", nullptr, "Nome Conhecido Inválido!!!"},
    {"mskCodigo", nullptr, "CNPJ/CPF Obrigatório!!!"},
    {"txtEndereco", nullptr, "Endereço Comercial Inválido!"},
    {"txtEnt_Endereco", "OBRIG_ENDE_ENTG", "Endereço de Entrega Inválido!"},
    {"txtCob_Endereco", "OBRIG_ENDE_COBR", "Endereço de Cobrança Inválido!"},
    {"txtBairro", nullptr, "Bairro Inválido!"},
    {"txtEnt_Bairro", "OBRIG_ENDE_ENTG", "Bairro Inválido!"},
    {"txtCob_Bairro", "OBRIG_ENDE_COBR", "Bairro Inválido!"},
    {"cboCidade", nullptr, "Cidade Inválida!"},
    {"cboEnt_Cidade", "OBRIG_ENDE_ENTG", "Cidade Inválida!"},
    {"cboCob_Cidade", "OBRIG_ENDE_COBR", "Cidade Inválida!"},
    {"cboUF", nullptr, "Estado Inválido!"},
    {"cboEnt_UF", "OBRIG_ENDE_ENTG", "Estado Inválido!"},
    {"cboCob_UF", "OBRIG_ENDE_COBR", "Estado Inválido!"},
    {"mskCEP", nullptr, "CEP inválido!"},
    {"mskEnt_CEP", "OBRIG_ENDE_ENTG", "CEP inválido!"},
    {"mskCob_CEP", "OBRIG_ENDE_COBR", "CEP inválido!"},
};

class ValidaPessoa : public PessoasTest {
  protected:
    void SetUp() override {
        fillPerson();
        contexto.ModoTela = u"I"_s;
        tela.LiberaCampos();
    }
    void fillBlock(const QString& prefixo) {
        tela.field(u"txt"_s + prefixo + u"_Endereco"_s).setText(u"RUA"_s);
        tela.field(u"txt"_s + prefixo + u"_Bairro"_s).setText(u"BAIRRO"_s);
        tela.field(u"cbo"_s + prefixo + u"_Cidade"_s).setText(u"CIDADE"_s);
        tela.field(u"cbo"_s + prefixo + u"_UF"_s).setText(u"SP"_s);
        tela.field(u"msk"_s + prefixo + u"_CEP"_s).setText(u"01310-100"_s);
    }
    bool saves() {
        platform.boxes.clear();
        click(tela.cmdSALVAR);
        return platform.boxes.back().text == u"Registro Gravado com sucesso!";
    }
};

class CadaFalha : public ValidaPessoa, public ::testing::WithParamInterface<int> {};

TEST_P(CadaFalha, ShowsItsMessageAndTakesTheFocus) {
    fillBlock(u"Ent"_s);
    fillBlock(u"Cob"_s);
    parameter("OBRIG_ENDE_ENTG", "S");
    parameter("OBRIG_ENDE_COBR", "S");
    // This field and every one behind it are empty; the message is this one's.
    for (int indice = GetParam(); indice < static_cast<int>(std::size(falhas)); ++indice)
        tela.field(QString::fromLatin1(falhas[indice].campo)).setText({});
    const Falha& falha = falhas[GetParam()];
    EXPECT_FALSE(saves());
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, QString::fromUtf8(falha.mensagem));
    const bool comTitulo = GetParam() < 2;
    EXPECT_EQ(platform.boxes[0].title, comTitulo ? ContextoExecucao::Titulo() : QString());
    EXPECT_EQ(platform.boxes[0].icon, comTitulo ? screen::Icon::Information : screen::Icon::None);
    const QString foco =
        falha.campo == QLatin1StringView("mskCodigo") ? u"cboFisJur"_s : QString::fromLatin1(falha.campo);
    ASSERT_NE(tela.focus(), nullptr);
    EXPECT_EQ(tela.focus()->name(), foco);
    EXPECT_EQ(contexto.ModoTela, u"I");
    EXPECT_TRUE(tela.cmdSALVAR.enabled());
    EXPECT_TRUE(database.writes.isEmpty());
    EXPECT_FALSE(database.sent.contains(u"BEGIN"_s));
}

TEST_P(CadaFalha, OfTheOtherBlocksPassesWithoutItsSwitch) {
    const Falha& falha = falhas[GetParam()];
    if (!falha.parametro)
        return;
    tela.field(QString::fromLatin1(falha.campo)).setText({});
    EXPECT_TRUE(saves());
}

INSTANTIATE_TEST_SUITE_P(Ordem, CadaFalha, ::testing::Range(0, static_cast<int>(std::size(falhas))));

TEST_F(ValidaPessoa, ADocumentOfPromptsOnlyIsMissing) {
    tela.mskCodigo.setText({});
    EXPECT_EQ(tela.mskCodigo.text(), u"__.___.___/____-__");
    EXPECT_FALSE(saves());
    EXPECT_EQ(platform.boxes[0].text, u"CNPJ/CPF Obrigatório!!!");
    EXPECT_EQ(tela.mskCodigo.mask(), u"##.###.###/####-##");
}

TEST_F(ValidaPessoa, BirthdayIsCheckedAgainstTheCurrentYear) {
    tela.mskDtNasc.setText(u"31/02"_s);
    EXPECT_FALSE(saves());
    EXPECT_EQ(platform.boxes[0].text, u"Formato de Data de Aniversário Inválida!");
    EXPECT_EQ(platform.boxes[0].title, u"Data de Aniversário");
    EXPECT_EQ(tela.focus(), &tela.mskDtNasc);
    tela.mskDtNasc.setText(u"29/02"_s);
    EXPECT_FALSE(saves()) << "2026 has no 29 February";
    platform.clock = QDateTime(QDate(2028, 1, 5), QTime(8, 0));
    EXPECT_TRUE(saves());
}

TEST_F(ValidaPessoa, StateRegistrationOfALegalPersonOnly) {
    tela.txtIEstadual.setText(u"110042490115"_s);
    EXPECT_FALSE(saves());
    EXPECT_EQ(platform.boxes[0].text, u"Inscrição Estadual Inválida!");
    EXPECT_EQ(platform.boxes[0].title, u"Inscrição Estadual");
    EXPECT_EQ(tela.focus(), &tela.txtIEstadual);
    tela.txtIEstadual.setText(u"ISENTO"_s);
    EXPECT_TRUE(saves());
    contexto.ModoTela = u"I"_s;
    tela.LiberaCampos();
    tela.cboFisJur.setText(u"Física"_s);
    tela.txtIEstadual.setText(u"12X"_s);
    EXPECT_TRUE(saves());
}

TEST_F(ValidaPessoa, TextFieldsAreTrimmedFirst) {
    tela.txtDescricao.setText(u"   "_s);
    EXPECT_FALSE(saves());
    EXPECT_EQ(tela.txtDescricao.text(), QString());
}

TEST_F(ValidaPessoa, DocumentOnLeaving) {
    user.focus(tela.mskCodigo);
    user.focus(tela.txtEndereco);
    EXPECT_TRUE(platform.boxes.empty());
    EXPECT_EQ(tela.mskCodigo.text(), u"11.222.333/0001-81");
    EXPECT_EQ(tela.mskCodigo.mask(), u"##.###.###/####-##");

    tela.mskCodigo.setText(u"11.222.333/0001-82"_s);
    user.focus(tela.mskCodigo);
    platform.willAnswer(screen::Answer::Yes);
    user.focus(tela.txtEndereco);
    EXPECT_EQ(platform.boxes[0].text, u"CGC Incorreto!\nContinua Verificação?");
    EXPECT_EQ(platform.boxes[0].buttons, screen::Buttons::YesNo);
    EXPECT_EQ(tela.focus(), &tela.mskCodigo);
    EXPECT_EQ(tela.mskCodigo.text(), u"11.222.333/0001-82");

    platform.willAnswer(screen::Answer::No);
    user.focus(tela.txtEndereco);
    EXPECT_EQ(platform.boxes.news(), QStringList(u"CGC Incorreto!\nContinua Verificação?"_s));
    EXPECT_EQ(contexto.ModoTela, u" ");
    EXPECT_EQ(tela.txtDescricao.text(), QString());
    EXPECT_FALSE(tela.cmdSALVAR.enabled());
    EXPECT_FALSE(program.hasEnded());
}

TEST_F(ValidaPessoa, NaturalPersonsDocumentOnLeaving) {
    tela.cboFisJur.setText(u"Física"_s);
    tela.mskCodigo.setMask(u"###.###.###-##"_s);
    tela.mskCodigo.setText(u"529.982.247-26"_s);
    user.focus(tela.mskCodigo);
    platform.willAnswer(screen::Answer::Yes);
    user.focus(tela.txtEndereco);
    EXPECT_EQ(platform.boxes[0].text, u"CPF Incorreto!\nContinua Verificação?");
    tela.mskCodigo.setText(u"529.982.247-25"_s);
    user.focus(tela.txtEndereco);
    EXPECT_EQ(tela.focus(), &tela.txtEndereco);
}

TEST_F(ValidaPessoa, ShortPhoneKeepsTheFocus) {
    tela.txtFone1.setText(u"12345"_s);
    user.focus(tela.txtFone1);
    user.focus(tela.txtFone2);
    EXPECT_EQ(platform.boxes[0].text, u"Obrigatório Informar um Telefone!");
    EXPECT_EQ(tela.focus(), &tela.txtFone1);
    tela.txtFone1.setText(u"123456"_s);
    EXPECT_TRUE(user.focus(tela.txtFone2));
}

TEST_F(ValidaPessoa, EmailAsksWhetherToCorrect) {
    for (screen::Field* email : std::initializer_list<screen::Field*>{&tela.txtEmail1, &tela.txtPrinEmailContato,
                                                                      &tela.contatos.txtEmailContato}) {
        platform.boxes.clear();
        email->setText(u"sem arroba"_s);
        user.focus(*email);
        platform.willAnswer(screen::Answer::Yes);
        user.focus(tela.txtEndereco);
        const QStringList told{u"O nº de arrobas (@) do e-mail é inválido!!!"_s,
                               u"O e-mail digitado não passou na validação.\nVocê deseja corrigir?"_s};
        EXPECT_EQ(platform.boxes.news(), told);
        EXPECT_EQ(tela.focus(), email);
        platform.willAnswer(screen::Answer::No);
        user.focus(tela.txtEndereco);
        EXPECT_EQ(platform.boxes.news(), told);
        EXPECT_EQ(tela.focus(), &tela.txtEndereco);
        EXPECT_EQ(email->text(), u"sem arroba");
    }
}

TEST_F(ValidaPessoa, CodeOfAnExistingCustomerDuringInclusion) {
    database.answer(u"From clie"_s, {{u"IDCLIE"_s}, {{number(5)}}});
    tela.txtRowID.setText(u"5"_s);
    user.focus(tela.txtRowID);
    user.focus(tela.txtEndereco);
    EXPECT_EQ(platform.boxes[0].text, u"O Cliente (5) Já Existe! Tente outro código");
    EXPECT_EQ(tela.focus(), &tela.txtRowID);
}

} // namespace vorta::test
