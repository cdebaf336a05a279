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
    QString notice() { return textOf("lblAviso"); }
};

class EveryRoleScreen : public RoleScreen, public ::testing::WithParamInterface<const char*> {};

TEST_P(EveryRoleScreen, OpensIdleForThePerson) {
    open(GetParam(), [&] {
        EXPECT_TRUE(tela().caption().startsWith(u"ERP VORTA - Nexoria - Release 2015.07.24 - Cadastro de "_s));
        EXPECT_TRUE(tela().caption().endsWith(u" (/MARIA)"_s));
        EXPECT_EQ(textOf("txtRowID"), u"5");
        EXPECT_TRUE(field("txtRowID").locked());
        EXPECT_EQ(textOf("lblPessoa"), u"JOSÉ DA SILVA");
        EXPECT_EQ(notice(), u"Selecione Um Registro Para Alterar/Desativar ou Reativar");
        EXPECT_EQ(tela().lblRowId.text(), u"");
        for (const char* ligado : {"cmdINCLUIR", "cmdALTERAR", "cmdEXCLUIR", "cmdReativar", "cmdSAIR"})
            EXPECT_TRUE(field(ligado).enabled()) << ligado;
        for (const char* desligado : {"cmdPESQUISAR", "cmdSALVAR", "cmdIMPRIMIR"})
            EXPECT_FALSE(field(desligado).enabled()) << desligado;
    });
    EXPECT_FALSE(program.hasEnded());
}

TEST_P(EveryRoleScreen, InclusionChangesButtonsAndNotice) {
    open(GetParam(), [&] {
        click("cmdINCLUIR");
        EXPECT_EQ(notice(), u"O Modo <INCLUSÃO> está ATIVO");
        for (const char* desligado :
             {"cmdPESQUISAR", "cmdINCLUIR", "cmdALTERAR", "cmdEXCLUIR", "cmdReativar", "cmdIMPRIMIR"})
            EXPECT_FALSE(field(desligado).enabled()) << desligado;
        EXPECT_TRUE(field("cmdSALVAR").enabled());
        EXPECT_TRUE(field("txtDTDesativa").locked());
        const char* primeiro = tela().findField(u"cboRevenda"_s)        ? "cboRevenda"
                               : tela().findField(u"mskDtCredencial"_s) ? "mskDtCredencial"
                                                                        : "mskDtAdmissao";
        EXPECT_EQ(focused(), QLatin1StringView(primeiro));
        if (tela().findField(u"mskDtCredencial"_s)) {
            EXPECT_EQ(textOf("mskDtCredencial"), u"20/11/2026");
        }
        platform.willAnswer(Answer::Cancel);
        click("cmdSAIR");
        EXPECT_EQ(contexto.ModoTela, u" ");
        EXPECT_EQ(notice(), u"Selecione Um Registro Para Alterar/Desativar ou Reativar");
        EXPECT_TRUE(field("cmdINCLUIR").enabled());
        EXPECT_TRUE(tela().isLoaded());
    });
    EXPECT_EQ(lastBox().text, unfinished);
    EXPECT_EQ(lastBox().buttons, screen::Buttons::YesNoCancel);
}

TEST_P(EveryRoleScreen, LeavingInTheMiddle) {
    open(GetParam(), [&] {
        click("cmdINCLUIR");
        platform.willAnswer(Answer::No);
        click("cmdSAIR");
        EXPECT_TRUE(tela().isLoaded());
        EXPECT_EQ(contexto.ModoTela, u"I");
        platform.willAnswer(Answer::Yes);
        click("cmdSAIR");
        EXPECT_FALSE(tela().isLoaded());
    });
    EXPECT_EQ(platform.boxes.news(), (QStringList{unfinished, unfinished}));
    EXPECT_EQ(contexto.ModoTela, u"I");
}

