#include "person/CamposPessoa.h"

#include <QString>
#include <algorithm>
#include <array>
#include <cstring>

namespace vorta {

namespace {

constexpr std::array tamanhos{
    TamanhoCampo{"txtCodPessExterno", 20},   TamanhoCampo{"mskCodigo", 18},
    TamanhoCampo{"txtDescricao", 50},        TamanhoCampo{"txtNomeFantasia", 50},
    TamanhoCampo{"txtIEstadual", 15},        TamanhoCampo{"txtIMunicipal", 20},
    TamanhoCampo{"txtSuframa", 20},          TamanhoCampo{"txtSubsTributario", 15},
    TamanhoCampo{"txtEndereco", 70},         TamanhoCampo{"txtEnt_Endereco", 70},
    TamanhoCampo{"txtCob_Endereco", 70},     TamanhoCampo{"txtComplemento", 60},
    TamanhoCampo{"txtEnt_Complemento", 60},  TamanhoCampo{"txtCob_Complemento", 60},
    TamanhoCampo{"txtBairro", 30},           TamanhoCampo{"mskCEP", 9},
    TamanhoCampo{"mskEnt_CEP", 9},           TamanhoCampo{"mskCob_CEP", 9},
    TamanhoCampo{"txtFone1", 20},            TamanhoCampo{"txtFone2", 20},
    TamanhoCampo{"txtFax1", 20},             TamanhoCampo{"txtFax2", 20},
    TamanhoCampo{"txtEmail1", 50},           TamanhoCampo{"txtHomePage", 50},
    TamanhoCampo{"txtContatoPrincipal", 50}, TamanhoCampo{"txtPrinNomeContato", 50},
    TamanhoCampo{"txtPrinFoneContato", 30},  TamanhoCampo{"txtPrinEmailContato", 50},
    TamanhoCampo{"mskDtNasc", 5},            TamanhoCampo{"mskDtAnivRel", 10},
    TamanhoCampo{"txtOBSE_PESS_0001", 200},  TamanhoCampo{"txtOBSE_PESS_0002", 200},
    TamanhoCampo{"txtOBSE_PESS_0003", 200},
};

constexpr std::array dicas{
    DicaCampo{"mskCodigo", "CGC ou CPG do Cliente"},
    DicaCampo{"txtDescricao", "Razão Social do Cliente - Campo Obrigatório"},
    DicaCampo{"txtNomeFantasia", "Nome Fantasia do Cliente - Campo Obrigatório"},
    DicaCampo{"txtIEstadual", "Inscrição Estadual do Cliente"},
    DicaCampo{"txtEndereco", "Endereço"},
    DicaCampo{"txtBairro", "Bairro"},
    DicaCampo{"cboCidade", "Cidade"},
    DicaCampo{"cboUF", "Unidade Feral (Estado)"},
    DicaCampo{"mskCEP", "Código Endereçamento Postal (CEP)"},
    DicaCampo{"txtFone1", ""},
    DicaCampo{"txtFone2", ""},
    DicaCampo{"txtFax1", ""},
    DicaCampo{"txtFax2", ""},
    DicaCampo{"txtEmail1", ""},
    DicaCampo{"txtHomePage", ""},
};

constexpr std::array bloqueaveis{
    "cboFisJur",          "mskCodigo",           "txtIEstadual",      "txtDescricao",      "txtNomeFantasia",
    "txtEndereco",        "txtNumero",           "txtComplemento",    "txtBairro",         "cboCidade",
    "cboUF",              "mskCEP",              "cboPais_Coml",      "txtEnt_Endereco",   "txtEnt_Numero",
    "txtEnt_Complemento", "txtEnt_Bairro",       "cboEnt_Cidade",     "cboEnt_UF",         "mskEnt_CEP",
    "cboPais_Entg",       "txtCob_Endereco",     "txtCob_Numero",     "txtCob_Complemento", "txtCob_Bairro",
    "cboCob_Cidade",      "cboCob_UF",           "mskCob_CEP",        "cboPais_Cobr",      "mskDtNasc",
    "mskDtAnivRel",       "mskDtNascCont",       "txtFone1",          "txtFone2",          "txtFax1",
    "txtFax2",            "txtEmail1",           "txtHomePage",       "cboAtividades",     "txtOBSE_PESS_0001",
    "txtOBSE_PESS_0002",  "txtOBSE_PESS_0003",   "cboTransportadora", "cboTipoContato",    "txtNomeContato",
    "txtFoneContato",     "txtEmailContato",     "cboTipoCli",        "txtPrinNomeContato", "txtPrinFoneContato",
    "txtPrinEmailContato", "txtIMunicipal",      "txtSuframa",        "txtSubsTributario", "txtContatoPrincipal",
    "cboVendedor",        "cboTabelaPrecos"};

constexpr std::array botoesBloqueaveis{"cmdEndComl1", "cmdEndComl2", "cmdEndEntrega",
                                       "cmdCEP",      "cmdCEP_Entg", "cmdCEP_Cobr"};

/// The third note, the external code, the date of deactivation and the order limit keep their text.
constexpr std::array limpos{
    "txtRowID",           "txtDescricao",       "txtNomeFantasia",     "txtIEstadual",      "txtEndereco",
    "txtEnt_Endereco",    "txtCob_Endereco",    "txtBairro",           "txtEnt_Bairro",     "txtCob_Bairro",
    "cboCidade",          "cboEnt_Cidade",      "cboCob_Cidade",       "cboUF",             "cboEnt_UF",
    "cboCob_UF",          "txtNumero",          "txtEnt_Numero",       "txtCob_Numero",     "txtComplemento",
    "txtEnt_Complemento", "txtCob_Complemento", "lblCodMunIBGE",       "lblEnt_CodMunIBGE", "lblCob_CodMunIBGE",
    "txtFone1",           "txtFone2",           "txtFax1",             "txtFax2",           "txtEmail1",
    "txtHomePage",        "lblCGCCPF",          "lblIE_RG",            "lblDataIncl",       "lblDataDesa",
    "cboFisJur",          "cboAtividades",      "txtOBSE_PESS_0001",   "txtOBSE_PESS_0002", "cboTransportadora",
    "cboTipoContato",     "txtNomeContato",     "txtFoneContato",      "txtEmailContato",   "cboTipoCli",
    "txtPrinNomeContato", "txtPrinFoneContato", "txtPrinEmailContato", "txtIMunicipal",     "txtSuframa",
    "txtSubsTributario",  "txtContatoPrincipal", "cboStatusIntegraFISCO", "cboVendedor",    "cboTabelaPrecos",
    "cboProduto"};

constexpr std::array semEnter{"txtCodPessExterno", "txtOBSE_PESS_0003", "txtVrTOP", "cboTransportadora",
                              "cboStatusIntegraFISCO"};

constexpr std::array comAcento{
    "txtDescricao",       "txtNomeFantasia",    "txtEndereco", "txtEnt_Endereco", "txtCob_Endereco", "txtComplemento",
    "txtEnt_Complemento", "txtCob_Complemento", "txtBairro",   "txtEnt_Bairro",   "txtCob_Bairro"};

constexpr std::array comSelecao{"txtRowID",           "txtNomeContato",     "txtFoneContato",      "txtEmailContato",
                                "txtPrinNomeContato", "txtPrinFoneContato", "txtPrinEmailContato", "txtOBSE_PESS_0001",
                                "txtOBSE_PESS_0002",  "mskDtNasc",          "mskDtAnivRel",        "mskDtNascCont",
                                "cboTipoContato",     "cboPais_Coml",       "cboPais_Entg",        "cboPais_Cobr"};

using enum Teste;
using enum Forma;

constexpr std::array origens{
    OrigemColuna{"cboFisJur", Sempre, FisicaOuJuridica},
    OrigemColuna{"mskCodigo", C, Texto},
    OrigemColuna{"txtDescricao", A, Texto},
    OrigemColuna{"txtNomeFantasia", A, Texto},
    OrigemColuna{"txtCodPessExterno", A, Aparado},
    OrigemColuna{"txtIEstadual", A, Texto},
    OrigemColuna{"txtEndereco", A, Texto},
    OrigemColuna{"txtNumero", A, Texto},
    OrigemColuna{"txtComplemento", A, Texto},
    OrigemColuna{"txtBairro", A, Texto},
    OrigemColuna{"cboCidade", A, Texto},
    OrigemColuna{"cboUF", A, Texto},
    OrigemColuna{"mskCEP", C, Texto},
    OrigemColuna{"cboPais_Coml", B, Aparado},
    OrigemColuna{"lblCodMunIBGE", B, CodigoMunicipio},
    OrigemColuna{"txtEnt_Endereco", A, Texto},
    OrigemColuna{"txtEnt_Numero", A, Texto},
    OrigemColuna{"txtEnt_Complemento", A, Texto},
    OrigemColuna{"txtEnt_Bairro", A, Texto},
    OrigemColuna{"cboEnt_Cidade", A, Texto},
    OrigemColuna{"cboEnt_UF", A, Texto},
    OrigemColuna{"mskEnt_CEP", C, Texto},
    OrigemColuna{"cboPais_Entg", B, Aparado},
    OrigemColuna{"lblEnt_CodMunIBGE", B, CodigoMunicipio},
    OrigemColuna{"txtCob_Endereco", A, Texto},
    OrigemColuna{"txtCob_Numero", A, Texto},
    OrigemColuna{"txtCob_Complemento", A, Texto},
    OrigemColuna{"txtCob_Bairro", A, Texto},
    OrigemColuna{"cboCob_Cidade", A, Texto},
    OrigemColuna{"cboCob_UF", A, Texto},
    OrigemColuna{"mskCob_CEP", C, Texto},
    OrigemColuna{"cboPais_Cobr", B, Aparado},
    OrigemColuna{"lblCob_CodMunIBGE", B, CodigoMunicipio},
    OrigemColuna{"mskDtNasc", C, Texto},
    OrigemColuna{"txtFone1", A, Texto},
    OrigemColuna{"txtFone2", A, Texto},
    OrigemColuna{"txtFax1", A, Texto},
    OrigemColuna{"txtFax2", A, Texto},
    OrigemColuna{"txtEmail1", A, Texto},
    OrigemColuna{"txtHomePage", A, Texto},
    OrigemColuna{"cboVendedor", A, IdVendedor},
    OrigemColuna{"cboTabelaPrecos", B, Aparado},
    OrigemColuna{"txtOBSE_PESS_0001", B, Aparado},
    OrigemColuna{"txtOBSE_PESS_0002", B, Aparado},
    OrigemColuna{"txtOBSE_PESS_0003", B, Aparado},
    OrigemColuna{"cboTipoCli", B, IdTipoCliente},
    OrigemColuna{"cboTransportadora", B, IdTransportadora},
    OrigemColuna{"mskDtAnivRel", D, Data},
    OrigemColuna{"txtPrinNomeContato", B, Aparado},
    OrigemColuna{"txtPrinFoneContato", B, Aparado},
    OrigemColuna{"txtPrinEmailContato", B, Aparado},
    OrigemColuna{"txtIMunicipal", B, Aparado},
    OrigemColuna{"txtSuframa", B, Aparado},
    OrigemColuna{"txtSubsTributario", B, Aparado},
    OrigemColuna{"txtContatoPrincipal", B, Aparado},
    OrigemColuna{"lblCodiEmpresa", Sempre, Texto},
};

/// Behind the fixed columns of the insert and in front of its audit pair.
constexpr std::array insere{
    ColunaComando{", pess_codi_exte", "txtCodPessExterno"},
    ColunaComando{", rg00_ie00", "txtIEstadual"},
    ColunaComando{", ENDE_COML_PESS", "txtEndereco"},
    ColunaComando{", NUME_COML_PESS", "txtNumero"},
    ColunaComando{", CMPL_COML_PESS", "txtComplemento"},
    ColunaComando{", BAIR_COML_PESS", "txtBairro"},
    ColunaComando{", CIDA_COML_PESS", "cboCidade"},
    ColunaComando{", UF00_COML_PESS", "cboUF"},
    ColunaComando{", CEP0_COML_PESS", "mskCEP"},
    ColunaComando{", PAIS_COML_PESS", "cboPais_Coml"},
    ColunaComando{", CODI_MUNI_COML_PESS", "lblCodMunIBGE"},
    ColunaComando{", ENDE_ENTG_PESS", "txtEnt_Endereco"},
    ColunaComando{", NUME_ENTG_PESS", "txtEnt_Numero"},
    ColunaComando{", CMPL_ENTG_PESS", "txtEnt_Complemento"},
    ColunaComando{", BAIR_ENTG_PESS", "txtEnt_Bairro"},
    ColunaComando{", CIDA_ENTG_PESS", "cboEnt_Cidade"},
    ColunaComando{", UF00_ENTG_PESS", "cboEnt_UF"},
    ColunaComando{", CEP0_ENTG_PESS", "mskEnt_CEP"},
    ColunaComando{", PAIS_ENTG_PESS", "cboPais_Entg"},
    ColunaComando{", CODI_MUNI_ENTG_PESS", "lblEnt_CodMunIBGE"},
    ColunaComando{", ENDE_COBR_PESS", "txtCob_Endereco"},
    ColunaComando{", NUME_COBR_PESS", "txtCob_Numero"},
    ColunaComando{", CMPL_COBR_PESS", "txtCob_Complemento"},
    ColunaComando{", BAIR_COBR_PESS", "txtCob_Bairro"},
    ColunaComando{", CIDA_COBR_PESS", "cboCob_Cidade"},
    ColunaComando{", UF00_COBR_PESS", "cboCob_UF"},
    ColunaComando{", CEP0_COBR_PESS", "mskCob_CEP"},
    ColunaComando{", PAIS_COBR_PESS", "cboPais_Cobr"},
    ColunaComando{", CODI_MUNI_COBR_PESS", "lblCob_CodMunIBGE"},
    ColunaComando{", Data_Aniv", "mskDtNasc"},
    ColunaComando{", TELE_0001_PESS", "txtFone1"},
    ColunaComando{", TELE_0002_PESS", "txtFone2"},
    ColunaComando{", FAX0_0001_PESS", "txtFax1"},
    ColunaComando{", FAX0_0002_PESS", "txtFax2"},
    ColunaComando{", EMAI_PESS", "txtEmail1"},
    ColunaComando{", HTTP_PESS", "txtHomePage"},
    ColunaComando{", idvend", "cboVendedor"},
    ColunaComando{", tabe_prec", "cboTabelaPrecos"},
    ColunaComando{", OBSE_PESS_0001", "txtOBSE_PESS_0001"},
    ColunaComando{", OBSE_PESS_0002", "txtOBSE_PESS_0002"},
    ColunaComando{", OBSE_PESS_0003", "txtOBSE_PESS_0003"},
    ColunaComando{", idTipo_Clie", "cboTipoCli"},
    ColunaComando{", IDPESS_TRPT", "cboTransportadora"},
    ColunaComando{", data_aniv_rela", "mskDtAnivRel"},
    ColunaComando{", PRIN_NOME_CONT", "txtPrinNomeContato"},
    ColunaComando{", PRIN_FONE_CONT", "txtPrinFoneContato"},
    ColunaComando{", PRIN_EMAI_CONT", "txtPrinEmailContato"},
    ColunaComando{", NUME_IMUN_PESS", "txtIMunicipal"},
    ColunaComando{", NUME_SUFRAMA_PESS", "txtSuframa"},
    ColunaComando{", NUME_SUBS_TRIB_PESS", "txtSubsTributario"},
    ColunaComando{", NOME_CONT_PESS", "txtContatoPrincipal"},
};

constexpr std::array atualiza{
    ColunaComando{"CPF0_CNPJ", "mskCodigo"},
    ColunaComando{"PSFI_PSJU", "cboFisJur"},
    ColunaComando{"NOME_PESS", "txtDescricao"},
    ColunaComando{"NOME_CONH", "txtNomeFantasia"},
    ColunaComando{"pess_codi_exte", "txtCodPessExterno"},
    ColunaComando{"RG00_IE00", "txtIEstadual"},
    ColunaComando{"ENDE_COML_PESS", "txtEndereco"},
    ColunaComando{"ENDE_ENTG_PESS", "txtEnt_Endereco"},
    ColunaComando{"ENDE_COBR_PESS", "txtCob_Endereco"},
    ColunaComando{"NUME_COML_PESS", "txtNumero"},
    ColunaComando{"NUME_ENTG_PESS", "txtEnt_Numero"},
    ColunaComando{"NUME_COBR_PESS", "txtCob_Numero"},
    ColunaComando{"CMPL_COML_PESS", "txtComplemento"},
    ColunaComando{"CMPL_ENTG_PESS", "txtEnt_Complemento"},
    ColunaComando{"CMPL_COBR_PESS", "txtCob_Complemento"},
    ColunaComando{"BAIR_COML_PESS", "txtBairro"},
    ColunaComando{"BAIR_ENTG_PESS", "txtEnt_Bairro"},
    ColunaComando{"BAIR_COBR_PESS", "txtCob_Bairro"},
    ColunaComando{"CIDA_COML_PESS", "cboCidade"},
    ColunaComando{"CIDA_ENTG_PESS", "cboEnt_Cidade"},
    ColunaComando{"CIDA_COBR_PESS", "cboCob_Cidade"},
    ColunaComando{"UF00_COML_PESS", "cboUF"},
    ColunaComando{"UF00_ENTG_PESS", "cboEnt_UF"},
    ColunaComando{"UF00_COBR_PESS", "cboCob_UF"},
    ColunaComando{"PAIS_COML_PESS", "cboPais_Coml"},
    ColunaComando{"PAIS_ENTG_PESS", "cboPais_Entg"},
    ColunaComando{"PAIS_COBR_PESS", "cboPais_Cobr"},
    ColunaComando{"CEP0_COML_PESS", "mskCEP"},
    ColunaComando{"CEP0_ENTG_PESS", "mskEnt_CEP"},
    ColunaComando{"CEP0_COBR_PESS", "mskCob_CEP"},
    ColunaComando{"CODI_MUNI_COML_PESS", "lblCodMunIBGE"},
    ColunaComando{"CODI_MUNI_ENTG_PESS", "lblEnt_CodMunIBGE"},
    ColunaComando{"CODI_MUNI_COBR_PESS", "lblCob_CodMunIBGE"},
    ColunaComando{"TELE_0001_PESS", "txtFone1"},
    ColunaComando{"TELE_0002_PESS", "txtFone2"},
    ColunaComando{"FAX0_0001_PESS", "txtFax1"},
    ColunaComando{"FAX0_0002_PESS", "txtFax2"},
    ColunaComando{"EMAI_PESS", "txtEmail1"},
    ColunaComando{"idvend", "cboVendedor"},
    ColunaComando{"tabe_prec", "cboTabelaPrecos"},
    ColunaComando{"Data_Aniv", "mskDtNasc"},
    ColunaComando{"data_aniv_rela", "mskDtAnivRel"},
    ColunaComando{"idTipo_Clie", "cboTipoCli"},
    ColunaComando{"OBSE_PESS_0001", "txtOBSE_PESS_0001"},
    ColunaComando{"OBSE_PESS_0002", "txtOBSE_PESS_0002"},
    ColunaComando{"OBSE_PESS_0003", "txtOBSE_PESS_0003"},
    ColunaComando{"IDPESS_TRPT", "cboTransportadora"},
    ColunaComando{"PRIN_NOME_CONT", "txtPrinNomeContato"},
    ColunaComando{"PRIN_FONE_CONT", "txtPrinFoneContato"},
    ColunaComando{"PRIN_EMAI_CONT", "txtPrinEmailContato"},
    ColunaComando{"NUME_IMUN_PESS", "txtIMunicipal"},
    ColunaComando{"NUME_SUFRAMA_PESS", "txtSuframa"},
    ColunaComando{"NUME_SUBS_TRIB_PESS", "txtSubsTributario"},
    ColunaComando{"NOME_CONT_PESS", "txtContatoPrincipal"},
    ColunaComando{"codi_empr", "lblCodiEmpresa"},
    ColunaComando{"HTTP_PESS", "txtHomePage"},
};

constexpr std::array carga{
    ColunaCarga{"NOME_CONH", "txtNomeFantasia"},
    ColunaCarga{"pess_codi_exte", "txtCodPessExterno"},
    ColunaCarga{"RG00_IE00", "txtIEstadual"},
    ColunaCarga{"ENDE_COML_PESS", "txtEndereco"},
    ColunaCarga{"ENDE_ENTG_PESS", "txtEnt_Endereco"},
    ColunaCarga{"ENDE_COBR_PESS", "txtCob_Endereco"},
    ColunaCarga{"NUME_COML_PESS", "txtNumero"},
    ColunaCarga{"NUME_ENTG_PESS", "txtEnt_Numero"},
    ColunaCarga{"NUME_COBR_PESS", "txtCob_Numero"},
    ColunaCarga{"CMPL_COML_PESS", "txtComplemento"},
    ColunaCarga{"CMPL_ENTG_PESS", "txtEnt_Complemento"},
    ColunaCarga{"CMPL_COBR_PESS", "txtCob_Complemento"},
    ColunaCarga{"BAIR_COML_PESS", "txtBairro"},
    ColunaCarga{"BAIR_ENTG_PESS", "txtEnt_Bairro"},
    ColunaCarga{"BAIR_COBR_PESS", "txtCob_Bairro"},
    ColunaCarga{"CIDA_COML_PESS", "cboCidade"},
    ColunaCarga{"CIDA_ENTG_PESS", "cboEnt_Cidade"},
    ColunaCarga{"CIDA_COBR_PESS", "cboCob_Cidade"},
    ColunaCarga{"UF00_COML_PESS", "cboUF"},
    ColunaCarga{"UF00_ENTG_PESS", "cboEnt_UF"},
    ColunaCarga{"UF00_COBR_PESS", "cboCob_UF"},
    ColunaCarga{"CODI_MUNI_COML_PESS", "lblCodMunIBGE"},
    ColunaCarga{"CODI_MUNI_ENTG_PESS", "lblEnt_CodMunIBGE"},
    ColunaCarga{"CODI_MUNI_COBR_PESS", "lblCob_CodMunIBGE"},
    ColunaCarga{"PAIS_COML_PESS", "cboPais_Coml"},
    ColunaCarga{"PAIS_ENTG_PESS", "cboPais_Entg"},
    ColunaCarga{"PAIS_COBR_PESS", "cboPais_Cobr"},
    ColunaCarga{"TELE_0001_PESS", "txtFone1"},
    ColunaCarga{"TELE_0002_PESS", "txtFone2"},
    ColunaCarga{"FAX0_0001_PESS", "txtFax1"},
    ColunaCarga{"FAX0_0002_PESS", "txtFax2"},
    ColunaCarga{"EMAI_PESS", "txtEmail1"},
    ColunaCarga{"HTTP_PESS", "txtHomePage"},
    ColunaCarga{"tabe_prec", "cboTabelaPrecos"},
    ColunaCarga{"obse_pess_0001", "txtOBSE_PESS_0001"},
    ColunaCarga{"obse_pess_0002", "txtOBSE_PESS_0002"},
    ColunaCarga{"obse_pess_0003", "txtOBSE_PESS_0003"},
    ColunaCarga{"NUME_IMUN_PESS", "txtIMunicipal"},
    ColunaCarga{"NUME_SUFRAMA_PESS", "txtSuframa"},
    ColunaCarga{"NUME_SUBS_TRIB_PESS", "txtSubsTributario"},
    ColunaCarga{"NOME_CONT_PESS", "txtContatoPrincipal"},
    ColunaCarga{"FLAG_FISC_PESS", "cboStatusIntegraFISCO"},
    ColunaCarga{"PRIN_NOME_CONT", "txtPrinNomeContato"},
    ColunaCarga{"PRIN_FONE_CONT", "txtPrinFoneContato"},
    ColunaCarga{"PRIN_EMAI_CONT", "txtPrinEmailContato"},
};

} // namespace

std::span<const TamanhoCampo> TamanhosPessoa() { return tamanhos; }
std::span<const DicaCampo> DicasPessoa() { return dicas; }
std::span<const char* const> CamposBloqueaveis() { return bloqueaveis; }
std::span<const char* const> BotoesBloqueaveis() { return botoesBloqueaveis; }
std::span<const char* const> CamposLimpos() { return limpos; }
std::span<const char* const> CamposSemEnter() { return semEnter; }
std::span<const char* const> CamposComAcento() { return comAcento; }
std::span<const char* const> CamposComSelecao() { return comSelecao; }
std::span<const ColunaComando> ColunasInsert() { return insere; }
std::span<const ColunaComando> ColunasUpdate() { return atualiza; }
std::span<const ColunaCarga> ColunasCarga() { return carga; }

const OrigemColuna& OrigemDe(const char* campo) {
    return *std::find_if(origens.begin(), origens.end(),
                         [&](const OrigemColuna& origem) { return std::strcmp(origem.campo, campo) == 0; });
}

} // namespace vorta
