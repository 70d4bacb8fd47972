// Opening dialogs again and again leaves nothing behind.
#include "tests/windows/leaks/leak_test.h"

#include "settings/frmDispMatches.h"
#include "settings/frmDispMatches.ids.h"

namespace tests {
namespace {

TEST_F(LeakTest, TheCountersSeeWhatIsHeld) {
    static_cast<void>(stage->owner());  // the first window brings others along
    const ResourceCount before = countResources();
    const HWND window =
        CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HMENU menu = CreateMenu();
    const ResourceCount held = countResources();
    EXPECT_EQ(held.windows, before.windows + 1);
    EXPECT_GT(held.gdiObjects, before.gdiObjects);
    EXPECT_EQ(held.handles, before.handles + 1);
    EXPECT_EQ(held.menus, before.menus + 1);
    DestroyMenu(menu);
    CloseHandle(event);
    DeleteObject(brush);
    DestroyWindow(window);
}

TEST_F(LeakTest, TheHighlightSettingsLeaveNothingBehind) {
    expectNothingLeft(IDD_frmDispMatches, [&] {
        stage->whenShown<vexa::frmDispMatches>([&](vexa::frmDispMatches& form) {
            user.click(form.optDisplayMatches[1]);
            user.click(form.cmdCancel);
        });
        vexa::frmDispMatches(application, stage->owner()).Show();
    });
}

}  // namespace
}  // namespace tests
