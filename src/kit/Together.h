#pragma once

#include "kit/Progress.h"

#include <atomic>
#include <exception>
#include <future>
#include <mutex>

namespace vorta::kit {

/// One work in two parts, each on a thread of its own. When one fails, the other stops where it tells of itself next,
/// and that failure is the failure of the whole.
class Together {
  public:
    void run(const std::function<void()>& here, const std::function<void()>& aside) {
        const std::future<void> other = std::async(std::launch::async, [&] { guarded(aside); });
        guarded(here);
        other.wait();
        if (failure_)
            std::rethrow_exception(failure_);
    }

    /// What a part tells of itself: to `progress`, or to nobody.
    Progress told(const Progress& progress = {}) {
        return [this, progress](const QString& what, qint64 done, qint64 all) {
            if (failed_)
                throw Stopped();
            if (progress)
                progress(what, done, all);
        };
    }

  private:
    class Stopped : public std::exception {};

    void guarded(const std::function<void()>& part) {
        try {
            part();
        } catch (const Stopped&) { // it has nothing to say
        } catch (...) {
            const std::lock_guard held(mutex_);
            if (!failed_.exchange(true))
                failure_ = std::current_exception();
        }
    }

    std::mutex mutex_;
    std::atomic<bool> failed_ = false;
    std::exception_ptr failure_;
};

} // namespace vorta::kit
