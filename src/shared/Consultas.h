#pragma once

#include "launch/ContextoExecucao.h"

/// Lookups by one statement each: a description or code gives an id, an id gives a description. Each reads the database
/// anew and gives its "nothing found" value without a message: 0 for ids unless told otherwise, empty text for
/// descriptions. Lookups by id find deactivated rows too. A failing statement is not caught.
namespace vorta {

// From a description or code to an id; 0 when nothing is found.
qint32 IdColecao(ContextoExecucao& contexto, const QString& descricao);
qint32 IdProdutoPorCodigo(ContextoExecucao& contexto, const QString& codigo);
qint32 IdBanco(ContextoExecucao& contexto, const QString& nome);
qint32 IdTipoCliente(ContextoExecucao& contexto, const QString& descricao);
qint32 IdTipoProduto(ContextoExecucao& contexto, const QString& descricao);
qint32 IdTransportadora(ContextoExecucao& contexto, const QString& nomeConhecido);
qint32 IdFornecedor(ContextoExecucao& contexto, const QString& nome); ///< by the full name, unlike its sisters
qint32 IdVendedor(ContextoExecucao& contexto, const QString& nomeConhecido);
qint32 RetornaIdPessoaPorNome(ContextoExecucao& contexto, const QString& nome);
qint32 RetornaIdPessoaPorFantasia(ContextoExecucao& contexto, const QString& nome);
qint32 IdPessoaPorCodigoExterno(ContextoExecucao& contexto, const QString& codigo);
qint32 IdAtividade(ContextoExecucao& contexto, const QString& descricao);
/// As text: the id, or empty text when nothing is found.
QString IdRegimeEspecial(ContextoExecucao& contexto, const QString& descricao);

// From an id to a description or value.
QString DescricaoAtividade(ContextoExecucao& contexto, qint16 id);
QString NomeBanco(ContextoExecucao& contexto, const QString& id);  ///< "0" when nothing is found
QString NumeroNota(ContextoExecucao& contexto, const QString& id); ///< "0" when nothing is found
QString NomePessoa(ContextoExecucao& contexto, const QString& id);
QString DescricaoTipoCliente(ContextoExecucao& contexto, const QString& id);
QString ConhecidoTransportadora(ContextoExecucao& contexto, const QString& id);
QString ConhecidoVendedor(ContextoExecucao& contexto, const QString& id);
QString DescricaoRegimeEspecial(ContextoExecucao& contexto, const QString& id);
qint32 MarcaProduto(ContextoExecucao& contexto, const QString& id);
QString CodigoExternoPessoa(ContextoExecucao& contexto, const QString& id);
/// State of the first active company; empty when there is none.
QString LeUfEmpresa(ContextoExecucao& contexto);
QString TabelaPrecoCliente(ContextoExecucao& contexto, const QString& idclie); ///< "0" when nothing is found
QString VendedorCliente(ContextoExecucao& contexto, const QString& idclie);    ///< "0" when nothing is found

/// Document of a person by id when one is given, otherwise by name.
QString RetornaDocumentoPessoa(ContextoExecucao& contexto, const QString& id, const QString& nome);
/// Municipal code of a town. "SAO PAULO" becomes "São Paulo" in the caller's variable first, since the table writes it
/// with its accent.
QString CodigoMunicipio(ContextoExecucao& contexto, QString& cidade, const QString& uf);
/// Whether a customer row with that id exists.
bool ClienteExiste(ContextoExecucao& contexto, const QString& id);
/// Whether the company uses the postal-code search.
bool CepAtivo(ContextoExecucao& contexto);
/// Path of a product's picture kept in the product's row; `tipo` "LocalThumb", "LocalNatural", "WEBThumb" or
/// "WEBNatural".
QString RetornaCaminhoImagem(ContextoExecucao& contexto, const QString& id, const QString& tipo);
/// The picture of a file that a product's code names: only one below its folder, whatever the code says.
bool ExisteImagemDoCodigo(const ContextoExecucao& contexto, const QString& pasta, const QString& arquivo);
/// A file that a row of the database calls a picture, when it is there and is one by its name.
bool ExisteImagemGuardada(const ContextoExecucao& contexto, const QString& arquivo);
/// A picture that may be handed to the desktop, which opens files of any kind: one of the two configured folders.
bool AbreNaAreaDeTrabalho(const ContextoExecucao& contexto, const QString& arquivo);
/// Path of the picture to show for a product code, also left in `ImagemProduto`: the file by its code, the path of its
/// row, or the picture for a missing photo.
QString LocalizaImagemProduto(ContextoExecucao& contexto, const QString& codigo);
/// Eighteen fields of a customer and its person, divided by "^"; only separators without a row.
QString DadosCliente(ContextoExecucao& contexto, const QString& idclie);

} // namespace vorta
