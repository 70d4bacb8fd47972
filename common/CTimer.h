// A timer object that raises Notify at a fixed interval, built on the system's thread timer without a
// window; and the module that routes the system's callback to the one active object.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "common/platform.h"

namespace vexa {

class CTimer : public std::enable_shared_from_this<CTimer> {
public:
    [[nodiscard]] static std::shared_ptr<CTimer> create(SystemTimers& timers) {
        return std::shared_ptr<CTimer>(new CTimer(timers));
    }

    /// Makes this the process's active timer and starts a system timer with `Interval`. A timer that ran
    /// before goes on ticking, but its ticks reach this object and nobody can stop it any more.
    void StartTimer();
    /// Stops the system timer that was started last, whoever started it.
    void StopTimer();

    /// Milliseconds; takes effect at the next StartTimer.
    std::int32_t Interval = 0;
    /// Raised once per tick, on the user-interface thread.
    std::function<void()> Notify;

private:
    friend class modTimer;
    explicit CTimer(SystemTimers& timers) : timers_(timers) {}
    void raiseNotify();

    SystemTimers& timers_;
};

/// The single slot: one active timer per process.
class modTimer {
public:
    static void start(SystemTimers& timers, std::shared_ptr<CTimer> timer);
    /// Kills the system timer of the slot. The active object stays.
    static void stop(SystemTimers& timers);
    /// What the system calls at each tick. Lets no exception out.
    static void callback() noexcept;
    /// Empties the slot, when the component is about to be unloaded.
    static void clear() noexcept;
};

}  // namespace vexa
