#pragma once

#include "launch/ContextoExecucao.h"

/// The first third of the start: from the launch string to the title bar.
namespace vorta {

/// "ORBALUX" on a machine that carries the marker file, otherwise "CLIENTE".
QString IdentificaInstalacao(const ContextoExecucao& contexto);

/// Takes the launch string apart, connects, reads company and user, and fills the company labels and the title bar of
/// the start screen `tela` (fields `lblCodiEmpresa`, `lblNomeEmpresa`, `lblCodiAmbiente`, `lblTituloJanela`). An empty
/// launch string ends the process with its box; a user or company outside 16 bits raises 6.
void Lancamento(ContextoExecucao& contexto, screen::Screen& tela);

/// Reads `NomeUsuario` by the user's id; empty without a row. A lost connection ends the process with its box, other
/// errors are ignored.
void LeUsuario(ContextoExecucao& contexto, qint16 id);

// Company lookups by id or code; empty text without a row.
QString LeCodigoEmpresa(ContextoExecucao& contexto, const QString& id); ///< also fills `CodigoEmpresaTexto`
QString LeNomeEmpresa(ContextoExecucao& contexto, const QString& id);
QString LeCaminhoDanfe(ContextoExecucao& contexto, const QString& codigo);

/// Title bar of a role or statistics screen: title, the screen's own suffix, "(/" and the user's name.
QString TituloTela(const ContextoExecucao& contexto, const QString& sufixo);

/// Places a screen in the middle of the display; windows do that by themselves.
void CentralizaForm(screen::Screen& tela);
/// Widens the dropped-down part of a list field, in pixels.
void AjustaLarguraLista(screen::ListField& lista, qint32 largura);

} // namespace vorta
