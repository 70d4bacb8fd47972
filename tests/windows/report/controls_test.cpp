// What the system's controls of the report composer do beyond the vocabulary.
#include <windows.h>

#include <commctrl.h>
#include <richedit.h>

#include "report/frmSendBugReport.ids.h"
#include "tests/report/report_test_base.h"
#include "tests/windows/stage/user.h"
#include "windows/controls/image_list.h"

namespace tests {
namespace {

using testing::ElementsAre;

// --- Toolbars ---------------------------------------------------------------------------------------------

class ReportControls : public ReportTest {
protected:
    static LRESULT ask(const ui::Toolbar& toolbar, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(windowOf(toolbar), message, wParam, lParam);
    }
    static BYTE styleOf(const ui::Toolbar& toolbar, int index) {
        TBBUTTONINFOW info{};
        info.cbSize = sizeof info;
        info.dwMask = TBIF_STYLE;
        ask(toolbar, TB_GETBUTTONINFOW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&info));
        return info.fsStyle;
    }
    static std::wstring textOf(const ui::Toolbar& toolbar, int index) {
        wchar_t text[100] = L"";
        ask(toolbar, TB_GETBUTTONTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
        return text;
    }
    /// What `asked` answers to the tooltip of `toolbar` that is about to show the tip of a button.
    static std::wstring tipFrom(HWND asked, const ui::Toolbar& toolbar, int index) {
        NMTTDISPINFOW question{};
        question.hdr = {reinterpret_cast<HWND>(ask(toolbar, TB_GETTOOLTIPS)), static_cast<UINT_PTR>(index),
                        static_cast<UINT>(TTN_GETDISPINFOW)};
        question.lpszText = question.szText;
        SendMessageW(asked, WM_NOTIFY, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&question));
        return question.lpszText;
    }
};

TEST_F(ReportControls, EachToolbarHasTheStylesWithWhichTheSystemHidesTheTextsOfPictures) {
    open([&](frmSendBugReport& form) {
        for (const ui::Toolbar* toolbar : {&form.tbrBugReport, &form.tbrProperties}) {
            EXPECT_NE(ask(*toolbar, TB_GETSTYLE) & TBSTYLE_LIST, 0);
            EXPECT_NE(ask(*toolbar, TB_GETEXTENDEDSTYLE) & TBSTYLE_EX_MIXEDBUTTONS, 0);
        }
    });
}

TEST_F(ReportControls, SendAloneShowsItsText) {
    open([&](frmSendBugReport& form) {
        EXPECT_NE(styleOf(form.tbrBugReport, SEND_BUTTON) & BTNS_SHOWTEXT, 0);
        for (int index = 1; index <= form.tbrProperties.count(); ++index)
            EXPECT_EQ(styleOf(form.tbrProperties, index) & BTNS_SHOWTEXT, 0) << index;
    });
}

TEST_F(ReportControls, EveryPictureBearsItsTooltipAsTextForScreenReaders) {
    open([&](frmSendBugReport& form) {
        EXPECT_EQ(textOf(form.tbrBugReport, SEND_BUTTON), L"Send");
        const auto buttons = vexa::propertyButtons();
        for (int index = 1; index <= form.tbrProperties.count(); ++index)
            EXPECT_EQ(textOf(form.tbrProperties, index),
                      buttons[static_cast<std::size_t>(index) - 1].tooltip);
    });
}

TEST_F(ReportControls, PicturesTakeNoRoomForTheirHiddenTexts) {
    open([&](frmSendBugReport& form) {
        const ui::Rect bold = form.tbrProperties.buttonBounds(button::bold);
        EXPECT_EQ(form.tbrProperties.buttonBounds(button::increaseIndent).width, bold.width);
        EXPECT_EQ(form.tbrProperties.buttonBounds(button::italic).height, bold.height);
        EXPECT_LE(bold.width, 2 * GetSystemMetrics(SM_CXSMICON));
        EXPECT_LE(bold.height, form.tbrProperties.bounds().height);
        const ui::Rect last = form.tbrProperties.buttonBounds(form.tbrProperties.count());
        EXPECT_LE(last.left + last.width, form.tbrProperties.bounds().width) << "no button is cut off";
    });
}

TEST_F(ReportControls, EachButtonShowsItsTipWhicheverWayTheSystemAsksForIt) {
    open([&](frmSendBugReport& form) {
        const auto dialog = windowOf(form.window());
        const auto tips = [&](const ui::Toolbar& toolbar, int index) {
            return std::vector{tipFrom(windowOf(toolbar), toolbar, index), tipFrom(dialog, toolbar, index)};
        };
        EXPECT_THAT(tips(form.tbrBugReport, SEND_BUTTON), ElementsAre(L"Send", L"Send"));
        EXPECT_THAT(tips(form.tbrProperties, button::bold), ElementsAre(L"Bold", L"Bold"));
        EXPECT_THAT(tips(form.tbrProperties, button::forecolor), ElementsAre(L"Forecolor", L"Forecolor"));
        EXPECT_THAT(tips(form.tbrProperties, button::fontname), ElementsAre(L"", L""));
        EXPECT_THAT(tips(form.tbrProperties, 0), ElementsAre(L"", L""));
        EXPECT_THAT(tips(form.tbrProperties, 21), ElementsAre(L"", L""));
    });
}

TEST_F(ReportControls, AnIconThatIsMissingLeavesNoPictureBehind) {
    win::IconCache icons(GetModuleHandleW(nullptr));
    win::ToolbarImages images(icons, 16);
    constexpr int MISSING = 9999;
    EXPECT_EQ(images.place(IDI_send), 0);
    EXPECT_EQ(images.place(MISSING), I_IMAGENONE);
    EXPECT_EQ(images.place(IDI_italic), 1) << "the same place in both";
    EXPECT_EQ(ImageList_GetImageCount(images.enabled()), 2);
    EXPECT_EQ(ImageList_GetImageCount(images.disabled()), 2);
}

// --- The editor -------------------------------------------------------------------------------------------

using Masks = std::vector<DWORD>;

/// Notes which paragraph formats are set.
LRESULT CALLBACK noteFormats(HWND editor, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                             DWORD_PTR masks) noexcept {
    if (message == EM_SETPARAFORMAT)
        reinterpret_cast<Masks*>(masks)->push_back(reinterpret_cast<const PARAFORMAT*>(lParam)->dwMask);
    return DefSubclassProc(editor, message, wParam, lParam);
}

TEST_F(ReportControls, BulletsGetTheirIndentBeforeTheyAreSwitchedOn) {
    open([&](frmSendBugReport& form) {
        user.type(form.rtfBody, L"text");
        Masks masks;
        SetWindowSubclass(windowOf(form.rtfBody), noteFormats, 1, reinterpret_cast<DWORD_PTR>(&masks));
        user.clickButton(form.tbrProperties, button::bulletIndent);
        RemoveWindowSubclass(windowOf(form.rtfBody), noteFormats, 1);
        EXPECT_THAT(masks, ElementsAre(PFM_OFFSET, PFM_NUMBERING));
    });
}

}  // namespace
}  // namespace tests
