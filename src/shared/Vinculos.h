#pragma once

#include "launch/ContextoExecucao.h"

#include <span>

/// The links between a person and its seven roles.
namespace vorta {

enum class TipoPapel { Cliente, Transportadora, Vendedor, Motorista, Fornecedor, Decorador, Arquiteto };

/// What the links of a role share: its button on the person screen, and the statement that finds its row.
struct PapelVinculo {
    TipoPapel papel;
    const char* botao;
    data::Piece consulta; ///< "select id... from ... "
    const char* coluna;   ///< key column of the role's table
};

/// The seven roles in the order in which the indicators are asked.
std::span<const PapelVinculo> Papeis();
const PapelVinculo& Papel(TipoPapel papel);

/// The id of the person's role row as text, "0" when there is none. Deactivated rows count only while `VinculoAtual` is
/// "S".
QString Vinculo(ContextoExecucao& contexto, TipoPapel papel, const QString& idpess);
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

/// The name of the one person with that document inside a role ("CLIENTE", "FORNECEDOR", ...; empty for the whole
/// register); empty text when there is none or more than one. `RetornoPesquisa` tells the outcome. A bare document is
/// masked by its length; eight digits are the root of a company's number.
QString RetornaPessoaPorDocumento(ContextoExecucao& contexto, QString& documento, const QString& papel);

/// Writes a role's id into its back-reference column of `PESS` (`idCLIE`, `idFORN`, ...).
void GravaVinculoPess(ContextoExecucao& contexto, const QString& idpess, data::Piece coluna, const QString& valor);
/// Sets the back-reference to 0.
void LimpaVinculoPess(ContextoExecucao& contexto, const QString& idpess, data::Piece coluna);

} // namespace vorta
