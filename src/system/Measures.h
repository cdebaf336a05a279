#pragma once

/// What the program that measures asks the system.
namespace vorta::system {

/// What this program has of the heap, in bytes.
double AllocatedBytes();

/// Locks a mutex of its own and lets it go, so often: by the C library's own call, and by the one that this program has
/// in its place.
void LockPlainMutex(int times);
void LockMutexOfProgram(int times);

} // namespace vorta::system
