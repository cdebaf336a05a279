#include "base/Crash.h"

#include "base/EngineWatch.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <cstdlib>

#ifdef Q_OS_LINUX
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace vorta {

const char* CrashWords(CrashKind kind) {
    switch (kind) {
    case CrashKind::Engine:
        return "O motor do banco de dados falhou e o programa terminou; o que ainda não foi gravado se perdeu, o que "
               "já "
               "foi gravado fica. Uma base pode estar danificada: pessoas-base check diz qual, e pessoas-base restore "
               "a "
               "refaz da última cópia.";
    case CrashKind::EngineMemory:
        return "O motor do banco de dados ficou sem a sua memória e o programa terminou: o disco da pasta de travas "
               "está "
               "cheio ou falhou. O que ainda não foi gravado se perdeu, o que já foi gravado fica.";
    case CrashKind::Program:
        break;
    }
    return "O programa falhou e terminou; o que ainda não foi gravado se perdeu, o que já foi gravado fica.";
}

#ifdef Q_OS_LINUX

namespace {

constexpr std::array signals{SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT};

std::atomic<AfterCrash> after{nullptr};
std::atomic_flag told = ATOMIC_FLAG_INIT;

CrashKind kindOf(int number) {
    if (!EngineCall::IsUnderWay())
        return CrashKind::Program;
    return number == SIGBUS ? CrashKind::EngineMemory : CrashKind::Engine;
}

// The system is called by its numbers: what has crashed may have written over its thread's own data, which the C
// library's functions look into on their way.
void write(const char* words) {
    std::size_t length = 0;
    while (words[length] != '\0')
        ++length;
    ::syscall(SYS_write, STDERR_FILENO, words, length);
}

extern "C" void tellCrash(int number) {
    // Another thread that falls while this one tells it, waits for the end.
    if (told.test_and_set())
        while (true)
            ::syscall(SYS_sched_yield);
    const CrashKind kind = kindOf(number);
    write(CrashWords(kind));
    const char digits[] = {' ',
                           '(',
                           's',
                           'i',
                           'n',
                           'a',
                           'l',
                           ' ',
                           static_cast<char>('0' + number / 10),
                           static_cast<char>('0' + number % 10),
                           ')',
                           '\n',
                           '\0'};
    write(digits);
    if (const AfterCrash then = after.load())
        then(kind);
    ::syscall(SYS_exit_group, EXIT_FAILURE);
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

void TellCrashes(AfterCrash then) {
    after = then;
    giveOwnStack();
    for (const int number : signals) {
        struct sigaction before {};
        ::sigaction(number, nullptr, &before);
        if (before.sa_handler != SIG_DFL)
            continue;
        struct sigaction action {};
        action.sa_handler = tellCrash;
        action.sa_flags = SA_ONSTACK;
        ::sigaction(number, &action, nullptr);
    }
}

#else

void TellCrashes(AfterCrash) {}

#endif

} // namespace vorta
