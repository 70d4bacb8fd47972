// Dialogs above a host's dialog: who is disabled, what Enter, Esc and the close box do, and every way in
// which a modal loop can end.
#include <gmock/gmock.h>

#include "tests/windows/controls/test_form.h"

namespace tests {
namespace {

using testing::ElementsAre;

TEST_F(ControlsTest, TheHostIsDisabledWhileADialogRunsAndGetsItsFocusBack) {
    pageButton.setFocus();
    inDialog(IDD_testDialog, [&](TestForm& form) {
        EXPECT_FALSE(IsWindowEnabled(host.window()));
        EXPECT_EQ(GetWindow(form.handle(), GW_OWNER), host.window());
        EXPECT_FALSE(pageButton.hasFocus());
    });
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    EXPECT_TRUE(pageButton.hasFocus());
}

TEST_F(ControlsTest, AHostThatWasDisabledBeforeStaysDisabled) {
    EnableWindow(host.window(), FALSE);
    inDialog(IDD_testDialog, [](TestForm&) {});
    EXPECT_FALSE(IsWindowEnabled(host.window()));
}

TEST_F(ControlsTest, TheHostIsEnabledAgainBeforeTheDialogHides) {
    TestForm form(screen, IDD_testDialog, page.get());
    show(form, [&] { form.close(); });
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    EXPECT_FALSE(IsWindowVisible(form.handle()));
    EXPECT_EQ(GetActiveWindow(), host.window());
}

TEST_F(ControlsTest, EscPressesTheCancelButton) {
    inDialog(IDD_testDialog, [&](TestForm& form) {
        int cancelled = 0;
        form.control<ui::Button>(IDCANCEL).onClick = [&] { ++cancelled; };
        user.press(form.window(), key::escape, 0);
        EXPECT_EQ(cancelled, 1);
        EXPECT_TRUE(form.window().isOpen());
    });
}

TEST_F(ControlsTest, EscClosesADialogWithoutACancelButton) {
    inDialog(IDD_testBare, [&](TestForm& form) {
        user.press(form.window(), key::escape, 0);
        EXPECT_FALSE(form.window().isOpen());
    });
}

TEST_F(ControlsTest, TheCloseBoxClosesAndAsksTheFormOnce) {
    TestForm form(screen, IDD_testDialog, page.get());
    int asked = 0;
    form.onQuery = [&] {
        ++asked;
        form.close();
    };
    show(form, [&] { user.closeWindow(form.window()); });
    form.close();
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(form.window().isOpen());
}

TEST_F(ControlsTest, AFormThatClosesWhileItLoadsIsNeverShown) {
    TestForm form(screen, IDD_testDialog, page.get());
    form.onLoad = [&] { form.close(); };
    show(form, [&] { FAIL() << "shown"; });
    EXPECT_FALSE(form.window().isOpen());
}

TEST_F(ControlsTest, TheHostIsDisabledWhileAFormLoadsAndItsButtonsTakeNoKeyEither) {
    int clicks = 0;
    pageButton.onClick = [&] { ++clicks; };
    pageButton.setFocus();
    TestForm form(screen, IDD_testDialog, page.get());
    form.onLoad = [&] {
        EXPECT_FALSE(IsWindowEnabled(host.window()));
        user.click(pageButton);
        user.press(*page, key::space, 0);
        user.press(*page, 'O', ui::modifier::alt);
        EXPECT_EQ(clicks, 0);
        form.close();
    };
    form.Show();
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    EXPECT_TRUE(pageButton.hasFocus());
    user.press(*page, key::space, 0);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ControlsTest, AFormThatFailsToLoadGivesTheHostBack) {
    TestForm form(screen, IDD_testDialog, page.get());
    form.onLoad = [] { throw std::runtime_error("nothing to show"); };
    EXPECT_THROW(form.Show(), std::runtime_error);
    EXPECT_TRUE(IsWindowEnabled(host.window()));
}

TEST_F(ControlsTest, TheHostThatClosesThePageWhileAFormLoadsEndsIt) {
    TestForm form(screen, IDD_testDialog, page.get());
    form.onLoad = [&] {
        screen.closeAll();
        EXPECT_TRUE(screen.isClosing());
    };
    show(form, [&] { FAIL() << "shown"; });
    EXPECT_FALSE(form.window().isOpen());
    EXPECT_FALSE(screen.isClosing());
}

TEST_F(ControlsTest, ControlsCanBeReadAfterTheDialogHasClosed) {
    TestForm form(screen, IDD_testDialog, page.get());
    screen.onModal = [&](ui::Form&) {
        form.control<ui::TextBox>(IDC_testText).setText(L"kept");
        form.close();
    };
    form.Show();
    EXPECT_EQ(form.control<ui::TextBox>(IDC_testText).text(), L"kept");
}

TEST_F(ControlsTest, AnInnerDialogDisablesTheOuterOne) {
    std::vector<std::string> order;
    TestForm outer(screen, IDD_testDialog, page.get());
    screen.onModal = [&](ui::Form&) {
        TestForm inner(screen, IDD_testBare, &outer.window());
        screen.onModal = [&](ui::Form&) {
            order.push_back(IsWindowEnabled(outer.handle()) ? "outer enabled" : "outer disabled");
            inner.close();
        };
        inner.Show();
        order.push_back(IsWindowEnabled(outer.handle()) ? "outer enabled" : "outer disabled");
        order.push_back(IsWindowEnabled(host.window()) ? "host enabled" : "host disabled");
        outer.close();
    };
    outer.Show();
    EXPECT_THAT(order, ElementsAre("outer disabled", "outer enabled", "host disabled"));
    EXPECT_TRUE(IsWindowEnabled(host.window()));
}

// --- The host closes the page while dialogs are open
// --------------------------------------------------------

class ClosingTest : public ControlsTest {
protected:
    /// Shows a dialog with another one above it and runs `ending` while both are open.
    void nested(std::function<void()> ending) {
        TestForm outer(screen, IDD_testDialog, page.get());
        outer.onQuery = [&] { order.push_back("outer asked"); };
        screen.onModal = [&](ui::Form&) {
            TestForm inner(screen, IDD_testBare, &outer.window());
            inner.onQuery = [&] { order.push_back("inner asked"); };
            screen.onModal = [&](ui::Form&) { ending(); };
            inner.Show();
            order.push_back("inner ended");
        };
        outer.Show();
        order.push_back("outer ended");
        screen.onModal = nullptr;
    }
    void expectAllEnded() {
        EXPECT_THAT(order, ElementsAre("inner asked", "outer asked", "inner ended", "outer ended"));
    }
    std::vector<std::string> order;
};

TEST_F(ClosingTest, EveryModalLoopEndsFromTheInnermostOut) {
    nested([&] { screen.closeAll(); });
    expectAllEnded();
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    EXPECT_FALSE(screen.isClosing());
}

TEST_F(ClosingTest, ADestroyedPageTakesItsDialogsAlong) {
    nested([&] { page.reset(); });
    expectAllEnded();
}

TEST_F(ClosingTest, AHostThatDestroysItsWindowEndsEveryModalLoop) {
    nested([&] { DestroyWindow(host.window()); });
    EXPECT_EQ(order.size(), 4U);
    EXPECT_EQ(order.back(), "outer ended");
    EXPECT_EQ(page->handle(), 0);
    EXPECT_FALSE(page->isOpen());
    EXPECT_EQ(pageButton.handle(), 0);
    EXPECT_FALSE(pageButton.hasFocus());
}

TEST_F(ClosingTest, AClosingThreadEndsEveryModalLoopAndTheHostSeesIt) {
    nested([] { PostQuitMessage(17); });
    EXPECT_EQ(order.back(), "outer ended");
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 17U);
}

TEST_F(ClosingTest, AnOuterDialogThatClosesTakesTheInnerOneAlong) {
    TestForm outer(screen, IDD_testDialog, page.get());
    screen.onModal = [&](ui::Form&) {
        TestForm inner(screen, IDD_testBare, &outer.window());
        screen.onModal = [&](ui::Form&) { outer.close(); };
        inner.Show();
        EXPECT_FALSE(inner.window().isOpen());
    };
    outer.Show();
    EXPECT_TRUE(IsWindowEnabled(host.window()));
}

TEST_F(ClosingTest, WhileTheLoopsReturnNewOnesEndAtOnce) {
    bool shownAgain = false;
    TestForm outer(screen, IDD_testDialog, page.get());
    screen.onModal = [&](ui::Form&) {
        screen.closeAll();
        screen.onModal = [&](ui::Form&) { shownAgain = true; };
        TestForm(screen, IDD_testBare, page.get()).Show();
        const ui::Message question{L"Now?", L"Test", ui::MessageIcon::question, ui::MessageButtons::yesNo};
        EXPECT_EQ(screen.showMessage(page.get(), question), ui::MessageAnswer::no);
        EXPECT_EQ(screen.chooseColour(*page, 5, L""), std::nullopt);
    };
    outer.Show();
    EXPECT_FALSE(shownAgain);
}

// --- The page ---------------------------------------------------------------------------------------------

TEST_F(ControlsTest, AWindowThatIsToldToCloseByAControlStaysThePage) {
    SendMessageW(win::handleOf(page.get()), WM_CLOSE, 0, 0);
    pageText.setFocus();
    user.press(*page, key::escape, 0);
    EXPECT_TRUE(IsWindow(win::handleOf(page.get())));
    EXPECT_TRUE(page->isOpen());
}

TEST_F(ControlsTest, ThePageIsAParentOfControlsAndNoTabStop) {
    const HWND window = win::handleOf(page.get());
    EXPECT_TRUE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT);
    EXPECT_FALSE(GetWindowLongW(window, GWL_STYLE) & (WS_TABSTOP | WS_CAPTION));
    EXPECT_EQ(GetParent(window), host.window());
}

TEST_F(ControlsTest, APageThatIsResizedTellsItsForm) {
    int resized = 0;
    page->onResize = [&] { ++resized; };
    SetWindowPos(win::handleOf(page.get()), nullptr, 0, 0, 211, 99, SWP_NOZORDER);
    EXPECT_EQ(resized, 1);
    EXPECT_EQ(page->innerSize(), (ui::Size{211, 99}));
    SendMessageW(win::handleOf(page.get()), 0x02E3 /* WM_DPICHANGED_AFTERPARENT */, 0, 0);
    EXPECT_EQ(resized, 2);
}

TEST_F(ControlsTest, TheAccessKeysOfThePageWorkFromTheHostsDialog) {
    int clicks = 0;
    pageButton.onClick = [&] { ++clicks; };
    user.press(*page, 'O', ui::modifier::alt);
    EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace tests
