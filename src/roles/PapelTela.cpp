#include "roles/PapelTela.h"

#include "base/Format.h"

namespace vorta {

namespace {

constexpr PapelTela cliente{.tela = "frmCliente",
                            .sufixo = " - Cadastro de Clientes ",
                            .rotuloId = "lblRowIdCliente",
                            .primeiroCampo = "cboRevenda",
                            .tabela = "Clie",
                            .chave = "idClie",
                            .chaveBusca = "idclie",
                            .colunaBusca = "idClie",
                            .selecao = Selecao::PelaPessoa,
                            .gerador = data::Piece("GEN_CLIE"),
                            .contatos = TabelaContatos{"clie_cont", "idclie", data::Piece("GEN_CLIE_CONT")},
                            .confereCodigo = true,
                            .preencheCredencial = true,
                            .limpaDesativacao = false,
                            .limpaAposGravar = false,
                            .entradaConferida = true,
                            .dataComando = FormatDateSql};

constexpr PapelTela fornecedor{.tela = "frmFornecedor",
                               .sufixo = " - Cadastro de Fornecedor ",
                               .rotuloId = "lblRowIdFornecedor",
                               .primeiroCampo = "mskDtCredencial",
                               .tabela = "forn",
                               .chave = "idforn",
                               .chaveBusca = "forn.idforn",
                               .colunaBusca = "idForn",
                               .selecao = Selecao::PelaPessoa,
                               .gerador = data::Piece("GEN_FORN"),
                               .contatos = TabelaContatos{"forn_cont", "idforn", data::Piece("GEN_FORN_CONT")},
                               .confereCodigo = true,
                               .preencheCredencial = true,
                               .limpaDesativacao = false,
                               .limpaAposGravar = false,
                               .entradaConferida = true,
                               .dataComando = FormatDateSql};

constexpr PapelTela transportadora{.tela = "frmTransportadora",
                                   .sufixo = " - Cadastro de Transportadora ",
                                   .rotuloId = "lblRowIdTransportadora",
                                   .primeiroCampo = "mskDtCredencial",
                                   .tabela = "trpt",
                                   .chave = "idtrpt",
                                   .chaveBusca = "idtrpt",
                                   .colunaBusca = "idTRPT",
                                   .selecao = Selecao::PelaPessoa,
                                   .gerador = data::Piece("GEN_TRPT"),
                                   .contatos = TabelaContatos{"trpt_cont", "idtrpt", data::Piece("GEN_TRPT_CONT")},
                                   .confereCodigo = true,
                                   .preencheCredencial = true,
                                   .limpaDesativacao = false,
                                   .limpaAposGravar = false,
                                   .entradaConferida = true,
                                   .armadilhaSalvar = true,
                                   .dataComando = FormatDateSql};

constexpr PapelTela motorista{.tela = "frmMotorista",
                              .sufixo = " - Cadastro de Motorista ",
                              .rotuloId = "lblRowIdMotorista",
                              .primeiroCampo = "mskDtAdmissao",
                              .tabela = "Moto",
                              .chave = "idMoto",
                              .chaveBusca = "idmoto",
                              .colunaBusca = "idMoto",
                              .gerador = data::Piece("GEN_MOTO"),
                              .chaveNova = ChaveNova::Perguntada,
                              .colunaPess = data::Piece("idMOTO"),
                              .exigePessoa = false,
                              .armadilhaIncluir = true,
                              .armadilhaSalvar = true,
                              .gradeAntiga = GradeAntiga::SemGrade,
                              .dataComando = FormatDateSql};

constexpr PapelTela vendedor{.tela = "frmVendedor",
                             .sufixo = " - Cadastro de Vendedores ",
                             .rotuloId = "lblRowIdVendedor",
                             .primeiroCampo = "mskDtAdmissao",
                             .tabela = "Vend",
                             .chave = "idVend",
                             .chaveBusca = "idvend",
                             .colunaBusca = "idvend",
                             .gerador = data::Piece("GEN_VEND"),
                             .chaveNova = ChaveNova::Dispensada,
                             .exigePessoa = false,
                             .armadilhaIncluir = true,
                             .armadilhaSalvar = true,
                             .gradeAntiga = GradeAntiga::SemGrade,
                             .dataComando = FormatDateSql};

constexpr PapelTela arquiteto{.tela = "frmArquiteto",
                              .sufixo = " - Cadastro de Arquitetos ",
                              .rotuloId = "lblRowidArquiteto",
                              .primeiroCampo = "mskDtAdmissao",
                              .tabela = "arqt",
                              .chave = "idArqt",
                              .chaveBusca = "arqt.idArqt",
                              .colunaBusca = "idArqt",
                              .chaveNova = ChaveNova::Perguntada,
                              .colunaPess = data::Piece("idARQT"),
                              .contatos = TabelaContatos{"arqt_cont", "idArqt", std::nullopt},
                              .conferePessoaAtiva = false,
                              .armadilhaIncluir = true,
                              .atualizaPessoas = false,
                              .gradeAntiga = GradeAntiga::NosContatos,
                              .dataComando = FormatDateSqlSlashes};

constexpr PapelTela decorador{.tela = "frmDecorador",
                              .sufixo = " - Cadastro de Decoradores ",
                              .rotuloId = "lblRowIdDecorador",
                              .primeiroCampo = "mskDtAdmissao",
                              .tabela = "deco",
                              .chave = "iddeco",
                              .chaveBusca = "deco.iddeco",
                              .colunaBusca = "idDeco",
                              .chaveNova = ChaveNova::Perguntada,
                              .colunaPess = data::Piece("idDECO"),
                              .contatos = TabelaContatos{"deco_cont", "iddeco", std::nullopt},
                              .conferePessoaAtiva = false,
                              .armadilhaIncluir = true,
                              .atualizaPessoas = false,
                              .gradeAntiga = GradeAntiga::NosContatos,
                              .dataComando = FormatDateSqlSlashes};

} // namespace

const PapelTela& PapelCliente() {
    return cliente;
}
const PapelTela& PapelFornecedor() {
    return fornecedor;
}
const PapelTela& PapelTransportadora() {
    return transportadora;
}
const PapelTela& PapelMotorista() {
    return motorista;
}
const PapelTela& PapelVendedor() {
    return vendedor;
}
const PapelTela& PapelArquiteto() {
    return arquiteto;
}
const PapelTela& PapelDecorador() {
    return decorador;
}

} // namespace vorta
