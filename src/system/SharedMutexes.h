#pragma once

/// A program that is killed inside the engine leaves the engine's shared mutexes held, and whoever works on the same
/// base then waits for ever. The system can hand such a mutex on to the next who wants it, but the engine asks for that
/// only where it was built with an interface that the C library has given up. So the programs ask for it: they stand in
/// front of the C library for the few calls that matter. What the dead one left half done in the tables behind the
/// mutex, the engine itself repairs, as it does wherever it was built that way.
namespace vorta::system {

/// Whether a mutex of the engine that is held by a process which has gone is handed on. (In every program that links
/// `vorta::shared_mutexes`, the engine's calls go through ours; a system that hands them on by itself needs nothing.)
bool SharedMutexesAreRobust();

} // namespace vorta::system
