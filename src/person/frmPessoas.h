#pragma once

#include "base/Literals.h"
#include "person/CamposPessoa.h"
#include "person/ContatosPessoa.h"
#include "person/RascunhoPessoa.h"

namespace vorta {

/// A row of the table with its field on a screen.
struct CampoLigado {
    const CampoPessoa* linha;
    screen::Field* campo;
};
/// Finds the field of every row. Raises 438 with the name of a row without a field, and of an input field without a
/// row.
std::vector<CampoLigado> LigaCampos(const screen::Screen& tela);

/// The register's start screen: one person with documents, three addresses, phones, contacts, branches, commercial
/// defaults and history. It stays open until the process ends; every other screen is shown from it. Fields stand in the
/// order in which the keyboard walks them.
class frmPessoas : public TelaEdicao {
  public:
    explicit frmPessoas(ContextoExecucao& contexto);

    void Load() override;
    void QueryUnload() override { rascunho_.Encerra(); }

    // The four routines through which every change of state passes.
    void LimpaTela();                          ///< clears the screen
    void PosicionaBotoes() { BotoesOcioso(); } ///< buttons of the idle state
    void BloqueiaCampos() override;            ///< locks the data fields
    void LiberaCampos() override;              ///< frees them for inclusion or alteration

    // Buttons, mode and fields of an operation.
    void IniciaInclusao();
    void IniciaAlteracao();

    /// Reads the person whose id stands in `txtRowID` into the fields; without a row the screen stays as it was.
    void CarregaPessoa();

    // Head of the screen.
    screen::Label lblTituloJanela{this, "lblTituloJanela", u"Cadastro de Pessoas"_s};
    screen::Label lblCodiEmpresa{this, "lblCodiEmpresa"};
    screen::Label lblNomeEmpresa{this, "lblNomeEmpresa"};
    screen::Label lblCodiAmbiente{this, "lblCodiAmbiente"};

    // Search keys, with the button right behind the internal code: code, Enter, Enter finds a person.
    screen::TextField txtRowID{this, "txtRowID"};
    screen::Button cmdPesquisar_Cliente{this, "cmdPesquisar_Cliente", u"&Localizar"_s};
    screen::TextField txtCodPessExterno{this, "txtCodPessExterno"};
    screen::Label lblNome_Data_Desa{this, "lblNome_Data_Desa", u"Data Desativa:"_s};
    screen::Label lblDataDesa{this, "lblDataDesa"};
    screen::Label lblDataIncl{this, "lblDataIncl"};
    screen::TextField txtDTDesativa{this, "txtDTDesativa"};

    // Identity.
    screen::ListField cboFisJur{this, "cboFisJur"};
    screen::Label lblCGCCPF{this, "lblCGCCPF"};
    screen::MaskedField mskCodigo{this, "mskCodigo"};
    screen::TextField txtDescricao{this, "txtDescricao"};
    screen::TextField txtNomeFantasia{this, "txtNomeFantasia"};
    screen::Button cmdClonarRazaoSocial{this, "cmdClonarRazaoSocial", u"Repetir o Conteúdo de 'Nome'"_s};

    screen::TabStrip SSTab2{this,
                            "SSTab2",
                            {u"Geral"_s, u"Contatos"_s, u"Ramo Ativ."_s, u"Obs."_s, u"Fiscal"_s, u"Hist Cliente I"_s,
                             u"Hist.Cliente II"_s, u"Hist.Cliente OS"_s, u"Hist.Forn.I"_s, u"Hist.Forn.II"_s}};
    screen::TabStrip SSTab1{this, "SSTab1", {u"Endereço"_s, u"Endereço de Entrega"_s, u"Endereço de Cobrança"_s}};

    // Commercial address.
    screen::MaskedField mskCEP{this, "mskCEP", u"#####-###"_s};
    screen::Button cmdCEP{this, "cmdCEP", u"CEP..."_s};
    screen::TextField txtEndereco{this, "txtEndereco"};
    screen::TextField txtNumero{this, "txtNumero"};
    screen::TextField txtComplemento{this, "txtComplemento"};
    screen::TextField txtBairro{this, "txtBairro"};
    screen::ListField cboUF{this, "cboUF"};
    screen::ListField cboCidade{this, "cboCidade"};
    screen::Label lblCodMunIBGE{this, "lblCodMunIBGE"};
    screen::ListField cboPais_Coml{this, "cboPais_Coml"};

    // Delivery address.
    screen::Button cmdEndComl1{this, "cmdEndComl1", u"Repetir o Endereço Comercial"_s};
    screen::MaskedField mskEnt_CEP{this, "mskEnt_CEP", u"#####-###"_s};
    screen::Button cmdCEP_Entg{this, "cmdCEP_Entg", u"CEP..."_s};
    screen::TextField txtEnt_Endereco{this, "txtEnt_Endereco"};
    screen::TextField txtEnt_Numero{this, "txtEnt_Numero"};
    screen::TextField txtEnt_Complemento{this, "txtEnt_Complemento"};
    screen::TextField txtEnt_Bairro{this, "txtEnt_Bairro"};
    screen::ListField cboEnt_UF{this, "cboEnt_UF"};
    screen::ListField cboEnt_Cidade{this, "cboEnt_Cidade"};
    screen::Label lblEnt_CodMunIBGE{this, "lblEnt_CodMunIBGE"};
    screen::ListField cboPais_Entg{this, "cboPais_Entg"};

