// Commands that fail halfway or are overtaken by events: no row, flag or lock outlives them, and none acts on
// another knowledgebase than the one that was meant.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

class KBRecovery : public KBMailAndNews {
public:
    /// The list is read anew, with these, while the add-in is asked whether it updates.
    void readAnewInTheGuard(const Names& recorded) {
        calls.during("addin IsAutoUpdateRunning", [this, recorded] {
            recordNames(recorded);
            addIn.finish(recorded.front(), false);
        });
    }
};

// --- A new row --------------------------------------------------------------------------------------------

TEST_F(KBRecovery, AFailureAfterANewOneIsAnnouncedGivesTheCommandsBack) {
    open([&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        calls.during("addin NotifyKbAdded", [&] { calls.failCallsWith("addin IsAutoUpdateRunning"); });
        enter(form, L"Post");
        calls.forgetFaults();
        EXPECT_FALSE(form.locked());
        EXPECT_EQ(buttons(form), "AENM") << "no documents yet";
        EXPECT_EQ(names(form), (Names{L"Mail", L"News", L"Post"}));
        expectEditOf(form, L"Mail");
    });
    EXPECT_THAT(log(), Contains("frmKBConfiguration, Error PostEdit: The add-in failed"));
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbAdded(Post)", "message 4711 1139 0 0"));
}

TEST_F(KBRecovery, ANameWhoseListWasReadAnewDuringItsRefusalIsForgotten) {
    open([&](frmKBConfiguration& form) {
        for (ui::Button* button : {&form.cmdAdd, &form.cmdRename})
            for (const wchar_t* refused : {L"a*b", L"news"}) {
                choose(form, L"Mail");
                user.click(*button);
                calls.during("screen message", [&] { addIn.finish(L"Mail", false); });
                enter(form, refused);
                expectList(form, {L"Mail", L"News"});
                expectEditOf(form, L"News");
                addIn.finish(L"News", false);
            }
    });
}

TEST_F(KBRecovery, ClosingWhileARefusalIsShownForgetsTheNewRow) {
    open([&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        calls.during("screen message", [&] { form.window().close(); });
        enter(form, L"a*b");
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_EQ(application.settings.ProjectCount, 2);
}

TEST_F(KBRecovery, AddWhileTheListIsReadAnewIsNotTaken) {
    for (const bool byTick : {false, true}) {
        SCOPED_TRACE(byTick ? "tick" : "event");
        if (byTick) {
            stage->setValue(KEY, L"KBProcessState", 3);
            stage->setValue(KEY, L"EditNoChange", 1);
        }
        open([&](frmKBConfiguration& form) {
            calls.during("doevents", [&] { user.click(form.cmdAdd); });
            if (byTick)
                user.wait(TICK);
            else
                addIn.finish(L"Mail", false);
            expectList(form, {L"Mail", L"News"});
            expectEditOf(form, L"News");
            addIn.finish(L"News", true);
        });
    }
}

// --- The row that is meant --------------------------------------------------------------------------------

TEST_F(KBRecovery, ADoubleClickMeansTheKnowledgebaseNotTheNumberOfItsRow) {
    open([&](frmKBConfiguration& form) {
        readAnewInTheGuard({L"Alpha", L"Mail", L"News"});
        user.doubleClickRow(form.sftKBConfiguration, 1);
        EXPECT_TRUE(form.locked());
        EXPECT_EQ(storedText(L"ProjectEventName"), L"News");
    });
}

TEST_F(KBRecovery, F2MeansTheKnowledgebaseNotTheNumberOfItsRow) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"News");
        readAnewInTheGuard({L"Alpha", L"Mail", L"News"});
        user.press(form.window(), key::f2);
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), 2);
        enter(form, L"Post");
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRenamed(News, Post)"));
}

TEST_F(KBRecovery, ADoubleClickOnAKnowledgebaseThatIsGoneMeanwhileDoesNothing) {
    open([&](frmKBConfiguration& form) {
        readAnewInTheGuard({L"Mail"});
        user.doubleClickRow(form.sftKBConfiguration, 1);
        expectUnlocked(form);
    });
    EXPECT_THAT(sent(), IsEmpty());
}

// --- Locks ------------------------------------------------------------------------------------------------

TEST_F(KBRecovery, ARowClickedWhileTheDialogLocksItselfEnablesNothing) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        calls.during("doevents", [&] { user.clickRow(form.sftKBConfiguration, 1); });
        user.click(form.cmdUpdate);
        EXPECT_TRUE(form.locked());
        EXPECT_EQ(buttons(form), "");
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbUpdate(Mail)"));
}

