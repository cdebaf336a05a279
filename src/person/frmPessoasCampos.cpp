#include "person/CamposPessoa.h"
#include "person/frmPessoas.h"
#include "shared/TextoEntrada.h"

#include <algorithm>

namespace vorta {

namespace {

using screen::Field;
using screen::FieldKind;

template <typename Acao>
void ParaCada(const screen::Screen& tela, std::span<const char* const> nomes, Acao acao) {
    for (const char* nome : nomes)
        acao(tela.field(QString::fromLatin1(nome)));
}

bool contem(std::span<const char* const> nomes, const Field& campo) {
    return std::ranges::any_of(nomes, [&](const char* nome) { return campo.name() == QLatin1StringView(nome); });
}

bool recebeTexto(const Field& campo) {
    return campo.kind() == FieldKind::Text || campo.kind() == FieldKind::List || campo.kind() == FieldKind::Masked;
}

} // namespace

void frmPessoas::ColocaPaginas() {
    SSTab2.place(QStringLiteral("Geral"),
                 {&SSTab1, &txtFone1, &txtFone2, &txtFax1, &txtFax2, &txtEmail1, &cmdAbrirOutlook, &txtHomePage,
                  &cmdAbrirIExplorer, &txtContatoPrincipal, &mskDtNasc, &mskDtAnivRel, &cboVendedor, &cboTransportadora,
                  &cboTipoCli, &cboTabelaPrecos});
    SSTab2.place(QStringLiteral("Contatos"),
                 {&txtPrinNomeContato, &txtPrinFoneContato, &txtPrinEmailContato, &cboTipoContato, &txtNomeContato,
                  &txtFoneContato, &txtEmailContato, &mskDtNascCont, &cmdIncluirContato, &Flex});
    SSTab2.place(QStringLiteral("Ramo Ativ."), {&cboAtividades, &cmdIncluirAtividades, &FlexAtividades});
    SSTab2.place(QStringLiteral("Obs."), {&txtOBSE_PESS_0001, &txtOBSE_PESS_0002, &txtOBSE_PESS_0003});
    SSTab2.place(QStringLiteral("Fiscal"),
                 {&lblIE_RG, &txtIEstadual, &txtIMunicipal, &txtSuframa, &txtSubsTributario, &cboStatusIntegraFISCO});
    SSTab2.place(QStringLiteral("Hist Cliente I"),
                 {&txtVrTOP, &opTopSobe, &opTopDesce, &cmdReprocessaHistClieI, &FlexHistClie, &lblPrimeiraCompra,
                  &lblUltimaCompra, &lblQtdeCompras, &lblTotalItensCompras, &lblMontanteCompras});
    SSTab2.place(QStringLiteral("Hist.Cliente II"),
                 {&FlexHistClieII, &lblPrimeiraCompraII, &lblUltimaCompraII, &lblQtdeComprasII, &lblMontanteComprasII});
    SSTab2.place(QStringLiteral("Hist.Cliente OS"), {&FlexHistClieIII, &lblPrimeiraCompraOS, &lblUltimaCompraOS,
                                                     &lblQtdeComprasOS, &lblMontanteComprasOS});
    SSTab2.place(QStringLiteral("Hist.Forn.I"),
                 {&FlexHistForn, &lblPrimeiraCompraForn, &lblUltimaCompraForn, &lblQtdeComprasForn,
                  &lblTotalItensComprasForn, &lblMontanteComprasForn});
    SSTab2.place(QStringLiteral("Hist.Forn.II"), {&cboProduto, &cmdPesquisar_Produto, &FlexHistFornDeta});

    SSTab1.place(QStringLiteral("Endereço"), {&mskCEP, &cmdCEP, &txtEndereco, &txtNumero, &txtComplemento, &txtBairro,
                                              &cboUF, &cboCidade, &lblCodMunIBGE, &cboPais_Coml});
    SSTab1.place(QStringLiteral("Endereço de Entrega"),
                 {&cmdEndComl1, &mskEnt_CEP, &cmdCEP_Entg, &txtEnt_Endereco, &txtEnt_Numero, &txtEnt_Complemento,
                  &txtEnt_Bairro, &cboEnt_UF, &cboEnt_Cidade, &lblEnt_CodMunIBGE, &cboPais_Entg});
    SSTab1.place(QStringLiteral("Endereço de Cobrança"),
                 {&cmdEndComl2, &cmdEndEntrega, &mskCob_CEP, &cmdCEP_Cobr, &txtCob_Endereco, &txtCob_Numero,
                  &txtCob_Complemento, &txtCob_Bairro, &cboCob_UF, &cboCob_Cidade, &lblCob_CodMunIBGE, &cboPais_Cobr});
}

void frmPessoas::LigaFamilias() {
    for (Field* campo : fields())
        campo->enterMovesOn = recebeTexto(*campo) && !contem(CamposSemEnter(), *campo);
    cmdIncluirContato.enterMovesOn = true;
    ParaCada(*this, CamposComAcento(), [](Field& campo) { campo.apostropheBecomesAcute = true; });
    ParaCada(*this, CamposComSelecao(), [](Field& campo) { campo.selectsOnFocus = true; });
}

void frmPessoas::AplicaTamanhosCampos() {
    for (const TamanhoCampo& linha : TamanhosPessoa())
        field(QString::fromLatin1(linha.campo)).setMaxLength(linha.tamanho);
}

void frmPessoas::AplicaDicasCampos() {
    for (const DicaCampo& linha : DicasPessoa())
        field(QString::fromLatin1(linha.campo)).setToolTip(QString::fromUtf8(linha.dica));
}

void frmPessoas::BloqueiaCampos() {
    ParaCada(*this, BotoesBloqueaveis(), [](Field& botao) { botao.setEnabled(false); });
    LiberaCampo(txtRowID);
    LiberaCampo(txtCodPessExterno);
    ParaCada(*this, CamposBloqueaveis(), BloqueiaCampo);
    BloqueiaCamposFixos();
}

void frmPessoas::LiberaCampos() {
    ParaCada(*this, BotoesBloqueaveis(), [](Field& botao) { botao.setEnabled(true); });
    LiberaCampo(txtCodPessExterno);
    ParaCada(*this, CamposBloqueaveis(), LiberaCampo);
    BloqueiaCamposFixos();
}

/// What the program alone fills is locked in every state.
void frmPessoas::BloqueiaCamposFixos() {
    BloqueiaCampo(cboStatusIntegraFISCO);
    BloqueiaCampo(txtDTDesativa);
}

} // namespace vorta
