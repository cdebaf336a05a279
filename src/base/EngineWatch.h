#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

#include <QtGlobal>

/// A watch over calls to a database engine. A call may not come back: a server that has stopped, a network that has
/// gone, a colleague's program that died at the wrong moment. The program's flow then stands at the call; so another
/// thread looks on, and can ask the user and end the program.
namespace vorta {

/// Marks a call to an engine for as long as it lives; `Goes` tells that a long one still gets on. Costs next to
/// nothing: the watch counts, and no clock is asked.
class EngineCall {
  public:
    EngineCall() {
        if (depth_.fetch_add(1, std::memory_order_relaxed) == 0)
            count();
    }
    ~EngineCall() {
        if (depth_.fetch_sub(1, std::memory_order_relaxed) == 1)
            count();
    }
    EngineCall(const EngineCall&) = delete;
    EngineCall& operator=(const EngineCall&) = delete;
    /// Also while a crash is told.
    static bool IsUnderWay() { return steps_.load(std::memory_order_relaxed) % 2 == 1; }
    static void Goes() { steps_.store(steps_.load(std::memory_order_relaxed) + 2, std::memory_order_relaxed); }

  private:
    friend class EngineWatch;
    static void count() { steps_.store(steps_.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed); }
    /// Odd inside a call. Calls come from one thread at a time: a flow waits for each.
    inline static std::atomic<quint64> steps_{0};
    inline static std::atomic<int> depth_{0};
};

/// What a silent call is met with.
enum class WaitAnswer { Wait, End };

/// Looks on from a thread of its own, from its making to its end. One for a process.
class EngineWatch {
  public:
    struct Times {
        std::chrono::milliseconds look{500};     ///< between two looks
        std::chrono::milliseconds silence{5000}; ///< a call that has not come back or got on for so long is asked about
        std::chrono::milliseconds again{30000};  ///< and again so long after it has been waited for
        std::chrono::milliseconds end{3000};     ///< the system's wish to end is left to the program for so long
    };
    /// Asks what to do about a call that has been silent for so many seconds; called on the watch's thread. It has to
    /// give up and answer `Wait` as soon as `over` says that the call has come back.
    using Ask = std::function<WaitAnswer(int seconds, const std::function<bool()>& over)>;
    /// Ends the process at once. What is not committed is undone by the engine.
    using End = std::function<void()>;

    EngineWatch(Ask ask, End end, Times times);
    EngineWatch(Ask ask, End end) : EngineWatch(std::move(ask), std::move(end), Times{}) {}
    ~EngineWatch();
    EngineWatch(const EngineWatch&) = delete;
    EngineWatch& operator=(const EngineWatch&) = delete;

    /// The system wants the program to end. Does no more than a signal handler may.
    static void WantEnd() { endWanted_.store(true, std::memory_order_relaxed); }

  private:
    void look();
    bool pause();

    Ask ask_;
    End end_;
    Times times_;
    std::mutex mutex_;
    std::condition_variable leave_;
    bool leaving_ = false;
    inline static std::atomic<bool> endWanted_{false};
    std::thread thread_;
};

/// The answer of a program without windows, where nobody can be asked: tells the journal, waits while the call is away
/// and the process rests, and ends when both have gone on for that long.
WaitAnswer TellAndWait(int seconds, const std::function<bool()>& over,
                       std::chrono::milliseconds patience = std::chrono::seconds(25));

} // namespace vorta
