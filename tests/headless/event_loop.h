// The message loop of a thread on which time passes when a test lets it, and while a call goes on that takes
// time.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

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

    /// Lets time pass; each timer ticks when it is due, or late where another one's handler took its time.
    void pass(int milliseconds);
    /// The time that a call takes: no timer ticks before its handler is back in the loop.
    void spend(int milliseconds) { now_ += milliseconds; }
    /// Ticks what is due when it begins, each timer once.
    void runPending();
    /// Milliseconds since the loop began.
    [[nodiscard]] std::int64_t now() const { return now_; }

private:
    struct Running {
        std::int64_t interval;
        std::int64_t due;
        std::function<void()> tick;
    };
    void tick(Running& timer);
    /// The timers that are due by `end`, first the one that is due first.
    [[nodiscard]] std::vector<Timer> dueBy(std::int64_t end) const;

    std::int64_t now_ = 0;
    Timer nextTimer_ = 0x7000;
    std::map<Timer, Running> timers_;
};

}  // namespace headless
