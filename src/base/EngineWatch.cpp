#include "base/EngineWatch.h"

#include "base/Journal.h"
#include "base/Literals.h"
#include "system/Process.h"

namespace vorta {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

EngineWatch::EngineWatch(Ask ask, End end, Times times) : ask_(std::move(ask)), end_(std::move(end)), times_(times) {
    endWanted_ = false;
    thread_ = std::thread([this] { look(); });
}

EngineWatch::~EngineWatch() {
    {
        const std::lock_guard held(mutex_);
        leaving_ = true;
    }
    leave_.notify_all();
    thread_.join();
}

bool EngineWatch::pause() {
    std::unique_lock held(mutex_);
    return !leave_.wait_for(held, times_.look, [this] { return leaving_; });
}

void EngineWatch::look() {
    quint64 seen = 0;
    Clock::time_point since = Clock::now();
    Clock::time_point askAt = since;
    Clock::time_point wantedAt = Clock::time_point::max();
    while (pause()) {
        const Clock::time_point now = Clock::now();
        const quint64 steps = EngineCall::steps_.load(std::memory_order_relaxed);
        const bool silent = steps % 2 == 1 && steps == seen;
        if (!silent) {
            seen = steps;
            since = now;
            askAt = now + times_.silence;
            wantedAt = Clock::time_point::max();
            continue;
        }
        if (endWanted_.load(std::memory_order_relaxed))
            wantedAt = std::min(wantedAt, now);
        const auto over = [&] { return EngineCall::steps_.load(std::memory_order_relaxed) != seen; };
        if (wantedAt != Clock::time_point::max() && now - wantedAt >= times_.end && !over())
            return end_();
        if (now < askAt)
            continue;
        const auto leaving = [&] {
            const std::lock_guard held(mutex_);
            return leaving_ || endWanted_.load(std::memory_order_relaxed);
        };
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now - since);
        const WaitAnswer answer = ask_(static_cast<int>(seconds.count()), [&] { return over() || leaving(); });
        if (answer == WaitAnswer::End && !over())
            return end_();
        askAt = Clock::now() + times_.again;
    }
}

WaitAnswer TellAndWait(int seconds, const std::function<bool()>& over, milliseconds patience) {
    constexpr milliseconds step{100};
    Journal(u"O banco de dados não responde há %1 segundos; o programa aguarda"_s.arg(seconds));
    milliseconds before = system::ProcessorTime();
    for (Clock::time_point restsSince = Clock::now(); Clock::now() - restsSince < patience;) {
        std::this_thread::sleep_for(step);
        if (over()) {
            Journal(u"O banco de dados respondeu"_s);
            return WaitAnswer::Wait;
        }
        // An engine that works inside this process may take its time, also where it gets little of the machine.
        const milliseconds now = system::ProcessorTime();
        if (now - before >= milliseconds(2))
            restsSince = Clock::now();
        before = now;
    }
    Journal(u"O banco de dados não responde; o programa termina e o que não foi gravado se perde"_s);
    return WaitAnswer::End;
}

} // namespace vorta
