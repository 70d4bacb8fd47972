// A random walk over the page: the user, the add-in and a host that reacts, in whatever order, in a slow
// world.
#include <algorithm>

#include "kb/frmKBConfiguration.h"
#include "settings/frmAttachment.h"
#include "settings/frmDispMatches.h"
#include "settings/frmSettings.h"
#include "tests/page/page_test_base.h"
#include "tests/support/dice.h"
#include "tests/support/restless_world.h"

namespace tests {
namespace {

const int STEPS = walkLength(100'000);
constexpr int STEPS_OF_A_PAGE = 300;
constexpr const wchar_t* SEARCHING = L"The add-in is searching. Please wait until it has finished.";

class PageWalk : public PageTest {
protected:
    void SetUp() override {
        stage->setValue(ROOT, L"LoggingInformation", 0);
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        stage->setValue(PROFILE, L"VexaBaseDir", folder_);
        stage->createFolder(folder_ + L"\\Temp");
        // A host asks at once whether the page is dirty, and some apply at once.
        site.whenStatusChanges = [this] {
            ++told_;
            ASSERT_TRUE(page->PropertyPage_Dirty());
            if (dice_.oneIn(4)) page->PropertyPage_Apply();
        };
    }

    void play() {
        while (steps_ < STEPS && !HasFatalFailure()) {
            begin();
            const int last = std::min(STEPS, steps_ + 1 + dice_.roll(STEPS_OF_A_PAGE));
            while (steps_ < last && !HasFatalFailure()) step();
            finish();
        }
        std::printf(
            "%d steps, %d dialogs, %d changes told, %d slow calls, %d waits inside calls, %d closings\n",
            steps_, dialogs_, told_, world_.slowCalls(), world_.waits(), world_.closings());
        EXPECT_GT(dialogs_, STEPS / 200);
        EXPECT_GT(told_, STEPS / 1000);
        EXPECT_GT(world_.closings(), STEPS / 1000);
    }

private:
    // --- A page's life ------------------------------------------------------------------------------------

    void begin() {
        stage->setValue(PROFILE, L"CurrentProfile", dice_.oneIn(2) ? L"Work" : L"");
        stage->setAddInRunning(!dice_.oneIn(6));
        world_.stir();
        start();
        settle();
        ASSERT_FALSE(page->PropertyPage_Dirty());
        ASSERT_EQ(integer(application.ProfileKey, L"hWndProperties"),
                  static_cast<std::int32_t>(page->cmdMsg.handle()));
    }
    void finish() {
        const std::wstring key = application.ProfileKey;
        world_.stir();
        end();
        settle();
        EXPECT_FALSE(stage->value(key, L"hWndProperties"));
        user.wait(600);
        EXPECT_TRUE(calls.lines().empty()) << "nothing goes on: " << calls.lines().front();
    }
    /// Nothing more is planned, and what has been noted is forgotten.
    void settle() {
        calls.forgetFaults();
        calls.clear();
    }

    // --- Steps --------------------------------------------------------------------------------------------

    void step() {
        ++steps_;
        world_.stir();
        act();
        const auto pointers = calls.linesWith("pointer");
        ASSERT_TRUE(pointers.empty() || pointers.back() == "pointer 0");
        checkRows();
        settle();
        if (dice_.oneIn(10)) checkButtons();
    }

    void act() {
        const int choice = dice_.roll(100);
        if (choice < 12) return open(page->cmdSettings);
        if (choice < 22) return open(page->cmdDispMatches);
        if (choice < 32) return open(page->cmdAttachments);
        if (choice < 42) return open(page->cmdKnowledgeBase);
        if (choice < 50) return user.click(page->cmdWizard);
        if (choice < 58) return user.sendKey(page->cmdMsg, 19 + dice_.roll(4));
        if (choice < 66) return user.moveMouse(page->cmdMsg, 19 + dice_.roll(4), 0);
        if (choice < 76) return user.wait(dice_.roll(600));
        if (choice < 84) return change();
        if (choice < 90) return page->PropertyPage_Apply();
        if (choice < 96) return user.press(page->window(), key::tab);
        user.resize(page->window(), {dice_.roll(800), dice_.roll(800)});
    }

    /// The add-in goes on with its work.
    void change() {
        stage->addIn().searching = dice_.oneIn(3);
        stage->addIn().processing = dice_.oneIn(3);
        stage->setValue(application.ProfileKey, L"KBProcessState", 1 + dice_.roll(3));
        stage->setValue(application.ProfileKey, L"ProjectCount", dice_.roll(3));
        stage->writeFile(folder_ + L"\\default.dct", dice_.oneIn(2) ? "x" : "");
    }

    // --- Dialogs ------------------------------------------------------------------------------------------

    /// A dialog that the host closes while it loads is not shown: its script waits for the next one.
    void open(ui::Button& button) {
        if (!waiting_) stage->whenShown(Script([this](ui::Form& form) { use(form); }));
        waiting_ = true;
        user.click(button);
    }
    void use(ui::Form& form) {
        waiting_ = false;
        ++dialogs_;
        if (auto* settings = dynamic_cast<vexa::frmSettings*>(&form)) use(*settings, settings->chkAutoInfo);
        if (auto* highlights = dynamic_cast<vexa::frmDispMatches*>(&form))
            use(*highlights, highlights->chkKeepHighlights);
        if (auto* attachments = dynamic_cast<vexa::frmAttachment*>(&form))
            use(*attachments, attachments->chkFindAtt);
        if (form.window().isOpen()) user.closeWindow(form.window());
    }
    template <class Form>
    void use(Form& form, ui::CheckBox& box) {
        if (dice_.oneIn(2)) user.click(box);
        if (dice_.oneIn(3)) user.wait(dice_.roll(500));
        user.click(dice_.oneIn(3) ? form.cmdCancel : form.cmdOk);
    }

    // --- The rules ----------------------------------------------------------------------------------------

    void checkRows() {
        const bool searching = !page->cmdSettings.enabled();
        const std::pair<const ui::Button&, int> rows[] = {{page->cmdKnowledgeBase, IDC_lblKnowledgeBaseInfo},
                                                          {page->cmdSettings, IDC_lblSettingsInfo},
                                                          {page->cmdAttachments, IDC_lblAttachmentsInfo},
                                                          {page->cmdDispMatches, IDC_lblDispMatchesInfo},
                                                          {page->cmdWizard, IDC_lblWizardInfo}};
        for (const auto& [button, info] : rows) {
            const std::wstring text = page->window().control<ui::Label>(info).text();
            ASSERT_EQ(text == SEARCHING, searching && !button.enabled());
            ASSERT_EQ(text, button.description());
            // The add-in alone switches the wizard by itself.
            ASSERT_TRUE(info == IDC_lblWizardInfo || button.enabled() == !searching);
        }
    }

    /// In a quiet moment the buttons say what the add-in does.
    void checkButtons() {
        user.wait(260);
        if (application.addIn) {
            ASSERT_EQ(page->cmdSettings.enabled(), !stage->addIn().searching);
        }
        settle();
    }

    const std::wstring folder_ = stage->folder() + L"kb";
    Dice dice_{"page"};
    RestlessWorld world_{dice_, *stage};
    bool waiting_ = false;
    int steps_ = 0;
    int dialogs_ = 0;
    int told_ = 0;

protected:
    /// A script that still waits is played by a dialog that nothing disturbs.
    void playWaitingScript() {
        if (!waiting_) return;
        stage->addIn().searching = false;
        start();
        user.click(page->cmdDispMatches);
        end();
    }
};

TEST_F(PageWalk, ItsRulesHoldAfterEveryAction) {
    play();
    playWaitingScript();
}

}  // namespace
}  // namespace tests
