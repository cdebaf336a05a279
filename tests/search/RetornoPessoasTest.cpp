#include "base/Literals.h"
#include "search/BuscaTest.h"

#include "base/RuntimeError.h"

namespace vorta::test {

namespace {

using Tela = frmBROWSE_PESSOAS;

const QStringList colunas{u"IDPESS"_s,         u"CPF0_CNPJ"_s, u"NOME_PESS"_s,     u"NOME_CONH"_s,
                          u"TELE_0001_PESS"_s, u"DATA_DESA"_s, u"PESS_CODI_EXTE"_s};

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
            u"FROM PESS WHERE"_s,
            {colunas,
             {{number(10), text("11.111.111/0001-11"), text("ALFA"), text("ALFA C"), null(), null(), null()},
              {number(20), text("22.222.222/0001-22"), text("BETA"), text("BETA C"), null(), null(), null()},
              {number(30), text("33"), text("GAMA"), text("GAMA C"), null(), null(), null()}}});
        database.answer(u"FROM CLIE WHERE IDPESS"_s, {{u"idclie"_s}, {{number(77)}}});
        database.answer(u"FROM FORN WHERE IDPESS"_s, {{u"idforn"_s}, {{number(88)}}});
        database.answer(u"PESS.NOME_PESS='BETA'"_s, {{u"idforn"_s}, {{number(99)}}});
        database.answer(u"SELECT TABE_PREC"_s, {{u"tabe_prec"_s}, {{text("TABELA B")}}});
        database.answer(u"SELECT PESS.IDVEND"_s, {{u"idvend"_s}, {{number(5)}}});
    }

    void openSearch(const std::function<void(Tela&)>& faz) { open<Tela>("frmBROWSE_PESSOAS", faz); }

    void choose(Tela& tela, int linha) { user.doubleClickCell(tela.Flex, linha, 0); }
};

TEST_F(RetornoPessoasTest, TheChoiceGoesIntoTheSearchKeyOfThePersonScreen) {
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        choose(tela, 2);
        EXPECT_FALSE(tela.isLoaded());
    });
    EXPECT_EQ(pessoas().txtRowID.text(), u"20"_s);
    EXPECT_EQ(pessoas().focus(), &pessoas().txtRowID);
    EXPECT_EQ(contexto.VinculoAtual, u" "_s);
}

TEST_F(RetornoPessoasTest, HeaderRowChangesNothing) {
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        user.doubleClickCell(tela.Flex, 0, 0);
        EXPECT_TRUE(tela.isLoaded());
        EXPECT_EQ(contexto.UltimaFormaBusca, QString());
        EXPECT_EQ(contexto.UltimoVisualiza, QString());
        EXPECT_EQ(contexto.VinculoAtual, u"N"_s);
    });
    EXPECT_EQ(pessoas().txtRowID.text(), QString());
}

TEST_F(RetornoPessoasTest, TheLastSearchComesBack) {
    openSearch([&](Tela& tela) {
        tela.cboCod.setText(u" bet "_s);
        tela.opFantasia.setValue(true);
        tela.opCampoInteiro.setValue(true);
        tela.opCliente.setValue(true);
        user.click(tela.cmdPesquisa);
        tela.Flex.setTopRow(3);
        choose(tela, 3);
    });
    EXPECT_EQ(contexto.UltimaFormaBusca, u"opFantasia"_s);
    EXPECT_EQ(contexto.UltimoConteudoBusca, u"opCampoInteiro"_s);
    EXPECT_EQ(contexto.UltimoTextoBusca, u" BET "_s) << "leaving the text put it in capitals, its blanks stay";
    EXPECT_EQ(contexto.UltimoVisualiza, u"Não"_s);
    EXPECT_EQ(contexto.UltimoPapelBusca, u"opCliente"_s);
    EXPECT_EQ(contexto.TopoGridBusca, 3);
    forget();
    openSearch([&](Tela& tela) {
        EXPECT_TRUE(tela.opFantasia.value() && tela.opCampoInteiro.value() && tela.opCliente.value());
        EXPECT_EQ(tela.cboCod.text(), u" BET "_s);
        EXPECT_EQ(sentWith("FROM PESS WHERE"),
                  QStringList{u"SELECT * FROM PESS WHERE DATA_DESA IS NULL AND NOME_CONH = 'BET' "
                              "ORDER BY NOME_CONH"_s});
        EXPECT_EQ(tela.Flex.Rows(), 4);
        EXPECT_EQ(tela.Flex.TopRow(), 3);
    });
}

