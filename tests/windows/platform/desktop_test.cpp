// Messages to other windows, pending events, and timers without a window.
#include "windows/platform/desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <atomic>
#include <functional>
#include <map>
#include <thread>

#include "common/error.h"
#include "tests/windows/controls/test_form.h"
#include "tests/windows/stage/listener.h"

namespace tests {
namespace {

class DesktopTest : public ControlsTest {
protected:
    win::Desktop desktop;

    /// Handles messages until it is so: timers come late on a loaded machine.
    void waitUntil(const std::function<bool()>& isSo) {
        constexpr ULONGLONG PATIENCE = 20000;  // milliseconds
        const ULONGLONG began = GetTickCount64();
        while (!isSo() && GetTickCount64() - began < PATIENCE) user.wait(10);
        EXPECT_TRUE(isSo());
    }
};

TEST_F(DesktopTest, AMessageReachesItsReceiverBeforeTheCallReturns) {
    EXPECT_TRUE(
        desktop.sendMessage(pageText.handle(), WM_SETTEXT, 0, reinterpret_cast<std::intptr_t>("text")));
    EXPECT_EQ(pageText.text(), L"text");
}

TEST_F(DesktopTest, AMessageToADeadWindowOrToAllDoesNothing) {
    const std::intptr_t dead = page->handle();
    page.reset();
    for (const std::intptr_t window : {dead, std::intptr_t{0}, std::intptr_t{-1}, std::intptr_t{0xFFFF}})
        EXPECT_FALSE(desktop.sendMessage(window, WM_USER + 115, 0, 0)) << window;
}

// --- Receivers on a thread of their own --------------------------------------------------------------------

constexpr UINT WORK = WM_USER + 115;
constexpr WPARAM LIVELY = 1;

/// A window whose thread works for `lParam` milliseconds on each message WORK. Meanwhile it handles nothing,
/// but where `wParam` is LIVELY messages all the time.
class BusyWindow {
public:
    BusyWindow() {
        thread_ = std::thread([this] { run(); });
        WaitForSingleObject(ready_, INFINITE);
    }
    BusyWindow(const BusyWindow&) = delete;
    BusyWindow& operator=(const BusyWindow&) = delete;
    ~BusyWindow() {
        SetEvent(awake_);
        PostMessageW(window_, WM_CLOSE, 0, 0);
        thread_.join();
        CloseHandle(ready_);
        CloseHandle(awake_);
    }