    // Billing address.
    screen::Button cmdEndComl2{this, "cmdEndComl2", u"Repetir o Endereço Comercial"_s};
    screen::Button cmdEndEntrega{this, "cmdEndEntrega", u"Repetir o Endereço de Entrega"_s};
    screen::MaskedField mskCob_CEP{this, "mskCob_CEP", u"#####-###"_s};
    screen::Button cmdCEP_Cobr{this, "cmdCEP_Cobr", u"CEP..."_s};
    screen::TextField txtCob_Endereco{this, "txtCob_Endereco"};
    screen::TextField txtCob_Numero{this, "txtCob_Numero"};
    screen::TextField txtCob_Complemento{this, "txtCob_Complemento"};
    screen::TextField txtCob_Bairro{this, "txtCob_Bairro"};
    screen::ListField cboCob_UF{this, "cboCob_UF"};
    screen::ListField cboCob_Cidade{this, "cboCob_Cidade"};
    screen::Label lblCob_CodMunIBGE{this, "lblCob_CodMunIBGE"};
    screen::ListField cboPais_Cobr{this, "cboPais_Cobr"};

    // Phones and commercial defaults.
    screen::TextField txtFone1{this, "txtFone1"};
    screen::TextField txtFone2{this, "txtFone2"};
    screen::TextField txtFax1{this, "txtFax1"};
    screen::TextField txtFax2{this, "txtFax2"};
    screen::TextField txtEmail1{this, "txtEmail1"};
    screen::Button cmdAbrirOutlook{this, "cmdAbrirOutlook", u"E-mail..."_s};
    screen::TextField txtHomePage{this, "txtHomePage"};
    screen::Button cmdAbrirIExplorer{this, "cmdAbrirIExplorer", u"Abrir..."_s};
    screen::TextField txtContatoPrincipal{this, "txtContatoPrincipal"};
    screen::MaskedField mskDtNasc{this, "mskDtNasc", u"##/##"_s};
    screen::MaskedField mskDtAnivRel{this, "mskDtAnivRel", u"##/##/####"_s};
    screen::ListField cboVendedor{this, "cboVendedor"};
    screen::ListField cboTransportadora{this, "cboTransportadora"};
    screen::ListField cboTipoCli{this, "cboTipoCli"};
    screen::ListField cboTabelaPrecos{this, "cboTabelaPrecos"};
    screen::TextField txtPrinNomeContato{this, "txtPrinNomeContato"};
    screen::TextField txtPrinFoneContato{this, "txtPrinFoneContato"};
    screen::TextField txtPrinEmailContato{this, "txtPrinEmailContato"};

    // Contacts.
    BlocoContatos contatos{*this, contatosPessoa};

    // Branches of activity.
    screen::ListField cboAtividades{this, "cboAtividades"};
    screen::Button cmdIncluirAtividades{this, "cmdIncluirAtividades", u"Incluir"_s};
    screen::Grid FlexAtividades{this, "FlexAtividades"};
    screen::Label lblRamoFora{this, "lblRamoFora"}; ///< empty, or the branch that is in no list

    // Notes.
    screen::TextField txtOBSE_PESS_0001{this, "txtOBSE_PESS_0001"};
    screen::TextField txtOBSE_PESS_0002{this, "txtOBSE_PESS_0002"};
    screen::TextField txtOBSE_PESS_0003{this, "txtOBSE_PESS_0003"};

    // Fiscal data.
    screen::Label lblIE_RG{this, "lblIE_RG"};
    screen::TextField txtIEstadual{this, "txtIEstadual"};
    screen::TextField txtIMunicipal{this, "txtIMunicipal"};
    screen::TextField txtSuframa{this, "txtSuframa"};
    screen::TextField txtSubsTributario{this, "txtSubsTributario"};
    screen::ListField cboStatusIntegraFISCO{this, "cboStatusIntegraFISCO"};

    // History as a customer: orders.
    screen::TextField txtVrTOP{this, "txtVrTOP"};
    screen::Option opTopSobe{this, "opTopSobe", u"Mais antigos primeiro"_s, "ordem", true};
    screen::Option opTopDesce{this, "opTopDesce", u"Mais recentes primeiro"_s, "ordem"};
    screen::Button cmdReprocessaHistClieI{this, "cmdReprocessaHistClieI", u"Reprocessar"_s};
    screen::Grid FlexHistClie{this, "FlexHistClie"};
    screen::Label lblPrimeiraCompra{this, "lblPrimeiraCompra"};
    screen::Label lblUltimaCompra{this, "lblUltimaCompra"};
    screen::Label lblQtdeCompras{this, "lblQtdeCompras"};
    screen::Label lblTotalItensCompras{this, "lblTotalItensCompras"};
    screen::Label lblMontanteCompras{this, "lblMontanteCompras"};

