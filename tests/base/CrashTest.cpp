#include "base/Crash.h"
#include "base/EngineWatch.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

#if defined(__SANITIZE_ADDRESS__)
// It looks after crashes itself, and is let do so.
#define CRASH_TEST(name) TEST(Crash, DISABLED_##name)
#else
#define CRASH_TEST(name) TEST(Crash, name)
#endif

namespace vorta {

namespace {

/// What a process tells that gets the signal, in a call to the engine or outside one.
void fall(int number, bool inEngine) {
    TellCrashes();
    if (inEngine) {
        const EngineCall call;
        std::raise(number);
    }
    std::raise(number);
}

const testing::ExitedWithCode ended(EXIT_FAILURE);

} // namespace

CRASH_TEST(IsToldAsTheProgramsOwn) {
    EXPECT_EXIT(fall(SIGSEGV, false), ended, "O programa falhou e terminou.*\\(sinal 11\\)");
}

CRASH_TEST(IsToldAsTheEnginesWhileACallIsUnderWay) {
    EXPECT_EXIT(fall(SIGSEGV, true), ended, "O motor do banco de dados falhou.*\\(sinal 11\\)");
    EXPECT_EXIT(fall(SIGABRT, true), ended, "O motor do banco de dados falhou.*\\(sinal 06\\)");
    EXPECT_EXIT(fall(SIGBUS, true), ended, "o disco da pasta de travas.*cheio.*\\(sinal 07\\)");
}

CRASH_TEST(OnAnotherThreadIsToldAsWell) {
    EXPECT_EXIT(
        {
            TellCrashes();
            const EngineCall call;
            std::thread([] { std::abort(); }).join();
        },
        ended, "O motor do banco de dados falhou");
}

CRASH_TEST(WhatIsDoneBehindTheWordsMayEndTheProcessItself) {
    EXPECT_EXIT(
        {
            TellCrashes([](CrashKind kind) { std::_Exit(kind == CrashKind::Program ? 7 : 8); });
            std::abort();
        },
        testing::ExitedWithCode(7), "O programa falhou");
}

} // namespace vorta