// --- The add-in -------------------------------------------------------------------------------------------

TEST_F(KBRecovery, TheDialogKeepsItsAddInWhateverAnotherPageFinds) {
    open([&](frmKBConfiguration& form) {
        application.addIn.reset();
        expectEditOf(form, L"News");
        addIn.finish(L"News", false);
        expectUnlocked(form);
    });
    EXPECT_THAT(sent(), ElementsAre("message 4711 1139 0 0"));
}

TEST_F(KBRecovery, WithoutAnAddInTheListIsShownAndTheCommandsDoNothing) {
    end();
    stage->setAddInRunning(false);
    start();
    const std::size_t messages = stage->messages().size();
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
        choose(form, L"Mail");
        EXPECT_EQ(buttons(form), ALL);
        for (const Command& command : COMMANDS) {
            user.click(command.button(form));
            expectList(form, {L"Mail", L"News"});
        }
        user.doubleClickRow(form.sftKBConfiguration, 1);
        EXPECT_FALSE(form.locked());
        user.clickHeader(form.sftKBConfiguration, 0);
    });
    EXPECT_EQ(stage->messages().size(), messages);
    EXPECT_EQ(stored(L"KBProcessState"), MISSING);
    EXPECT_THAT(log(), Contains("frmKBConfiguration, ...load finished."));
    EXPECT_THAT(log(), Not(Contains(StartsWith("frmKBConfiguration, Error"))));
}

// --- Long names -------------------------------------------------------------------------------------------

TEST_F(KBRecovery, ALongNameIsTakenAsItIsTypedAndStaysWholeWhereItIsLeft) {
    const std::wstring longName = std::wstring(150, L'x') + std::wstring(150, L'y');
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        rename(form, L"Mail", longName);
        EXPECT_EQ(names(form), Names{longName});
        EXPECT_EQ(storedText(L"ProjectEventName"), longName);
        calls.clear();
        user.press(form.window(), key::f2);
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), 0);
        user.press(form.window(), key::enter);
        EXPECT_EQ(names(form), Names{longName});
        EXPECT_THAT(sent(), IsEmpty());
    });
}

// --- Without a profile ------------------------------------------------------------------------------------

/// The profile's name is empty: a knowledgebase's key has two backslashes before its name.
class KBNoProfile : public PageTest {
protected:
    void SetUp() override {
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        stage->setValue(PROFILE, L"ProjectCount", 1);
        stage->setValue(PROFILE, L"Project1", L"Mail");
        const std::wstring key = std::wstring(PROFILE) + L"\\Mail";
        stage->setValue(key, L"KBLastUpdate", L"43831.5");
        stage->setValue(key, L"KBSize", 2048);
        stage->setValue(key, L"KBDocuments", 9);
        start();
    }
};

TEST_F(KBNoProfile, RecordsAreReadAndCommandsCarriedOutAllTheSame) {
    calls.clear();
    stage->whenShown<frmKBConfiguration>([&](frmKBConfiguration& form) {
        ASSERT_EQ(form.sftKBConfiguration.rowCount(), 1);
        EXPECT_EQ(form.sftKBConfiguration.cellText(0, 1), L"01/01/2020 12:00:00 PM");
        EXPECT_EQ(form.sftKBConfiguration.cellText(0, 2), L"2 KB");
        EXPECT_EQ(form.sftKBConfiguration.cellText(0, 3), L"       9");
        user.clickRow(form.sftKBConfiguration, 0);
        EXPECT_TRUE(form.cmdUpdate.enabled());
        user.click(form.cmdUpdate);
        EXPECT_TRUE(form.locked());
        EXPECT_EQ(integer(PROFILE, L"KBProcessState"), 2);
        stage->addIn().finish(L"Mail", false);
        EXPECT_EQ(integer(PROFILE, L"KBProcessState"), MISSING);
        EXPECT_FALSE(form.locked());
        user.closeWindow(form.window());
    });
    user.click(page->cmdKnowledgeBase);
    EXPECT_THAT(calls.lines(), Contains("registry open Software\\Norvane\\Quillmark\\\\Mail"));
    EXPECT_THAT(calls.lines(), Contains("addin NotifyKbUpdate(Mail)"));
    EXPECT_EQ(text(PROFILE, L"ProjectEventName"), L"Mail");
    EXPECT_EQ(integer(PROFILE, L"KBConfigColumn"), 0);
}

}  // namespace
}  // namespace tests
