// Messages to other windows, pending events, and timers without a window.
#include "windows/platform/desktop.h"

#include <gtest/gtest.h>

#include <windows.h>

#include "tests/windows/controls/test_form.h"

namespace tests {
namespace {

class DesktopTest : public ControlsTest {
protected:
    win::Desktop desktop;
};

TEST_F(DesktopTest, AMessageIsAnsweredByItsReceiver) {
    const auto box = page->control<ui::TextBox>(IDC_testPageText).handle();
    EXPECT_EQ(desktop.sendMessage(box, WM_SETTEXT, 0, reinterpret_cast<std::intptr_t>("text")), 1);
    EXPECT_EQ(desktop.sendMessage(box, WM_GETTEXTLENGTH, 0, 0), 4);
}

TEST_F(DesktopTest, AMessageToADeadWindowOrToAllDoesNothing) {
    const std::intptr_t dead = page->handle();
    page.reset();
    int heard = 0;
    for (const std::intptr_t window : {dead, std::intptr_t{0}, std::intptr_t{-1}, std::intptr_t{0xFFFF}})
        heard += static_cast<int>(desktop.sendMessage(window, WM_USER + 115, 0, 0));
    EXPECT_EQ(heard, 0);
}

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
    auto& button = page->control<ui::Button>(IDC_testPageButton);
    int clicks = 0;
    button.onClick = [&] { ++clicks; };
    PostMessageW(windowOf(button), BM_CLICK, 0, 0);
    EXPECT_EQ(clicks, 0);
    desktop.doEvents();
    EXPECT_EQ(clicks, 1);
}

TEST_F(DesktopTest, PendingKeysWorkAsInADialog) {
    auto& button = page->control<ui::Button>(IDC_testPageButton);
    button.setFocus();
    PostMessageW(windowOf(button), WM_KEYDOWN, VK_TAB, 1);
    desktop.doEvents();
    EXPECT_TRUE(page->control<ui::TextBox>(IDC_testPageText).hasFocus());
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
    const HWND edit = CreateWindowExW(0, L"Edit", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 50, 20,
                                      host.window(), nullptr, nullptr, nullptr);
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

int ticks = 0;
int otherTicks = 0;

TEST_F(DesktopTest, TimersTickUntilTheyAreKilled) {
    win::SystemTimers timers;
    ticks = otherTicks = 0;
    const auto first = timers.setTimer(40, [] { ++ticks; });
    const auto second = timers.setTimer(40, [] { ++otherTicks; });
    EXPECT_NE(first, 0U);
    EXPECT_NE(first, second);
    user.wait(60);
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(otherTicks, 1);
    timers.killTimer(first);
    timers.killTimer(0);
    user.wait(60);
    EXPECT_EQ(ticks, 1);
    EXPECT_GE(otherTicks, 2);
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
