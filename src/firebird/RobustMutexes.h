#pragma once

/// A program that is killed inside the engine leaves the engine's shared mutexes held, and whoever works on the same
/// base then waits for ever. The system can hand such a mutex on to the next who wants it, but the engine asks for that
/// only where it was built with an interface that the C library has given up. So the programs ask for it: they stand in
/// front of the C library for the few calls that matter. What the dead one left half done in the tables behind the
/// mutex, the engine itself repairs, as it does wherever it was built that way.
namespace vorta::firebird {

/// Whether the engine's calls go through ours in this program. (They do in every program that links this layer; where
/// the system offers nothing of the kind, they do not.)
bool SharedMutexesAreRobust();

} // namespace vorta::firebird
