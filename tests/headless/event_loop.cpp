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
    while (tickNext(end)) {
    }
    now_ = std::max(now_, end);
}

void EventLoop::runPending() {
    while (tickNext(now_)) {
    }
}

bool EventLoop::tickNext(std::int64_t end) {
    const auto next =
        std::ranges::min_element(timers_, {}, [](const auto& entry) { return entry.second.due; });
    if (next == timers_.end() || next->second.due > end) return false;
    now_ = std::max(now_, next->second.due);
    next->second.due = now_ + next->second.interval;
    const auto tick = next->second.tick;  // its own copy: a tick may stop its timer
    tick();
    return true;
}

}  // namespace headless
