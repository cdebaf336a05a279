#include "system/Endings.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <csignal>
#include <cstring>
#include <span>
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
std::atomic<const char*> answer{nullptr};

void note(int signal) {
    wanted = signal;
    if (const char* const words = answer.load()) [[maybe_unused]]
        const ssize_t written = write(STDERR_FILENO, words, std::strlen(words));
}

/// Who hears of the wishes now, if anybody does.
std::atomic<void (*)(int)> hearing{nullptr};

void hear(void (*handler)(int), std::span<const int> signals) {
    hearing = handler;
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : signals)
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
    hear(requested, std::array{SIGTERM, SIGINT, SIGHUP});
}

void NoteEndings(const char* words) {
    answer = words;
    hear(note, noted);
}

bool EndingWanted() {
    return wanted != 0;
}

void EndOnWish() {
    hearing = nullptr;
    for (const int signal : noted)
        std::signal(signal, SIG_DFL);
}

struct HeldEndings::Before {
    sigset_t mask;
    std::array<struct sigaction, noted.size()> actions;
};

HeldEndings::HeldEndings(bool wait) : before_(std::make_unique<Before>()) {
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : noted)
        if (wait)
            sigaddset(&held, signal);
    pthread_sigmask(SIG_BLOCK, &held, &before_->mask);
    for (std::size_t i = 0; i < noted.size(); ++i)
        sigaction(noted[i], nullptr, &before_->actions[i]);
}

HeldEndings::~HeldEndings() {
    if (const auto handler = hearing.load())
        hear(handler, noted);
    else
        for (std::size_t i = 0; i < noted.size(); ++i)
            sigaction(noted[i], &before_->actions[i], nullptr);
    pthread_sigmask(SIG_SETMASK, &before_->mask, nullptr);
}

} // namespace vorta::system
