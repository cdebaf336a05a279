#include "person/frmPessoas.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "launch/Lancamento.h"
#include "person/BlocosEndereco.h"
#include "person/ContatosPessoa.h"
#include "person/HistoricoPessoa.h"
#include "person/VinculosPessoa.h"
#include "shared/Consultas.h"
#include "shared/Preenchimento.h"
#include "shared/TextoEntrada.h"
#include "shared/TipoDocumento.h"
#include "shared/Vinculos.h"

#include <algorithm>

namespace vorta {

namespace {

using screen::Field;

/// The role that a field is the button of, if any.
const Papel* PapelDoBotao(const Field& campo) {
    const auto* achado = std::ranges::find_if(
        papeis, [&](const Papel& papel) { return campo.name() == QLatin1StringView(papel.botao); });
    return achado == papeis.end() ? nullptr : achado;
}

bool ChecaEntrada(ContextoExecucao& contexto) {
    return LeParametroEmpresa(contexto, u"PESS_CHECA_ENTRADA"_s) == u"S";
}

} // namespace

frmPessoas::frmPessoas(ContextoExecucao& contexto)
    : TelaEdicao(contexto, u"frmPessoas"_s,
                 {.tabela = "PESS",
                  .chave = "idPESS",
                  .primeiroCampo = "txtDescricao",
                  .semSelecaoVaiParaGrade = false,
                  .obedeceSomenteConsulta = true,
                  .iconeErro = screen::Icon::None,
                  .fechaRecordsetNoErro = true}),
      campos_(LigaCampos(*this)) {
    ColocaPaginas();
    LigaFamilias();
    LigaHandlers();
    LigaBlocosEndereco(*this);
    LigaContatos(*this);
    LigaVinculos(*this);
    LigaHistorico(*this);
}

void frmPessoas::LigaHandlers() {
    LigaOperacoes();
    cmdPesquisar_Cliente.Click = [this] { cmdPesquisar_Cliente_Click(); };
    cmdInfo.Click = [this] { contexto_.MostraTela(u"frmInfoPess"_s); };
    cmdAbrirOutlook.Click = [this] { AbreEmail(contexto_, txtEmail1.text()); };
    // cmdAbrirIExplorer opens nothing: the register has no browser of its own.

    cboFisJur.GotFocus = [this] { cboFisJur.setEnabled(true); };
    cboFisJur.LostFocus = [this] { cboFisJur_LostFocus(); };
    mskCodigo.LostFocus = [this] { mskCodigo_LostFocus(); };
    txtRowID.LostFocus = [this] { txtRowID_LostFocus(); };
    txtFone1.LostFocus = [this] { txtFone1_LostFocus(); };
    txtDescricao.LostFocus = [this] { txtDescricao.setText(Trim(UCase(txtDescricao.text()))); };
    for (Field* email : std::initializer_list<Field*>{&txtEmail1, &txtPrinEmailContato})
        email->LostFocus = [this, email] { ConfereEmail(*email); };
}

void frmPessoas::Load() {
    Lancamento(contexto_, *this);
    AplicaTamanhosCampos();
    PosicionaBotoes();
    BloqueiaCampos();
    LimpaTela();
    ExibeDataDesativacao();
    contexto_.TelaChamadora = name();
    cboFisJur.clear();
    cboFisJur.addItem(u"Jurídica"_s);
    cboFisJur.addItem(u"Física"_s);
    PreencheTipoCliente(contexto_, *this);
    AplicaDicasCampos();
    PreencheCombosUFs(*this);
    MostraBotoesPapeis();
    MostraBotoesCep();
    AplicaTipoClienteAutomatico();
    PreencheTipoCliente(contexto_, *this);
    PreencheVendedores(contexto_, {}, cboVendedor);
    PreencheCargos(contexto_, {}, contatos.cboTipoContato);
    PreencheTabelasPreco(*this);
    rascunho_.Abre();
}

void frmPessoas::ExibeDataDesativacao() {
    if (LeParametroEmpresa(contexto_, u"PESS_DATA_DESA_VISUALIZA"_s) != u"N")
        return;
    lblNome_Data_Desa.setVisible(false);
    lblDataDesa.setVisible(false);
}

/// A role button that the company does not use is hidden by its switch; the switches are asked in the order of the
/// buttons.
void frmPessoas::MostraBotoesPapeis() {
    for (Field* campo : fields())
        if (const Papel* papel = PapelDoBotao(*campo))
            campo->setVisible(LeParametroEmpresa(contexto_, QString::fromLatin1(papel->parametroBotao)) != u"N");
}

void frmPessoas::MostraBotoesCep() {
    const bool ativo = CepAtivo(contexto_);
    for (Field* botao : std::initializer_list<Field*>{&cmdCEP, &cmdCEP_Entg, &cmdCEP_Cobr})
        botao->setVisible(ativo);
}

/// With the switch on the program alone decides the customer class.
void frmPessoas::AplicaTipoClienteAutomatico() {
    cboTipoCli.setEnabled(true);
    if (LeParametroEmpresa(contexto_, u"TIPO_CLIENTE_AUTOMATICO"_s) != u"S")
        return;
    cboTipoCli.setText(u"BRONZE"_s);
    cboTipoCli.setEnabled(false);
}

void frmPessoas::ApagaMarcas() {
    contatos.ApagaMarca();
    lblRamoFora.setText({});
}

void frmPessoas::LimpaTela() {
    ApagaMarcas();
    SSTab2.setCurrent(0);
    SSTab1.setCurrent(0);
    contatos.PreparaGridContatos();
    PreparaGridAtividades(*this);
    MontaGradesHistorico(*this);
    EsvaziaCampos();
    for (screen::ListField* pais : {&cboPais_Coml, &cboPais_Entg, &cboPais_Cobr})
        pais->setText(u"BRASIL"_s);
    LimpaHistorico(*this);
    AplicaTipoClienteAutomatico();
    AtualizaIndicadoresVinculo(contexto_, *this);
}

void frmPessoas::cmdINCLUIR_Click() {
    LimpaTela();
    TrimCamposTexto(*this); // what the clearing leaves from the person before
    if (ChecaEntrada(contexto_)) {
        contexto_.MostraTela(u"frmPESSOAS_INCL"_s);
        if (contexto_.RetornoPesquisa != u"[OK]")
            return;
    }
    IniciaInclusao();
}

void frmPessoas::IniciaAlteracao() {
    BotoesEdicao();
    Edita(Modo::Alteracao);
}

void frmPessoas::IniciaInclusao() {
    BotoesEdicao();
    Inicia(Modo::Inclusao);
    BloqueiaCampo(mskCodigo);
    if (ChecaEntrada(contexto_)) {
        BloqueiaCampo(txtDescricao);
        BloqueiaCampo(cboFisJur);
    } else {
        LiberaCampo(txtDescricao);
        LiberaCampo(cboFisJur);
        LiberaCampo(mskCodigo);
    }
    if (ChecaEntrada(contexto_))
        SetFocus(txtEndereco);
    else
        SetFocus(txtCodPessExterno);
}

void frmPessoas::cboFisJur_LostFocus() {
    const bool fisica = cboFisJur.text() == u"Física";
    if (!fisica && cboFisJur.text() != u"Jurídica")
        return;
    lblCGCCPF.setText(fisica ? u"CPF:"_s : u"CNPJ:"_s);
    lblIE_RG.setText(fisica ? u"RG:"_s : u"I.Estadual:"_s);
    if (!EmEdicao())
        return;
    mskCodigo.setMask(TipoDocumentoDe(contexto_, cboFisJur.text())->Mascara());
    SetFocus(mskCodigo);
}

} // namespace vorta
