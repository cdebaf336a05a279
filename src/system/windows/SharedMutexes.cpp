#include "system/SharedMutexes.h"

namespace vorta::system {

// The system hands a mutex of a process that has gone on to the next who wants it.
bool SharedMutexesAreRobust() {
    return true;
}

} // namespace vorta::system
