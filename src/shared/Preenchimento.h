#pragma once

#include "launch/ContextoExecucao.h"

/// List fillers: the list is emptied (its text too), then one item is added for each row, in the order of the
/// statement.
namespace vorta {

void PreencheTipoCliente(ContextoExecucao& contexto, screen::Screen& tela); ///< into its `cboTipoCli`
void PreencheCargos(ContextoExecucao& contexto, const QString& prefixo, screen::ListField& lista);
void PreencheAtividades(ContextoExecucao& contexto, const QString& prefixo, screen::ListField& lista);
void PreencheVendedores(ContextoExecucao& contexto, const QString& prefixo, screen::ListField& lista);
void PreencheTransportadoras(ContextoExecucao& contexto, const QString& prefixo, screen::ListField& lista);
void PreencheTipoProduto(ContextoExecucao& contexto, screen::ListField& lista);
void PreencheRegimeEspecial(ContextoExecucao& contexto, screen::ListField& lista);
void PreenchePaises(ContextoExecucao& contexto, const QString& texto, screen::ListField& lista);
void PreencheMunicipios(ContextoExecucao& contexto, const QString& uf, const QString& texto, screen::ListField& lista);
void PreencheCargosContem(ContextoExecucao& contexto, const QString& texto, screen::ListField& lista);
void PreencheColecoes(ContextoExecucao& contexto, const QString& texto, screen::ListField& lista);
/// A blank item of two blanks, then the states.
void PreencheUFs(ContextoExecucao& contexto, screen::ListField& lista);
/// The ten fixed tables "Tabela A" to "Tabela J" into `cboTabelaPrecos`.
void PreencheTabelasPreco(screen::Screen& tela);
/// Banks for "BOLETO", "CHEQUE", "TRANSFERENCIA", "TED" and "DOC" (by code when `texto` starts with a digit), cards for
/// "CARTAO", nothing otherwise.
void PreencheBancosOuCartoes(ContextoExecucao& contexto, const QString& texto, const QString& formaPagamento,
                             screen::ListField& lista);
/// Active customers in fixed-width columns divided by "|": name 50, document 20, person id 10, customer id 10.
void PreencheListaClientes(ContextoExecucao& contexto, const QString& texto, screen::ListField& lista);
/// Active products likewise: description 70, code 15, id 10.
void PreencheListaProdutos(ContextoExecucao& contexto, const QString& texto, screen::ListField& lista);

} // namespace vorta