TEST_F(RetornoPessoasTest, CodesAndSomeRolesAreNotRemembered) {
    openSearch([&](Tela& tela) {
        tela.cboCod.setText(u"2"_s);
        tela.opCodInterno.setValue(true);
        tela.opInicialCom.setValue(true);
        user.click(tela.cmdPesquisa);
        choose(tela, 1);
    });
    EXPECT_EQ(contexto.UltimaFormaBusca, QString());
    EXPECT_EQ(contexto.UltimoConteudoBusca, QString());
    forget();
    openSearch([&](Tela& tela) {
        EXPECT_TRUE(tela.opNome.value() && tela.opQualquerParte.value() && tela.opTodos.value());
        EXPECT_EQ(
            sentWith("FROM PESS WHERE"),
            QStringList{u"SELECT * FROM PESS WHERE DATA_DESA IS NULL AND NOME_PESS LIKE '%2%' ORDER BY NOME_PESS"_s});
    });
}

TEST_F(RetornoPessoasTest, RolesThatNothingStores) {
    database.answer(u"FROM ARQT WHERE IDPESS"_s, {{u"idarqt"_s}, {{number(3)}}});
    openSearch([&](Tela& tela) {
        tela.opArquiteto.setValue(true);
        user.click(tela.cmdPesquisa);
        choose(tela, 1);
    });
    EXPECT_EQ(contexto.UltimoPapelBusca, QString());
    contexto.UltimoPapelBusca = u"opArquiteto"_s;
    openSearch([&](Tela& tela) { EXPECT_TRUE(tela.opArquiteto.value()) << "it is known when it stands there"; });
    contexto.UltimoPapelBusca = u"opDecorador"_s;
    openSearch([&](Tela& tela) { EXPECT_TRUE(tela.opTodos.value()); });
}

TEST_F(RetornoPessoasTest, ARememberedCheckSearchesTwice) {
    contexto.UltimoVisualiza = u"Sim"_s;
    contexto.UltimoPapelBusca = u"opVendedor"_s;
    openSearch([&](Tela& tela) {
        EXPECT_TRUE(tela.chkVisualiza.checked());
        EXPECT_EQ(sentWith("FROM PESS WHERE (NOT DATA_DESA IS NULL)").size(), 2);
        EXPECT_EQ(sentWith("FROM VEND").size(), 3) << "the role comes back behind the search of the check box";
    });
}

