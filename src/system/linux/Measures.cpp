#include "system/Measures.h"

#include <dlfcn.h>
#include <malloc.h>
#include <pthread.h>

namespace vorta::system {

namespace {

using Call = int (*)(pthread_mutex_t*);

void lockBy(Call lock, int times) {
    pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    for (int i = 0; i < times; ++i) {
        lock(&mutex);
        pthread_mutex_unlock(&mutex);
    }
}

} // namespace

double AllocatedBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

void LockPlainMutex(int times) {
    static const auto inherited = reinterpret_cast<Call>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    lockBy(inherited, times);
}

void LockMutexOfProgram(int times) {
    lockBy(pthread_mutex_lock, times);
}

} // namespace vorta::system
