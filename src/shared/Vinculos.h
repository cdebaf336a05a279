#pragma once

#include "launch/ContextoExecucao.h"
#include "shared/Papeis.h"

/// The links between a person and its seven roles.
namespace vorta {

/// The id of the person's role row as text, "0" when there is none. Deactivated rows count only while `VinculoAtual` is
/// "S".
QString Vinculo(ContextoExecucao& contexto, const Papel& papel, const QString& idpess);
QString VinculoCliente(ContextoExecucao& contexto, const QString& idpess);
QString VinculoMotorista(ContextoExecucao& contexto, const QString& idpess);
QString VinculoTransportadora(ContextoExecucao& contexto, const QString& idpess);
QString VinculoVendedor(ContextoExecucao& contexto, const QString& idpess);
QString VinculoFornecedor(ContextoExecucao& contexto, const QString& idpess);
QString VinculoDecorador(ContextoExecucao& contexto, const QString& idpess);
QString VinculoArquiteto(ContextoExecucao& contexto, const QString& idpess);

/// Paints the seven role buttons of a screen with "comvinculo.bmp" or "semvinculo.bmp" for the person in `txtRowID`,
/// and sets `VinculoAtual` to "N". A missing picture raises 53.
void AtualizaIndicadoresVinculo(ContextoExecucao& contexto, screen::Screen& tela);

/// The name of the one person with that document inside a role (the `palavra` of a `Papel`; empty for the whole
/// register); empty text when there is none or more than one. `RetornoPesquisa` tells the outcome. A bare document is
/// masked by its length; eight digits are the root of a company's number.
QString RetornaPessoaPorDocumento(ContextoExecucao& contexto, QString& documento, const QString& papel);

/// Writes a role's id into its back-reference column of `PESS`.
void GravaVinculoPess(ContextoExecucao& contexto, const QString& idpess, data::Piece coluna, const QString& valor);
/// Sets the back-reference to 0.
void LimpaVinculoPess(ContextoExecucao& contexto, const QString& idpess, data::Piece coluna);

} // namespace vorta