TEST_F(RetornoPessoasTest, ClosingByTheFrameReturnsNothing) {
    openSearch([&](Tela& tela) {
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
    const QStringList papeis{u"opTodos"_s,          u"opCliente"_s,   u"opFornecedor"_s,
                             u"opTransportadora"_s, u"opVendedor"_s,  u"opMotorista"_s,
                             u"opArquiteto"_s,      u"opDecorador"_s, u"opProspect"_s};
    for (const auto& [palavra, opcao] : casos) {
        contexto.TipoConsulta = QString::fromLatin1(palavra);
        openSearch([&, opcao = QString::fromLatin1(opcao)](Tela& tela) {
            for (const QString& papel : papeis) {
                auto& campo = static_cast<screen::Option&>(tela.field(papel));
                EXPECT_EQ(campo.enabled(), papel == opcao) << papel;
                EXPECT_EQ(campo.value(), papel == opcao) << papel;
            }
        });
    }
    contexto.TipoConsulta = u"cliente"_s;
    openSearch([&](Tela& tela) { EXPECT_TRUE(tela.opTodos.value() && tela.opVendedor.enabled()); });
}

TEST_F(RetornoPessoasTest, TheRememberedRoleWinsOverTheRoleWord) {
    contexto.TipoConsulta = u"CLIENTE"_s;
    contexto.UltimoPapelBusca = u"opTodos"_s;
    openSearch([&](Tela& tela) {
        EXPECT_TRUE(tela.opTodos.value());
        EXPECT_FALSE(tela.opTodos.enabled());
    });
}

TEST_F(RetornoPessoasTest, ContractTowardsTheOtherPrograms) {
    const QStringList rotulos{u"lblCliente=BETA"_s, u"lblCNPJCPF=22.222.222/0001-22"_s, u"lblidPess=20"_s,
                              u"lblIDCliente=77"_s};
    const QStringList pedido = rotulos + QStringList{u"cboTabelaPrecos=TABELA B"_s, u"cboVendedor=5"_s};
    const QStringList rowId{u"txtRowID=20"_s};
    const QStringList idCliente{u"txtIdCliente=20"_s};
    const QStringList documento{u"mskCodigo=22.222.222/0001-22"_s};
    const CasoContrato casos[]{
        {"frmOrcamento", "", idCliente, "txtIdCliente"},
        {"frmPedido", "CLIENTE", pedido, nullptr},
        {"frmOrdemServico", "CLIENTE", pedido, nullptr},
        {"frmPedidoExpress", "CLIENTE", pedido, nullptr},
        {"frmBuffetAtendimento", "CLIENTE", pedido, nullptr},
        {"frmCartaCreditoClie", "CLIENTE", rotulos, nullptr},
        {"frmPedidoExpressCash", "CLIENTE", rotulos, nullptr},
        {"frmAgendaCliente", "", {u"cboCliente=BETA"_s}, nullptr},
        {"frmRelaPedidos", "CLIENTE", {u"lblCliente=BETA"_s}, nullptr},
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
         {u"txtIdFornecedor=20"_s, u"lblFornecedor=BETA"_s, u"txtObservacao="_s},
         "txtObservacao"},
        {"frmRecebi",
         "FORNECEDOR",
         {u"txtIdFornecedor=20"_s, u"lblFornecedor=BETA"_s, u"lblCNPJ=22.222.222/0001-22"_s, u"txtOrdemCompra="_s},
         "txtOrdemCompra"},
        {"frmCPagar", "FORNECEDOR", {u"txtIdFornecedor=99"_s, u"lblFornecedor=BETA"_s}, "txtIdFornecedor"},
        {"frmCReceber", "CLIENTE", {u"txtIdCliente=77"_s}, "txtIdCliente"},
        {"frmNFGenerica",
         "CLIENTE",
         {u"txtRemetente="_s, u"txtEndereco="_s, u"cboCidade="_s, u"txtCEP="_s, u"txtUF="_s, u"txtCNPJ="_s, u"txtIE="_s,
          u"txtBairro="_s},
         "txtRemetente"},
        {"frmEnviaEmailOrcaPedi", "", {u"txtCodigo=20"_s}, "txtCodigo"},
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
        openSearch([&](Tela& tela) {
            user.click(tela.cmdPesquisa);
            choose(tela, 2);
            EXPECT_FALSE(tela.isLoaded());
        });
        ASSERT_EQ(failure(), 0);
        screen::Screen& chamadora = contexto.Tela(nome);
        for (const QString& escrita : caso.escritas)
            EXPECT_EQ(chamadora.field(escrita.section(u'=', 0, 0)).text(), escrita.section(u'=', 1));
        const QString foco = chamadora.focus() ? chamadora.focus()->name() : QString();
        EXPECT_EQ(foco, QString::fromLatin1(caso.foco ? caso.foco : ""));
    }
}

TEST_F(RetornoPessoasTest, InvoiceTakesEightFieldsOfTheCustomerInTheirOrder) {
    const QStringList campos{u"txtRemetente"_s, u"txtEndereco"_s, u"cboCidade"_s, u"txtCEP"_s,
                             u"txtUF"_s,        u"txtCNPJ"_s,     u"txtIE"_s,     u"txtBairro"_s};
    contexto.RegistraTela(u"frmNFGenerica"_s, [=](ContextoExecucao& dono) {
        return std::make_unique<TelaAlheia>(dono, u"frmNFGenerica"_s, campos);
    });
    const QStringList dados{
        u"NOME_PESS"_s,      u"ENDE_COML_PESS"_s, u"CIDA_COML_PESS"_s, u"UF00_COML_PESS"_s, u"CEP0_COML_PESS"_s,
        u"RG00_IE00"_s,      u"cpf0_cnpj"_s,      u"BAIR_COML_PESS"_s, u"NUME_COML_PESS"_s, u"CODI_MUNI_COML_PESS"_s,
        u"TELE_0001_PESS"_s, u"psFI_psJU"_s,      u"CMPL_COML_PESS"_s, u"EMAI_PESS"_s,      u"TELE_0002_PESS"_s,
        u"FAX0_0002_PESS"_s, u"NOME_CONH"_s,      u"IDPESS"_s};
    QList<data::Value> linha;
    for (int campo = 1; campo <= dados.size(); ++campo)
        linha += data::Value(u"c%1"_s.arg(campo));
    database.answer(u"CLIE.IDCLIE = '77'"_s, {dados, {linha}});
    contexto.TelaChamadora = u"frmNFGenerica"_s;
    contexto.TipoConsulta = u"CLIENTE"_s;
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        choose(tela, 2);
    });
    ASSERT_EQ(failure(), 0);
    for (int campo = 0; campo < campos.size(); ++campo)
        EXPECT_EQ(contexto.Tela(u"frmNFGenerica"_s).field(campos[campo]).text(), u"c%1"_s.arg(campo + 1));
    EXPECT_EQ(sentWith("CLIE.IDCLIE = '77'").size(), 1);
}

