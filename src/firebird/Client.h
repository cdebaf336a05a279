#pragma once

#include "base/RuntimeError.h"

#include <firebird/Interface.h>

#include <cerrno>
#include <memory>

/// What every user of the Firebird client interface needs: the library's entry points, handles that let go by
/// themselves, and engine failures told as `RuntimeError`.
namespace vorta::firebird {

/// Gives an interface back to the engine's counting.
struct Release {
    template <typename Interface>
    void operator()(Interface* counted) const {
        counted->release();
    }
};
struct Dispose {
    template <typename Interface>
    void operator()(Interface* owned) const {
        owned->dispose();
    }
};
template <typename Interface>
using Handle = std::unique_ptr<Interface, Release>;
template <typename Interface>
using Owned = std::unique_ptr<Interface, Dispose>;

/// Ends what an interface stands for (`detach`, `commit`, `close`, `free`): done, the engine has let go of it as well;
/// failed, it is still ours.
template <typename Interface, typename LettingGo, typename Ending>
void EndWith(std::unique_ptr<Interface, LettingGo>& handle, Ending ending) {
    ending(handle.get());
    (void)handle.release();
    handle = {};
}

/// The client library, once the embedded engine's root is prepared (the library reads its configuration on its first
/// use).
Firebird::IMaster& Master();

/// A status that throws `Firebird::FbException`; made anew per group of calls. The engine repeats some file operations
/// for as long as `errno` tells of an interruption, its own or not: one left over from a signal would keep it busy for
/// ever when a connection closes.
class Status {
  public:
    Status() : status_(Master().getStatus()), wrapper_(status_.get()) { errno = 0; }
    Firebird::ThrowStatusWrapper* operator&() { return &wrapper_; }

  private:
    Owned<Firebird::IStatus> status_;
    Firebird::ThrowStatusWrapper wrapper_;
};

/// The engine's failure in the register's terms: -2147217873 for a constraint, -2147467259 for a connection that is
/// lost, -2147217900 for any other, with the engine's code and SQLSTATE; in its own words, but for what has words of
/// ours (see EngineReasons.h).
RuntimeError ToRuntimeError(const Firebird::FbException& failure, const QString& statement);
/// The same for a connection that could not be opened, whatever its reason: always -2147467259, the reason in the
/// program's words, without the engine's code for what `OpenFailureWords` knows. The engine's own words go to the
/// journal.
RuntimeError ToOpenError(const Firebird::FbException& failure);

/// Does `work`, its engine failures told as `RuntimeError` of that statement.
template <typename Work>
auto Translated(const QString& statement, Work work) {
    try {
        return work();
    } catch (const Firebird::FbException& failure) {
        throw ToRuntimeError(failure, statement);
    }
}

} // namespace vorta::firebird