TEST_P(EveryRoleScreen, ClosingRefreshesTheRoleButtons) {
    const QString nome = QString::fromLatin1(GetParam());
    const bool atualiza = nome != u"frmArquiteto" && nome != u"frmDecorador";
    contexto.VinculoAtual = u"S"_s;
    open(GetParam(), [&] { click("cmdSAIR"); });
    EXPECT_EQ(contexto.VinculoAtual, atualiza ? u"N" : u"S");
    EXPECT_EQ(pessoas().cmdCliente.picture().endsWith(u"semvinculo.bmp"_s), atualiza);
}

TEST_P(EveryRoleScreen, AFailingAlterationShowsItsMessageAndGoesOn) {
    roleRows();
    open(GetParam(), [&] {
        const QString nome = QString::fromLatin1(GetParam());
        screen::Field& primeiro = nome == u"frmCliente"                    ? field("cboRevenda")
                                  : tela().findField(u"mskDtCredencial"_s) ? field("mskDtCredencial")
                                                                           : field("mskDtAdmissao");
        primeiro.GotFocus = [] { throw RuntimeError(errorNumber::TypeMismatch); };
        click("cmdALTERAR");
    });
    EXPECT_EQ(lastBox().text, u"Erro ao Alterar o Registro!\n13 - Valor de tipo incompatível");
    EXPECT_EQ(lastBox().title, u"Inclusão");
    EXPECT_EQ(lastBox().icon, screen::Icon::Information);
    EXPECT_FALSE(program.hasEnded());
}

INSTANTIATE_TEST_SUITE_P(Roles, EveryRoleScreen, ::testing::ValuesIn(telas),
                         [](const auto& caso) { return std::string(caso.param); });

TEST_F(RoleScreen, AFailingInclusionGoesOnWhereItIsTrapped) {
    for (const char* nome : {"frmMotorista", "frmVendedor", "frmArquiteto", "frmDecorador"}) {
        open(nome, [&] {
            field("mskDtAdmissao").GotFocus = [] { throw RuntimeError(errorNumber::TypeMismatch); };
            click("cmdINCLUIR");
            EXPECT_FALSE(field("cmdINCLUIR").enabled()) << "the buttons are set before";
        });
        EXPECT_EQ(lastBox().text, u"Erro ao Incluir o Registro!\n13 - Valor de tipo incompatível");
    }
    EXPECT_FALSE(program.hasEnded());
    open("frmFornecedor", [&] {
        field("mskDtCredencial").GotFocus = [] { throw RuntimeError(errorNumber::TypeMismatch); };
        click("cmdINCLUIR");
    });
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(failure(), errorNumber::TypeMismatch);
}

TEST_F(RoleScreen, LockedAndFreeFields) {
    open("frmFornecedor", [&] {
        EXPECT_TRUE(field("txtLimiCred").locked());
        EXPECT_EQ(field("txtLimiCred").background(), screen::colour::Locked);
        EXPECT_FALSE(field("mskDtCredencial").enabled());
        EXPECT_TRUE(field("txtNomeContato").locked());
        EXPECT_FALSE(field("mskDtNasc").enabled());
        click("cmdALTERAR");
        EXPECT_FALSE(field("txtLimiCred").locked());
        EXPECT_EQ(field("txtLimiCred").background(), screen::colour::Free);
        EXPECT_TRUE(field("mskDtCredencial").enabled());
        EXPECT_FALSE(field("txtNomeContato").locked());
        EXPECT_EQ(field("txtRowID").background(), screen::colour::Locked);
        EXPECT_EQ(field("txtDTDesativa").background(), screen::colour::Free);
        EXPECT_TRUE(field("txtDTDesativa").locked());
    });
}

TEST_F(RoleScreen, CustomerNeverLocksItsFields) {
    open("frmCliente", [&] {
        for (const char* nome : {"cboRevenda", "txtLimiCred", "cboTipoCli", "cboTransportadora", "txtNomeContato"})
            EXPECT_FALSE(field(nome).locked()) << nome;
        type("txtLimiCred", "12");
        click("cmdINCLUIR");
        EXPECT_EQ(textOf("txtLimiCred"), u"12,00");
        platform.willAnswer(Answer::Cancel);
        click("cmdSAIR");
        EXPECT_EQ(textOf("txtLimiCred"), u"12,00");
    });
    EXPECT_EQ(platform.boxes.news(), QStringList(unfinished));
}