TEST_F(RetornoPessoasTest, WithoutTheRoleSomeCallersCloseAndSomeStayOpen) {
    for (const char* nome : {"frmPedido", "frmCartaCreditoClie", "frmRelaPedidos", "frmDesconhecida", ""}) {
        contexto.TelaChamadora = QString::fromLatin1(nome);
        openSearch([&](Tela& tela) {
            user.click(tela.cmdPesquisa);
            choose(tela, 1);
            EXPECT_FALSE(tela.isLoaded()) << nome;
        });
    }
    for (const char* nome : {"frmCompras", "frmRecebi", "frmCPagar", "frmCReceber", "frmNFGenerica"}) {
        contexto.TelaChamadora = QString::fromLatin1(nome);
        contexto.UltimoPapelBusca.clear();
        openSearch([&](Tela& tela) {
            user.click(tela.cmdPesquisa);
            choose(tela, 1);
            EXPECT_TRUE(tela.isLoaded()) << nome;
            EXPECT_EQ(contexto.UltimoPapelBusca, u"opTodos"_s) << "the choice is remembered all the same";
        });
    }
    EXPECT_EQ(failure(), 0);
}

TEST_F(RetornoPessoasTest, ACallerThatIsNoScreenOfThisProgramIsAMissingObject) {
    contexto.TelaChamadora = u"frmOrcamento"_s;
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        choose(tela, 1);
        EXPECT_TRUE(tela.isLoaded()) << "it fails before the search closes";
    });
    EXPECT_EQ(failure(), errorNumber::ObjectNotSet);
}

TEST_F(RetornoPessoasTest, ACallerWithoutTheFieldFailsAtThatLine) {
    contexto.RegistraTela(u"frmOrcamento"_s, [](ContextoExecucao& dono) {
        return std::make_unique<TelaAlheia>(dono, u"frmOrcamento"_s, QStringList{u"outro"_s});
    });
    contexto.TelaChamadora = u"frmOrcamento"_s;
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        choose(tela, 1);
    });
    EXPECT_EQ(failure(), errorNumber::NoSuchMember);
}

} // namespace vorta::test
