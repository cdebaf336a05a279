#pragma once

class QProcess;

namespace vorta::servers {

/// The process is killed by the system when the program that starts it ends, however it ends: also by a crash.
void EndWithStarter(QProcess& process);

} // namespace vorta::servers
