// The message loop of a thread on which time passes only when a test lets it.
#pragma once

#include <cstdint>
#include <functional>
#include <map>

namespace headless {

class EventLoop {
public:
    using Timer = std::uintptr_t;

    /// Ticks every `milliseconds` (at least the system's shortest interval, 10) until it is stopped.
    /// Identifiers are never 0.
    Timer startTimer(int milliseconds, std::function<void()> tick);
    /// Does nothing where there is no such timer.
    void stopTimer(Timer timer);
    [[nodiscard]] std::size_t timers() const { return timers_.size(); }

    /// Lets time pass; each timer ticks when it is due.
    void pass(int milliseconds);
    /// Ticks what is due now.
    void runPending();

private:
    struct Running {
        std::int64_t interval;
        std::int64_t due;
        std::function<void()> tick;
    };
    /// Ticks the timer that is due first, up to `end`; false where none is.
    bool tickNext(std::int64_t end);

    std::int64_t now_ = 0;
    Timer nextTimer_ = 0x7000;
    std::map<Timer, Running> timers_;
};

}  // namespace headless
