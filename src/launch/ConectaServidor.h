#pragma once

#include "launch/ContextoExecucao.h"

/// From the configuration files to open connections.
namespace vorta {

/// Reads "server_aplic.ini" (the application's folder), finds "server.ini", takes the line of `Ambiente` apart, opens
/// `ConexaoPrincipal` by its engine tag and reads "paths.ini". An empty line and a server that does not answer end the
/// process with their boxes; every other failure returns silently without a connection.
void ConectaServidor(ContextoExecucao& contexto);
/// The postal-code counterpart on "server_cep.ini": opens `ConexaoCEP`, and overwrites the connection fields of the
/// context for good.
void ConectaServidorCEP(ContextoExecucao& contexto);
/// Closes and releases `ConexaoCEP`; no error leaves it.
void FechaServidorCEP(ContextoExecucao& contexto);

/// Fills `RaizAplicacao` and `PastaAplicacao`; a missing file ends the process with its box.
void LeServerAplic(ContextoExecucao& contexto);
/// Fills the folders and file conventions from the twelve fields of "paths.ini", and `CaminhoDanfe` from the company.
void LePaths(ContextoExecucao& contexto);

} // namespace vorta
