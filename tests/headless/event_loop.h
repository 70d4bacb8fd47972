// The message loop of a thread on which time passes when a test lets it, and while a call goes on that takes
// time.
#pragma once

#include <algorithm>
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
    Timer startTimer(int milliseconds, std::function<void()> tick) {
        constexpr int SHORTEST = 10;
        const std::int64_t interval = std::max(milliseconds, SHORTEST);
        const Timer timer = nextTimer_++;
        timers_[timer] = {interval, now_ + interval, std::move(tick)};
        return timer;
    }
    /// Does nothing where there is no such timer.
    void stopTimer(Timer timer) { timers_.erase(timer); }
    [[nodiscard]] std::size_t timers() const { return timers_.size(); }

    /// Lets time pass; each timer ticks when it is due, or late where another one's handler took its time.
    void pass(int milliseconds) {
        const std::int64_t end = now_ + milliseconds;
        for (auto due = dueBy(end); !due.empty() && now_ <= end; due = dueBy(end))
            tick(timers_.at(due.front()));
        now_ = std::max(now_, end);
    }
    /// The time that a call takes: no timer ticks before its handler is back in the loop.
    void spend(int milliseconds) { now_ += milliseconds; }
    /// Ticks what is due when it begins, each timer once.
    void runPending() {
        const std::int64_t begin = now_;
        for (const Timer waiting : dueBy(begin)) {
            const auto timer = timers_.find(waiting);
            // Stopped, or restarted by another one's tick.
            if (timer == timers_.end() || timer->second.due > begin) continue;
            tick(timer->second);
        }
    }
    /// Milliseconds since the loop began.
    [[nodiscard]] std::int64_t now() const { return now_; }

private:
    struct Running {
        std::int64_t interval;
        std::int64_t due;
        std::function<void()> tick;
    };
    void tick(Running& timer) {
        now_ = std::max(now_, timer.due);
        timer.due = now_ + timer.interval;
        const auto handler = timer.tick;  // its own copy: a tick may stop its timer
        handler();
    }
    /// The timers that are due by `end`, first the one that is due first.
    [[nodiscard]] std::vector<Timer> dueBy(std::int64_t end) const {
        std::vector<Timer> due;
        for (const auto& [timer, running] : timers_)
            if (running.due <= end) due.push_back(timer);
        std::ranges::stable_sort(due, {}, [this](Timer timer) { return timers_.at(timer).due; });
        return due;
    }

    std::int64_t now_ = 0;
    Timer nextTimer_ = 0x7000;
    std::map<Timer, Running> timers_;
};

}  // namespace headless
