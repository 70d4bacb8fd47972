// The timer object and the single slot behind it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/CTimer.h"
#include "tests/stage/form_test.h"

namespace tests {
namespace {

using testing::ElementsAre;
using vexa::CTimer;
using vexa::modTimer;

/// A system whose timers tick when a test says so.
class ManualTimers : public vexa::SystemTimers {
public:
    std::uintptr_t setTimer(std::uint32_t milliseconds, Callback callback) override {
        intervals.push_back(milliseconds);
        if (exhausted) return 0;
        running[++last] = callback;
        return last;
    }
    void killTimer(std::uintptr_t identifier) override {
        killed.push_back(identifier);
        running.erase(identifier);
    }
    void tick(std::uintptr_t identifier) { running.at(identifier)(); }

    bool exhausted = false;
    std::vector<std::uint32_t> intervals;
    std::vector<std::uintptr_t> killed;
    std::map<std::uintptr_t, Callback> running;

private:
    std::uintptr_t last = 40;
};

class TimerTest : public testing::Test {
protected:
    TimerTest() { modTimer::clear(); }
    ~TimerTest() override { modTimer::clear(); }

    std::shared_ptr<CTimer> makeTimer(int& ticks) {
        auto made = CTimer::create(system);
        made->Interval = 150;
        made->Notify = [&ticks] { ++ticks; };
        return made;
    }
    ManualTimers system;
    int notified = 0;
    const std::shared_ptr<CTimer> timer = makeTimer(notified);
};

TEST_F(TimerTest, RaisesNotifyOncePerTick) {
    timer->StartTimer();
    EXPECT_THAT(system.intervals, ElementsAre(150U));
    system.tick(41);
    system.tick(41);
    EXPECT_EQ(notified, 2);
}

TEST_F(TimerTest, ANewIntervalTakesEffectAtTheNextStart) {
    timer->StartTimer();
    timer->Interval = 20;
    EXPECT_EQ(system.intervals.size(), 1U);
    timer->StopTimer();
    timer->StartTimer();
    EXPECT_THAT(system.intervals, ElementsAre(150U, 20U));
}

TEST_F(TimerTest, StoppingBeforeAnyStartKillsTheIdentifierZero) {
    CTimer::create(system)->StopTimer();
    EXPECT_THAT(system.killed, ElementsAre(0U));
}

TEST_F(TimerTest, StoppingKillsTheTimerAndKeepsTheActiveObject) {
    timer->StartTimer();
    timer->StopTimer();
    EXPECT_THAT(system.killed, ElementsAre(41U));
    modTimer::callback();  // a tick that was on its way
    EXPECT_EQ(notified, 1);
}

TEST_F(TimerTest, StartingTwiceLeavesTheFirstTimerTickingForTheSameObject) {
    timer->StartTimer();
    timer->StartTimer();
    system.tick(41);
    system.tick(42);
    EXPECT_EQ(notified, 2);
    timer->StopTimer();
    EXPECT_THAT(system.killed, ElementsAre(42U)) << "the first one can no longer be stopped";
    system.tick(41);
    EXPECT_EQ(notified, 3);
}

TEST_F(TimerTest, ASecondObjectTakesTheSlotAndTheTicksOfTheFirst) {
    int second = 0;
    const auto secondTimer = makeTimer(second);
    timer->StartTimer();
    secondTimer->StartTimer();
    system.tick(41);
    system.tick(42);
    EXPECT_EQ(notified, 0);
    EXPECT_EQ(second, 2);
    timer->StopTimer();
    EXPECT_THAT(system.killed, ElementsAre(42U)) << "whoever stops, the timer that was started last ends";
}

TEST_F(TimerTest, TheSlotKeepsItsObjectAliveUntilItIsCleared) {
    std::weak_ptr<CTimer> observed;
    {
        const auto own = makeTimer(notified);
        observed = own;
        own->StartTimer();
    }
    system.tick(41);
    EXPECT_EQ(notified, 1);
    modTimer::clear();
    EXPECT_TRUE(observed.expired());
    system.tick(41);
    EXPECT_EQ(notified, 1);
}

TEST_F(TimerTest, AHandlerMayStartAnotherTimer) {
    int second = 0;
    const auto secondTimer = makeTimer(second);
    timer->Notify = [&] { secondTimer->StartTimer(); };
    timer->StartTimer();
    system.tick(41);
    system.tick(42);
    EXPECT_EQ(second, 1);
}

TEST_F(TimerTest, AHandlerMayReplaceItself) {
    std::vector<std::string> told;
    // Longer than the room for short texts, so that the handler's own copy lies in memory of its own.
    timer->Notify = [&, name = std::string("the handler that replaced itself")] {
        timer->Notify = [&] { told.emplace_back("the second"); };
        told.push_back(name);
    };
    timer->StartTimer();
    system.tick(41);
    system.tick(41);
    EXPECT_THAT(told, ElementsAre("the handler that replaced itself", "the second"));
}

TEST_F(TimerTest, NothingThatAHandlerThrowsReachesTheSystem) {
    timer->Notify = [] { throw vexa::Error(L"failed"); };
    timer->StartTimer();
    EXPECT_NO_THROW(system.tick(41));
    timer->Notify = nullptr;
    EXPECT_NO_THROW(system.tick(41));
}

TEST_F(TimerTest, ASystemWithoutTimersLeavesNothingToStop) {
    system.exhausted = true;
    timer->StartTimer();
    timer->StopTimer();
    EXPECT_THAT(system.killed, ElementsAre(0U));
    EXPECT_EQ(notified, 0);
}

using TimerOnStage = FormTest;

TEST_F(TimerOnStage, TicksOfTheSystemReachTheObjectUntilItIsStopped) {
    int notified = 0;
    const auto timer = CTimer::create(application.platform.timers);
    timer->Interval = 20;
    timer->Notify = [&] { ++notified; };
    timer->StartTimer();
    user.wait(300);
    EXPECT_GE(notified, 3);
    timer->StopTimer();
    const int atStop = notified;
    user.wait(100);
    EXPECT_EQ(notified, atStop);
    EXPECT_EQ(calls.linesWith("timer set 20").size(), 1U);
    EXPECT_EQ(calls.linesWith("timer kill").size(), 1U);
}

}  // namespace
}  // namespace tests
