// The system's message box and colour chooser really open and can be answered.
#include <gmock/gmock.h>

#include "tests/windows/controls/test_form.h"
#include "tests/windows/stage/ticker.h"

namespace tests {
namespace {

using testing::ElementsAre;

/// Runs once, inside the loop of the next question that opens above `owner`; without one, when a dialog box
/// is active.
class WhenAsked {
public:
    WhenAsked(HWND owner, std::function<void(HWND question)> action)
        : owner_(owner), action_(std::move(action)) {}
    WhenAsked(const WhenAsked&) = delete;
    WhenAsked& operator=(const WhenAsked&) = delete;
    ~WhenAsked() { EXPECT_FALSE(action_) << "nothing was asked"; }

private:
    void look() {
        const HWND question = owner_ != nullptr ? GetLastActivePopup(owner_) : GetActiveWindow();
        if (!action_ || question == owner_ || !IsWindowVisible(question)) return;
        std::exchange(action_, nullptr)(question);
    }
    HWND owner_;
    std::function<void(HWND)> action_;
    const Ticker ticker_{10, [this] { look(); }};
};

const ui::Message SURE{L"Sure?", L"Test", ui::MessageIcon::question, ui::MessageButtons::yesNo};

void answer(HWND question, WORD command) { PostMessageW(question, WM_COMMAND, command, 0); }

TEST_F(ControlsTest, AMessageBoxShowsItsTextAndButtonsAboveTheHost) {
    const WhenAsked asked(host.window(), [&](HWND box) {
        EXPECT_EQ(windowTextOf(box), L"Quillmark");
        EXPECT_EQ(windowTextOf(GetDlgItem(box, 0xFFFF)), L"Is it \u00FC?");
        EXPECT_NE(GetDlgItem(box, IDYES), nullptr);
        EXPECT_NE(GetDlgItem(box, IDNO), nullptr);
        EXPECT_EQ(GetDlgItem(box, IDOK), nullptr);
        EXPECT_FALSE(IsWindowEnabled(host.window()));
        answer(box, IDYES);
    });
    const ui::Message question{L"Is it \u00FC?", L"Quillmark", ui::MessageIcon::question,
                               ui::MessageButtons::yesNo};
    EXPECT_EQ(screen.showMessage(page.get(), question), ui::MessageAnswer::yes);
    EXPECT_TRUE(IsWindowEnabled(host.window()));
}

TEST_F(ControlsTest, AMessageBoxOfOneButtonIsAnsweredByOk) {
    const WhenAsked asked(host.window(), [&](HWND box) {
        EXPECT_EQ(GetDlgItem(box, IDYES), nullptr);
        answer(box, IDOK);
    });
    const ui::Message message{L"Done.", L"Test", ui::MessageIcon::exclamation, ui::MessageButtons::ok};
    EXPECT_EQ(screen.showMessage(page.get(), message), ui::MessageAnswer::ok);
}

TEST_F(ControlsTest, AMessageBoxIsAnsweredByNoWhenTheHostClosesThePage) {
    const WhenAsked asked(host.window(), [&](HWND) { screen.closeAll(); });
    EXPECT_EQ(screen.showMessage(page.get(), SURE), ui::MessageAnswer::no);
    EXPECT_FALSE(screen.isClosing());
}

TEST_F(ControlsTest, AMessageBoxOfOneButtonIsAnsweredWhenTheHostClosesThePage) {
    const WhenAsked asked(host.window(), [&](HWND) { screen.closeAll(); });
    EXPECT_EQ(screen.showMessage(page.get(), {L"Done.", L"Test"}), ui::MessageAnswer::ok);
    EXPECT_FALSE(screen.isClosing());
}

TEST_F(ControlsTest, EnterAnswersWhatTheQuestionSays) {
    for (const ui::MessageAnswer expected : {ui::MessageAnswer::yes, ui::MessageAnswer::no}) {
        const WhenAsked asked(host.window(), [&](HWND box) {
            EXPECT_EQ(GetFocus(), GetDlgItem(box, expected == ui::MessageAnswer::yes ? IDYES : IDNO));
            PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 0);
        });
        ui::Message question = SURE;
        question.defaultAnswer = expected;
        EXPECT_EQ(screen.showMessage(page.get(), question), expected);
    }
}

/// Notes the commands that it gets.
class HostsBox {
public:
    /// A visible dialog box of the host, with one button.
    HostsBox(HWND owner, int button)
        : handle_(makeWindow(L"#32770", WS_POPUP | WS_VISIBLE, {50, 50}, owner)) {
        SetWindowLongPtrW(handle_, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
        SetWindowLongPtrW(makeWindow(L"Button", WS_CHILD, {9, 9}, handle_), GWLP_ID, button);
        commands.clear();
    }
    HostsBox(const HostsBox&) = delete;
    HostsBox& operator=(const HostsBox&) = delete;
    ~HostsBox() { DestroyWindow(handle_); }

    [[nodiscard]] HWND window() const { return handle_; }
    static inline std::vector<WORD> commands;

private:
    static INT_PTR CALLBACK procedure(HWND, UINT message, WPARAM wParam, LPARAM) noexcept {
        if (message == WM_COMMAND) commands.push_back(LOWORD(wParam));
        return FALSE;
    }
    HWND handle_;
};

TEST_F(ControlsTest, ClosingThePageLeavesBoxesOfTheHostAlone) {
    const HostsBox before(host.window(), IDNO);
    std::unique_ptr<HostsBox> meanwhile;
    const WhenAsked asked(host.window(), [&](HWND) {
        meanwhile = std::make_unique<HostsBox>(host.window(), IDNO);
        screen.closeAll();
    });
    EXPECT_EQ(screen.showMessage(page.get(), SURE), ui::MessageAnswer::no);
    deliverMessages();
    EXPECT_TRUE(HostsBox::commands.empty());
}

// Systems differ in what they call the one button of a box.
TEST_F(ControlsTest, ABoxOfOneButtonIsEndedByTheIdentifierThatItsButtonHas) {
    for (const WORD button : {IDOK, IDCANCEL}) {
        const HostsBox box(nullptr, button);
        win::Screen::Modal question(screen, nullptr, IDOK);
        EXPECT_TRUE(question.opens(box.window()));
        screen.closeAll();
        deliverMessages();
        EXPECT_THAT(HostsBox::commands, ElementsAre(button));
    }
}

TEST_F(ControlsTest, AQuestionThatIsCancelledBeforeItsWindowIsThereNeverOpens) {
    win::Screen::Modal question(screen, nullptr, IDNO);
    screen.closeAll();
    EXPECT_FALSE(question.opens(host.window()));
}

// In the background the host has no active window that could own the question.
TEST_F(ControlsTest, AMessageWithoutAnOwnerKeepsTheUserFromAllWindowsOfTheTask) {
    ShowWindow(host.window(), SW_HIDE);
    const HWND other = makeWindow(L"Static", WS_OVERLAPPEDWINDOW, {50, 50});
    ShowWindow(other, SW_SHOWNA);
    SetForegroundWindow(GetDesktopWindow());
    ASSERT_EQ(GetActiveWindow(), nullptr);
    bool enabled = true;
    const WhenAsked asked(nullptr, [&](HWND box) {
        enabled = IsWindowEnabled(other);
        answer(box, IDOK);
    });
    screen.showMessage(page.get(), {L"Done.", L"Alone"});
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(IsWindowEnabled(other));
    DestroyWindow(other);
}

class ChooserTest : public ControlsTest {
protected:
    /// Answers the chooser by a command and notes its title.
    std::optional<ui::Colour> choose(ui::Colour initial, const std::wstring& asTitle, WORD command) {
        const WhenAsked asked(host.window(), [&](HWND chooser) {
            title = windowTextOf(chooser);
            answer(chooser, command);
        });
        return screen.chooseColour(*page, initial, asTitle);
    }
    std::wstring title;
};

TEST_F(ChooserTest, StartsOnTheGivenColourUnderTheGivenTitle) {
    EXPECT_EQ(choose(0x00123456, L"Level 3", IDOK), 0x00123456);
    EXPECT_EQ(title, L"Level 3");
}

TEST_F(ChooserTest, KeepsItsOwnTitleWhereNoneIsGiven) {
    EXPECT_EQ(choose(0x00FFFF, L"", IDOK), 0x00FFFF);
    EXPECT_FALSE(title.empty());
}

TEST_F(ChooserTest, GivesNothingWhereItIsCancelled) {
    EXPECT_EQ(choose(0x00FFFF, L"", IDCANCEL), std::nullopt);
}

TEST_F(ChooserTest, StartsOnTheThreeLowerBytesOfAColourWithATopByte) {
    EXPECT_EQ(choose(0x7F0000FF, L"", IDOK), 0x000000FF);
}

TEST_F(ChooserTest, IsCancelledWhenTheHostClosesThePage) {
    const WhenAsked asked(host.window(), [&](HWND) { screen.closeAll(); });
    EXPECT_EQ(screen.chooseColour(*page, 0, L""), std::nullopt);
}

// --- The screen -------------------------------------------------------------------------------------------

TEST_F(ControlsTest, AnInchHasAThousandFourHundredAndFortyTwips) {
    const HDC canvas = GetDC(nullptr);
    EXPECT_DOUBLE_EQ(screen.twipsPerPixelX() * GetDeviceCaps(canvas, LOGPIXELSX), 1440.0);
    EXPECT_DOUBLE_EQ(screen.twipsPerPixelY() * GetDeviceCaps(canvas, LOGPIXELSY), 1440.0);
    ReleaseDC(nullptr, canvas);
}

TEST_F(ControlsTest, EachFontIsListedOnceAndNoneForVerticalWriting) {
    const std::vector<std::wstring> fonts = screen.fonts();
    EXPECT_FALSE(fonts.empty());
    for (const std::wstring& font : fonts) {
        EXPECT_EQ(std::count(fonts.begin(), fonts.end(), font), 1);
        EXPECT_FALSE(font.starts_with(L'@'));
    }
}

}  // namespace
}  // namespace tests
