#include "tests/headless/event_loop.h"

#include <algorithm>

namespace headless {

EventLoop::Timer EventLoop::startTimer(int milliseconds, std::function<void()> tick) {
    constexpr int SHORTEST = 10;
    const std::int64_t interval = std::max(milliseconds, SHORTEST);
    const Timer timer = nextTimer_++;
    timers_[timer] = {interval, now_ + interval, std::move(tick)};
    return timer;
}

void EventLoop::stopTimer(Timer timer) { timers_.erase(timer); }

void EventLoop::pass(int milliseconds) {
    const std::int64_t end = now_ + milliseconds;
    for (auto due = dueBy(end); !due.empty() && now_ <= end; due = dueBy(end)) tick(timers_.at(due.front()));
    now_ = std::max(now_, end);
}

void EventLoop::runPending() {
    const std::int64_t begin = now_;
    for (const Timer waiting : dueBy(begin)) {
        const auto timer = timers_.find(waiting);
        // Stopped, or restarted by another one's tick.
        if (timer == timers_.end() || timer->second.due > begin) continue;
        tick(timer->second);
    }
}

void EventLoop::tick(Running& timer) {
    now_ = std::max(now_, timer.due);
    timer.due = now_ + timer.interval;
    const auto handler = timer.tick;  // its own copy: a tick may stop its timer
    handler();
}

std::vector<EventLoop::Timer> EventLoop::dueBy(std::int64_t end) const {
    std::vector<Timer> due;
    for (const auto& [timer, running] : timers_)
        if (running.due <= end) due.push_back(timer);
    std::ranges::stable_sort(due, {}, [this](Timer timer) { return timers_.at(timer).due; });
    return due;
}

}  // namespace headless