    // Quotations.
    screen::Grid FlexHistClieII{this, "FlexHistClieII"};
    screen::Label lblPrimeiraCompraII{this, "lblPrimeiraCompraII"};
    screen::Label lblUltimaCompraII{this, "lblUltimaCompraII"};
    screen::Label lblQtdeComprasII{this, "lblQtdeComprasII"};
    screen::Label lblMontanteComprasII{this, "lblMontanteComprasII"};

    // Service orders.
    screen::Grid FlexHistClieIII{this, "FlexHistClieIII"};
    screen::Label lblPrimeiraCompraOS{this, "lblPrimeiraCompraOS"};
    screen::Label lblUltimaCompraOS{this, "lblUltimaCompraOS"};
    screen::Label lblQtdeComprasOS{this, "lblQtdeComprasOS"};
    screen::Label lblMontanteComprasOS{this, "lblMontanteComprasOS"};

    // History as a supplier: purchases and their items.
    screen::Grid FlexHistForn{this, "FlexHistForn"};
    screen::Label lblPrimeiraCompraForn{this, "lblPrimeiraCompraForn"};
    screen::Label lblUltimaCompraForn{this, "lblUltimaCompraForn"};
    screen::Label lblQtdeComprasForn{this, "lblQtdeComprasForn"};
    screen::Label lblTotalItensComprasForn{this, "lblTotalItensComprasForn"};
    screen::Label lblMontanteComprasForn{this, "lblMontanteComprasForn"};
    screen::ListField cboProduto{this, "cboProduto"};
    screen::Button cmdPesquisar_Produto{this, "cmdPesquisar_Produto", u"Filtrar"_s};
    screen::Grid FlexHistFornDeta{this, "FlexHistFornDeta"};

    // Roles.
    screen::Button cmdCliente{this, "cmdCliente", u"Cliente"_s};
    screen::Button cmdFornecedor{this, "cmdFornecedor", u"Fornecedor"_s};
    screen::Button cmdTransportadora{this, "cmdTransportadora", u"Transportadora"_s};
    screen::Button cmdVendedor{this, "cmdVendedor", u"Vendedor"_s};
    screen::Button cmdMotorista{this, "cmdMotorista", u"Motorista"_s};
    screen::Button cmdDecorador{this, "cmdDecorador", u"Decorador"_s};
    screen::Button cmdArquiteto{this, "cmdArquiteto", u"Arquiteto"_s};

    // Operations.
    screen::Button cmdPESQUISAR{this, "cmdPESQUISAR", u"Pesquisar"_s};
    screen::Button cmdINCLUIR{this, "cmdINCLUIR", u"&Incluir"_s};
    screen::Button cmdALTERAR{this, "cmdALTERAR", u"&Alterar"_s};
    screen::Button cmdEXCLUIR{this, "cmdEXCLUIR", u"&Desativar"_s};
    screen::Button cmdReativar{this, "cmdReativar", u"Reati&var"_s};
    screen::Button cmdSALVAR{this, "cmdSALVAR", u"&Salvar"_s};
    screen::Button cmdIMPRIMIR{this, "cmdIMPRIMIR", u"Imprimir"_s};
    screen::Button cmdInfo{this, "cmdInfo", u"In&formações"_s};
    screen::Button cmdSAIR{this, "cmdSAIR", u"Sai&r"_s};

  private:
    void ColocaPaginas();
    void LigaFamilias();
    void LigaHandlers();

    void AplicaTamanhosCampos();
    void AplicaDicasCampos();
    void ExibeDataDesativacao();
    void AplicaTipoClienteAutomatico();
    void MostraBotoesPapeis();
    void MostraBotoesCep();
    void EsvaziaCampos();

    void LimpaCampos() override { LimpaTela(); }
    void ApagaMarcas() override;
    void cmdINCLUIR_Click() override;
    bool PodeDesativar() override;
    void cboFisJur_LostFocus();

    // Search and load.
    void cmdPesquisar_Cliente_Click();
    void PesquisaPorId();
    void PesquisaPorCodigoExterno();
    void AvisaNaoLocalizada();
    void PreencheCodigosMunicipio();
    void LePessoa(data::Recordset& registro);
    void CarregaCampo(const CampoPessoa& linha, screen::Field& campo, data::Recordset& registro);
    void CarregaTipoPessoa(bool fisica);

    // Checks on leaving a field and at the save.
    void mskCodigo_LostFocus();
    void txtFone1_LostFocus();
    bool DocumentoInformado();
    bool ValidaSalvar();

    // Writes.
    void cmdSALVAR_Click() override;
    void GravaInclusao();
    void GravaAlteracao();
    void GravaListas(const QString& idpess);
    void TerminaGravacao();

    RascunhoPessoa rascunho_{*this};
    std::vector<CampoLigado> campos_; ///< all rows of the table with their fields
};

} // namespace vorta
