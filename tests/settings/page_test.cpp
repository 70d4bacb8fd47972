// The search and the attachment settings as the page shows them: from its buttons to Apply, the registry and
// the add-in.
#include "settings/frmAttachment.h"
#include "settings/frmSettings.h"
#include "tests/page/page_test_base.h"

namespace tests {
namespace {

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
    /// Opens the dialog from the page, plays `script` and ends the dialog by one of its buttons.
    template <class Form>
    void open(ui::Button& opener, FunctionRef<void(Form&)> script, bool ok = true) {
        stage->whenShown<Form>([&, ok](Form& form) {
            script(form);
            user.click(ok ? form.cmdOk : form.cmdCancel);
        });
        user.click(opener);
    }
    void confirmSearch(FunctionRef<void(frmSettings&)> script) { open(page->cmdSettings, script); }
    void cancelSearch(FunctionRef<void(frmSettings&)> script) { open(page->cmdSettings, script, false); }
    void confirmAttachments(FunctionRef<void(frmAttachment&)> script) { open(page->cmdAttachments, script); }
};

TEST_F(SettingsFromPage, AChangedSearchSettingMakesThePageDirtyAndApplyWritesIt) {
    confirmSearch([&](frmSettings& form) { user.step(form.updMinRel, true); });
    EXPECT_TRUE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("site OnStatusChange"), ElementsAre("site OnStatusChange"));
    EXPECT_FALSE(stage->value(PROFILE, L"MinRel").has_value()) << "before Apply";
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(PROFILE, L"MinRel"), 41);
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("addin Set"), IsEmpty());
}

TEST_F(SettingsFromPage, ACancelledSearchDialogLeavesThePageClean) {
    cancelSearch([&](frmSettings& form) { user.click(form.chkLoggingInformation); });
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("site OnStatusChange"), IsEmpty());
}

TEST_F(SettingsFromPage, ANewShortcutAndKnowledgebaseReachTheAddInOnApply) {
    confirmSearch([&](frmSettings& form) {
        user.choose(form.cboSearchShortcut, 1);
        user.choose(form.cboDefaultKB, 2);
    });
    EXPECT_THAT(calls.linesWith("addin Set"), IsEmpty());
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin Set"),
                ElementsAre("addin SetDefaultKnowledgebase(Work)", "addin SetFindShortcut(1)"));
    EXPECT_EQ(text(PROFILE, L"DefaultProject"), L"Work");
}

TEST_F(SettingsFromPage, ANewShortcutReachesTheAddInThoughTheDialogWasOpenedAndCancelledAgain) {
    confirmSearch([&](frmSettings& form) { user.choose(form.cboSearchShortcut, 1); });
    cancelSearch([&](frmSettings& form) { EXPECT_EQ(form.cboSearchShortcut.selectedIndex(), 1); });
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin SetFindShortcut"), ElementsAre("addin SetFindShortcut(1)"));
}

TEST_F(SettingsFromPage, AStoredShortcutOfNoEntryStaysUntilOkStoresNoSelection) {
    stage->setValue(PROFILE, L"FindShortcut", 7);
    application.load(vexa::settingOf(&vexa::Settings::FindShortcut));
    const auto showsNone = [](frmSettings& form) { EXPECT_EQ(form.cboSearchShortcut.selectedIndex(), -1); };
    cancelSearch(showsNone);
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(PROFILE, L"FindShortcut"), 7);
    EXPECT_THAT(calls.linesWith("addin SetFindShortcut"), IsEmpty());
    confirmSearch(showsNone);
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(PROFILE, L"FindShortcut"), -1);
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(SettingsFromPage, TheLoggingSwitchReachesTheAddInOnApply) {
    confirmSearch([&](frmSettings& form) { user.click(form.chkLoggingInformation); });
    page->PropertyPage_Apply();
    EXPECT_EQ(calls.linesWith("addin SetLogging").size(), 1U);
    EXPECT_EQ(integer(ROOT, L"LoggingInformation"), 0);
}

TEST_F(SettingsFromPage, LoggingSwitchedOffAndOnAgainBeforeApplyReachesNobody) {
    for (int round = 0; round < 2; ++round)
        confirmSearch([&](frmSettings& form) { user.click(form.chkLoggingInformation); });
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin SetLogging"), IsEmpty());
}

TEST_F(SettingsFromPage, TheAttachmentDialogWritesAtOnceAndLeavesThePageClean) {
    confirmAttachments([&](frmAttachment& form) { user.click(form.chkFindAtt); });
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
        confirmSearch([](frmSettings&) {});
        confirmAttachments([](frmAttachment&) {});
    }
    EXPECT_EQ(application.settings.DefaultProject, L"Mail");
    EXPECT_THAT(stage->messages(), IsEmpty());
}

}  // namespace
}  // namespace tests
