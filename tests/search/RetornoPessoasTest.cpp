#include "search/BuscaTest.h"

#include "base/RuntimeError.h"

namespace vorta::test {

namespace {

using Tela = frmBROWSE_PESSOAS;

const QStringList colunas{u"IDPESS"_qs,         u"CPF0_CNPJ"_qs, u"NOME_PESS"_qs,     u"NOME_CONH"_qs,
                          u"TELE_0001_PESS"_qs, u"DATA_DESA"_qs, u"PESS_CODI_EXTE"_qs};

/// A caller of another program with the fields that the contract may write.
class TelaAlheia : public screen::Screen {
  public:
    TelaAlheia(ContextoExecucao& contexto, const QString& nome, const QStringList& campos)
        : Screen(contexto.program(), nome) {
        for (const QString& campo : campos)
            campos_.push_back(std::make_unique<screen::TextField>(this, campo.toLatin1().constData()));
    }

  private:
    std::vector<std::unique_ptr<screen::TextField>> campos_;
};

struct CasoContrato {
    const char* chamadora;
    const char* consulta;
    QStringList escritas; ///< "field=text" in the order of the contract
    const char* foco;
};

} // namespace

class RetornoPessoasTest : public BuscaTest {
  protected:
    RetornoPessoasTest() {
        database.answer(
            u"FROM PESS WHERE"_qs,
            {colunas,
             {{number(10), text("11.111.111/0001-11"), text("ALFA"), text("ALFA C"), null(), null(), null()},
              {number(20), text("22.222.222/0001-22"), text("BETA"), text("BETA C"), null(), null(), null()},
              {number(30), text("33"), text("GAMA"), text("GAMA C"), null(), null(), null()}}});
        database.answer(u"FROM CLIE WHERE IDPESS"_qs, {{u"idclie"_qs}, {{number(77)}}});
        database.answer(u"FROM FORN WHERE IDPESS"_qs, {{u"idforn"_qs}, {{number(88)}}});
        database.answer(u"PESS.NOME_PESS='BETA'"_qs, {{u"idforn"_qs}, {{number(99)}}});
        database.answer(u"SELECT TABE_PREC"_qs, {{u"tabe_prec"_qs}, {{text("TABELA B")}}});
        database.answer(u"SELECT PESS.IDVEND"_qs, {{u"idvend"_qs}, {{number(5)}}});
    }

    void abreBusca(const std::function<void(Tela&)>& faz) { abre<Tela>("frmBROWSE_PESSOAS", faz); }

    void escolhe(Tela& tela, int linha) { user.doubleClickCell(tela.Flex, linha, 0); }
};

TEST_F(RetornoPessoasTest, TheChoiceGoesIntoTheSearchKeyOfThePersonScreen) {
    abreBusca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        escolhe(tela, 2);
        EXPECT_FALSE(tela.isLoaded());
    });
    EXPECT_EQ(pessoas().txtRowID.text(), u"20"_qs);
    EXPECT_EQ(pessoas().focus(), &pessoas().txtRowID);
    EXPECT_EQ(contexto.VinculoAtual, u" "_qs);
}

TEST_F(RetornoPessoasTest, HeaderRowChangesNothing) {
    abreBusca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        user.doubleClickCell(tela.Flex, 0, 0);
        EXPECT_TRUE(tela.isLoaded());
        EXPECT_EQ(contexto.UltimaFormaBusca, QString());
        EXPECT_EQ(contexto.UltimoVisualiza, QString());
        EXPECT_EQ(contexto.VinculoAtual, u"N"_qs);
    });
    EXPECT_EQ(pessoas().txtRowID.text(), QString());
}

