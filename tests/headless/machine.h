// A machine in memory: all ports of the program but the add-in, and the loop that moves its time.
#pragma once

#include "tests/headless/code_page.h"
#include "tests/headless/event_loop.h"
#include "tests/headless/locale_conversions.h"
#include "tests/headless/memory_files.h"
#include "tests/headless/memory_registry.h"

namespace headless {

/// A port that lives in the loop's time.
template <class Port>
class Looped : public Port {
public:
    explicit Looped(EventLoop& loop) : loop_(loop) {}

protected:
    EventLoop& loop_;
};

/// The date stands still; milliseconds are those of the loop.
class LoopClock : public Looped<vexa::Clock> {
public:
    using Looped::Looped;
    [[nodiscard]] vexa::LocalTime localTime() override { return time; }
    [[nodiscard]] std::int64_t milliseconds() override { return loop_.now(); }
    void sleep(int) override {}
    vexa::LocalTime time{2026, 2, 3, 9, 5, 7, 4};
};

/// Nobody else is there: messages reach no window.
class LonelyDesktop : public Looped<vexa::Desktop> {
public:
    using Looped::Looped;
    bool sendMessage(std::intptr_t, std::uint32_t, std::uintptr_t, std::intptr_t) override { return false; }
    void setPointer(vexa::PointerShape shape) override { pointer = shape; }
    void doEvents() override { loop_.runPending(); }
    vexa::PointerShape pointer = vexa::PointerShape::standard;
};

class LoopTimers : public Looped<vexa::SystemTimers> {
public:
    using Looped::Looped;
    std::uintptr_t setTimer(std::uint32_t milliseconds, Callback callback) override {
        return loop_.startTimer(static_cast<int>(milliseconds), callback);
    }
    void killTimer(std::uintptr_t identifier) override { loop_.stopTimer(identifier); }
};

/// Members that the ports refer to each other by; it stays where it was made.
class Machine {
public:
    Machine() = default;
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    EventLoop loop;
    CodePage1252 ansi;
    LocaleConversions conversions;
    MemoryRegistry registry{ansi};
    MemoryFiles files;
    LoopClock clock{loop};
    LonelyDesktop desktop{loop};
    LoopTimers timers{loop};
};

}  // namespace headless
