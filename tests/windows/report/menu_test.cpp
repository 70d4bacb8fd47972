// The host closes the page while the composer's colour menu is open: the menu ends, and then the composer.
#include <windows.h>

#include "report/frmSendBugReport.h"
#include "report/toolbar_buttons.h"
#include "tests/stage/form_test.h"
#include "tests/windows/stage/messages.h"

namespace tests {
namespace {

using vexa::frmSendBugReport;

/// Does something once a menu is open; where the menu stays open after that, ends it and says so.
class MenuWatch {
public:
    explicit MenuWatch(std::function<void()> deed) {
        deed_ = std::move(deed);
        seen_ = 0;
        timer_ = SetTimer(nullptr, 0, 20, tick);
    }
    MenuWatch(const MenuWatch&) = delete;
    MenuWatch& operator=(const MenuWatch&) = delete;
    ~MenuWatch() { KillTimer(nullptr, timer_); }
    [[nodiscard]] static bool wasOpen() { return seen_ > 0; }

private:
    static bool menuIsOpen() {
        GUITHREADINFO state{};
        state.cbSize = sizeof state;
        return GetGUIThreadInfo(GetCurrentThreadId(), &state) && (state.flags & GUI_INMENUMODE) != 0;
    }
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
        if (!menuIsOpen()) return;
        if (++seen_ == 1) return deed_();
        if (seen_ < 50) return;
        ADD_FAILURE() << "the menu stays open";
        EndMenu();
    }
    static inline std::function<void()> deed_;
    static inline int seen_ = 0;
    UINT_PTR timer_ = 0;
};

class ReportMenu : public FormTest {
protected:
    /// Opens a composer and its colour menu, and does the deed while the menu is open.
    void whileTheMenuIsOpen(const std::function<void(frmSendBugReport&)>& deed) {
        stage->whenShown<frmSendBugReport>([&](frmSendBugReport& form) {
            user.type(form.rtfBody, L"text");
            form.rtfBody.select(0, 4);
            const MenuWatch watch([&] { deed(form); });
            const auto toolbar = reinterpret_cast<HWND>(form.tbrProperties.handle());
            const ui::Rect area = form.tbrProperties.buttonBounds(vexa::propertyButton::forecolor);
            const LPARAM middle = MAKELPARAM(area.left + area.width / 2, area.top + area.height / 2);
            SendMessageW(toolbar, WM_LBUTTONDOWN, MK_LBUTTON, middle);
            SendMessageW(toolbar, WM_LBUTTONUP, 0, middle);
            deliverMessages();
            EXPECT_TRUE(MenuWatch::wasOpen());
            EXPECT_FALSE(form.window().isOpen());
        });
        vexa::showBugReport(application, stage->owner());
    }
};

TEST_F(ReportMenu, EndsWhenTheHostClosesThePage) {
    whileTheMenuIsOpen([&](frmSendBugReport&) { stage->closeDialogs(); });
    EXPECT_EQ(calls.linesWith("timer kill").size(), 1U);
}

TEST_F(ReportMenu, EndsWhenTheComposerCloses) {
    whileTheMenuIsOpen([&](frmSendBugReport& form) {
        PostMessageW(reinterpret_cast<HWND>(form.window().handle()), WM_CLOSE, 0, 0);
    });
}

TEST_F(ReportMenu, EndsWhenTheSystemDestroysTheComposersWindow) {
    whileTheMenuIsOpen(
        [&](frmSendBugReport& form) { DestroyWindow(reinterpret_cast<HWND>(form.window().handle())); });
}

TEST_F(ReportMenu, IsOpenedAndItsColourChosenByKeyboardAlone) {
    stage->whenShown<frmSendBugReport>([&](frmSendBugReport& form) {
        user.type(form.rtfBody, L"text");
        form.rtfBody.select(0, 4);
        user.press(form.window(), key::tab, ui::modifier::shift);
        ASSERT_TRUE(form.tbrProperties.hasFocus());
        // Over both importance buttons.
        user.press(form.window(), key::right);
        user.press(form.window(), key::right);
        // What follows the key that opens the menu waits for it: the fifth entry, which is red.
        const auto toolbar = reinterpret_cast<HWND>(form.tbrProperties.handle());
        for (int step = 0; step < 5; ++step) PostMessageW(toolbar, WM_KEYDOWN, VK_DOWN, 1);
        PostMessageW(toolbar, WM_CHAR, L'\r', 1);
        SendMessageW(toolbar, WM_KEYDOWN, VK_DOWN, 1);
        deliverMessages();
        EXPECT_EQ(form.rtfBody.colour(), 0x0000FF);
        user.closeWindow(form.window());
    });
    vexa::showBugReport(application, stage->owner());
}

}  // namespace
}  // namespace tests