TEST_F(RetornoPessoasTest, TheLastSearchComesBack) {
    abreBusca([&](Tela& tela) {
        tela.cboCod.setText(u" bet "_qs);
        tela.opFantasia.setValue(true);
        tela.opCampoInteiro.setValue(true);
        tela.opCliente.setValue(true);
        user.click(tela.cmdPesquisa);
        tela.Flex.setTopRow(3);
        escolhe(tela, 3);
    });
    EXPECT_EQ(contexto.UltimaFormaBusca, u"opFantasia"_qs);
    EXPECT_EQ(contexto.UltimoConteudoBusca, u"opCampoInteiro"_qs);
    EXPECT_EQ(contexto.UltimoTextoBusca, u" BET "_qs) << "leaving the text put it in capitals, its blanks stay";
    EXPECT_EQ(contexto.UltimoVisualiza, u"Não"_qs);
    EXPECT_EQ(contexto.UltimoPapelBusca, u"opCliente"_qs);
    EXPECT_EQ(contexto.TopoGridBusca, 3);
    esquece();
    abreBusca([&](Tela& tela) {
        EXPECT_TRUE(tela.opFantasia.value() && tela.opCampoInteiro.value() && tela.opCliente.value());
        EXPECT_EQ(tela.cboCod.text(), u" BET "_qs);
        EXPECT_EQ(enviados("FROM PESS WHERE"),
                  QStringList{u"SELECT * FROM PESS WHERE DATA_DESA IS NULL AND NOME_CONH = 'BET' "
                              "ORDER BY NOME_CONH"_qs});
        EXPECT_EQ(tela.Flex.Rows(), 4);
        EXPECT_EQ(tela.Flex.TopRow(), 3);
    });
}

TEST_F(RetornoPessoasTest, CodesAndSomeRolesAreNotRemembered) {
    abreBusca([&](Tela& tela) {
        tela.cboCod.setText(u"2"_qs);
        tela.opCodInterno.setValue(true);
        tela.opInicialCom.setValue(true);
        user.click(tela.cmdPesquisa);
        escolhe(tela, 1);
    });
    EXPECT_EQ(contexto.UltimaFormaBusca, QString());
    EXPECT_EQ(contexto.UltimoConteudoBusca, QString());
    esquece();
    abreBusca([&](Tela& tela) {
        EXPECT_TRUE(tela.opNome.value() && tela.opQualquerParte.value() && tela.opTodos.value());
        EXPECT_EQ(
            enviados("FROM PESS WHERE"),
            QStringList{u"SELECT * FROM PESS WHERE DATA_DESA IS NULL AND NOME_PESS LIKE '%2%' ORDER BY NOME_PESS"_qs});
    });
}

TEST_F(RetornoPessoasTest, RolesThatNothingStores) {
    database.answer(u"FROM ARQT WHERE IDPESS"_qs, {{u"idarqt"_qs}, {{number(3)}}});
    abreBusca([&](Tela& tela) {
        tela.opArquiteto.setValue(true);
        user.click(tela.cmdPesquisa);
        escolhe(tela, 1);
    });
    EXPECT_EQ(contexto.UltimoPapelBusca, QString());
    contexto.UltimoPapelBusca = u"opArquiteto"_qs;
    abreBusca([&](Tela& tela) { EXPECT_TRUE(tela.opArquiteto.value()) << "it is known when it stands there"; });
    contexto.UltimoPapelBusca = u"opDecorador"_qs;
    abreBusca([&](Tela& tela) { EXPECT_TRUE(tela.opTodos.value()); });
}

TEST_F(RetornoPessoasTest, ARememberedCheckSearchesTwice) {
    contexto.UltimoVisualiza = u"Sim"_qs;
    contexto.UltimoPapelBusca = u"opVendedor"_qs;
    abreBusca([&](Tela& tela) {
        EXPECT_TRUE(tela.chkVisualiza.checked());
        EXPECT_EQ(enviados("FROM PESS WHERE (NOT DATA_DESA IS NULL)").size(), 2);
        EXPECT_EQ(enviados("FROM VEND").size(), 3) << "the role comes back behind the search of the check box";
    });
}

TEST_F(RetornoPessoasTest, ClosingByTheFrameReturnsNothing) {
    abreBusca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        user.close(tela);
    });
    EXPECT_EQ(pessoas().txtRowID.text(), QString());
    EXPECT_EQ(contexto.UltimoVisualiza, QString());
}

