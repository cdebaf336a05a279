#include "base/Literals.h"
#include "person/PessoasTest.h"

namespace vorta::test {

using TelaPessoas = PessoasTest;

constexpr auto cinza = screen::colour::Locked;
constexpr auto branco = screen::colour::Free;

TEST_F(TelaPessoas, IdleTakesTheTwoSearchKeysOnly) {
    for (screen::Field* campo : tela.fields()) {
        const bool entrada = campo->kind() == screen::FieldKind::Text || campo->kind() == screen::FieldKind::List;
        const bool chave = campo == &tela.txtRowID || campo == &tela.txtCodPessExterno;
        const bool filtro = campo == &tela.txtVrTOP || campo == &tela.cboProduto;
        if (entrada && !filtro) {
            EXPECT_EQ(campo->locked(), !chave) << campo->name();
        }
        if (campo->kind() == screen::FieldKind::Masked) {
            EXPECT_FALSE(campo->enabled()) << campo->name();
        }
    }
    EXPECT_EQ(tela.txtRowID.background(), branco);
    EXPECT_EQ(tela.txtDescricao.background(), cinza);
    EXPECT_FALSE(tela.cmdCEP.enabled());
    EXPECT_FALSE(tela.cmdEndComl1.enabled());
}

TEST_F(TelaPessoas, ReadOnlyUsersKeepSearchAndExit) {
    contexto.SomenteConsulta = true;
    tela.PosicionaBotoes();
    for (const screen::Button* botao : {&tela.cmdINCLUIR, &tela.cmdALTERAR, &tela.cmdEXCLUIR, &tela.cmdReativar,
                                        &tela.cmdSALVAR, &tela.cmdPESQUISAR, &tela.cmdIMPRIMIR})
        EXPECT_FALSE(botao->enabled()) << botao->name();
    EXPECT_TRUE(tela.cmdSAIR.enabled());
    EXPECT_TRUE(tela.cmdPesquisar_Cliente.enabled());
}

TEST_F(TelaPessoas, InclusionFreesTheFields) {
    tela.txtDescricao.setText(u"ALGUEM"_s);
    click(tela.cmdINCLUIR);
    EXPECT_EQ(contexto.ModoTela, u"I");
    EXPECT_EQ(tela.txtDescricao.text(), QString());
    EXPECT_FALSE(tela.txtDescricao.locked());
    EXPECT_TRUE(tela.mskCodigo.enabled());
    EXPECT_EQ(tela.mskCodigo.background(), branco);
    EXPECT_TRUE(tela.txtRowID.locked());
    EXPECT_EQ(tela.txtRowID.background(), cinza);
    EXPECT_TRUE(tela.cboStatusIntegraFISCO.locked());
    EXPECT_TRUE(tela.txtDTDesativa.locked());
    EXPECT_EQ(tela.focus(), &tela.txtCodPessExterno);
    EXPECT_TRUE(tela.cmdSALVAR.enabled());
    EXPECT_FALSE(tela.cmdINCLUIR.enabled());
    EXPECT_EQ(tela.cboPais_Cobr.text(), u"BRASIL");
}

TEST_F(TelaPessoas, CheckedEntryKeepsNameKindAndDocument) {
    parameter("PESS_CHECA_ENTRADA", "S");
    contexto.RegistraTela(u"frmPESSOAS_INCL"_s, [](ContextoExecucao& dono) {
        return std::make_unique<screen::Screen>(dono.program(), u"frmPESSOAS_INCL"_s);
    });
    contexto.RetornoPesquisa.clear();
    platform.whenShown(u"frmPESSOAS_INCL"_s, [](screen::Screen&) {});
    click(tela.cmdINCLUIR);
    EXPECT_NE(contexto.ModoTela, u"I") << "refused there, the screen stays idle";
    EXPECT_TRUE(tela.txtDescricao.locked());

    platform.whenShown(u"frmPESSOAS_INCL"_s, [&](screen::Screen&) { contexto.RetornoPesquisa = u"[OK]"_s; });
    click(tela.cmdINCLUIR);
    EXPECT_EQ(contexto.ModoTela, u"I");
    EXPECT_TRUE(tela.txtDescricao.locked());
    EXPECT_TRUE(tela.cboFisJur.locked());
    EXPECT_FALSE(tela.mskCodigo.enabled());
    EXPECT_EQ(tela.mskCodigo.background(), cinza);
    EXPECT_FALSE(tela.txtNomeFantasia.locked());
    EXPECT_EQ(tela.focus(), &tela.txtEndereco);
}

TEST_F(TelaPessoas, AlterationNeedsAnActivePerson) {
    click(tela.cmdALTERAR);
    EXPECT_EQ(platform.boxes[0].text, u"Selecione Um Registro Para Executar esta Operação!");
    tela.txtRowID.setText(u"44"_s);
    tela.txtDTDesativa.setText(u"01/02/2020"_s);
    click(tela.cmdALTERAR);
    EXPECT_EQ(platform.boxes[1].text, u"Impossibilidade de Executar o Comando!\nO Registro Está Desativado.");
    EXPECT_EQ(tela.txtRowID.text(), QString());
    EXPECT_EQ(tela.focus(), &tela.contatos.Flex);
    EXPECT_FALSE(tela.EmEdicao());

    tela.txtRowID.setText(u"44"_s);
    tela.txtDTDesativa.setText({});
    click(tela.cmdALTERAR);
    EXPECT_EQ(contexto.ModoTela, u"A");
    EXPECT_EQ(tela.focus(), &tela.txtDescricao);
    EXPECT_TRUE(tela.txtRowID.locked());
    EXPECT_FALSE(tela.cmdALTERAR.enabled());
}

TEST_F(TelaPessoas, ExitAsksDuringAnOperation) {
    click(tela.cmdINCLUIR);
    tela.txtBairro.setText(u"CENTRO"_s);
    platform.willAnswer(screen::Answer::No);
    click(tela.cmdSAIR);
    const QString question = u"Existe operação não concluída!!!\n\n<Sim> Sair sem Concluir\n<Não> Retornar "
                             u"para a Operação Atual\n<Cancela> Retornar e Abortar a Operação Atual"_s;
    EXPECT_EQ(platform.boxes[0].text, question);
    EXPECT_EQ(platform.boxes[0].buttons, screen::Buttons::YesNoCancel);
    EXPECT_EQ(contexto.ModoTela, u"I");
    EXPECT_EQ(tela.txtBairro.text(), u"CENTRO");

    platform.willAnswer(screen::Answer::Cancel);
    click(tela.cmdSAIR);
    EXPECT_EQ(platform.boxes.news(), QStringList(question));
    EXPECT_EQ(contexto.ModoTela, u" ");
    EXPECT_EQ(tela.txtBairro.text(), QString());
    EXPECT_TRUE(tela.txtBairro.locked());
    EXPECT_TRUE(tela.cmdINCLUIR.enabled());
}

TEST_F(TelaPessoas, ClearingLeavesFourFieldsAsTheyAre) {
    for (screen::Field* campo :
         std::initializer_list<screen::Field*>{&tela.txtOBSE_PESS_0001, &tela.txtOBSE_PESS_0003,
                                               &tela.txtCodPessExterno, &tela.txtDTDesativa, &tela.txtVrTOP})
        campo->setText(u"x"_s);
    tela.SSTab2.setCurrent(4);
    tela.SSTab1.setCurrent(2);
    tela.LimpaTela();
    EXPECT_EQ(tela.txtOBSE_PESS_0001.text(), QString());
    EXPECT_EQ(tela.txtOBSE_PESS_0003.text(), u"x");
    EXPECT_EQ(tela.txtCodPessExterno.text(), u"x");
    EXPECT_EQ(tela.txtDTDesativa.text(), u"x");
    EXPECT_EQ(tela.txtVrTOP.text(), u"x");
    EXPECT_EQ(tela.SSTab2.current(), 0);
    EXPECT_EQ(tela.SSTab1.current(), 0);
    EXPECT_EQ(tela.lblQtdeCompras.text(), u"0");
    EXPECT_EQ(tela.lblMontanteComprasForn.text(), u"0,00");
}

TEST_F(TelaPessoas, TheProgramMayFixTheCustomerClass) {
    parameter("TIPO_CLIENTE_AUTOMATICO", "S");
    click(tela.cmdINCLUIR);
    EXPECT_EQ(tela.cboTipoCli.text(), u"BRONZE");
    EXPECT_FALSE(tela.cboTipoCli.enabled());
    parameter("TIPO_CLIENTE_AUTOMATICO", "N");
    tela.LimpaTela();
    EXPECT_EQ(tela.cboTipoCli.text(), QString());
    EXPECT_TRUE(tela.cboTipoCli.enabled());
}

TEST_F(TelaPessoas, KindDecidesCaptionsAndMask) {
    tela.mskCodigo.setMask({});
    tela.mskCodigo.setText({});
    user.focus(tela.cboFisJur);
    tela.cboFisJur.setText(u"Física"_s);
    user.focus(tela.txtRowID);
    EXPECT_EQ(tela.lblCGCCPF.text(), u"CPF:");
    EXPECT_EQ(tela.lblIE_RG.text(), u"RG:");
    EXPECT_EQ(tela.mskCodigo.mask(), QString()) << "idle leaves the mask alone";

    click(tela.cmdINCLUIR);
    user.focus(tela.cboFisJur);
    tela.cboFisJur.setText(u"Jurídica"_s);
    user.focus(tela.txtEndereco);
    EXPECT_EQ(tela.lblCGCCPF.text(), u"CNPJ:");
    EXPECT_EQ(tela.lblIE_RG.text(), u"I.Estadual:");
    EXPECT_EQ(tela.mskCodigo.mask(), u"##.###.###/####-##");
    EXPECT_EQ(tela.focus(), &tela.mskCodigo);
}

TEST_F(TelaPessoas, ApostrophesBecomeAcutesInGuardedFieldsOnly) {
    click(tela.cmdINCLUIR);
    user.type(tela.txtDescricao, u"D'AVILA"_s);
    EXPECT_EQ(tela.txtDescricao.text(), u"D\u00B4AVILA");
    user.type(tela.txtNumero, u"1'A"_s);
    EXPECT_EQ(tela.txtNumero.text(), u"1'A");
}

TEST_F(TelaPessoas, EnterMovesOnExceptOnFiveFields) {
    click(tela.cmdINCLUIR);
    user.focus(tela.txtNumero);
    user.key(tela.txtNumero, screen::Key::Enter);
    EXPECT_EQ(tela.focus(), &tela.txtComplemento);
    user.focus(tela.txtCodPessExterno);
    user.key(tela.txtCodPessExterno, screen::Key::Enter);
    EXPECT_EQ(tela.focus(), &tela.txtCodPessExterno);
}

TEST_F(TelaPessoas, NameGoesToCapitalsOnLeaving) {
    click(tela.cmdINCLUIR);
    user.type(tela.txtDescricao, u"  josé da silva "_s);
    user.focus(tela.txtBairro);
    EXPECT_EQ(tela.txtDescricao.text(), u"JOSÉ DA SILVA");
}

TEST_F(TelaPessoas, MailGoesToTheDesktop) {
    tela.txtEmail1.setText(u" ANA@B.COM "_s);
    click(tela.cmdAbrirOutlook);
    EXPECT_EQ(platform.addresses, QStringList{u"mailto:ana@b.com"_s});
    tela.txtHomePage.setText(u"www.b.com"_s);
    click(tela.cmdAbrirIExplorer);
    EXPECT_EQ(platform.addresses.size(), 1);
}

} // namespace vorta::test
