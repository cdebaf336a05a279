#include "desktop/Termination.h"

#include "base/EngineWatch.h"

#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace vorta::desktop {

#ifdef Q_OS_UNIX

namespace {

/// A signal handler may do next to nothing: it writes a byte here, and the event loop reads it at the other end. Should
/// the loop stand inside a call to the database, the watch over that hears of it.
int sockets[2] = {-1, -1};

void requested(int) {
    EngineWatch::WantEnd();
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(sockets[0], &byte, 1);
}

} // namespace

Termination::Termination(std::function<void()> onRequest) {
    if (sockets[0] < 0 && socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0)
        return;
    auto* notifier = new QSocketNotifier(sockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [onRequest = std::move(onRequest)] {
        char byte = 0;
        if (read(sockets[1], &byte, 1) == 1)
            onRequest();
    });
}

void Termination::listen() {
    struct sigaction action {};
    action.sa_handler = requested;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaction(signal, &action, nullptr);
}

#else

Termination::Termination(std::function<void()>) {}
void Termination::listen() {}

#endif

} // namespace vorta::desktop