TEST_F(RetornoPessoasTest, RoleWordPresetsOneOption) {
    const std::vector<std::pair<const char*, const char*>> casos{{"FORNECEDOR", "opFornecedor"},
                                                                 {"FORNECEDOREXPRESS", "opFornecedor"},
                                                                 {"CLIENTE", "opCliente"},
                                                                 {"VENDEDOR", "opVendedor"},
                                                                 {"VENDEDOREXPRESS", "opVendedor"},
                                                                 {"ARQUITETO", "opArquiteto"},
                                                                 {"ARQUITETOEXPRESS", "opArquiteto"},
                                                                 {"DECORADOR", "opDecorador"},
                                                                 {"DECORADOREXPRESS", "opDecorador"},
                                                                 {"TRANSPORTADORA", "opTransportadora"},
                                                                 {"CLIENTETRELOGA", "opCliente"},
                                                                 {"CLIENTEEXPRESS", "opCliente"},
                                                                 {"PROSPECTEXPRESS", "opProspect"},
                                                                 {"MOTORISTATRELOGA", "opMotorista"}};
    const QStringList papeis{u"opTodos"_qs,          u"opCliente"_qs,   u"opFornecedor"_qs,
                             u"opTransportadora"_qs, u"opVendedor"_qs,  u"opMotorista"_qs,
                             u"opArquiteto"_qs,      u"opDecorador"_qs, u"opProspect"_qs};
    for (const auto& [palavra, opcao] : casos) {
        contexto.TipoConsulta = QString::fromLatin1(palavra);
        abreBusca([&, opcao = QString::fromLatin1(opcao)](Tela& tela) {
            for (const QString& papel : papeis) {
                auto& campo = static_cast<screen::Option&>(tela.field(papel));
                EXPECT_EQ(campo.enabled(), papel == opcao) << papel;
                EXPECT_EQ(campo.value(), papel == opcao) << papel;
            }
        });
    }
    contexto.TipoConsulta = u"cliente"_qs;
    abreBusca([&](Tela& tela) { EXPECT_TRUE(tela.opTodos.value() && tela.opVendedor.enabled()); });
}

TEST_F(RetornoPessoasTest, TheRememberedRoleWinsOverTheRoleWord) {
    contexto.TipoConsulta = u"CLIENTE"_qs;
    contexto.UltimoPapelBusca = u"opTodos"_qs;
    abreBusca([&](Tela& tela) {
        EXPECT_TRUE(tela.opTodos.value());
        EXPECT_FALSE(tela.opTodos.enabled());
    });
}

