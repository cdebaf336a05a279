#include "base/Crash.h"

#include "base/EngineWatch.h"
#include "system/Crashes.h"

#include <atomic>
#include <cstdlib>

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

namespace {

std::atomic<AfterCrash> after{nullptr};

CrashKind kindOf(const system::CrashCause& cause) {
    if (!EngineCall::IsUnderWay())
        return CrashKind::Program;
    return cause.memoryGone ? CrashKind::EngineMemory : CrashKind::Engine;
}

void tellCrash(const system::CrashCause& cause) {
    const CrashKind kind = kindOf(cause);
    for (const char* words : {CrashWords(kind), " (", cause.words, ")\n"})
        system::WriteInCrash(words);
    if (const AfterCrash then = after.load())
        then(kind);
    system::EndInCrash(EXIT_FAILURE);
}

} // namespace

void TellCrashes(AfterCrash then) {
    after = then;
    system::OnCrash(tellCrash);
}

} // namespace vorta
