#pragma once

/// The moment in which this process has crashed. What runs there may do next to nothing.
namespace vorta::system {

struct CrashCause {
    const char* words;       ///< its kind and number, as the system counts them
    bool memoryGone = false; ///< memory that stands for a file could not be had: its disk is full or has failed
};

/// From now on a crash calls the handler, once, in the thread that has crashed; others that crash meanwhile wait for
/// the end. Where somebody else, as a sanitizer, already looks after crashes, nothing changes.
void OnCrash(void (*handler)(const CrashCause&));

/// For the handler: writes to the standard error without anything that the crash may have destroyed.
void WriteInCrash(const char* words);
/// For the handler: ends the process.
[[noreturn]] void EndInCrash(int status);
/// For the handler: the program begins anew with two arguments and everything of this process gone. Comes back where
/// that cannot be.
void BeginAnewInCrash(const char* first, const char* second);

} // namespace vorta::system