    [[nodiscard]] std::intptr_t handle() const { return reinterpret_cast<std::intptr_t>(window_); }
    std::atomic<int> handled = 0;
    /// Gets a text before the answer.
    std::atomic<HWND> tell = nullptr;

private:
    void run() {
        window_ = makeWindow(L"Static", WS_POPUP);
        SetWindowSubclass(window_, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
        SetEvent(ready_);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    }
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) noexcept {
        auto& busy = *reinterpret_cast<BusyWindow*>(self);
        if (message == WORK) {
            const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(lParam);
            do {
                WaitForSingleObject(busy.awake_, static_cast<DWORD>(wParam == LIVELY ? 20 : lParam));
                if (wParam == LIVELY) deliverMessages();
            } while (wParam == LIVELY && GetTickCount64() < end);
            if (busy.tell != nullptr)
                SendMessageW(busy.tell, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"told"));
            ++busy.handled;
        }
        if (message == WM_DESTROY) PostQuitMessage(0);
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HANDLE ready_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE awake_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HWND window_ = nullptr;
    std::thread thread_;
};

constexpr int FOR_GOOD = 60'000;

TEST_F(DesktopTest, AReceiverThatWorksIsWaitedFor) {
    BusyWindow busy;
    EXPECT_TRUE(desktop.sendMessage(busy.handle(), WORK, 0, 1500));
    EXPECT_EQ(busy.handled, 1);
    EXPECT_TRUE(desktop.sendMessage(busy.handle(), WORK, LIVELY, 6500))
        << "longer than hanging takes to be known";
    EXPECT_EQ(busy.handled, 2);
}

// As a search window that tells its page something before it answers.
TEST_F(DesktopTest, WhatTheReceiverSendsBackMeanwhileIsHandled) {
    BusyWindow busy;
    busy.tell = windowOf(pageText);
    EXPECT_TRUE(desktop.sendMessage(busy.handle(), WORK, 0, 0));
    EXPECT_EQ(pageText.text(), L"told");
}

TEST_F(DesktopTest, AReceiverThatGoesAwayInsteadOfAnsweringIsNoWindow) {
    BusyWindow busy;
    desktop.sendMessage(busy.handle(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(desktop.sendMessage(busy.handle(), WORK, 0, 0));
}

TEST_F(DesktopTest, AReceiverThatHangsIsGivenUpAndTheNextTimeAtOnce) {
    BusyWindow busy;
    EXPECT_THROW(desktop.sendMessage(busy.handle(), WORK, 0, FOR_GOOD), vexa::Error);
    EXPECT_EQ(busy.handled, 0);
    const ULONGLONG begin = GetTickCount64();
    EXPECT_THROW(desktop.sendMessage(busy.handle(), WORK, 0, 0), vexa::Error);
    EXPECT_LT(GetTickCount64() - begin, 3000U) << "it is known to hang";
}

TEST_F(DesktopTest, AReceiverOfThisThreadIsWaitedForHoweverLong) {
    bool done = false;
    pageButton.onClick = [&] {
        Sleep(5500);
        done = true;
    };
    EXPECT_TRUE(desktop.sendMessage(pageButton.handle(), BM_CLICK, 0, 0));
    EXPECT_TRUE(done);
}

// --- The pointer ------------------------------------------------------------------------------------------

TEST_F(DesktopTest, ThePointerTakesItsShapes) {
    for (const auto& [shape, cursor] : {std::pair{vexa::PointerShape::hourglass, IDC_WAIT},
                                        std::pair{vexa::PointerShape::arrowHourglass, IDC_APPSTARTING},
                                        std::pair{vexa::PointerShape::standard, IDC_ARROW}}) {
        desktop.setPointer(shape);
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, cursor));
    }
}

// The system asks the window for a pointer at each move of the mouse.
TEST_F(DesktopTest, ThePointerKeepsItsShapeWhileTheMouseMoves) {
    const auto moveMouse = [&] {
        const HWND window = reinterpret_cast<HWND>(page->handle());
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
        SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    };
    desktop.setPointer(vexa::PointerShape::hourglass);
    moveMouse();
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    desktop.setPointer(vexa::PointerShape::standard);
    moveMouse();
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(DesktopTest, PendingInputRuns) {
    int clicks = 0;
    pageButton.onClick = [&] { ++clicks; };
    PostMessageW(windowOf(pageButton), BM_CLICK, 0, 0);
    EXPECT_EQ(clicks, 0);
    desktop.doEvents();
    EXPECT_EQ(clicks, 1);
}

TEST_F(DesktopTest, PendingKeysWorkAsInADialog) {
    pageButton.setFocus();
    PostMessageW(windowOf(pageButton), WM_KEYDOWN, VK_TAB, 1);
    desktop.doEvents();
    EXPECT_TRUE(pageText.hasFocus());
}

/// Notes the commands that keys make of the host's own dialog.
std::vector<WORD> hostCommands;
INT_PTR CALLBACK noteCommands(HWND, UINT message, WPARAM wParam, LPARAM) noexcept {
    const WORD command = LOWORD(wParam);
    if (message == WM_COMMAND && (command == IDOK || command == IDCANCEL)) hostCommands.push_back(command);
    return FALSE;
}

// The host has keys of its own and its own way to handle them.
TEST_F(DesktopTest, KeysOfTheHostsOwnDialogReachItAsTheyAre) {
    hostCommands.clear();
    SetWindowLongPtrW(host.window(), DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(noteCommands));
    const HWND edit = makeWindow(L"Edit", WS_CHILD | WS_VISIBLE | WS_TABSTOP, {50, 20}, host.window());
    SetFocus(edit);
    for (const WPARAM key : {VK_ESCAPE, VK_RETURN, VK_TAB}) PostMessageW(edit, WM_KEYDOWN, key, 1);
    desktop.doEvents();
    EXPECT_TRUE(hostCommands.empty());
    EXPECT_EQ(GetFocus(), edit);
}

TEST_F(DesktopTest, TheEndOfTheThreadIsLeftToTheHost) {
    PostQuitMessage(3);
    desktop.doEvents();
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 3U);
}

/// Whose messages a test handles one by one.
class Handlers {
public:
    std::map<UINT, std::function<void(WPARAM)>> on;

private:
    Listener listener_{[this](UINT message, WPARAM wParam) {
                           const auto handler = on.find(message);
                           if (handler != on.end()) handler->second(wParam);
                           return handler != on.end();
                       },
                       nullptr};

public:
    const HWND window = listener_.window();
};

constexpr UINT NEWS = WM_APP + 1;

TEST_F(DesktopTest, WhatWaitsRunsAndWhatItsHandlersPostWaits) {
    Handlers listener;
    std::vector<WPARAM> heard;
    listener.on[NEWS] = [&](WPARAM number) {
        heard.push_back(number);
        PostMessageW(listener.window, NEWS, number + 10, 0);
    };
    for (const WPARAM number : {1, 2, 3}) PostMessageW(listener.window, NEWS, number, 0);
    desktop.doEvents();
    EXPECT_THAT(heard, testing::ElementsAre(1, 2, 3));
    desktop.doEvents();
    EXPECT_THAT(heard, testing::ElementsAre(1, 2, 3, 11, 12, 13));
}

TEST_F(DesktopTest, ACallInsideACallRunsWhatWaitsThenAndBothEnd) {
    Handlers listener;
    std::vector<WPARAM> heard;
    listener.on[NEWS] = [&](WPARAM number) {
        heard.push_back(number);
        PostMessageW(listener.window, NEWS, number + 10, 0);
        if (number == 1) desktop.doEvents();
    };
    for (const WPARAM number : {1, 2}) PostMessageW(listener.window, NEWS, number, 0);
    desktop.doEvents();
    EXPECT_THAT(heard, testing::ElementsAre(1, 2, 11));
}

// As a modal loop of the host does inside a handler.
TEST_F(DesktopTest, ACallEndsWhereAnotherLoopTookEverythingOut) {
    Handlers listener;
    int heard = 0;
    listener.on[NEWS] = [&](WPARAM) {
        if (++heard == 1) {
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        }
        Sleep(20);
        PostMessageW(listener.window, NEWS, 0, 0);
    };
    PostMessageW(listener.window, NEWS, 0, 0);
    desktop.doEvents();
    EXPECT_LE(heard, 3);
}

TEST_F(DesktopTest, ATimerThatIsAlwaysDueTicksOnceAndTheOthersTickToo) {
    Handlers listener;
    std::map<WPARAM, int> ticksOf;
    listener.on[WM_TIMER] = [&](WPARAM timer) {
        ++ticksOf[timer];
        Sleep(timer == 1 ? 60 : 0);
    };
    SetTimer(listener.window, 1, 20, nullptr);
    SetTimer(listener.window, 2, 20, nullptr);
    Sleep(60);
    desktop.doEvents();
    EXPECT_EQ(ticksOf[1], 1);
    EXPECT_EQ(ticksOf[2], 1);
    desktop.doEvents();
    EXPECT_EQ(ticksOf[1], 2);
}

TEST_F(DesktopTest, TimersThatMakeTimersEnd) {
    Handlers listener;
    UINT_PTR last = 1;
    listener.on[WM_TIMER] = [&](WPARAM timer) {
        KillTimer(listener.window, timer);
        SetTimer(listener.window, ++last, 10, nullptr);
    };
    SetTimer(listener.window, last, 10, nullptr);
    Sleep(30);
    desktop.doEvents();
    EXPECT_GE(last, 2U);
}

TEST_F(DesktopTest, AWindowThatIsNeverPaintedDoesNotHoldTheCall) {
    Handlers listener;
    int paintings = 0;
    deliverMessages();
    listener.on[WM_PAINT] = [&](WPARAM) { ++paintings; };
    InvalidateRect(listener.window, nullptr, TRUE);
    desktop.doEvents();
    EXPECT_EQ(paintings, 1);
    listener.on.clear();
}

int ticks = 0;
int otherTicks = 0;

TEST_F(DesktopTest, ATickThatWasOnItsWayWhenItsTimerWasKilledStillComes) {
    win::SystemTimers timers;
    ticks = 0;
    const auto timer = timers.setTimer(10, [] { ++ticks; });
    Sleep(30);
    MSG taken{};
    ASSERT_TRUE(PeekMessageW(&taken, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
    timers.killTimer(timer);
    DispatchMessageW(&taken);
    EXPECT_EQ(ticks, 1);
    user.wait(50);
    EXPECT_EQ(ticks, 1);
}

TEST_F(DesktopTest, TimersTickUntilTheyAreKilled) {
    win::SystemTimers timers;
    ticks = otherTicks = 0;
    const auto first = timers.setTimer(40, [] { ++ticks; });
    const auto second = timers.setTimer(40, [] { ++otherTicks; });
    EXPECT_NE(first, 0U);
    EXPECT_NE(first, second);
    waitUntil([] { return ticks >= 1 && otherTicks >= 1; });
    timers.killTimer(first);
    timers.killTimer(0);
    const int ticksBefore = ticks;
    const int otherTicksBefore = otherTicks;
    waitUntil([&] { return otherTicks >= otherTicksBefore + 2; });
    EXPECT_EQ(ticks, ticksBefore);
}

TEST_F(DesktopTest, NoTimerTicksOnceItsPortIsGone) {
    ticks = 0;
    {
        win::SystemTimers timers;
        timers.setTimer(20, [] { ++ticks; });
    }
    user.wait(60);
    EXPECT_EQ(ticks, 0);
}

}  // namespace
}  // namespace tests
