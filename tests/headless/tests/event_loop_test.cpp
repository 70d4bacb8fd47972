// The loop of the machine in memory: timers that come due while something takes its time.
#include "tests/headless/event_loop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace headless {
namespace {

using testing::ElementsAre;

class EventLoopTest : public testing::Test {
protected:
    /// A timer that notes its name and the time, and whose handler takes so long.
    EventLoop::Timer start(const std::string& name, int interval, int cost = 0) {
        return loop.startTimer(interval, [this, name, cost] {
            ticks.push_back(name + " " + std::to_string(loop.now()));
            loop.spend(cost);
        });
    }
    EventLoop loop;
    std::vector<std::string> ticks;
};

TEST_F(EventLoopTest, ATimerTicksWhenItIsDueAndNotBefore) {
    start("a", 250);
    loop.pass(249);
    EXPECT_THAT(ticks, ElementsAre());
    loop.pass(1);
    EXPECT_THAT(ticks, ElementsAre("a 250"));
    loop.pass(250);
    EXPECT_THAT(ticks, ElementsAre("a 250", "a 500"));
}

TEST_F(EventLoopTest, ATimerThatComesDueInsideAHandlerTicksWhenTheHandlerEnds) {
    start("slow", 100, 70);
    start("quick", 150);
    loop.pass(300);
    EXPECT_THAT(ticks, ElementsAre("slow 100", "quick 170", "slow 200", "slow 300"));
}

TEST_F(EventLoopTest, AHandlerThatTakesLongerThanItsIntervalEndsThePassAllTheSame) {
    start("slow", 250, 300);
    loop.pass(1000);
    EXPECT_THAT(ticks, ElementsAre("slow 250", "slow 550", "slow 850"));
    EXPECT_EQ(loop.now(), 1150);
}

TEST_F(EventLoopTest, PendingEventsAreThoseThatWaitedEachTimerOnce) {
    start("slow", 250, 300);
    start("other", 20);
    loop.spend(260);
    loop.runPending();
    EXPECT_THAT(ticks, ElementsAre("other 260", "slow 260")) << "both are due again and wait";
    loop.runPending();
    EXPECT_THAT(ticks, ElementsAre("other 260", "slow 260", "other 560", "slow 560"));
}

TEST_F(EventLoopTest, WhatComesUpWhilePendingEventsRunWaits) {
    loop.startTimer(10, [this] { start("new", 10, 20); });
    loop.spend(10);
    loop.runPending();
    loop.spend(10);
    EXPECT_THAT(ticks, ElementsAre());
    EXPECT_EQ(loop.timers(), 2U);
}

TEST_F(EventLoopTest, ATimerThatAnotherOnesTickStopsDoesNotTick) {
    const auto second = loop.startTimer(20, [this] { ticks.emplace_back("second"); });
    loop.startTimer(10, [&, this] { loop.stopTimer(second); });
    loop.spend(30);
    loop.runPending();
    loop.pass(100);
    EXPECT_THAT(ticks, ElementsAre());
}

}  // namespace
}  // namespace headless
