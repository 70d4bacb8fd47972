// The host closes the page while the composer's colour menu is open: the menu ends, and then the composer.
#include <windows.h>

#include "tests/report/report_test_base.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/ticker.h"
#include "tests/windows/stage/user.h"

namespace tests {
namespace {

bool menuIsOpen() {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    return GetGUIThreadInfo(GetCurrentThreadId(), &state) && (state.flags & GUI_INMENUMODE) != 0;
}

class ReportMenu : public ReportTest {
protected:
    /// Opens a composer whose text is selected.
    void openWithText(const std::function<void(frmSendBugReport&)>& script) {
        open([&](frmSendBugReport& form) {
            user.type(form.rtfBody, L"text");
            form.rtfBody.select(0, 4);
            script(form);
        });
    }
    /// Opens a composer and its colour menu, and does the deed while the menu is open, which ends it and the
    /// composer.
    void whileTheMenuIsOpen(const std::function<void(frmSendBugReport&)>& deed) {
        openWithText([&](frmSendBugReport& form) {
            int seen = 0;
            const Ticker ticker(20, [&] {
                if (!menuIsOpen()) return;
                if (++seen == 1) return deed(form);
                if (seen < 50) return;
                ADD_FAILURE() << "the menu stays open";
                EndMenu();
            });
            const ui::Rect area = form.tbrProperties.buttonBounds(button::forecolor);
            const LPARAM middle = MAKELPARAM(area.left + area.width / 2, area.top + area.height / 2);
            const HWND toolbar = windowOf(form.tbrProperties);
            SendMessageW(toolbar, WM_LBUTTONDOWN, MK_LBUTTON, middle);
            SendMessageW(toolbar, WM_LBUTTONUP, 0, middle);
            deliverMessages();
            EXPECT_GT(seen, 0) << "no menu was open";
            EXPECT_FALSE(form.window().isOpen());
        });
    }
};

TEST_F(ReportMenu, EndsWhenTheHostClosesThePage) {
    whileTheMenuIsOpen([&](frmSendBugReport&) { stage->closeDialogs(); });
    EXPECT_EQ(calls.linesWith("timer kill").size(), 1U);
}

TEST_F(ReportMenu, EndsWhenTheComposerCloses) {
    whileTheMenuIsOpen(
        [&](frmSendBugReport& form) { PostMessageW(windowOf(form.window()), WM_CLOSE, 0, 0); });
}

TEST_F(ReportMenu, EndsWhenTheSystemDestroysTheComposersWindow) {
    whileTheMenuIsOpen([&](frmSendBugReport& form) { DestroyWindow(windowOf(form.window())); });
}

TEST_F(ReportMenu, IsOpenedAndItsColourChosenByKeyboardAlone) {
    openWithText([&](frmSendBugReport& form) {
        user.press(form.window(), key::tab, ui::modifier::shift);
        ASSERT_TRUE(form.tbrProperties.hasFocus());
        // Over both importance buttons.
        user.press(form.window(), key::right);
        user.press(form.window(), key::right);
        // What follows the key that opens the menu waits for it: the fifth entry, which is red.
        const HWND toolbar = windowOf(form.tbrProperties);
        for (int step = 0; step < 5; ++step) PostMessageW(toolbar, WM_KEYDOWN, VK_DOWN, 1);
        PostMessageW(toolbar, WM_CHAR, L'\r', 1);
        SendMessageW(toolbar, WM_KEYDOWN, VK_DOWN, 1);
        deliverMessages();
        EXPECT_EQ(form.rtfBody.colour(), 0x0000FF);
    });
}

}  // namespace
}  // namespace tests
