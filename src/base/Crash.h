#pragma once

/// A crash of the process is told before it ends. The engine runs inside the programs, and neither a base with pages of
/// rubbish nor a full disk under its shared memory is an error that it can give back.
namespace vorta {

/// What has crashed, as far as it is known.
enum class CrashKind { Program, Engine, EngineMemory };

/// What is done behind the words, as a signal handler may. It may replace the process, or come back.
using AfterCrash = void (*)(CrashKind kind);

/// From now on a crash tells the journal what happened, in the program's words, and ends the process with exit code 1.
/// Changes nothing where somebody else, as a sanitizer, already looks after crashes.
void TellCrashes(AfterCrash then = nullptr);

/// What the user is told: one line.
const char* CrashWords(CrashKind kind);

} // namespace vorta
