// The search and the attachment settings as the page shows them: from its buttons to Apply, the registry and
// the add-in.
#include "settings/frmAttachment.h"
#include "settings/frmSettings.h"
#include "tests/page/page_test_base.h"

namespace tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vexa::frmAttachment;
using vexa::frmSettings;

class SettingsFromPage : public PageTest {
protected:
    SettingsFromPage() {
        stage->setValue(PROFILE, L"ProjectCount", 2);
        stage->setValue(PROFILE, L"Project1", L"Mail");
        stage->setValue(PROFILE, L"Project2", L"Work");
        stage->setValue(PROFILE, L"DefaultProject", L"Mail");
        start();
        calls.clear();
    }
};

TEST_F(SettingsFromPage, AChangedSearchSettingMakesThePageDirtyAndApplyWritesIt) {
    stage->whenShown<frmSettings>([&](frmSettings& form) {
        user.step(form.updMinRel, true);
        user.click(form.cmdOk);
    });
    user.click(page->cmdSettings);
    EXPECT_TRUE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("site OnStatusChange"), ElementsAre("site OnStatusChange"));
    EXPECT_FALSE(stage->value(PROFILE, L"MinRel").has_value()) << "before Apply";
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(PROFILE, L"MinRel"), 41);
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("addin Set"), IsEmpty());
}

TEST_F(SettingsFromPage, ACancelledSearchDialogLeavesThePageClean) {
    stage->whenShown<frmSettings>([&](frmSettings& form) {
        user.click(form.chkLoggingInformation);
        user.click(form.cmdCancel);
    });
    user.click(page->cmdSettings);
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("site OnStatusChange"), IsEmpty());
}

TEST_F(SettingsFromPage, ANewShortcutAndKnowledgebaseReachTheAddInOnApply) {
    stage->whenShown<frmSettings>([&](frmSettings& form) {
        user.choose(form.cboSearchShortcut, 1);
        user.choose(form.cboDefaultKB, 2);
        user.click(form.cmdOk);
    });
    user.click(page->cmdSettings);
    EXPECT_THAT(calls.linesWith("addin Set"), IsEmpty());
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin Set"),
                ElementsAre("addin SetDefaultKnowledgebase(Work)", "addin SetFindShortcut(1)"));
    EXPECT_EQ(text(PROFILE, L"DefaultProject"), L"Work");
}

TEST_F(SettingsFromPage, ANewShortcutReachesTheAddInThoughTheDialogWasOpenedAndCancelledAgain) {
    stage->whenShown<frmSettings>([&](frmSettings& form) {
        user.choose(form.cboSearchShortcut, 1);
        user.click(form.cmdOk);
    });
    user.click(page->cmdSettings);
    stage->whenShown<frmSettings>([&](frmSettings& form) {
        EXPECT_EQ(form.cboSearchShortcut.selectedIndex(), 1);
        user.click(form.cmdCancel);
    });
    user.click(page->cmdSettings);
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin SetFindShortcut"), ElementsAre("addin SetFindShortcut(1)"));
}

TEST_F(SettingsFromPage, AStoredShortcutOfNoEntryStaysUntilOkStoresNoSelection) {
    stage->setValue(PROFILE, L"FindShortcut", 7);
    application.load(vexa::settingOf(&vexa::Settings::FindShortcut));
    const auto end = [&](const std::function<ui::Button&(frmSettings&)>& button) {
        stage->whenShown<frmSettings>([&](frmSettings& form) {
            EXPECT_EQ(form.cboSearchShortcut.selectedIndex(), -1);
            user.click(button(form));
        });
        user.click(page->cmdSettings);
        page->PropertyPage_Apply();
    };
    end([](frmSettings& form) -> ui::Button& { return form.cmdCancel; });
    EXPECT_EQ(integer(PROFILE, L"FindShortcut"), 7);
    EXPECT_THAT(calls.linesWith("addin SetFindShortcut"), IsEmpty());
    end([](frmSettings& form) -> ui::Button& { return form.cmdOk; });
    EXPECT_EQ(integer(PROFILE, L"FindShortcut"), -1);
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(SettingsFromPage, TheLoggingSwitchReachesTheAddInOnApply) {
    stage->whenShown<frmSettings>([&](frmSettings& form) {
        user.click(form.chkLoggingInformation);
        user.click(form.cmdOk);
    });
    user.click(page->cmdSettings);
    page->PropertyPage_Apply();
    EXPECT_EQ(calls.linesWith("addin SetLogging").size(), 1U);
    EXPECT_EQ(integer(ROOT, L"LoggingInformation"), 0);
}

TEST_F(SettingsFromPage, LoggingSwitchedOffAndOnAgainBeforeApplyReachesNobody) {
    for (int round = 0; round < 2; ++round) {
        stage->whenShown<frmSettings>([&](frmSettings& form) {
            user.click(form.chkLoggingInformation);
            user.click(form.cmdOk);
        });
        user.click(page->cmdSettings);
    }
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin SetLogging"), IsEmpty());
}

TEST_F(SettingsFromPage, TheAttachmentDialogWritesAtOnceAndLeavesThePageClean) {
    stage->whenShown<frmAttachment>([&](frmAttachment& form) {
        user.click(form.chkFindAtt);
        user.click(form.cmdOk);
    });
    user.click(page->cmdAttachments);
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_EQ(integer(PROFILE, L"AddAttachmentsToQuery"), 1);
    // Apply writes it again from the record, and never the extensions.
    stage->setValue(PROFILE, L"AddAttachmentsToQuery", 0);
    calls.clear();
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(PROFILE, L"AddAttachmentsToQuery"), 1);
    for (const std::string& line : calls.linesWith("registry set"))
        EXPECT_EQ(line.find("Extensions"), std::string::npos);
}

TEST_F(SettingsFromPage, BothDialogsOpenAgainAndAgain) {
    for (int opening = 0; opening < 3; ++opening) {
        stage->whenShown<frmSettings>([&](frmSettings& form) { user.click(form.cmdOk); });
        user.click(page->cmdSettings);
        stage->whenShown<frmAttachment>([&](frmAttachment& form) { user.click(form.cmdOk); });
        user.click(page->cmdAttachments);
    }
    EXPECT_EQ(application.settings.DefaultProject, L"Mail");
    EXPECT_THAT(stage->messages(), IsEmpty());
}

}  // namespace
}  // namespace tests
