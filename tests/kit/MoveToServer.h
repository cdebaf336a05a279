#pragma once

#include "kit/Installed.h"
#include "servers/FirebirdServer.h"

namespace vorta::test {

/// The road of docs/servidor.md: production is backed up here, the line of "server.ini" changes, the copy is restored
/// there, and the local file goes, so that whatever is read afterwards comes from the server. Gives the connection
/// string.
QString MoveToServer(const Installed& installed, const servers::FirebirdServer& server);

} // namespace vorta::test
