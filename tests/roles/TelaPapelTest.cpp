#include "base/Literals.h"
#include "roles/PapelTest.h"

/// The frame: opening, modes, fields, contacts, closing, and what a failing statement does.
namespace vorta::test {

namespace {

using screen::Answer;

const std::vector<const char*> telas{"frmCliente",  "frmFornecedor", "frmTransportadora", "frmMotorista",
                                     "frmVendedor", "frmArquiteto",  "frmDecorador"};

class RoleScreen : public PapelTest {
  protected:
    QString aviso() { return texto("lblAviso"); }
};

class EveryRoleScreen : public RoleScreen, public ::testing::WithParamInterface<const char*> {};

TEST_P(EveryRoleScreen, OpensIdleForThePerson) {
    abre(GetParam(), [&] {
        EXPECT_TRUE(tela().caption().startsWith(u"ERP VORTA - Nexoria - Release 2015.07.24 - Cadastro de "_s));
        EXPECT_TRUE(tela().caption().endsWith(u" (/MARIA)"_s));
        EXPECT_EQ(texto("txtRowID"), u"5");
        EXPECT_TRUE(campo("txtRowID").locked());
        EXPECT_EQ(texto("lblPessoa"), u"JOSÉ DA SILVA");
        EXPECT_EQ(aviso(), u"Selecione Um Registro Para Alterar/Desativar ou Reativar");
        EXPECT_EQ(tela().lblRowId.text(), u"");
        for (const char* ligado : {"cmdINCLUIR", "cmdALTERAR", "cmdEXCLUIR", "cmdReativar", "cmdSAIR"})
            EXPECT_TRUE(campo(ligado).enabled()) << ligado;
        for (const char* desligado : {"cmdPESQUISAR", "cmdSALVAR", "cmdIMPRIMIR"})
            EXPECT_FALSE(campo(desligado).enabled()) << desligado;
    });
    EXPECT_FALSE(programa.hasEnded());
}

TEST_P(EveryRoleScreen, InclusionChangesButtonsAndNotice) {
    abre(GetParam(), [&] {
        clica("cmdINCLUIR");
        EXPECT_EQ(aviso(), u"O Modo <INCLUSÃO> está ATIVO");
        for (const char* desligado :
             {"cmdPESQUISAR", "cmdINCLUIR", "cmdALTERAR", "cmdEXCLUIR", "cmdReativar", "cmdIMPRIMIR"})
            EXPECT_FALSE(campo(desligado).enabled()) << desligado;
        EXPECT_TRUE(campo("cmdSALVAR").enabled());
        EXPECT_TRUE(campo("txtDTDesativa").locked());
        const char* primeiro = tela().findField(u"cboRevenda"_s)        ? "cboRevenda"
                               : tela().findField(u"mskDtCredencial"_s) ? "mskDtCredencial"
                                                                        : "mskDtAdmissao";
        EXPECT_EQ(foco(), QLatin1StringView(primeiro));
        if (tela().findField(u"mskDtCredencial"_s)) {
            EXPECT_EQ(texto("mskDtCredencial"), u"20/11/2026");
        }
        plataforma.willAnswer(Answer::Cancel);
        clica("cmdSAIR");
        EXPECT_EQ(contexto.ModoTela, u" ");
        EXPECT_EQ(aviso(), u"Selecione Um Registro Para Alterar/Desativar ou Reativar");
        EXPECT_TRUE(campo("cmdINCLUIR").enabled());
        EXPECT_TRUE(tela().isLoaded());
    });
    EXPECT_EQ(ultimaCaixa().text,
              u"Existe operação não concluída!!!\n\n<Sim> Sair sem Concluir\n<Não> Retornar para a Operação Atual\n"
              u"<Cancela> Retornar e Abortar a Operação Atual");
    EXPECT_EQ(ultimaCaixa().buttons, screen::Buttons::YesNoCancel);
}

TEST_P(EveryRoleScreen, LeavingInTheMiddle) {
    abre(GetParam(), [&] {
        clica("cmdINCLUIR");
        plataforma.willAnswer(Answer::No);
        clica("cmdSAIR");
        EXPECT_TRUE(tela().isLoaded());
        EXPECT_EQ(contexto.ModoTela, u"I");
        plataforma.willAnswer(Answer::Yes);
        clica("cmdSAIR");
        EXPECT_FALSE(tela().isLoaded());
    });
    EXPECT_EQ(contexto.ModoTela, u"I");
}

TEST_P(EveryRoleScreen, ClosingRefreshesTheRoleButtons) {
    const QString nome = QString::fromLatin1(GetParam());
    const bool atualiza = nome != u"frmArquiteto" && nome != u"frmDecorador";
    contexto.VinculoAtual = u"S"_s;
    abre(GetParam(), [&] { clica("cmdSAIR"); });
    EXPECT_EQ(contexto.VinculoAtual, atualiza ? u"N" : u"S");
    EXPECT_EQ(pessoas().cmdCliente.picture().endsWith(u"semvinculo.bmp"_s), atualiza);
}

TEST_P(EveryRoleScreen, AFailingAlterationShowsItsMessageAndGoesOn) {
    registros();
    abre(GetParam(), [&] {
        const QString nome = QString::fromLatin1(GetParam());
        screen::Field& primeiro = nome == u"frmCliente"                    ? campo("cboRevenda")
                                  : tela().findField(u"mskDtCredencial"_s) ? campo("mskDtCredencial")
                                                                           : campo("mskDtAdmissao");
        primeiro.GotFocus = [] { throw RuntimeError(errorNumber::TypeMismatch); };
        clica("cmdALTERAR");
    });
    EXPECT_EQ(ultimaCaixa().text, u"Erro ao Alterar o Registro!\n13 - Valor de tipo incompatível");
    EXPECT_EQ(ultimaCaixa().title, u"Inclusão");
    EXPECT_EQ(ultimaCaixa().icon, screen::Icon::Information);
    EXPECT_FALSE(programa.hasEnded());
}

INSTANTIATE_TEST_SUITE_P(Roles, EveryRoleScreen, ::testing::ValuesIn(telas),
                         [](const auto& caso) { return std::string(caso.param); });

TEST_F(RoleScreen, AFailingInclusionGoesOnWhereItIsTrapped) {
    for (const char* nome : {"frmMotorista", "frmVendedor", "frmArquiteto", "frmDecorador"}) {
        abre(nome, [&] {
            campo("mskDtAdmissao").GotFocus = [] { throw RuntimeError(errorNumber::TypeMismatch); };
            clica("cmdINCLUIR");
            EXPECT_FALSE(campo("cmdINCLUIR").enabled()) << "the buttons are set before";
        });
        EXPECT_EQ(ultimaCaixa().text, u"Erro ao Incluir o Registro!\n13 - Valor de tipo incompatível");
    }
    EXPECT_FALSE(programa.hasEnded());
    abre("frmFornecedor", [&] {
        campo("mskDtCredencial").GotFocus = [] { throw RuntimeError(errorNumber::TypeMismatch); };
        clica("cmdINCLUIR");
    });
    EXPECT_TRUE(programa.hasEnded());
}

TEST_F(RoleScreen, LockedAndFreeFields) {
    abre("frmFornecedor", [&] {
        EXPECT_TRUE(campo("txtLimiCred").locked());
        EXPECT_EQ(campo("txtLimiCred").background(), screen::colour::Locked);
        EXPECT_FALSE(campo("mskDtCredencial").enabled());
        EXPECT_TRUE(campo("txtNomeContato").locked());
        EXPECT_FALSE(campo("mskDtNasc").enabled());
        clica("cmdALTERAR");
        EXPECT_FALSE(campo("txtLimiCred").locked());
        EXPECT_EQ(campo("txtLimiCred").background(), screen::colour::Free);
        EXPECT_TRUE(campo("mskDtCredencial").enabled());
        EXPECT_FALSE(campo("txtNomeContato").locked());
        EXPECT_EQ(campo("txtRowID").background(), screen::colour::Locked);
        EXPECT_EQ(campo("txtDTDesativa").background(), screen::colour::Free);
        EXPECT_TRUE(campo("txtDTDesativa").locked());
    });
}

TEST_F(RoleScreen, CustomerNeverLocksItsFields) {
    abre("frmCliente", [&] {
        for (const char* nome : {"cboRevenda", "txtLimiCred", "cboTipoCli", "cboTransportadora", "txtNomeContato"})
            EXPECT_FALSE(campo(nome).locked()) << nome;
        digita("txtLimiCred", "12");
        clica("cmdINCLUIR");
        EXPECT_EQ(texto("txtLimiCred"), u"12,00");
        plataforma.willAnswer(Answer::Cancel);
        clica("cmdSAIR");
        EXPECT_EQ(texto("txtLimiCred"), u"12,00");
    });
}

TEST_F(RoleScreen, ClearingZeroesAmounts) {
    abre("frmVendedor", [&] {
        for (const char* valor : {"txtSalFixo", "txtPercPool", "txtPercIndi"})
            EXPECT_EQ(texto(valor), u"0");
        tela().txtDTDesativa.setText(u"x"_s);
        clica("cmdINCLUIR");
        EXPECT_EQ(texto("txtDTDesativa"), u"");
    });
    abre("frmTransportadora", [&] {
        tela().txtDTDesativa.setText(u"x"_s);
        clica("cmdINCLUIR");
        EXPECT_EQ(texto("txtDTDesativa"), u"x");
    });
}

TEST_F(RoleScreen, AnImpossibleCredentialDateHoldsTheUser) {
    for (const char* nome : {"frmCliente", "frmFornecedor", "frmTransportadora"}) {
        abre(nome, [&] {
            clica("cmdINCLUIR");
            digita("mskDtCredencial", "31/02/2026");
            clica("cmdSALVAR");
            EXPECT_EQ(foco(), u"mskDtCredencial");
            EXPECT_EQ(ultimaCaixa().text, u"Data Inválida!");
            EXPECT_EQ(contexto.ModoTela, u"I");
            digita("mskDtCredencial", "");
            usuario.leave(tela());
            EXPECT_EQ(plataforma.boxes.size(), 1u);
            plataforma.boxes.clear();
        });
    }
    EXPECT_TRUE(escritas().isEmpty());
}

TEST_F(RoleScreen, SupplierAmounts) {
    abre("frmFornecedor", [&] {
        clica("cmdINCLUIR");
        digita("txtLimiCred", "1a2.5x");
        EXPECT_EQ(texto("txtLimiCred"), u"12,5");
        usuario.key(campo("txtLimiCred"), screen::Key::Backspace);
        EXPECT_EQ(texto("txtLimiCred"), u"12,");
        usuario.key(campo("txtLimiCred"), screen::Key::Enter);
        EXPECT_EQ(foco(), u"txtDescontoFornecedor");
        EXPECT_EQ(texto("txtLimiCred"), u"12,00");
        digita("txtLimiCred", "1,2,3");
        digita("txtDescontoFornecedor", "2,5%");
        EXPECT_EQ(texto("txtLimiCred"), u"1,2,3") << "no number: stays as typed";
        usuario.leave(tela());
        EXPECT_EQ(texto("txtDescontoFornecedor"), u"2,5%") << "no reshaping on leaving";
    });
}

TEST_F(RoleScreen, EnterWalksToTheSaveButton) {
    abre("frmMotorista", [&] {
        clica("cmdINCLUIR");
        for (const char* proximo :
             {"txtCNH", "txtProntuario", "cboUF_Emitente", "txtPai0Moto", "txtMae0Moto", "txtRefeMoto", "cmdSALVAR"}) {
            usuario.key(*tela().focus(), screen::Key::Enter);
            EXPECT_EQ(foco(), QLatin1StringView(proximo));
        }
    });
}

TEST_F(RoleScreen, DriverAdmissionTakesDaysFromToday) {
    abre("frmMotorista", [&] {
        clica("cmdINCLUIR");
        digita("mskDtAdmissao", "30");
        usuario.leave(tela());
        EXPECT_EQ(texto("mskDtAdmissao"), u"20/12/2026");
    });
}

TEST_F(RoleScreen, ANumberOfACustomerHoldsTheUser) {
    base.answer(u"SELECT * FROM clie WHERE idClie=5"_s, {{"idclie"}, {{test::number(5)}}});
    for (const char* nome : {"frmCliente", "frmFornecedor", "frmTransportadora"}) {
        abre(nome, [&] {
            clica("cmdINCLUIR");
            foca("txtRowID");
            usuario.leave(tela());
            EXPECT_EQ(foco(), u"txtRowID");
            EXPECT_EQ(ultimaCaixa().text, u"O Cliente (5) Já Existe! Tente outro código");
        });
    }
    contexto.ModoTela = u" "_s;
    plataforma.boxes.clear();
    abre("frmFornecedor", [&] {
        foca("txtRowID");
        usuario.leave(tela());
    });
    EXPECT_TRUE(plataforma.boxes.empty());
}

TEST_F(RoleScreen, AContactGoesIntoTheGridAndComesBack) {
    abre("frmFornecedor", [&] {
        clica("cmdINCLUIR");
        incluiContato("", "Sem tipo");
        EXPECT_EQ(grade().Rows(), 1);
        incluiContato("COMPRADOR", "");
        EXPECT_EQ(grade().Rows(), 1);
        incluiContato("COMPRADOR", "José", "11", "", "25/12");
        EXPECT_EQ(grade().Rows(), 2);
        EXPECT_EQ(grade().cell(1, 2), u"JOSÉ");
        EXPECT_EQ(grade().cell(1, 5), u"25/12");
        EXPECT_EQ(texto("txtNomeContato"), u"");
        EXPECT_EQ(texto("mskDtNasc"), u"__/__");
        EXPECT_EQ(foco(), u"cboTipoContato");
        usuario.clickCell(grade(), 0, 2);
        EXPECT_EQ(grade().Rows(), 2) << "the header is no contact";
        usuario.clickCell(grade(), 1, 2);
        EXPECT_EQ(grade().Rows(), 1);
        EXPECT_EQ(grade().Cols(), 6);
        EXPECT_EQ(texto("cboTipoContato"), u"COMPRADOR");
        EXPECT_EQ(texto("mskDtNasc"), u"25/12");
    });
}

TEST_F(RoleScreen, BirthdaysAreCheckedOnThreeScreens) {
    abre("frmTransportadora", [&] {
        clica("cmdINCLUIR");
        digita("mskDtNasc", "29/02");
        usuario.leave(tela());
        EXPECT_EQ(ultimaCaixa().text, u"Data Inválida!");
        EXPECT_EQ(foco(), u"mskDtNasc");
        digita("mskDtNasc", "28/02");
        usuario.leave(tela());
        EXPECT_EQ(texto("mskDtNasc"), u"28/02");
        EXPECT_EQ(foco(), u"");
    });
    plataforma.boxes.clear();
    abre("frmArquiteto", [&] {
        clica("cmdINCLUIR");
        digita("txtNomeContato", "rui");
        digita("mskDtNasc", "31/02");
        usuario.leave(tela());
        EXPECT_EQ(texto("txtNomeContato"), u"rui");
    });
    EXPECT_TRUE(plataforma.boxes.empty());
}

TEST_F(RoleScreen, ARefusedEmailMayBeCorrectedOrKept) {
    abre("frmDecorador", [&] {
        clica("cmdINCLUIR");
        plataforma.willAnswer(Answer::Yes);
        digita("txtEmailContato", "ana");
        usuario.leave(tela());
        EXPECT_EQ(ultimaCaixa().text, u"O e-mail digitado não passou na validação.\nVocê deseja corrigir?");
        EXPECT_EQ(foco(), u"txtEmailContato");
        plataforma.willAnswer(Answer::No);
        usuario.leave(tela());
        EXPECT_EQ(foco(), u"");
        EXPECT_EQ(texto("txtEmailContato"), u"ana");
    });
}

TEST_F(RoleScreen, SavingWithoutAPerson) {
    for (const char* nome : {"frmCliente", "frmFornecedor", "frmTransportadora", "frmArquiteto", "frmDecorador"}) {
        abre(nome, [&] {
            clica("cmdINCLUIR");
            tela().txtRowID.setText({});
            clica("cmdSALVAR");
            EXPECT_EQ(ultimaCaixa().text, u"Falta Vinculo com a Tabela de Pessoas!!!");
            EXPECT_EQ(contexto.ModoTela, u"I");
        });
    }
    EXPECT_TRUE(escritas().isEmpty());
}

TEST_F(RoleScreen, UnknownBank) {
    abre("frmArquiteto", [&] {
        clica("cmdINCLUIR");
        digita("cboBancoCartao", "NENHUM");
        clica("cmdSALVAR");
        EXPECT_EQ(ultimaCaixa().text, u"Banco Inválido");
        EXPECT_EQ(foco(), u"cboBancoCartao");
        EXPECT_EQ(contexto.ModoTela, u"I");
        EXPECT_FALSE(campo("txtCREA").locked());
    });
    EXPECT_TRUE(escritas().isEmpty());
}

TEST_F(RoleScreen, ABankListOfOneChoosesIt) {
    abre("frmDecorador", [&] {
        clica("cmdINCLUIR");
        base.answer(u"FROM BANC WHERE DATA_DESA"_s, {{"nome_banc"}, {{test::text("ITAU")}}});
        digita("cboBancoCartao", "34");
        usuario.dropDown(dynamic_cast<screen::ListField&>(campo("cboBancoCartao")));
        EXPECT_EQ(texto("cboBancoCartao"), u"ITAU");
        EXPECT_EQ(base.sent.last(), u"SELECT NOME_BANC FROM BANC WHERE DATA_DESA IS NULL AND CODI_BANC LIKE '34%' "
                                    u"ORDER BY NOME_BANC");
    });
}

TEST_F(RoleScreen, CustomerLists) {
    abre("frmCliente", [&] {
        const auto abreLista = [&](const char* nome) {
            usuario.dropDown(dynamic_cast<screen::ListField&>(campo(nome)));
            return base.sent.last();
        };
        EXPECT_TRUE(abreLista("cboTipoCli").startsWith(u"SELECT DESC_TIPO_CLIE FROM TIPO_CLIE"));
        EXPECT_TRUE(abreLista("cboRegimeEspecialICMS").startsWith(u"SELECT DESC_REGI_ESPE_ICMS"));
        digita("cboVendedor", "AN");
        EXPECT_TRUE(abreLista("cboVendedor").contains(u"AND PESS.NOME_CONH LIKE 'AN%' AND VEND.DATA_DESA IS NULL"));
        digita("cboTransportadora", "RA");
        EXPECT_TRUE(abreLista("cboTransportadora").contains(u"TRPT.DATA_DESA IS NULL AND PESS.NOME_CONH LIKE 'RA%'"));
        EXPECT_EQ(dynamic_cast<screen::ListField&>(campo("cboRevenda")).items(), (QStringList{"Sim", "Não"}));
    });
}

TEST_F(RoleScreen, ShowingTheDeactivated) {
    for (const char* nome : {"frmCliente", "frmFornecedor", "frmTransportadora"}) {
        abre(nome, [&] { clica("chkVisualiza"); });
    }
    EXPECT_TRUE(base.sent.filter(u"VENDEDOR"_s).isEmpty());
    abre("frmMotorista", [&] { clica("chkVisualiza"); });
    EXPECT_FALSE(programa.hasEnded()) << "the old table is empty";
    base.answer(u"FROM VENDEDOR"_s, {{"idVendedor", "NOME_CONH", "nome", "dtinclusao", "dtdesativa"},
                                     {{test::number(1), test::text("ANA"), test::text("ANA MARIA"),
                                       test::date(2001, 2, 3), test::null()}}});
    abre("frmArquiteto", [&] {
        clica("chkVisualiza");
        EXPECT_EQ(base.sent.last(), u"SELECT * FROM VENDEDOR");
        EXPECT_EQ(grade().Rows(), 2);
        EXPECT_EQ(grade().cell(1, 0), u"1");
        EXPECT_EQ(grade().cell(1, 2), u"ANA MARIA");
        EXPECT_EQ(grade().cell(1, 3), u"03/02/2001");
        clica("chkVisualiza");
        EXPECT_EQ(base.sent.last(), u"SELECT * FROM VENDEDOR WHERE DTDESATIVA IS NULL");
        EXPECT_EQ(grade().Rows(), 2);
    });
    abre("frmVendedor", [&] { clica("chkVisualiza"); });
    ASSERT_TRUE(programa.failure());
    EXPECT_EQ(programa.failure()->number(), errorNumber::ObjectNotSet);
}

} // namespace

} // namespace vorta::test
