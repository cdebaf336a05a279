#include "roles/PapelTela.h"

namespace vorta {

namespace {

/// Customer, supplier and carrier have a credential.
constexpr RegrasPapel credenciado{.selecao = Selecao::PelaPessoa,
                                  .confereCodigo = true,
                                  .preencheCredencial = true,
                                  .limpaDesativacao = false,
                                  .limpaAposGravar = false,
                                  .entradaConferida = true};

/// Driver and salesperson work for the company.
constexpr RegrasPapel empregado{.exigePessoa = false, .armadilhaIncluir = true, .gradeAntiga = GradeAntiga::SemGrade};

/// Architect and decorator earn commissions.
constexpr RegrasPapel comissionado{.conferePessoaAtiva = false,
                                   .armadilhaIncluir = true,
                                   .atualizaPessoas = false,
                                   .gradeAntiga = GradeAntiga::NosContatos,
                                   .dataComando = FormatDateSqlSlashes};

using data::Piece;

} // namespace

constinit const PapelTela papelCliente{credenciado,
                                       {"frmCliente", " - Cadastro de Clientes ", "lblRowIdCliente", "cboRevenda"},
                                       {"Clie", "idClie", "idclie", "idClie"},
                                       {Piece("GEN_CLIE"), ChaveNova::PorGerador},
                                       ErroNoSalvar::Encerra,
                                       TabelaContatos{"clie_cont", "idclie", Piece("GEN_CLIE_CONT")}};

constinit const PapelTela papelFornecedor{
    credenciado,
    {"frmFornecedor", " - Cadastro de Fornecedor ", "lblRowIdFornecedor", "mskDtCredencial"},
    {"forn", "idforn", "forn.idforn", "idForn"},
    {Piece("GEN_FORN"), ChaveNova::PorGerador},
    ErroNoSalvar::Encerra,
    TabelaContatos{"forn_cont", "idforn", Piece("GEN_FORN_CONT")}};

constinit const PapelTela papelTransportadora{
    credenciado,
    {"frmTransportadora", " - Cadastro de Transportadora ", "lblRowIdTransportadora", "mskDtCredencial"},
    {"trpt", "idtrpt", "idtrpt", "idTRPT"},
    {Piece("GEN_TRPT"), ChaveNova::PorGerador},
    ErroNoSalvar::PedeRollback,
    TabelaContatos{"trpt_cont", "idtrpt", Piece("GEN_TRPT_CONT")}};

constinit const PapelTela papelMotorista{
    empregado,
    {"frmMotorista", " - Cadastro de Motorista ", "lblRowIdMotorista", "mskDtAdmissao"},
    {"Moto", "idMoto", "idmoto", "idMoto"},
    {Piece("GEN_MOTO"), ChaveNova::Perguntada, Piece("idMOTO")},
    ErroNoSalvar::PedeRollback};

constinit const PapelTela papelVendedor{
    empregado,
    {"frmVendedor", " - Cadastro de Vendedores ", "lblRowIdVendedor", "mskDtAdmissao"},
    {"Vend", "idVend", "idvend", "idvend"},
    {Piece("GEN_VEND"), ChaveNova::Dispensada},
    ErroNoSalvar::PedeRollback};

constinit const PapelTela papelArquiteto{
    comissionado,
    {"frmArquiteto", " - Cadastro de Arquitetos ", "lblRowidArquiteto", "mskDtAdmissao"},
    {"arqt", "idArqt", "arqt.idArqt", "idArqt"},
    {{}, ChaveNova::Perguntada, Piece("idARQT")},
    ErroNoSalvar::Encerra,
    TabelaContatos{"arqt_cont", "idArqt", {}}};

constinit const PapelTela papelDecorador{
    comissionado,
    {"frmDecorador", " - Cadastro de Decoradores ", "lblRowIdDecorador", "mskDtAdmissao"},
    {"deco", "iddeco", "deco.iddeco", "idDeco"},
    {{}, ChaveNova::Perguntada, Piece("idDECO")},
    ErroNoSalvar::Encerra,
    TabelaContatos{"deco_cont", "iddeco", {}}};

} // namespace vorta
