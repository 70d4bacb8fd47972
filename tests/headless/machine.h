// A machine in memory: all ports of the program but the add-in, and the loop that moves its time.
#pragma once

#include "tests/headless/code_page.h"
#include "tests/headless/event_loop.h"
#include "tests/headless/locale_conversions.h"
#include "tests/headless/memory_files.h"
#include "tests/headless/memory_registry.h"

namespace headless {

/// The date stands still; milliseconds are those of the loop.
class LoopClock : public vexa::Clock {
public:
    explicit LoopClock(EventLoop& loop) : loop_(loop) {}
    [[nodiscard]] vexa::LocalTime localTime() override { return time; }
    [[nodiscard]] std::int64_t milliseconds() override { return loop_.now(); }
    void sleep(int) override {}
    vexa::LocalTime time{2026, 2, 3, 9, 5, 7, 4};

private:
    EventLoop& loop_;
};

/// Nobody else is there: messages reach no window.
class LonelyDesktop : public vexa::Desktop {
public:
    explicit LonelyDesktop(EventLoop& loop) : loop_(loop) {}
    bool sendMessage(std::intptr_t, std::uint32_t, std::uintptr_t, std::intptr_t) override { return false; }
    void setPointer(vexa::PointerShape shape) override { pointer = shape; }
    void doEvents() override { loop_.runPending(); }
    vexa::PointerShape pointer = vexa::PointerShape::standard;

private:
    EventLoop& loop_;
};

class LoopTimers : public vexa::SystemTimers {
public:
    explicit LoopTimers(EventLoop& loop) : loop_(loop) {}
    std::uintptr_t setTimer(std::uint32_t milliseconds, Callback callback) override {
        return loop_.startTimer(static_cast<int>(milliseconds), callback);
    }
    void killTimer(std::uintptr_t identifier) override { loop_.stopTimer(identifier); }

private:
    EventLoop& loop_;
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
