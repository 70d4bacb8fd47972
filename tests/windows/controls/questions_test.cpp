// The system's message box and colour chooser really open and can be answered.
#include <gmock/gmock.h>

#include "tests/windows/controls/test_form.h"

namespace tests {
namespace {

using testing::ElementsAre;

std::wstring textOf(HWND window) {
    wchar_t text[200];
    GetWindowTextW(window, text, 200);
    return text;
}

/// Runs once, inside the loop of the next question that opens above `owner`.
class WhenAsked {
public:
    WhenAsked(HWND owner, std::function<void(HWND question)> action) {
        owner_ = owner;
        action_ = std::move(action);
        timer_ = SetTimer(nullptr, 0, 30, look);
    }
    WhenAsked(const WhenAsked&) = delete;
    WhenAsked& operator=(const WhenAsked&) = delete;
    ~WhenAsked() {
        KillTimer(nullptr, timer_);
        EXPECT_FALSE(action_) << "nothing was asked";
        action_ = nullptr;
    }

private:
    static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) noexcept {
        const HWND question = GetLastActivePopup(owner_);
        if (!action_ || question == owner_ || !IsWindowVisible(question)) return;
        std::exchange(action_, nullptr)(question);
    }
    static inline HWND owner_ = nullptr;
    static inline std::function<void(HWND)> action_;
    UINT_PTR timer_;
};

void answer(HWND question, WORD command) { PostMessageW(question, WM_COMMAND, command, 0); }

TEST_F(ControlsTest, AMessageBoxShowsItsTextAndButtonsAboveTheHost) {
    const WhenAsked asked(host.window(), [&](HWND box) {
        EXPECT_EQ(textOf(box), L"Quillmark");
        EXPECT_EQ(textOf(GetDlgItem(box, 0xFFFF)), L"Is it \u00FC?");
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
    const ui::Message question{L"Sure?", L"Test", ui::MessageIcon::question, ui::MessageButtons::yesNo};
    EXPECT_EQ(screen.showMessage(page.get(), question), ui::MessageAnswer::no);
    EXPECT_FALSE(screen.isClosing());
}

class ChooserTest : public ControlsTest {
protected:
    /// Answers the chooser by a command and notes its title.
    std::optional<ui::Colour> choose(ui::Colour initial, const std::wstring& asTitle, WORD command) {
        const WhenAsked asked(host.window(), [&](HWND chooser) {
            title = textOf(chooser);
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
