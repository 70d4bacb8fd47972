// Opening a dialog again and again leaves nothing behind.
#include "kb/frmKBConfiguration.ids.h"
#include "kb/frmKnowledgeBase.ids.h"
#include "kb/frmSelectDefaultKB.ids.h"
#include "report/frmSendBugReport.ids.h"
#include "settings/frmAttachment.ids.h"
#include "settings/frmDispMatches.ids.h"
#include "settings/frmSettings.ids.h"
#include "tests/windows/controls/product_dialogs.h"
#include "tests/windows/leaks/resource_count.h"

namespace tests {
namespace {

constexpr int WARM_UP = 20;
constexpr int OPENINGS = 30;

struct Change {
    ResourceCount before;
    ResourceCount after;
    [[nodiscard]] long heapBlocks() const { return heapBlocksBetween(before, after); }
};

/// Counts around many openings; what the first ones set up once and for all is left out.
Change changeBy(const std::function<void()>& openOnce) {
    for (int opening = 0; opening < WARM_UP; ++opening) openOnce();
    const ResourceCount before = countResources();
    for (int opening = 0; opening < OPENINGS; ++opening) openOnce();
    return {before, countResources()};
}

class Leaks : public ProductDialogs {
protected:
    void SetUp() override {
        ProductDialogs::SetUp();
        application.settings.LoggingInformation = false;
    }

    /// Opening the dialog leaves nothing behind. In its heap the system itself may (Wine keeps a block for
    /// some themed dialogs): the program leaves no more than the bare dialog does.
    void expectNothingLeft(int templateIdentifier, const std::function<void()>& openOnce) {
        const Change bare = changeBy([&] { openBare(templateIdentifier); });
        const Change change = changeBy([&] {
            openOnce();
            calls.clear();
        });
        expectSameObjects(change.before, change.after);
        if (!heapCountsEachBlock()) return;
        // Caches may take a block now and then; one per opening would be ten times as many.
        EXPECT_LE(change.heapBlocks(), bare.heapBlocks() + OPENINGS / 10)
            << change.before << " / " << change.after;
    }
    template <class Form>
    void expectNothingLeftOf(int templateIdentifier, const std::function<void(Form&)>& script) {
        expectNothingLeft(templateIdentifier, [&] { open<Form>(script); });
    }
};

TEST_F(Leaks, TheCountersSeeWhatIsHeld) {
    const ResourceCount before = countResources();
    const HWND window = makeWindow(L"Static", WS_POPUP);
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

TEST_F(Leaks, TheHighlightSettingsLeaveNothingBehind) {
    expectNothingLeftOf<vexa::frmDispMatches>(IDD_frmDispMatches, [&](vexa::frmDispMatches& form) {
        user.click(form.optDisplayMatches[1]);
        user.click(form.cmdCancel);
    });
}

TEST_F(Leaks, TheSearchSettingsLeaveNothingBehind) {
    expectNothingLeftOf<vexa::frmSettings>(IDD_frmSettings, [&](vexa::frmSettings& form) {
        user.click(form.chkLoggingInformation);
        user.step(form.updMinRel, true);
        user.type(form.txtEntryCount, L"5");
        user.click(form.cmdCancel);
    });
}

TEST_F(Leaks, TheAttachmentSettingsLeaveNothingBehind) {
    expectNothingLeftOf<vexa::frmAttachment>(IDD_frmAttachment, [&](vexa::frmAttachment& form) {
        user.pickTab(form.sstAttachments, 1);
        user.click(form.cmdAdd);
        user.click(form.cmdRemove);
        user.click(form.cmdCancel);
    });
}

TEST_F(Leaks, TheListWithAnEditAndALockLeavesNothingBehind) {
    expectNothingLeft(IDD_frmKBConfiguration, [this] {
        KBTest::open([this](vexa::frmKBConfiguration& form) {
            user.click(form.cmdAdd);
            user.press(form.window(), key::escape);
            choose(form, L"Mail");
            user.click(form.cmdUpdate);
            addIn.finish(L"Mail", false);
        });
    });
}

TEST_F(Leaks, TheBaseFolderLeavesNothingBehind) {
    application.settings.VexaBaseDir = stage->folder().substr(0, stage->folder().size() - 1);
    expectNothingLeftOf<vexa::frmKnowledgeBase>(
        IDD_frmKnowledgeBase, [&](vexa::frmKnowledgeBase& form) { user.click(form.cmdCancel); });
}

TEST_F(Leaks, TheAutoUpdateChooserLeavesNothingBehind) {
    expectNothingLeftOf<vexa::frmSelectDefaultKB>(
        IDD_frmSelectDefaultKB, [&](vexa::frmSelectDefaultKB& form) { user.click(form.cmdCancel); });
}

TEST_F(Leaks, TheComposerLeavesNothingBehind) {
    const auto openOnce = [&] {
        stage->whenShown<vexa::frmSendBugReport>(
            [&](vexa::frmSendBugReport& form) { user.closeWindow(form.window()); });
        vexa::showBugReport(application, page->window());
    };
    openOnce();  // The bare dialog needs the editor's library, which the first composer loads.
    expectNothingLeft(IDD_frmSendBugReport, openOnce);
}

}  // namespace
}  // namespace tests
