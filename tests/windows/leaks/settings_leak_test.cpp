// Opening the search and the attachment settings again and again leaves nothing behind.
#include "settings/frmAttachment.h"
#include "settings/frmAttachment.ids.h"
#include "settings/frmSettings.h"
#include "settings/frmSettings.ids.h"
#include "tests/windows/leaks/leak_test.h"

namespace tests {
namespace {

class SettingsLeakTest : public LeakTest {
protected:
    SettingsLeakTest() {
        application.loadProfileKey();
        const std::wstring key = application.ProfileKey;
        stage->setValue(key, L"ProjectCount", 1);
        stage->setValue(key, L"Project1", L"Mail");
        stage->setValue(key, L"AvailableExtensions", L"doc;pdf;rtf;txt;");
        stage->setValue(key, L"SelectedExtensions", L"pdf;");
    }
};

TEST_F(SettingsLeakTest, TheSearchSettingsLeaveNothingBehind) {
    expectNothingLeft(IDD_frmSettings, [&] {
        stage->whenShown<vexa::frmSettings>([&](vexa::frmSettings& form) {
            user.click(form.chkLoggingInformation);
            user.step(form.updMinRel, true);
            user.type(form.txtEntryCount, L"5");
            user.click(form.cmdCancel);
        });
        vexa::frmSettings(application, stage->owner(), [](ui::Window&) {}).Show();
    });
}

TEST_F(SettingsLeakTest, TheAttachmentSettingsLeaveNothingBehind) {
    expectNothingLeft(IDD_frmAttachment, [&] {
        stage->whenShown<vexa::frmAttachment>([&](vexa::frmAttachment& form) {
            user.pickTab(form.sstAttachments, 1);
            user.click(form.cmdAdd);
            user.click(form.cmdRemove);
            user.click(form.cmdCancel);
        });
        vexa::frmAttachment(application, stage->owner()).Show();
    });
}

}  // namespace
}  // namespace tests
