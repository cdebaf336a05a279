#pragma once

/// Servers of this machine for itself.
namespace vorta::system {

/// A port that the system has just handed out and taken back; 0 when there is none.
int FreePort();
/// True when somebody takes calls on that port of the loopback address.
bool AnswersOnPort(int port);

} // namespace vorta::system
