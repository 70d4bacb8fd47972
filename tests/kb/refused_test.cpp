// Commands that do not reach the add-in: no end of processing will ever come, so the dialog stays as it was.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

class KBRefused : public KBMailAndNews {
public:
    void SetUp() override {
        KBMailAndNews::SetUp();
        application.settings.DefaultProject = L"Mail";
        stage->setValue(KEY, L"DefaultProject", L"Mail");
    }
    /// An edit goes to the search window, the others to the add-in.
    static bool isEdit(const Command& command) { return std::string(command.name) == "Edit"; }
    void expectAsBefore(frmKBConfiguration& form) {
        expectUnlocked(form);
        EXPECT_EQ(buttons(form), ALL);
        expectList(form, {L"Mail", L"News"});
        EXPECT_EQ(current(form), L"Mail");
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

TEST_F(KBRefused, CommandsByAnErrorLeaveTheDialogAsItWas) {
    std::ptrdiff_t errors = 0;
    openForEach(COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        if (isEdit(command))
            stage->setValue(ROOT, L"hWndSearchCtl", 0);
        else
            calls.failCallsWith(command.call);
        give(form, command);
        calls.forgetFaults();
        expectAsBefore(form);
        if (!isEdit(command)) ++errors;
        EXPECT_EQ(std::ranges::count(log(), "ctlPPE, Error m_KBForm_KBClick: The add-in failed"), errors);
        expectNextCommandRuns(form);
    });
    EXPECT_TRUE(page->cmdWizard.enabled()) << "no process state is left behind";
}

TEST_F(KBRefused, CommandsBecauseTheAddInIsGoneLeaveTheDialogAsItWas) {
    openForEach(COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        if (isEdit(command)) stage->setValue(ROOT, L"hWndSearchCtl", 0);
        application.addIn.reset();  // the page's; the dialog keeps its own
        give(form, command);
        expectAsBefore(form);
        EXPECT_THAT(calls.linesWith("addin Notify"), IsEmpty());
        expectNextCommandRuns(form);
    });
}

TEST_F(KBRefused, CommandsWhileTheHostClosesTheDialogLeaveNoStateBehind) {
    for (const Command& command : COMMANDS) {
        openForEach({&command, 1}, [&](frmKBConfiguration& form, const Command&) {
            calls.during(command.call, [&] {
                form.window().close();
                if (isEdit(command)) throw vexa::Error(L"The search window failed");
            });
            if (!isEdit(command)) calls.failCallsWith(command.call);
            give(form, command);
            calls.forgetFaults();
            EXPECT_FALSE(form.window().isOpen());
        });
        EXPECT_EQ(stored(L"KBProcessState"), MISSING) << command.name;
    }
}

TEST_F(KBRefused, CommandsAfterTheirEndHasArrivedLeaveWhatItShows) {
    openForEach(COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        calls.during(command.call, [&] {
            recordNames({L"Mail", L"News", L"Zulu"});
            addIn.finish(L"Mail", false);
            throw vexa::Error(L"Too late");
        });
        give(form, command);
        expectList(form, {L"Mail", L"News", L"Zulu"});
        EXPECT_EQ(buttons(form).substr(0, 4), "AENM");
        EXPECT_EQ(stored(L"KBProcessState"), MISSING);
        recordNames({L"Mail", L"News"});
        addIn.finish(L"Mail", false);
    });
}

}  // namespace
}  // namespace tests