TEST_F(RoleScreen, ClearingZeroesAmounts) {
    open("frmVendedor", [&] {
        for (const char* valor : {"txtSalFixo", "txtPercPool", "txtPercIndi"})
            EXPECT_EQ(textOf(valor), u"0");
        tela().txtDTDesativa.setText(u"x"_s);
        click("cmdINCLUIR");
        EXPECT_EQ(textOf("txtDTDesativa"), u"");
    });
    open("frmTransportadora", [&] {
        tela().txtDTDesativa.setText(u"x"_s);
        click("cmdINCLUIR");
        EXPECT_EQ(textOf("txtDTDesativa"), u"x");
    });
}

TEST_F(RoleScreen, AnImpossibleCredentialDateHoldsTheUser) {
    for (const char* nome : {"frmCliente", "frmFornecedor", "frmTransportadora"}) {
        open(nome, [&] {
            click("cmdINCLUIR");
            type("mskDtCredencial", "31/02/2026");
            click("cmdSALVAR");
            EXPECT_EQ(focused(), u"mskDtCredencial");
            EXPECT_EQ(lastBox().text, u"Data Inválida!");
            EXPECT_EQ(contexto.ModoTela, u"I");
            type("mskDtCredencial", "");
            user.leave(tela());
            EXPECT_EQ(platform.boxes.size(), 1u);
            platform.boxes.clear();
        });
    }
    EXPECT_TRUE(takeWrites().isEmpty());
}

TEST_F(RoleScreen, SupplierAmounts) {
    open("frmFornecedor", [&] {
        click("cmdINCLUIR");
        type("txtLimiCred", "1a2.5x");
        EXPECT_EQ(textOf("txtLimiCred"), u"12,5");
        user.key(field("txtLimiCred"), screen::Key::Backspace);
        EXPECT_EQ(textOf("txtLimiCred"), u"12,");
        user.key(field("txtLimiCred"), screen::Key::Enter);
        EXPECT_EQ(focused(), u"txtDescontoFornecedor");
        EXPECT_EQ(textOf("txtLimiCred"), u"12,00");
        type("txtLimiCred", "1,2,3");
        type("txtDescontoFornecedor", "2,5%");
        EXPECT_EQ(textOf("txtLimiCred"), u"1,2,3") << "no number: stays as typed";
        user.leave(tela());
        EXPECT_EQ(textOf("txtDescontoFornecedor"), u"2,5%") << "no reshaping on leaving";
    });
}

TEST_F(RoleScreen, EnterWalksToTheSaveButton) {
    open("frmMotorista", [&] {
        click("cmdINCLUIR");
        for (const char* proximo :
             {"txtCNH", "txtProntuario", "cboUF_Emitente", "txtPai0Moto", "txtMae0Moto", "txtRefeMoto", "cmdSALVAR"}) {
            user.key(*tela().focus(), screen::Key::Enter);
            EXPECT_EQ(focused(), QLatin1StringView(proximo));
        }
    });
}

TEST_F(RoleScreen, DriverAdmissionTakesDaysFromToday) {
    open("frmMotorista", [&] {
        click("cmdINCLUIR");
        type("mskDtAdmissao", "30");
        user.leave(tela());
        EXPECT_EQ(textOf("mskDtAdmissao"), u"20/12/2026");
    });
}