TEST_F(RetornoPessoasTest, ContractTowardsTheOtherPrograms) {
    const QStringList rotulos{u"lblCliente=BETA"_qs, u"lblCNPJCPF=22.222.222/0001-22"_qs, u"lblidPess=20"_qs,
                              u"lblIDCliente=77"_qs};
    const QStringList pedido = rotulos + QStringList{u"cboTabelaPrecos=TABELA B"_qs, u"cboVendedor=5"_qs};
    const QStringList rowId{u"txtRowID=20"_qs};
    const QStringList idCliente{u"txtIdCliente=20"_qs};
    const QStringList documento{u"mskCodigo=22.222.222/0001-22"_qs};
    const CasoContrato casos[]{
        {"frmOrcamento", "", idCliente, "txtIdCliente"},
        {"frmPedido", "CLIENTE", pedido, nullptr},
        {"frmOrdemServico", "CLIENTE", pedido, nullptr},
        {"frmPedidoExpress", "CLIENTE", pedido, nullptr},
        {"frmBuffetAtendimento", "CLIENTE", pedido, nullptr},
        {"frmCartaCreditoClie", "CLIENTE", rotulos, nullptr},
        {"frmPedidoExpressCash", "CLIENTE", rotulos, nullptr},
        {"frmAgendaCliente", "", {u"cboCliente=BETA"_qs}, nullptr},
        {"frmRelaPedidos", "CLIENTE", {u"lblCliente=BETA"_qs}, nullptr},
        {"frmCliente", "", rowId, "txtRowID"},
        {"frmClienteExpress", "", rowId, "txtRowID"},
        {"frmProspectExpress", "", rowId, "txtRowID"},
        {"frmFornecedorExpress", "", rowId, "txtRowID"},
        {"frmVendedorExpress", "", rowId, "txtRowID"},
        {"frmDecoradorExpress", "", rowId, "txtRowID"},
        {"frmArquitetoExpress", "", rowId, "txtRowID"},
        {"frmClienteTreloga", "", documento, "mskCodigo"},
        {"frmMotoristaTreloga", "", documento, "mskCodigo"},
        {"frmRelPedAbe", "", idCliente, "txtIdCliente"},
        {"frmRelFatura", "", idCliente, "txtIdCliente"},
        {"frmEtiqMDireta", "", idCliente, "txtIdCliente"},
        {"frmRelPedDetalhe", "", rowId, "txtRowID"},
        {"frmRelPedCanc", "", rowId, "txtRowID"},
        {"frmCompras",
         "FORNECEDOR",
         {u"txtIdFornecedor=20"_qs, u"lblFornecedor=BETA"_qs, u"txtObservacao="_qs},
         "txtObservacao"},
        {"frmRecebi",
         "FORNECEDOR",
         {u"txtIdFornecedor=20"_qs, u"lblFornecedor=BETA"_qs, u"lblCNPJ=22.222.222/0001-22"_qs, u"txtOrdemCompra="_qs},
         "txtOrdemCompra"},
        {"frmCPagar", "FORNECEDOR", {u"txtIdFornecedor=99"_qs, u"lblFornecedor=BETA"_qs}, "txtIdFornecedor"},
        {"frmCReceber", "CLIENTE", {u"txtIdCliente=77"_qs}, "txtIdCliente"},
        {"frmNFGenerica",
         "CLIENTE",
         {u"txtRemetente="_qs, u"txtEndereco="_qs, u"cboCidade="_qs, u"txtCEP="_qs, u"txtUF="_qs, u"txtCNPJ="_qs,
          u"txtIE="_qs, u"txtBairro="_qs},
         "txtRemetente"},
        {"frmEnviaEmailOrcaPedi", "", {u"txtCodigo=20"_qs}, "txtCodigo"},
    };
    for (const CasoContrato& caso : casos) {
        SCOPED_TRACE(caso.chamadora);
        const QString nome = QString::fromLatin1(caso.chamadora);
        QStringList campos;
        for (const QString& escrita : caso.escritas)
            campos += escrita.section(u'=', 0, 0);
        contexto.RegistraTela(nome,
                              [=](ContextoExecucao& dono) { return std::make_unique<TelaAlheia>(dono, nome, campos); });
        contexto.TelaChamadora = nome;
        contexto.TipoConsulta = QString::fromLatin1(caso.consulta);
        contexto.UltimoPapelBusca.clear();
        abreBusca([&](Tela& tela) {
            user.click(tela.cmdPesquisa);
            escolhe(tela, 2);
            EXPECT_FALSE(tela.isLoaded());
        });
        ASSERT_EQ(falha(), 0);
        screen::Screen& chamadora = contexto.Tela(nome);
        for (const QString& escrita : caso.escritas)
            EXPECT_EQ(chamadora.field(escrita.section(u'=', 0, 0)).text(), escrita.section(u'=', 1));
        const QString foco = chamadora.focus() ? chamadora.focus()->name() : QString();
        EXPECT_EQ(foco, QString::fromLatin1(caso.foco ? caso.foco : ""));
    }
}

