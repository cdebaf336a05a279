#include "base/Literals.h"
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
    SSTab2.place(u"Geral"_s, {&SSTab1, &txtFone1, &txtFone2, &txtFax1, &txtFax2, &txtEmail1, &cmdAbrirOutlook,
                              &txtHomePage, &cmdAbrirIExplorer, &txtContatoPrincipal, &mskDtNasc, &mskDtAnivRel,
                              &cboVendedor, &cboTransportadora, &cboTipoCli, &cboTabelaPrecos});
    SSTab2.place(u"Contatos"_s,
                 {&txtPrinNomeContato, &txtPrinFoneContato, &txtPrinEmailContato, &cboTipoContato, &txtNomeContato,
                  &txtFoneContato, &txtEmailContato, &mskDtNascCont, &cmdIncluirContato, &Flex});
    SSTab2.place(u"Ramo Ativ."_s, {&cboAtividades, &cmdIncluirAtividades, &FlexAtividades});
    SSTab2.place(u"Obs."_s, {&txtOBSE_PESS_0001, &txtOBSE_PESS_0002, &txtOBSE_PESS_0003});
    SSTab2.place(u"Fiscal"_s,
                 {&lblIE_RG, &txtIEstadual, &txtIMunicipal, &txtSuframa, &txtSubsTributario, &cboStatusIntegraFISCO});
    SSTab2.place(u"Hist Cliente I"_s,
                 {&txtVrTOP, &opTopSobe, &opTopDesce, &cmdReprocessaHistClieI, &FlexHistClie, &lblPrimeiraCompra,
                  &lblUltimaCompra, &lblQtdeCompras, &lblTotalItensCompras, &lblMontanteCompras});
    SSTab2.place(u"Hist.Cliente II"_s,
                 {&FlexHistClieII, &lblPrimeiraCompraII, &lblUltimaCompraII, &lblQtdeComprasII, &lblMontanteComprasII});
    SSTab2.place(u"Hist.Cliente OS"_s, {&FlexHistClieIII, &lblPrimeiraCompraOS, &lblUltimaCompraOS, &lblQtdeComprasOS,
                                        &lblMontanteComprasOS});
    SSTab2.place(u"Hist.Forn.I"_s, {&FlexHistForn, &lblPrimeiraCompraForn, &lblUltimaCompraForn, &lblQtdeComprasForn,
                                    &lblTotalItensComprasForn, &lblMontanteComprasForn});
    SSTab2.place(u"Hist.Forn.II"_s, {&cboProduto, &cmdPesquisar_Produto, &FlexHistFornDeta});

    SSTab1.place(u"Endereço"_s, {&mskCEP, &cmdCEP, &txtEndereco, &txtNumero, &txtComplemento, &txtBairro, &cboUF,
                                 &cboCidade, &lblCodMunIBGE, &cboPais_Coml});
    SSTab1.place(u"Endereço de Entrega"_s,
                 {&cmdEndComl1, &mskEnt_CEP, &cmdCEP_Entg, &txtEnt_Endereco, &txtEnt_Numero, &txtEnt_Complemento,
                  &txtEnt_Bairro, &cboEnt_UF, &cboEnt_Cidade, &lblEnt_CodMunIBGE, &cboPais_Entg});
    SSTab1.place(u"Endereço de Cobrança"_s,
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
