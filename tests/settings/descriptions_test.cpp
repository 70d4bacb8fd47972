// What screen readers tell of the settings dialogs' fields beside their names.
#include "settings/frmDispMatches.h"
#include "tests/settings/settings_test_base.h"

namespace tests {
namespace {

class SettingsDescriptions : public SettingsTest {};

TEST_F(SettingsDescriptions, OfNumberFieldsTellRangeAndUnit) {
    openSearch([&](vexa::frmSettings& form) {
        EXPECT_EQ(form.txtDelay.description(), L"0 - 60 (sec)");
        EXPECT_EQ(form.txtEntryCount.description(), L"10 to 10000");
        EXPECT_EQ(form.txtMinRel.description(), L"0 - 100(%)");
        user.click(form.cmdCancel);
    });
    openAttachments([&](vexa::frmAttachment& form) {
        EXPECT_EQ(form.txtMaxSize.description(), L"1 to 65000");
        user.click(form.cmdCancel);
    });
}

TEST_F(SettingsDescriptions, OfSwatchesTellWhatAClickDoes) {
    stage->whenShown<vexa::frmDispMatches>([&](vexa::frmDispMatches& form) {
        EXPECT_EQ(form.lblSelHotspotColor.description(), L"Click here to select a color");
        for (const ui::Swatch& swatch : form.lblPenalty)
            EXPECT_EQ(swatch.description(), L"Click here to select a color");
        user.click(form.cmdCancel);
    });
    vexa::frmDispMatches(application, stage->owner()).Show();
}

}  // namespace
}  // namespace tests