TEST_F(RoleScreen, ANumberOfACustomerHoldsTheUser) {
    database.answer(u"SELECT * FROM clie WHERE idClie=5"_s, {{"idclie"}, {{test::number(5)}}});
    for (const char* nome : {"frmCliente", "frmFornecedor", "frmTransportadora"}) {
        open(nome, [&] {
            click("cmdINCLUIR");
            focus("txtRowID");
            user.leave(tela());
            EXPECT_EQ(focused(), u"txtRowID");
            EXPECT_EQ(lastBox().text, u"O Cliente (5) Já Existe! Tente outro código");
        });
    }
    contexto.ModoTela = u" "_s;
    platform.boxes.clear();
    open("frmFornecedor", [&] {
        focus("txtRowID");
        user.leave(tela());
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(RoleScreen, AContactGoesIntoTheGridAndComesBack) {
    open("frmFornecedor", [&] {
        click("cmdINCLUIR");
        addContact("", "Sem tipo");
        EXPECT_EQ(grid().Rows(), 1);
        addContact("COMPRADOR", "");
        EXPECT_EQ(grid().Rows(), 1);
        addContact("COMPRADOR", "José", "11", "", "25/12");
        EXPECT_EQ(grid().Rows(), 2);
        EXPECT_EQ(grid().cell(1, 2), u"JOSÉ");
        EXPECT_EQ(grid().cell(1, 5), u"25/12");
        EXPECT_EQ(textOf("txtNomeContato"), u"");
        EXPECT_EQ(textOf("mskDtNasc"), u"__/__");
        EXPECT_EQ(focused(), u"cboTipoContato");
        user.clickCell(grid(), 0, 2);
        EXPECT_EQ(grid().Rows(), 2) << "the header is no contact";
        user.clickCell(grid(), 1, 2);
        EXPECT_EQ(grid().Rows(), 1);
        EXPECT_EQ(grid().Cols(), 6);
        EXPECT_EQ(textOf("cboTipoContato"), u"COMPRADOR");
        EXPECT_EQ(textOf("mskDtNasc"), u"25/12");
    });
}

TEST_F(RoleScreen, BirthdaysAreCheckedOnThreeScreens) {
    open("frmTransportadora", [&] {
        click("cmdINCLUIR");
        type("mskDtNasc", "29/02");
        user.leave(tela());
        EXPECT_EQ(lastBox().text, u"Data Inválida!");
        EXPECT_EQ(focused(), u"mskDtNasc");
        type("mskDtNasc", "28/02");
        user.leave(tela());
        EXPECT_EQ(textOf("mskDtNasc"), u"28/02");
        EXPECT_EQ(focused(), u"");
    });
    platform.boxes.clear();
    open("frmArquiteto", [&] {
        click("cmdINCLUIR");
        type("txtNomeContato", "rui");
        type("mskDtNasc", "31/02");
        user.leave(tela());
        EXPECT_EQ(textOf("txtNomeContato"), u"rui");
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(RoleScreen, ARefusedEmailMayBeCorrectedOrKept) {
    open("frmDecorador", [&] {
        click("cmdINCLUIR");
        platform.willAnswer(Answer::Yes);
        type("txtEmailContato", "ana");
        user.leave(tela());
        const QStringList told{u"O e-mail digitado tem menos de 5 caracterec!!!"_s,
                               u"O e-mail digitado não passou na validação.\nVocê deseja corrigir?"_s};
        EXPECT_EQ(platform.boxes.news(), told);
        EXPECT_EQ(focused(), u"txtEmailContato");
        platform.willAnswer(Answer::No);
        user.leave(tela());
        EXPECT_EQ(platform.boxes.news(), told);
        EXPECT_EQ(focused(), u"");
        EXPECT_EQ(textOf("txtEmailContato"), u"ana");
    });
}

TEST_F(RoleScreen, SavingWithoutAPerson) {
    for (const char* nome : {"frmCliente", "frmFornecedor", "frmTransportadora", "frmArquiteto", "frmDecorador"}) {
        open(nome, [&] {
            click("cmdINCLUIR");
            tela().txtRowID.setText({});
            click("cmdSALVAR");
            EXPECT_EQ(lastBox().text, u"Falta Vinculo com a Tabela de Pessoas!!!");
            EXPECT_EQ(contexto.ModoTela, u"I");
        });
    }
    EXPECT_TRUE(takeWrites().isEmpty());
}

TEST_F(RoleScreen, UnknownBank) {
    open("frmArquiteto", [&] {
        click("cmdINCLUIR");
        type("cboBancoCartao", "NENHUM");
        click("cmdSALVAR");
        EXPECT_EQ(lastBox().text, u"Banco Inválido");
        EXPECT_EQ(focused(), u"cboBancoCartao");
        EXPECT_EQ(contexto.ModoTela, u"I");
        EXPECT_FALSE(field("txtCREA").locked());
    });
    EXPECT_TRUE(takeWrites().isEmpty());
}

TEST_F(RoleScreen, ABankListOfOneChoosesIt) {
    open("frmDecorador", [&] {
        click("cmdINCLUIR");
        database.answer(u"FROM BANC WHERE DATA_DESA"_s, {{"nome_banc"}, {{test::text("ITAU")}}});
        type("cboBancoCartao", "34");
        user.dropDown(dynamic_cast<screen::ListField&>(field("cboBancoCartao")));
        EXPECT_EQ(textOf("cboBancoCartao"), u"ITAU");
        EXPECT_EQ(database.sent.last(), u"SELECT NOME_BANC FROM BANC WHERE DATA_DESA IS NULL AND CODI_BANC LIKE '34%' "
                                        u"ORDER BY NOME_BANC");
    });
}

TEST_F(RoleScreen, CustomerLists) {
    open("frmCliente", [&] {
        const auto abreLista = [&](const char* nome) {
            user.dropDown(dynamic_cast<screen::ListField&>(field(nome)));
            return database.sent.last();
        };
        EXPECT_TRUE(abreLista("cboTipoCli").startsWith(u"SELECT DESC_TIPO_CLIE FROM TIPO_CLIE"));
        EXPECT_TRUE(abreLista("cboRegimeEspecialICMS").startsWith(u"SELECT DESC_REGI_ESPE_ICMS"));
        type("cboVendedor", "AN");
        EXPECT_TRUE(abreLista("cboVendedor").contains(u"AND PESS.NOME_CONH LIKE 'AN%' AND VEND.DATA_DESA IS NULL"));
        type("cboTransportadora", "RA");
        EXPECT_TRUE(abreLista("cboTransportadora").contains(u"TRPT.DATA_DESA IS NULL AND PESS.NOME_CONH LIKE 'RA%'"));
        EXPECT_EQ(dynamic_cast<screen::ListField&>(field("cboRevenda")).items(), (QStringList{"Sim", "Não"}));
    });
}

TEST_F(RoleScreen, ShowingTheDeactivated) {
    for (const char* nome : {"frmCliente", "frmFornecedor", "frmTransportadora"}) {
        open(nome, [&] { click("chkVisualiza"); });
    }
    EXPECT_TRUE(database.sent.filter(u"VENDEDOR"_s).isEmpty());
    open("frmMotorista", [&] { click("chkVisualiza"); });
    EXPECT_FALSE(program.hasEnded()) << "the old table is empty";
    database.answer(u"FROM VENDEDOR"_s, {{"idVendedor", "NOME_CONH", "nome", "dtinclusao", "dtdesativa"},
                                         {{test::number(1), test::text("ANA"), test::text("ANA MARIA"),
                                           test::date(2001, 2, 3), test::null()}}});
    open("frmArquiteto", [&] {
        click("chkVisualiza");
        EXPECT_EQ(database.sent.last(), u"SELECT * FROM VENDEDOR");
        EXPECT_EQ(grid().Rows(), 2);
        EXPECT_EQ(grid().cell(1, 0), u"1");
        EXPECT_EQ(grid().cell(1, 2), u"ANA MARIA");
        EXPECT_EQ(grid().cell(1, 3), u"03/02/2001");
        click("chkVisualiza");
        EXPECT_EQ(database.sent.last(), u"SELECT * FROM VENDEDOR WHERE DTDESATIVA IS NULL");
        EXPECT_EQ(grid().Rows(), 2);
    });
    open("frmVendedor", [&] { click("chkVisualiza"); });
    EXPECT_EQ(failure(), errorNumber::ObjectNotSet);
}

} // namespace

} // namespace vorta::test
