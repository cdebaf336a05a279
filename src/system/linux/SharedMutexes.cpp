#include "system/SharedMutexes.h"

#include <atomic>
#include <cerrno>
#include <dlfcn.h>
#include <pthread.h>

namespace {

/// The mutex is ours now; its owner died with it.
int inherited(pthread_mutex_t* mutex, int result) {
    return result == EOWNERDEAD ? pthread_mutex_consistent(mutex) : result;
}

/// The C library's own function behind one of ours. No guarded static: making one may wait itself.
template <typename Function>
class Next {
  public:
    constexpr explicit Next(const char* name) : name_(name) {}
    template <typename... Arguments>
    int operator()(Arguments... arguments) {
        Function function = known_.load(std::memory_order_relaxed);
        if (!function) {
            function = reinterpret_cast<Function>(dlsym(RTLD_NEXT, name_));
            known_.store(function, std::memory_order_relaxed);
        }
        return function(arguments...);
    }

  private:
    const char* name_;
    std::atomic<Function> known_{nullptr};
};

constinit Next<int (*)(pthread_mutex_t*, const pthread_mutexattr_t*)> nextInit("pthread_mutex_init");
constinit Next<int (*)(pthread_mutex_t*)> nextLock("pthread_mutex_lock");
constinit Next<int (*)(pthread_mutex_t*)> nextTryLock("pthread_mutex_trylock");
constinit Next<int (*)(pthread_cond_t*, pthread_mutex_t*)> nextWait("pthread_cond_wait");
constinit Next<int (*)(pthread_cond_t*, pthread_mutex_t*, const timespec*)> nextTimedWait("pthread_cond_timedwait");

} // namespace

extern "C" {

/// A mutex that processes share outlives its owner.
int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attributes) noexcept {
    int shared = PTHREAD_PROCESS_PRIVATE;
    if (!attributes || pthread_mutexattr_getpshared(attributes, &shared) != 0 || shared != PTHREAD_PROCESS_SHARED)
        return nextInit(mutex, attributes);
    pthread_mutexattr_t robust = *attributes;
    pthread_mutexattr_setrobust(&robust, PTHREAD_MUTEX_ROBUST);
    return nextInit(mutex, &robust);
}

int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
    return inherited(mutex, nextLock(mutex));
}

int pthread_mutex_trylock(pthread_mutex_t* mutex) noexcept {
    return inherited(mutex, nextTryLock(mutex));
}

// Waiting gives the mutex up and takes it again.
int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
    return inherited(mutex, nextWait(condition, mutex));
}

int pthread_cond_timedwait(pthread_cond_t* condition, pthread_mutex_t* mutex, const timespec* until) {
    return inherited(mutex, nextTimedWait(condition, mutex, until));
}

} // extern "C"

namespace vorta::system {

bool SharedMutexesAreRobust() {
    // What another library finds under the name is what the engine finds.
    return dlsym(RTLD_DEFAULT, "pthread_mutex_lock") == reinterpret_cast<void*>(&pthread_mutex_lock) &&
           dlsym(RTLD_DEFAULT, "pthread_mutex_init") == reinterpret_cast<void*>(&pthread_mutex_init);
}

} // namespace vorta::system
