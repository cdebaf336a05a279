#include "system/Endings.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace vorta::system {

namespace {

/// A signal handler may do next to nothing: it writes a byte here, and the event loop reads it at the other end.
int sockets[2] = {-1, -1};
std::atomic<void (*)()> first{nullptr};

void requested(int) {
    if (const auto work = first.load())
        work();
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(sockets[0], &byte, 1);
}

constexpr std::array noted{SIGINT, SIGTERM};
volatile std::sig_atomic_t wanted = 0;

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

void OnEnding(QObject* owner, std::function<void()> onRequest, void (*atOnce)()) {
    first = atOnce;
    if (sockets[0] < 0 && socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0)
        return;
    auto* notifier = new QSocketNotifier(sockets[1], QSocketNotifier::Read, owner);
    QObject::connect(notifier, &QSocketNotifier::activated, owner, [onRequest = std::move(onRequest)] {
        char byte = 0;
        if (read(sockets[1], &byte, 1) == 1)
            onRequest();
    });
}

void ListenForEndings() {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        handle(signal, requested);
}

void NoteEndings() {
    for (const int signal : noted)
        handle(signal, [](int number) { wanted = number; });
}

bool EndingWanted() {
    return wanted != 0;
}

void EndOnWish() {
    for (const int signal : noted)
        std::signal(signal, SIG_DFL);
}

} // namespace vorta::system
