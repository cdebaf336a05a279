#pragma once

#include "launch/ContextoExecucao.h"

/// What all statements of the register share: how they are sent, new keys, company switches and colour schemes.
/// A failing statement raises -2147217900 (or -2147467259 when the connection is lost) and is not caught here.
namespace vorta {

/// Opens a read statement in capitals on the main connection.
data::Recordset AbreLeitura(ContextoExecucao& contexto, const data::Statement& comando);
/// The same, of which these columns alone are read: no other one is fetched, and asking for it raises 3265. For reads
/// that bring many rows of a wide table.
data::Recordset AbreLeitura(ContextoExecucao& contexto, const data::Statement& comando,
                            std::vector<data::Piece> colunas);
/// The same, and the coming of the rows is shown as progress, also while there is none yet; its end is the caller's,
/// but for a read without a row. None for all columns.
data::Recordset AbreLeituraLonga(ContextoExecucao& contexto, const data::Statement& comando,
                                 std::vector<data::Piece> colunas = {});
/// Opens a read statement in capitals that is one step of so many, and shows that number of steps as progress while the
/// engine is at work; the end is the caller's.
data::Recordset AbrePassoLongo(ContextoExecucao& contexto, const data::Statement& comando, qint64 passo, qint64 passos);
/// Opens a read statement as it is written.
data::Recordset AbreLeituraComoEscrita(ContextoExecucao& contexto, const data::Statement& comando);
/// Executes a write statement in capitals on the main connection; accents stay.
void Executa(ContextoExecucao& contexto, const data::Statement& comando);

/// Whether a company switch of the register's own, one that no other program of the ERP knows, is on ("S"). Its reading
/// is no step of a flow: it stays out of the trace, and a switch that cannot be read is off.
bool InterruptorLigado(ContextoExecucao& contexto, const QString& nome);
/// The value of a company switch of `empr_cnfg`, asked anew each time; empty when it is absent or null.
QString LeParametroEmpresa(ContextoExecucao& contexto, const QString& nome);

/// The next value of a Firebird generator; 0 when there is no such generator.
qint32 ProximoGenerator(ContextoExecucao& contexto, data::Piece nome);
/// The key of the last insert of the main connection, 0 without one. Runs right after the insert.
qint32 UltimoIdentity(ContextoExecucao& contexto);

/// Fills the four colours of the context from the scheme of that name in `cor_sist`; the system colours when there is
/// none.
void LeCoresSistema(ContextoExecucao& contexto, const QString& esquema);
/// Paints a screen with the first pair: background of the screen; labels both colours; buttons, text fields, check
/// boxes and options the background only.
void AplicaCoresForm(ContextoExecucao& contexto, screen::Screen& tela);

/// Closes the main connection and, for "SAIR", ends the process.
void FechaServidor(ContextoExecucao& contexto, const QString& modo);

} // namespace vorta
