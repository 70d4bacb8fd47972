// Commands that do not reach the add-in: no end of processing will ever come, so the dialog stays as it was.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using vexa::frmKBConfiguration;
using Names = std::vector<std::wstring>;
using ui::MessageAnswer;

struct RefusedCommand {
    const char* name;
    void (*give)(User&, frmKBConfiguration&);
    const char* call;  ///< what carries it to the add-in
};

const RefusedCommand REFUSED[] = {
    {"Edit", [](User& user, frmKBConfiguration& form) { user.click(form.cmdEdit); }, "message"},
    {"Remove", [](User& user, frmKBConfiguration& form) { user.click(form.cmdRemove); },
     "addin NotifyKbRemoved"},
    {"Rebuild", [](User& user, frmKBConfiguration& form) { user.click(form.cmdRebuild); },
     "addin NotifyKbRebuild"},
    {"Update", [](User& user, frmKBConfiguration& form) { user.click(form.cmdUpdate); },
     "addin NotifyKbUpdate"},
    {"Rename",
     [](User& user, frmKBConfiguration& form) {
         user.click(form.cmdRename);
         user.rewrite(form.sftKBConfiguration, L"Zulu");
         user.press(form.window(), key::enter);
     },
     "addin NotifyKbRenamed"},
    {"Add",
     [](User& user, frmKBConfiguration& form) {
         user.click(form.cmdAdd);
         user.rewrite(form.sftKBConfiguration, L"Zulu");
         user.press(form.window(), key::enter);
     },
     "addin NotifyKbAdded"},
};

class KBRefused : public KBTest, public testing::WithParamInterface<RefusedCommand> {
protected:
    void SetUp() override {
        KBTest::SetUp();
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        application.settings.DefaultProject = L"Mail";
        stage->setValue(KEY, L"DefaultProject", L"Mail");
        recordNames({L"Mail", L"News"});
    }
    [[nodiscard]] bool isEdit() const { return std::string(GetParam().name) == "Edit"; }
    void give(frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->answerMessages({MessageAnswer::yes});
        calls.clear();
        GetParam().give(user, form);
        calls.forgetFaults();
    }
    void expectAsBefore(frmKBConfiguration& form) {
        EXPECT_FALSE(form.locked());
        EXPECT_FALSE(anyRowGreyed(form));
        EXPECT_EQ(buttons(form), ALL);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
        EXPECT_EQ(current(form), L"Mail");
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), -1);
        EXPECT_EQ(stored(L"KBProcessState"), MISSING);
        EXPECT_EQ(application.settings.DefaultProject, L"Mail");
        EXPECT_EQ(storedText(L"DefaultProject"), L"Mail");
        EXPECT_FALSE(application.flags.defaultKnowledgebaseChanged);
    }
    /// Nothing of the refused command is left: the next one runs its course.
    void expectNextCommandRuns(frmKBConfiguration& form) {
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        calls.clear();
        user.click(form.cmdEdit);
        EXPECT_TRUE(form.locked());
        EXPECT_EQ(stored(L"KBProcessState"), 2);
        addIn.finish(L"Mail", true);
        EXPECT_FALSE(form.locked());
        EXPECT_THAT(calls.linesWith("message"), ElementsAre("message 4711 1139 0 0"))
            << "no removal is pending";
    }
};

TEST_P(KBRefused, ByAnErrorLeaveTheDialogAsItWas) {
    open([&](frmKBConfiguration& form) {
        if (isEdit())
            stage->setValue(ROOT, L"hWndSearchCtl", 0);
        else
            calls.failCallsWith(GetParam().call);
        give(form);
        expectAsBefore(form);
        expectNextCommandRuns(form);
    });
    if (!isEdit()) {
        EXPECT_THAT(log(), Contains("ctlPPE, Error m_KBForm_KBClick: The add-in failed"));
    }
    EXPECT_TRUE(page->cmdWizard.enabled()) << "no process state is left behind";
}

TEST_P(KBRefused, BecauseTheAddInIsGoneLeaveTheDialogAsItWas) {
    if (isEdit()) stage->setValue(ROOT, L"hWndSearchCtl", 0);
    open([&](frmKBConfiguration& form) {
        application.addIn.reset();  // the page's; the dialog keeps its own
        give(form);
        expectAsBefore(form);
        EXPECT_THAT(calls.linesWith("addin Notify"), IsEmpty());
        expectNextCommandRuns(form);
    });
}

TEST_P(KBRefused, WhileTheHostClosesTheDialogLeaveNoStateBehind) {
    open([&](frmKBConfiguration& form) {
        calls.during(GetParam().call, [&] {
            form.window().close();
            if (isEdit()) throw vexa::Error(L"The search window failed");
        });
        if (!isEdit()) calls.failCallsWith(GetParam().call);
        give(form);
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_EQ(stored(L"KBProcessState"), MISSING);
}

TEST_P(KBRefused, AfterTheirEndHasArrivedLeaveWhatItShows) {
    open([&](frmKBConfiguration& form) {
        calls.during(GetParam().call, [&] {
            recordNames({L"Mail", L"News", L"Zulu"});
            addIn.finish(L"Mail", false);
            throw vexa::Error(L"Too late");
        });
        give(form);
        EXPECT_FALSE(form.locked());
        EXPECT_EQ(names(form), (Names{L"Mail", L"News", L"Zulu"}));
        EXPECT_EQ(buttons(form).substr(0, 4), "AENM");
        EXPECT_EQ(stored(L"KBProcessState"), MISSING);
    });
}

INSTANTIATE_TEST_SUITE_P(Commands, KBRefused, testing::ValuesIn(REFUSED),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace tests
