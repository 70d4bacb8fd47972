// What the real controls of the settings dialogs do beyond the vocabulary.
#include <windows.h>

#include <commctrl.h>

#include "settings/frmAttachment.h"
#include "tests/stage/form_test.h"
#include "tests/windows/stage/user.h"
#include "tests/windows/stage/window_queries.h"

namespace tests {
namespace {

class SettingsControls : public FormTest {
protected:
    void open(const std::function<void(vexa::frmAttachment&)>& script) {
        application.loadProfileKey();
        stage->setValue(application.ProfileKey, L"AvailableExtensions", L"doc;pdf;");
        stage->whenShown<vexa::frmAttachment>([&](vexa::frmAttachment& form) {
            script(form);
            user.click(form.cmdCancel);
        });
        vexa::frmAttachment(application, stage->owner()).Show();
    }
};

TEST_F(SettingsControls, APictureButtonShowsItsIconAndBearsItsTooltipAsAccessibleName) {
    open([&](vexa::frmAttachment& form) {
        user.pickTab(form.sstAttachments, 1);
        for (ui::Button* button : {&form.cmdAdd, &form.cmdRemove}) {
            EXPECT_NE(SendMessageW(windowOf(*button), BM_GETIMAGE, IMAGE_ICON, 0), 0);
            EXPECT_EQ(windowTextOf(windowOf(*button)), button->tooltip());
            EXPECT_EQ(button->text(), L"");
        }
    });
}

TEST_F(SettingsControls, TheUpDownLiesInItsTextBoxAndAlwaysStepsByOne) {
    open([&](vexa::frmAttachment& form) {
        const HWND upDown = windowOf(form.updMaxSize);
        EXPECT_EQ(reinterpret_cast<HWND>(SendMessageW(upDown, UDM_GETBUDDY, 0, 0)),
                  windowOf(form.txtMaxSize));
        EXPECT_EQ(GetWindowLongW(upDown, GWL_STYLE) & (UDS_SETBUDDYINT | UDS_WRAP), 0);
        UDACCEL steps[4] = {};
        EXPECT_EQ(SendMessageW(upDown, UDM_GETACCEL, 4, reinterpret_cast<LPARAM>(steps)), 1);
        EXPECT_EQ(steps[0].nInc, 1U);
    });
}

TEST_F(SettingsControls, AHiddenListStaysHiddenWhenItIsFilled) {
    open([&](vexa::frmAttachment& form) {
        EXPECT_EQ(form.lstAvailable.count(), 2);
        EXPECT_FALSE(IsWindowVisible(windowOf(form.lstAvailable)));
        user.pickTab(form.sstAttachments, 1);
        EXPECT_TRUE(IsWindowVisible(windowOf(form.lstAvailable)));
        user.click(form.cmdAdd);
        EXPECT_TRUE(IsWindowVisible(windowOf(form.lstAvailable)));
        EXPECT_TRUE(form.lstAvailable.visible());
    });
}

TEST_F(SettingsControls, IndexesOutsideTheListAreRefused) {
    open([&](vexa::frmAttachment& form) {
        for (const int index : {-1, 2, 1000}) {
            EXPECT_THROW(static_cast<void>(form.lstAvailable.item(index)), std::out_of_range);
            EXPECT_THROW(static_cast<void>(form.lstAvailable.selected(index)), std::out_of_range);
            EXPECT_THROW(form.lstAvailable.setSelected(index, true), std::out_of_range);
            EXPECT_THROW(form.lstAvailable.remove(index), std::out_of_range);
        }
        EXPECT_EQ(form.lstAvailable.count(), 2);
    });
}

TEST_F(SettingsControls, TheControlsOfThePagesLieAboveTheTabControl) {
    open([&](vexa::frmAttachment& form) {
        EXPECT_EQ(GetWindow(windowOf(form.sstAttachments), GW_HWNDLAST), windowOf(form.sstAttachments));
        EXPECT_NE(GetWindowLongW(windowOf(form.sstAttachments), GWL_STYLE) & WS_CLIPSIBLINGS, 0);
    });
}

}  // namespace
}  // namespace tests
