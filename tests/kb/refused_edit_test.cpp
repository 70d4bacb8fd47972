// A name that is refused keeps the dialog where it is; an edit that names nothing changes nothing.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

/// What the user does while a name is in the editor that will be refused.
struct Interruption {
    const char* name;
    std::function<void(frmKBConfiguration& form)> act;
};

class KBStrayEdit : public KBMailAndNews {};

TEST_F(KBStrayEdit, OfANameThatIsRefusedGoesOnAndNothingElseHappens) {
    const Interruption interruptions[] = {
        {"close", [](frmKBConfiguration& form) { form.cmdCancel.onClick(); }},
        {"a command", [](frmKBConfiguration& form) { form.cmdUpdate.onClick(); }},
        {"a click on a command", [&](frmKBConfiguration& form) { user.click(form.cmdUpdate); }},
        {"a sort", [](frmKBConfiguration& form) { form.sftKBConfiguration.onHeaderClick(0); }},
    };
    open([&](frmKBConfiguration& form) {
        for (const Interruption& interruption : interruptions) {
            SCOPED_TRACE(interruption.name);
            const std::size_t said = stage->messages().size();
            choose(form, L"News");
            user.click(form.cmdRename);
            user.rewrite(form.sftKBConfiguration, L"a*b");
            calls.clear();
            interruption.act(form);
            EXPECT_TRUE(form.window().isOpen());
            EXPECT_NE(form.sftKBConfiguration.editedRow(), -1);
            EXPECT_EQ(stage->messages().size(), said + 1);
            EXPECT_THAT(sent(), IsEmpty());
            EXPECT_FALSE(form.locked());
            EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
            user.press(form.window(), key::escape);
            expectList(form, {L"Mail", L"News"});
        }
    });
}

TEST_F(KBStrayEdit, ThatTheDialogHasNotBegunChangesNothing) {
    open([&](frmKBConfiguration& form) {
        form.sftKBConfiguration.openEditor(0);
        enter(form, L"Post");
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
    });
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_EQ(storedText(L"OldProjectname"), L"(missing)");
}

// --- The dialog without a page ----------------------------------------------------------------------------

class KBAlone : public KBTest {
public:
    void play(FunctionRef<void(frmKBConfiguration&)> script) {
        stage->whenShown<frmKBConfiguration>([&](frmKBConfiguration& form) {
            stage->answerMessages({MessageAnswer::yes, MessageAnswer::yes});
            script(form);
            user.closeWindow(form.window());
        });
        frmKBConfiguration(application, stage->owner()).Show();
    }
};

TEST_F(KBAlone, ItsCommandsReachNobodyAndItUnlocks) {
    recordNames({L"Mail", L"News"});
    application.settings.DefaultProject = L"Mail";
    play([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        for (ui::Button* button : {&form.cmdUpdate, &form.cmdRemove, &form.cmdBaseFolder}) {
            user.click(*button);
            EXPECT_FALSE(form.locked());
        }
        EXPECT_EQ(stored(L"KBProcessState"), MISSING);
        EXPECT_EQ(buttons(form), ALL);
    });
    EXPECT_EQ(application.settings.DefaultProject, L"Mail") << "nobody has removed it";
    EXPECT_THAT(sent(), IsEmpty());
}

TEST_F(KBAlone, AChosenAutoUpdateKnowledgebaseStaysInTheRecord) {
    recordNames({});
    play([&](frmKBConfiguration& form) {
        form.KBClick = [](bool&, std::wstring&, std::int32_t&) { return true; };
        user.click(form.cmdAdd);
        enter(form, L"Archive");
    });
    EXPECT_EQ(application.settings.DefaultProject, L"Archive");
    EXPECT_TRUE(application.flags.defaultKnowledgebaseChanged);
}

}  // namespace
}  // namespace tests
