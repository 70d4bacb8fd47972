// A name that is refused keeps the dialog where it is; an edit that names nothing changes nothing.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::IsEmpty;
using testing::SizeIs;
using vexa::frmKBConfiguration;

/// What the user does while a name is in the editor that will be refused.
struct Interruption {
    const char* name;
    void (*act)(User& user, frmKBConfiguration& form);
};

class KBInterruptedName : public KBTest, public testing::WithParamInterface<Interruption> {};

TEST_P(KBInterruptedName, ThatIsRefusedIsEditedAgainAndNothingElseHappens) {
    recordNames({L"Mail", L"News"});
    open([&](frmKBConfiguration& form) {
        choose(form, L"News");
        user.click(form.cmdRename);
        user.rewrite(form.sftKBConfiguration, L"a*b");
        calls.clear();
        GetParam().act(user, form);
        EXPECT_TRUE(form.window().isOpen());
        EXPECT_NE(form.sftKBConfiguration.editedRow(), -1);
        EXPECT_EQ(names(form), (std::vector<std::wstring>{L"Mail", L"News"}));
        EXPECT_THAT(stage->messages(), SizeIs(1));
        EXPECT_THAT(sent(), IsEmpty());
        EXPECT_FALSE(form.locked());
        user.press(form.window(), key::escape);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Ways, KBInterruptedName,
    testing::Values(
        Interruption{"ByClose", [](User&, frmKBConfiguration& form) { form.cmdCancel.onClick(); }},
        Interruption{"ByACommand", [](User&, frmKBConfiguration& form) { form.cmdUpdate.onClick(); }},
        Interruption{"ByASort",
                     [](User&, frmKBConfiguration& form) { form.sftKBConfiguration.onHeaderClick(0); }}),
    [](const auto& one) { return std::string(one.param.name); });

class KBStrayEdit : public KBTest {};

TEST_F(KBStrayEdit, ThatTheDialogHasNotBegunChangesNothing) {
    recordNames({L"Mail"});
    open([&](frmKBConfiguration& form) {
        form.sftKBConfiguration.openEditor(0);
        enter(form, L"Post");
        EXPECT_EQ(names(form), std::vector<std::wstring>{L"Mail"});
    });
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_EQ(storedText(L"OldProjectname"), L"(missing)");
}

// --- The dialog without a page ----------------------------------------------------------------------------

class KBAlone : public KBTest {
protected:
    void play(const std::function<void(frmKBConfiguration&)>& script) {
        stage->whenShown<frmKBConfiguration>([&](frmKBConfiguration& form) {
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
        stage->answerMessages({ui::MessageAnswer::yes, ui::MessageAnswer::yes});
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
    stage->whenShown<frmKBConfiguration>([&](frmKBConfiguration& form) {
        form.KBClick = [](bool&, std::wstring&, std::int32_t&) { return true; };
        stage->answerMessages({ui::MessageAnswer::yes});
        user.click(form.cmdAdd);
        enter(form, L"Archive");
        user.closeWindow(form.window());
    });
    frmKBConfiguration(application, stage->owner()).Show();
    EXPECT_EQ(application.settings.DefaultProject, L"Archive");
    EXPECT_TRUE(application.flags.defaultKnowledgebaseChanged);
}

}  // namespace
}  // namespace tests
