#pragma once

#include "launch/ContextoExecucao.h"

/// Reads of the postal-code database. Each opens and closes its own recordset on `ConexaoCEP` and raises 91 when that
/// connection has not been made.
namespace vorta {

/// The streets of a postal code (`tipo` "CEP") or with a part of a name (any other `tipo`), in the order of the
/// database: one text of "^"-separated fields, first the number of rows, then for each row code, abbreviated type,
/// name, district, town and state. Empty without a row.
QString RetornaLogradouros(ContextoExecucao& contexto, const QString& tipo, const QString& valor);
/// The abbreviation of a street type, empty when there is none.
QString RetornaTipoLogradouro(ContextoExecucao& contexto, const QString& chave);
/// The name of a district of a town, empty when there is none.
QString RetornaBairro(ContextoExecucao& contexto, const QString& chaveBairro, const QString& chaveLocalidade);
/// The name of a town, empty when there is none.
QString RetornaLocalidade(ContextoExecucao& contexto, const QString& chave);

} // namespace vorta
