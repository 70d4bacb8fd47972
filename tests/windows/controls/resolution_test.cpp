// A window that comes to a monitor of another resolution while it is open.
#include <windows.h>

#include <commctrl.h>

#include <cmath>

#include "tests/windows/controls/product_dialogs.h"
#include "tests/windows/stage/user.h"
#include "windows/controls/dpi.h"
#include "windows/controls/window.h"

namespace tests {
namespace {

constexpr UINT DPI_CHANGED = 0x02E0;

/// The sizes of a dialog's controls, and of what they show.
struct Sizes {
    std::vector<std::pair<std::wstring, int>> widths;
    std::vector<std::pair<std::wstring, int>> heights;
    int font = 0;
};

int fontHeight(HWND window) {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
    return std::abs(font.lfHeight);
}

void addPartsOf(HWND control, const std::wstring& name, Sizes& sizes) {
    if (classOf(control) == L"SysListView32") {
        RECT row{};
        if (SendMessageW(control, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row)) != 0)
            sizes.heights.emplace_back(name + L" row", row.bottom - row.top);
        const auto width = static_cast<int>(SendMessageW(control, LVM_GETCOLUMNWIDTH, 0, 0));
        sizes.widths.emplace_back(name + L" column", width);
    }
    if (classOf(control) == L"ToolbarWindow32") {
        RECT button{};
        SendMessageW(control, TB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&button));
        sizes.heights.emplace_back(name + L" button", button.bottom - button.top);
        RECT gap{};
        if (SendMessageW(control, TB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&gap)) != 0)
            sizes.widths.emplace_back(name + L" gap", gap.right - gap.left);
    }
}

/// A label, not a picture or a line.
bool bearsText(HWND control) {
    const auto type = GetWindowLongPtrW(control, GWL_STYLE) & SS_TYPEMASK;
    return classOf(control) == L"Static" && type <= SS_RIGHT;
}

Sizes measure(HWND dialog) {
    Sizes sizes;
    sizes.font = fontHeight(GetDlgItem(dialog, IDCANCEL));
    for (const HWND control : controlsOf(dialog)) {
        const RECT place = placeOf(control);
        const std::wstring name = classOf(control) + L" " + std::to_wstring(GetDlgCtrlID(control));
        sizes.widths.emplace_back(name, place.right - place.left);
        sizes.heights.emplace_back(name, place.bottom - place.top);
        addPartsOf(control, name, sizes);
        if (classOf(control) == L"Button" || bearsText(control)) {
            EXPECT_EQ(fontHeight(control), sizes.font) << "one font for all";
        }
    }
    return sizes;
}

/// The edges of lists and combos, and the frame that people size a window by, are as wide at every resolution
/// of this system: what lies within them grows by the more.
constexpr int LIST_EDGES = 4;
constexpr int COMBO_EDGES = 8;

SIZE sizingFrame(HWND dialog) {
    if ((GetWindowLongPtrW(dialog, GWL_STYLE) & WS_THICKFRAME) == 0) return {};
    const RECT outer = placeOf(dialog);
    const RECT inner = innerAreaOf(dialog);
    return {outer.right - outer.left - inner.right, outer.bottom - outer.top - inner.bottom};
}

/// What fonts and pictures decide comes in steps of its own.
void expectScaled(const Sizes& before, const Sizes& after, const SIZE& frame, double factor) {
    EXPECT_NEAR(after.font, before.font * factor, 1);
    ASSERT_EQ(after.widths.size(), before.widths.size());
    ASSERT_EQ(after.heights.size(), before.heights.size());
    for (std::size_t index = 0; index < before.widths.size(); ++index)
        EXPECT_NEAR(after.widths[index].second, before.widths[index].second * factor,
                    3 + (LIST_EDGES + frame.cx) * (factor - 1))
            << testing::PrintToString(before.widths[index].first);
    for (std::size_t index = 0; index < before.heights.size(); ++index)
        EXPECT_NEAR(after.heights[index].second, before.heights[index].second * factor,
                    6 + (COMBO_EDGES + frame.cy) * (factor - 1))
            << testing::PrintToString(before.heights[index].first);
}

/// A window that people size grows no further than the screen.
bool fitsTheScreen(HWND dialog, double factor) {
    const RECT place = placeOf(dialog);
    return (place.right - place.left) * factor <= GetSystemMetrics(SM_CXSCREEN) &&
           (place.bottom - place.top) * factor <= GetSystemMetrics(SM_CYSCREEN);
}

