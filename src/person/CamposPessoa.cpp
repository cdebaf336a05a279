#include "person/CamposPessoa.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vorta {

namespace {

using data::Piece;
using enum Gravacao;
using enum Forma;

/// What most fields are: data of the person, open during an operation and empty behind it.
constexpr unsigned dados = SoNaEdicao | Limpa;

// The insert always names these columns.
constexpr Vazio emBranco{.inserido = ""};
constexpr Vazio documento{.inserido = "", .colunaAlterada = Piece("CPF0_CNPF")};
constexpr Vazio zero{.inserido = "0", .alterado = "0"};

/// The third note, the external code, the date of deactivation and the order limit keep their text when the screen is
/// cleared; the countries go back to their own text.
constexpr std::array campos{
    // Identity.
    CampoPessoa{.nome = "txtRowID", .coluna = Piece("IDPESS"), .forma = TextoExigido, .familias = Limpa | Seleciona},
    CampoPessoa{.nome = "txtCodPessExterno",
                .coluna = Piece("pess_codi_exte"),
                .tamanho = 20,
                .grava = SeTemTexto,
                .forma = Aparado,
                .familias = SemEnter},
    CampoPessoa{.nome = "cboFisJur",
                .coluna = Piece("PSFI_PSJU"),
                .colunaInsert = Piece("psfi_psju"),
                .grava = Sempre,
                .forma = FisicaOuJuridica,
                .familias = dados},
    CampoPessoa{.nome = "mskCodigo",
                .coluna = Piece("CPF0_CNPJ"),
                .colunaInsert = Piece("cpf0_cnpj"),
                .tamanho = 18,
                .dica = "CGC ou CPG do Cliente",
                .grava = SeTemMascara,
                .forma = Documento,
                .vazio = documento,
                .familias = dados},
    CampoPessoa{.nome = "txtDescricao",
                .coluna = Piece("NOME_PESS"),
                .colunaInsert = Piece("nome_pess"),
                .tamanho = 50,
                .dica = "Razão Social do Cliente - Campo Obrigatório",
                .grava = SeTemTexto,
                .forma = TextoExigido,
                .vazio = emBranco,
                .familias = dados | Acento},
    CampoPessoa{.nome = "txtNomeFantasia",
                .coluna = Piece("NOME_CONH"),
                .colunaInsert = Piece("nome_conh"),
                .tamanho = 50,
                .dica = "Nome Fantasia do Cliente - Campo Obrigatório",
                .grava = SeTemTexto,
                .vazio = emBranco,
                .familias = dados | Acento},
    CampoPessoa{.nome = "txtIEstadual",
                .coluna = Piece("RG00_IE00"),
                .colunaInsert = Piece("rg00_ie00"),
                .tamanho = 15,
                .dica = "Inscrição Estadual do Cliente",
                .grava = SeTemTexto,
                .familias = dados},
    CampoPessoa{.nome = "txtIMunicipal",
                .coluna = Piece("NUME_IMUN_PESS"),
                .tamanho = 20,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados},
    CampoPessoa{.nome = "txtSuframa",
                .coluna = Piece("NUME_SUFRAMA_PESS"),
                .tamanho = 20,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados},
    CampoPessoa{.nome = "txtSubsTributario",
                .coluna = Piece("NUME_SUBS_TRIB_PESS"),
                .tamanho = 15,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados},
    CampoPessoa{.nome = "cboStatusIntegraFISCO",
                .coluna = Piece("FLAG_FISC_PESS"),
                .familias = SempreTravado | Limpa | SemEnter},
    // Commercial address.
    CampoPessoa{.nome = "cmdCEP", .familias = SoNaEdicao},
    CampoPessoa{.nome = "txtEndereco",
                .coluna = Piece("ENDE_COML_PESS"),
                .tamanho = 70,
                .dica = "Endereço",
                .grava = SeTemTexto,
                .familias = dados | Acento},
    CampoPessoa{.nome = "txtNumero", .coluna = Piece("NUME_COML_PESS"), .grava = SeTemTexto, .familias = dados},
    CampoPessoa{.nome = "txtComplemento",
                .coluna = Piece("CMPL_COML_PESS"),
                .tamanho = 60,
                .grava = SeTemTexto,
                .familias = dados | Acento},
    CampoPessoa{.nome = "txtBairro",
                .coluna = Piece("BAIR_COML_PESS"),
                .tamanho = 30,
                .dica = "Bairro",
                .grava = SeTemTexto,
                .familias = dados | Acento},
    CampoPessoa{.nome = "cboCidade",
                .coluna = Piece("CIDA_COML_PESS"),
                .dica = "Cidade",
                .grava = SeTemTexto,
                .familias = dados},
    CampoPessoa{.nome = "cboUF",
                .coluna = Piece("UF00_COML_PESS"),
                .dica = "Unidade Feral (Estado)",
                .capacidade = capacidade::codigo,
                .grava = SeTemTexto,
                .familias = dados},
    CampoPessoa{.nome = "mskCEP",
                .coluna = Piece("CEP0_COML_PESS"),
                .tamanho = 9,
                .dica = "Código Endereçamento Postal (CEP)",
                .grava = SeTemMascara,
                .forma = CepComercial,
                .familias = dados},
    CampoPessoa{.nome = "cboPais_Coml",
                .coluna = Piece("PAIS_COML_PESS"),
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = SoNaEdicao | Seleciona},
    CampoPessoa{.nome = "lblCodMunIBGE",
                .coluna = Piece("CODI_MUNI_COML_PESS"),
                .grava = SeTemTextoAparado,
                .forma = CodigoMunicipio,
                .familias = Limpa},
    // Delivery address.
    CampoPessoa{.nome = "cmdEndComl1", .familias = SoNaEdicao},
    CampoPessoa{.nome = "cmdCEP_Entg", .familias = SoNaEdicao},
    CampoPessoa{.nome = "txtEnt_Endereco",
                .coluna = Piece("ENDE_ENTG_PESS"),
                .tamanho = 70,
                .grava = SeTemTexto,
                .familias = dados | Acento},
    CampoPessoa{.nome = "txtEnt_Numero", .coluna = Piece("NUME_ENTG_PESS"), .grava = SeTemTexto, .familias = dados},
    CampoPessoa{.nome = "txtEnt_Complemento",
                .coluna = Piece("CMPL_ENTG_PESS"),
                .tamanho = 60,
                .grava = SeTemTexto,
                .familias = dados | Acento},
    CampoPessoa{
        .nome = "txtEnt_Bairro", .coluna = Piece("BAIR_ENTG_PESS"), .grava = SeTemTexto, .familias = dados | Acento},
    CampoPessoa{.nome = "cboEnt_Cidade", .coluna = Piece("CIDA_ENTG_PESS"), .grava = SeTemTexto, .familias = dados},
    CampoPessoa{.nome = "cboEnt_UF",
                .coluna = Piece("UF00_ENTG_PESS"),
                .capacidade = capacidade::codigo,
                .grava = SeTemTexto,
                .familias = dados},
    CampoPessoa{.nome = "mskEnt_CEP",
                .coluna = Piece("CEP0_ENTG_PESS"),
                .tamanho = 9,
                .grava = SeTemMascara,
                .forma = CepEntrega,
                .familias = dados},
    CampoPessoa{.nome = "cboPais_Entg",
                .coluna = Piece("PAIS_ENTG_PESS"),
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = SoNaEdicao | Seleciona},
    CampoPessoa{.nome = "lblEnt_CodMunIBGE",
                .coluna = Piece("CODI_MUNI_ENTG_PESS"),
                .grava = SeTemTextoAparado,
                .forma = CodigoMunicipio,
                .familias = Limpa},
    // Billing address.
    CampoPessoa{.nome = "cmdEndComl2", .familias = SoNaEdicao},
    CampoPessoa{.nome = "cmdEndEntrega", .familias = SoNaEdicao},
    CampoPessoa{.nome = "cmdCEP_Cobr", .familias = SoNaEdicao},
    CampoPessoa{.nome = "txtCob_Endereco",
                .coluna = Piece("ENDE_COBR_PESS"),
                .tamanho = 70,
                .grava = SeTemTexto,
                .familias = dados | Acento},
    CampoPessoa{.nome = "txtCob_Numero", .coluna = Piece("NUME_COBR_PESS"), .grava = SeTemTexto, .familias = dados},
    CampoPessoa{.nome = "txtCob_Complemento",
                .coluna = Piece("CMPL_COBR_PESS"),
                .tamanho = 60,
                .grava = SeTemTexto,
                .familias = dados | Acento},
    CampoPessoa{
        .nome = "txtCob_Bairro", .coluna = Piece("BAIR_COBR_PESS"), .grava = SeTemTexto, .familias = dados | Acento},
    CampoPessoa{.nome = "cboCob_Cidade", .coluna = Piece("CIDA_COBR_PESS"), .grava = SeTemTexto, .familias = dados},
    CampoPessoa{.nome = "cboCob_UF",
                .coluna = Piece("UF00_COBR_PESS"),
                .capacidade = capacidade::codigo,
                .grava = SeTemTexto,
                .familias = dados},
    CampoPessoa{.nome = "mskCob_CEP",
                .coluna = Piece("CEP0_COBR_PESS"),
                .tamanho = 9,
                .grava = SeTemMascara,
                .forma = CepCobranca,
                .familias = dados},
    CampoPessoa{.nome = "cboPais_Cobr",
                .coluna = Piece("PAIS_COBR_PESS"),
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = SoNaEdicao | Seleciona},
    CampoPessoa{.nome = "lblCob_CodMunIBGE",
                .coluna = Piece("CODI_MUNI_COBR_PESS"),
                .grava = SeTemTextoAparado,
                .forma = CodigoMunicipio,
                .familias = Limpa},
    // Phones, contact and commercial defaults.
    CampoPessoa{
        .nome = "txtFone1", .coluna = Piece("TELE_0001_PESS"), .tamanho = 20, .grava = SeTemTexto, .familias = dados},
    CampoPessoa{
        .nome = "txtFone2", .coluna = Piece("TELE_0002_PESS"), .tamanho = 20, .grava = SeTemTexto, .familias = dados},
    CampoPessoa{
        .nome = "txtFax1", .coluna = Piece("FAX0_0001_PESS"), .tamanho = 20, .grava = SeTemTexto, .familias = dados},
    CampoPessoa{
        .nome = "txtFax2", .coluna = Piece("FAX0_0002_PESS"), .tamanho = 20, .grava = SeTemTexto, .familias = dados},
    CampoPessoa{
        .nome = "txtEmail1", .coluna = Piece("EMAI_PESS"), .tamanho = 50, .grava = SeTemTexto, .familias = dados},
    CampoPessoa{
        .nome = "txtHomePage", .coluna = Piece("HTTP_PESS"), .tamanho = 50, .grava = SeTemTexto, .familias = dados},
    CampoPessoa{.nome = "txtContatoPrincipal",
                .coluna = Piece("NOME_CONT_PESS"),
                .tamanho = 50,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados},
    CampoPessoa{.nome = "txtPrinNomeContato",
                .coluna = Piece("PRIN_NOME_CONT"),
                .tamanho = 50,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados | Seleciona},
    CampoPessoa{.nome = "txtPrinFoneContato",
                .coluna = Piece("PRIN_FONE_CONT"),
                .tamanho = 30,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados | Seleciona},
    CampoPessoa{.nome = "txtPrinEmailContato",
                .coluna = Piece("PRIN_EMAI_CONT"),
                .tamanho = 50,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados | Seleciona},
    CampoPessoa{.nome = "mskDtNasc",
                .coluna = Piece("Data_Aniv"),
                .tamanho = 5,
                .grava = SeTemMascara,
                .forma = DiaMes,
                .familias = dados | Seleciona},
    CampoPessoa{.nome = "mskDtAnivRel",
                .coluna = Piece("data_aniv_rela"),
                .tamanho = 10,
                .grava = SeTemData,
                .forma = Data,
                .familias = dados | Seleciona},
    CampoPessoa{
        .nome = "cboVendedor", .coluna = Piece("idvend"), .grava = SeTemTexto, .forma = Vendedor, .familias = dados},
    CampoPessoa{.nome = "cboTransportadora",
                .coluna = Piece("IDPESS_TRPT"),
                .grava = SeTemTextoAparado,
                .forma = Transportadora,
                .familias = dados | SemEnter},
    CampoPessoa{.nome = "cboTipoCli",
                .coluna = Piece("idTipo_Clie"),
                .grava = SeTemTextoAparado,
                .forma = TipoCliente,
                .vazio = zero,
                .familias = dados},
    CampoPessoa{.nome = "cboTabelaPrecos",
                .coluna = Piece("tabe_prec"),
                .capacidade = capacidade::codigo,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados},
    CampoPessoa{.nome = "txtOBSE_PESS_0001",
                .coluna = Piece("OBSE_PESS_0001"),
                .tamanho = 200,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados | Seleciona},
    CampoPessoa{.nome = "txtOBSE_PESS_0002",
                .coluna = Piece("OBSE_PESS_0002"),
                .tamanho = 200,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = dados | Seleciona},
    CampoPessoa{.nome = "txtOBSE_PESS_0003",
                .coluna = Piece("OBSE_PESS_0003"),
                .tamanho = 200,
                .grava = SeTemTextoAparado,
                .forma = Aparado,
                .familias = SoNaEdicao | SemEnter},
    CampoPessoa{.nome = "lblCodiEmpresa", .coluna = Piece("codi_empr"), .grava = Sempre},
    // Inclusion and deactivation.
    CampoPessoa{.nome = "lblDataIncl", .coluna = Piece("DATA_INCL"), .familias = Limpa},
    CampoPessoa{.nome = "txtDTDesativa", .coluna = Piece("data_desa"), .familias = SempreTravado},
    CampoPessoa{.nome = "lblDataDesa", .coluna = Piece("data_desa"), .familias = Limpa},
    // What is no column of the person: captions, entry fields of the lists, filters of the history.
    CampoPessoa{.nome = "lblCGCCPF", .familias = Limpa},
    CampoPessoa{.nome = "lblIE_RG", .familias = Limpa},
    CampoPessoa{.nome = "cboTipoContato", .familias = dados | Seleciona},
    CampoPessoa{.nome = "txtNomeContato", .familias = dados | Seleciona},
    CampoPessoa{.nome = "txtFoneContato", .familias = dados | Seleciona},
    CampoPessoa{.nome = "txtEmailContato", .familias = dados | Seleciona},
    CampoPessoa{.nome = "mskDtNascCont", .familias = dados | Seleciona},
    CampoPessoa{.nome = "cboAtividades", .familias = dados},
    CampoPessoa{.nome = "txtVrTOP", .familias = SemEnter},
    CampoPessoa{.nome = "cboProduto", .familias = Limpa},
};

/// An order that names a field without a row does not compile.
consteval const CampoPessoa* LinhaDe(std::string_view nome) {
    for (const CampoPessoa& linha : campos)
        if (nome == linha.nome)
            return &linha;
    throw "the field has no row";
}

template <typename... Nomes>
consteval auto Ordem(Nomes... nomes) {
    return std::array{LinhaDe(nomes)...};
}

/// The columns of the insert, behind its key and in front of the pair that closes it.
constexpr auto ordemInsert =
    Ordem("cboFisJur", "mskCodigo", "txtDescricao", "txtNomeFantasia", "txtCodPessExterno", "txtIEstadual",
          "txtEndereco", "txtNumero", "txtComplemento", "txtBairro", "cboCidade", "cboUF", "mskCEP", "cboPais_Coml",
          "lblCodMunIBGE", "txtEnt_Endereco", "txtEnt_Numero", "txtEnt_Complemento", "txtEnt_Bairro", "cboEnt_Cidade",
          "cboEnt_UF", "mskEnt_CEP", "cboPais_Entg", "lblEnt_CodMunIBGE", "txtCob_Endereco", "txtCob_Numero",
          "txtCob_Complemento", "txtCob_Bairro", "cboCob_Cidade", "cboCob_UF", "mskCob_CEP", "cboPais_Cobr",
          "lblCob_CodMunIBGE", "mskDtNasc", "txtFone1", "txtFone2", "txtFax1", "txtFax2", "txtEmail1", "txtHomePage",
          "cboVendedor", "cboTabelaPrecos", "txtOBSE_PESS_0001", "txtOBSE_PESS_0002", "txtOBSE_PESS_0003", "cboTipoCli",
          "cboTransportadora", "mskDtAnivRel", "txtPrinNomeContato", "txtPrinFoneContato", "txtPrinEmailContato",
          "txtIMunicipal", "txtSuframa", "txtSubsTributario", "txtContatoPrincipal", "lblCodiEmpresa");

constexpr auto ordemUpdate =
    Ordem("mskCodigo", "cboFisJur", "txtDescricao", "txtNomeFantasia", "txtCodPessExterno", "txtIEstadual",
          "txtEndereco", "txtEnt_Endereco", "txtCob_Endereco", "txtNumero", "txtEnt_Numero", "txtCob_Numero",
          "txtComplemento", "txtEnt_Complemento", "txtCob_Complemento", "txtBairro", "txtEnt_Bairro", "txtCob_Bairro",
          "cboCidade", "cboEnt_Cidade", "cboCob_Cidade", "cboUF", "cboEnt_UF", "cboCob_UF", "cboPais_Coml",
          "cboPais_Entg", "cboPais_Cobr", "mskCEP", "mskEnt_CEP", "mskCob_CEP", "lblCodMunIBGE", "lblEnt_CodMunIBGE",
          "lblCob_CodMunIBGE", "txtFone1", "txtFone2", "txtFax1", "txtFax2", "txtEmail1", "cboVendedor",
          "cboTabelaPrecos", "mskDtNasc", "mskDtAnivRel", "cboTipoCli", "txtOBSE_PESS_0001", "txtOBSE_PESS_0002",
          "txtOBSE_PESS_0003", "cboTransportadora", "txtPrinNomeContato", "txtPrinFoneContato", "txtPrinEmailContato",
          "txtIMunicipal", "txtSuframa", "txtSubsTributario", "txtContatoPrincipal", "lblCodiEmpresa", "txtHomePage");

/// The columns of a load. Descriptions behind keys are looked up as their turn comes.
constexpr auto ordemCarga = Ordem(
    "txtRowID", "txtDescricao", "txtNomeFantasia", "txtDTDesativa", "lblDataDesa", "lblDataIncl", "txtCodPessExterno",
    "txtIEstadual", "mskDtNasc", "mskDtAnivRel", "txtEndereco", "txtEnt_Endereco", "txtCob_Endereco", "txtNumero",
    "txtEnt_Numero", "txtCob_Numero", "txtComplemento", "txtEnt_Complemento", "txtCob_Complemento", "txtBairro",
    "txtEnt_Bairro", "txtCob_Bairro", "cboCidade", "cboEnt_Cidade", "cboCob_Cidade", "cboUF", "cboEnt_UF", "cboCob_UF",
    "lblCodMunIBGE", "lblEnt_CodMunIBGE", "lblCob_CodMunIBGE", "cboPais_Coml", "cboPais_Entg", "cboPais_Cobr",
    "mskCodigo", "mskCEP", "mskEnt_CEP", "mskCob_CEP", "txtFone1", "txtFone2", "txtFax1", "txtFax2", "txtEmail1",
    "txtHomePage", "cboVendedor", "cboTabelaPrecos", "txtOBSE_PESS_0001", "txtOBSE_PESS_0002", "txtOBSE_PESS_0003",
    "txtIMunicipal", "txtSuframa", "txtSubsTributario", "txtContatoPrincipal", "cboStatusIntegraFISCO", "cboFisJur",
    "cboTipoCli", "cboTransportadora", "txtPrinNomeContato", "txtPrinFoneContato", "txtPrinEmailContato");

constexpr bool estaEm(std::span<const CampoPessoa* const> ordem, const CampoPessoa& linha) {
    return std::ranges::find(ordem, &linha) != ordem.end();
}

static_assert(std::ranges::all_of(campos,
                                  [](const CampoPessoa& linha) {
                                      const bool grava = linha.grava != Nunca;
                                      return estaEm(ordemInsert, linha) == grava && estaEm(ordemUpdate, linha) == grava;
                                  }),
              "a field is written by both statements or by none");
static_assert(std::ranges::all_of(campos,
                                  [](const CampoPessoa& linha) {
                                      return linha.coluna.has_value() ==
                                             (estaEm(ordemInsert, linha) || estaEm(ordemCarga, linha));
                                  }),
              "a field with a column is written or loaded");

} // namespace

std::span<const CampoPessoa> CamposPessoa() {
    return campos;
}
std::span<const CampoPessoa* const> OrdemInsert() {
    return ordemInsert;
}
std::span<const CampoPessoa* const> OrdemUpdate() {
    return ordemUpdate;
}
std::span<const CampoPessoa* const> OrdemCarga() {
    return ordemCarga;
}

} // namespace vorta