TEST_F(RetornoPessoasTest, InvoiceTakesEightFieldsOfTheCustomerInTheirOrder) {
    const QStringList campos{u"txtRemetente"_qs, u"txtEndereco"_qs, u"cboCidade"_qs, u"txtCEP"_qs,
                             u"txtUF"_qs,        u"txtCNPJ"_qs,     u"txtIE"_qs,     u"txtBairro"_qs};
    contexto.RegistraTela(u"frmNFGenerica"_qs, [=](ContextoExecucao& dono) {
        return std::make_unique<TelaAlheia>(dono, u"frmNFGenerica"_qs, campos);
    });
    const QStringList dados{u"NOME_PESS"_qs,           u"ENDE_COML_PESS"_qs, u"CIDA_COML_PESS"_qs,
                            u"UF00_COML_PESS"_qs,      u"CEP0_COML_PESS"_qs, u"RG00_IE00"_qs,
                            u"cpf0_cnpj"_qs,           u"BAIR_COML_PESS"_qs, u"NUME_COML_PESS"_qs,
                            u"CODI_MUNI_COML_PESS"_qs, u"TELE_0001_PESS"_qs, u"psFI_psJU"_qs,
                            u"CMPL_COML_PESS"_qs,      u"EMAI_PESS"_qs,      u"TELE_0002_PESS"_qs,
                            u"FAX0_0002_PESS"_qs,      u"NOME_CONH"_qs,      u"IDPESS"_qs};
    QList<data::Value> linha;
    for (int campo = 1; campo <= dados.size(); ++campo)
        linha += data::Value(QStringLiteral("c%1").arg(campo));
    database.answer(u"CLIE.IDCLIE = '77'"_qs, {dados, {linha}});
    contexto.TelaChamadora = u"frmNFGenerica"_qs;
    contexto.TipoConsulta = u"CLIENTE"_qs;
    abreBusca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        escolhe(tela, 2);
    });
    ASSERT_EQ(falha(), 0);
    for (int campo = 0; campo < campos.size(); ++campo)
        EXPECT_EQ(contexto.Tela(u"frmNFGenerica"_qs).field(campos[campo]).text(), QStringLiteral("c%1").arg(campo + 1));
    EXPECT_EQ(enviados("CLIE.IDCLIE = '77'").size(), 1);
}

TEST_F(RetornoPessoasTest, WithoutTheRoleSomeCallersCloseAndSomeStayOpen) {
    for (const char* nome : {"frmPedido", "frmCartaCreditoClie", "frmRelaPedidos", "frmDesconhecida", ""}) {
        contexto.TelaChamadora = QString::fromLatin1(nome);
        abreBusca([&](Tela& tela) {
            user.click(tela.cmdPesquisa);
            escolhe(tela, 1);
            EXPECT_FALSE(tela.isLoaded()) << nome;
        });
    }
    for (const char* nome : {"frmCompras", "frmRecebi", "frmCPagar", "frmCReceber", "frmNFGenerica"}) {
        contexto.TelaChamadora = QString::fromLatin1(nome);
        contexto.UltimoPapelBusca.clear();
        abreBusca([&](Tela& tela) {
            user.click(tela.cmdPesquisa);
            escolhe(tela, 1);
            EXPECT_TRUE(tela.isLoaded()) << nome;
            EXPECT_EQ(contexto.UltimoPapelBusca, u"opTodos"_qs) << "the choice is remembered all the same";
        });
    }
    EXPECT_EQ(falha(), 0);
}

TEST_F(RetornoPessoasTest, ACallerThatIsNoScreenOfThisProgramIsAMissingObject) {
    contexto.TelaChamadora = u"frmOrcamento"_qs;
    abreBusca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        escolhe(tela, 1);
        EXPECT_TRUE(tela.isLoaded()) << "it fails before the search closes";
    });
    EXPECT_EQ(falha(), errorNumber::ObjectNotSet);
}

TEST_F(RetornoPessoasTest, ACallerWithoutTheFieldFailsAtThatLine) {
    contexto.RegistraTela(u"frmOrcamento"_qs, [](ContextoExecucao& dono) {
        return std::make_unique<TelaAlheia>(dono, u"frmOrcamento"_qs, QStringList{u"outro"_qs});
    });
    contexto.TelaChamadora = u"frmOrcamento"_qs;
    abreBusca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        escolhe(tela, 1);
    });
    EXPECT_EQ(falha(), errorNumber::NoSuchMember);
}

} // namespace vorta::test