/// The message with which the system tells a window of its new monitor, and of the place that it should take.
void moveToMonitor(HWND dialog, int dpi, double factor) {
    RECT place = placeOf(dialog);
    place.right = place.left + std::lround((place.right - place.left) * factor);
    place.bottom = place.top + std::lround((place.bottom - place.top) * factor);
    SendMessageW(dialog, DPI_CHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
    const RECT taken = placeOf(dialog);
    EXPECT_TRUE(EqualRect(&taken, &place));
}

using Resolution = EachProductDialog;

TEST_P(Resolution, EverythingInAnOpenDialogFollowsItsMonitor) {
    inDialog([&](ui::Form&, HWND dialog) {
        const Sizes before = measure(dialog);
        const int dpi = win::dpiOf(dialog);
        const SIZE frame = sizingFrame(dialog);
        for (const double factor : {1.25, 1.5, 2.0, 3.0}) {
            SCOPED_TRACE(factor);
            if (frame.cx > 0 && !fitsTheScreen(dialog, factor)) break;
            moveToMonitor(dialog, static_cast<int>(dpi * factor), factor);
            expectScaled(before, measure(dialog), frame, factor);
            moveToMonitor(dialog, dpi, 1 / factor);
        }
        expectScaled(before, measure(dialog), frame, 1.0);
    });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, Resolution, testing::ValuesIn(PRODUCT_DIALOGS), dialogName);

// --- Bigger text ------------------------------------------------------------------------------------------

/// The user's wish, in percent, for as long as it lives.
class BiggerText {
public:
    explicit BiggerText(DWORD percent) {
        EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, KEY, VALUE, REG_DWORD, &percent, sizeof percent),
                  ERROR_SUCCESS);
    }
    BiggerText(const BiggerText&) = delete;
    BiggerText& operator=(const BiggerText&) = delete;
    ~BiggerText() { RegDeleteKeyValueW(HKEY_CURRENT_USER, KEY, VALUE); }

private:
    static constexpr const wchar_t* KEY = L"Software\\Microsoft\\Accessibility";
    static constexpr const wchar_t* VALUE = L"TextScaleFactor";
};

SIZE innerSizeOf(HWND window) {
    const RECT inner = innerAreaOf(window);
    return {inner.right, inner.bottom};
}

TEST_P(Resolution, BiggerTextEnlargesTheDialogAndAllThatItHolds) {
    Sizes before;
    SIZE innerBefore{};
    SIZE frame{};
    std::vector<DWORD> wishes{125, 150};
    inDialog([&](ui::Form&, HWND dialog) {
        before = measure(dialog);
        innerBefore = innerSizeOf(dialog);
        frame = sizingFrame(dialog);
        std::erase_if(wishes, [&](DWORD percent) { return !fitsTheScreen(dialog, percent / 100.0); });
    });
    EXPECT_FALSE(wishes.empty());
    for (const DWORD percent : wishes) {
        SCOPED_TRACE(percent);
        const BiggerText wish(percent);
        const double factor = percent / 100.0;
        inDialog([&](ui::Form&, HWND dialog) {
            const SIZE inner = innerSizeOf(dialog);
            EXPECT_NEAR(inner.cx, innerBefore.cx * factor, 2);
            EXPECT_NEAR(inner.cy, innerBefore.cy * factor, 2);
            expectScaled(before, measure(dialog), frame, factor);
        });
    }
}

TEST_P(Resolution, BiggerTextLeavesTheDialogOnTheScreen) {
    const BiggerText wish(225);
    inDialog([&](ui::Form&, HWND dialog) {
        const RECT outer = placeOf(dialog);
        RECT room{};
        RECT common{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &room, 0);
        IntersectRect(&common, &outer, &room);
        EXPECT_TRUE(EqualRect(&common, &outer));
        const SIZE inner = innerSizeOf(dialog);
        for (const HWND control : controlsOf(dialog)) {
            RECT place = placeOf(control);
            MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
            EXPECT_LE(place.right, inner.cx) << GetDlgCtrlID(control);
            EXPECT_LE(place.bottom, inner.cy) << GetDlgCtrlID(control);
        }
    });
}

class PageResolution : public ProductDialogs {};

TEST_F(PageResolution, ThePageLaysItsRowsOutForItsMonitor) {
    auto& window = dynamic_cast<win::Window&>(page->window());
    const ui::Rect before = page->cmdSettings.bounds();
    window.takeDpi(2 * window.dpi());
    window.onResize();
    const ui::Rect after = page->cmdSettings.bounds();
    EXPECT_NEAR(after.width, 2 * before.width, 2);
    EXPECT_NEAR(after.height, 2 * before.height, 2);
    EXPECT_NEAR(after.left, 2 * before.left, 2);
}

TEST_F(PageResolution, AQuestionThatIsOpenSurvivesANewMonitorBelowIt) {
    ProductDialogs::inDialog(PRODUCT_DIALOGS[0], [&](ui::Form& form, HWND dialog) {
        stage->answerMessages({ui::MessageAnswer::ok});
        moveToMonitor(dialog, 144, 1.5);
        user.click(dynamic_cast<vexa::frmKBConfiguration&>(form).cmdRename);
        moveToMonitor(dialog, 96, 1 / 1.5);
        EXPECT_TRUE(form.window().isOpen());
    });
}

}  // namespace
}  // namespace tests
