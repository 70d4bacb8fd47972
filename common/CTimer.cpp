#include "common/CTimer.h"

namespace vexa {
namespace {

std::shared_ptr<CTimer> activeTimer;
std::uintptr_t timerIdentifier = 0;

}  // namespace

void CTimer::StartTimer() { modTimer::start(timers_, shared_from_this()); }

void CTimer::StopTimer() { modTimer::stop(timers_); }

void CTimer::raiseNotify() {
    const auto handler = Notify;  // its own copy: the handler may replace itself
    if (handler) handler();
}

void modTimer::start(SystemTimers& timers, std::shared_ptr<CTimer> timer) {
    const auto interval = static_cast<std::uint32_t>(timer->Interval);
    activeTimer = std::move(timer);
    timerIdentifier = timers.setTimer(interval, [] { callback(); });
}

void modTimer::stop(SystemTimers& timers) { timers.killTimer(timerIdentifier); }

void modTimer::callback() noexcept {
    try {
        // The tick's own reference: a handler may start another timer and so replace the active one.
        if (const auto timer = activeTimer) timer->raiseNotify();
    } catch (...) {
        return;  // nothing may reach the system's caller
    }
}

void modTimer::clear() noexcept {
    activeTimer.reset();
    timerIdentifier = 0;
}

}  // namespace vexa
