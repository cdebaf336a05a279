#include "system/Crashes.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <sys/syscall.h>
#include <unistd.h>

namespace vorta::system {

namespace {

constexpr std::array signals{SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT};

std::atomic<void (*)(const CrashCause&)> told{nullptr};
std::atomic_flag telling = ATOMIC_FLAG_INIT;

char digit(int number) {
    return static_cast<char>('0' + number);
}

extern "C" void crashed(int number) {
    // Another thread that falls while this one tells it, waits for the end.
    if (telling.test_and_set())
        while (true)
            ::syscall(SYS_sched_yield);
    const char words[] = {'s', 'i', 'n', 'a', 'l', ' ', digit(number / 10), digit(number % 10), '\0'};
    if (const auto handler = told.load())
        handler({words, number == SIGBUS});
}

/// A stack that has run over leaves no room for the handler on itself. Holds for the thread that asks for it.
void giveOwnStack() {
    alignas(std::max_align_t) static std::array<char, std::size_t{1} << 16> stack;
    stack_t own{};
    own.ss_sp = stack.data();
    own.ss_size = stack.size();
    ::sigaltstack(&own, nullptr);
}

} // namespace

void OnCrash(void (*handler)(const CrashCause&)) {
    told = handler;
    giveOwnStack();
    for (const int number : signals) {
        struct sigaction before {};
        ::sigaction(number, nullptr, &before);
        if (before.sa_handler != SIG_DFL)
            continue;
        struct sigaction action {};
        action.sa_handler = crashed;
        action.sa_flags = SA_ONSTACK;
        ::sigaction(number, &action, nullptr);
    }
}

// The system is called by its numbers: what has crashed may have written over its thread's own data, which the C
// library's functions look into on their way.
void WriteInCrash(const char* words) {
    std::size_t length = 0;
    while (words[length] != '\0')
        ++length;
    ::syscall(SYS_write, STDERR_FILENO, words, length);
}

void EndInCrash(int status) {
    while (true)
        ::syscall(SYS_exit_group, status);
}

void BeginAnewInCrash(const char* first, const char* second) {
    char program[] = "/proc/self/exe";
    char* const arguments[]{program, const_cast<char*>(first), const_cast<char*>(second), nullptr};
    constexpr unsigned firstOfOurs = STDERR_FILENO + 1;
    ::syscall(SYS_close_range, firstOfOurs, ~0U, 0);
    sigset_t none;
    ::sigemptyset(&none);
    ::syscall(SYS_rt_sigprocmask, SIG_SETMASK, &none, nullptr, sizeof(unsigned long));
    ::syscall(SYS_execve, program, arguments, environ);
}

} // namespace vorta::system
