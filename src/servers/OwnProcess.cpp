#include "servers/OwnProcess.h"

#include <QProcess>
#include <csignal>
#include <sys/prctl.h>

namespace vorta::servers {

void EndWithStarter(QProcess& process) {
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

} // namespace vorta::servers
