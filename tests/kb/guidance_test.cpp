// Nobody is left alone with the knowledgebase dialog: what goes on is said, the focus is where keys do
// something, one row is current, and the list's menu offers what is allowed.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

class KBGuidance : public KBMailAndNews {
public:
    void SetUp() override {
        KBMailAndNews::SetUp();
        recordNames({L"Mail", L"News", L"Post"});
    }
    static Names menuOf(const frmKBConfiguration& form) {
        Names texts;
        for (const ui::GridCommand& entry : form.sftKBConfiguration.menu()) texts.push_back(entry.text);
        return texts;
    }
    void chooseFromMenu(frmKBConfiguration& form, const std::wstring& text) {
        const Names texts = menuOf(form);
        const auto found = std::ranges::find(texts, text);
        ASSERT_NE(found, texts.end());
        user.chooseFromMenu(form.sftKBConfiguration, static_cast<int>(found - texts.begin()));
    }
    void remove(frmKBConfiguration& form, const std::wstring& name, const Names& left) {
        choose(form, name);
        stage->answerMessages({MessageAnswer::yes});
        user.click(form.cmdRemove);
        recordNames(left);
        addIn.finish(name, false);
    }
};

// --- What goes on -----------------------------------------------------------------------------------------

TEST_F(KBGuidance, EachCommandIsNamedWithItsKnowledgebaseForAsLongAsItRuns) {
    openForEach(LOCKING_COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        EXPECT_EQ(form.lblStatus.text(), L"");
        give(form, command);
        EXPECT_EQ(form.lblStatus.text(), command.said);
        EXPECT_TRUE(form.lblStatus.visible());
        EXPECT_THAT(stage->announced(), Contains(command.said));
        addIn.finish(L"Mail", true);
        EXPECT_EQ(form.lblStatus.text(), L"");
    });
}

TEST_F(KBGuidance, EachCommandKeepsTheFocusInTheListAndGivesItBackToItsButton) {
    openForEach(LOCKING_COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        give(form, command);
        ASSERT_TRUE(form.locked());
        EXPECT_TRUE(form.sftKBConfiguration.hasFocus());
        addIn.finish(L"Mail", true);
        EXPECT_TRUE(command.button(form).hasFocus());
    });
}

TEST_F(KBGuidance, ACommandThatNeverReachesTheAddInSaysNothing) {
    openForEach(LOCKING_COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        form.KBClick = nullptr;
        give(form, command);
        EXPECT_EQ(form.lblStatus.text(), L"");
        EXPECT_TRUE(form.cmdBaseFolder.enabled());
        EXPECT_TRUE(command.button(form).hasFocus());
    });
}

TEST_F(KBGuidance, AnAddInThatWorksAtLoadIsSaidToWork) {
    addIn.processing = true;
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(form.lblStatus.text(), L"The add-in is working on the knowledgebases...");
        addIn.finish(L"Mail", false);
        EXPECT_EQ(form.lblStatus.text(), L"");
    });
}

TEST_F(KBGuidance, ACommandThatAnEarlierOpeningGaveIsStillNamed) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"News");
        user.click(form.cmdRebuild);
    });
    addIn.processing = true;
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(form.lblStatus.text(), L"The add-in is rebuilding 'News'...");
        EXPECT_FALSE(form.cmdBaseFolder.enabled());
    });
}

TEST_F(KBGuidance, LongRightToLeftAndCombiningNamesAreShownAndSaidWhole) {
    const Names unusual{std::wstring(255, L'W'), L"\x05E9\x05DC\x05D5\x05DD (1)", L"Cafe\x0301 R&D"};
    for (const std::wstring& name : unusual)
        open([&](frmKBConfiguration& form) {
            rename(form, L"Mail", name);
            ASSERT_NE(rowOf(form, name), -1);
            user.click(form.cmdEdit);
            EXPECT_EQ(form.lblStatus.text(), L"The add-in is editing '" + name + L"'...");
        });
}

TEST_F(KBGuidance, WithoutAnAddInTheStatusLineSaysWhatIsPossible) {
    application.addIn.reset();
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(form.lblStatus.text(),
                  L"The add-in is not running: the list can be looked at and not changed.");
        user.clickHeader(form.sftKBConfiguration, 0);
        EXPECT_EQ(names(form), (Names{L"Post", L"News", L"Mail"})) << "sorting is looking";
        user.clickHeader(form.sftKBConfiguration, 0);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News", L"Post"}));
    });
}

TEST_F(KBGuidance, TheBaseFolderIsNotOfferedWhileTheDialogIsLocked) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        EXPECT_FALSE(form.cmdBaseFolder.enabled());
        addIn.finish(L"Mail", false);
        EXPECT_TRUE(form.cmdBaseFolder.enabled());
        user.click(form.cmdUpdate);
        endByTick();
        EXPECT_TRUE(form.cmdBaseFolder.enabled()) << "after a tick, too";
    });
}

// --- The focus --------------------------------------------------------------------------------------------

TEST_F(KBGuidance, AFocusThatTheUserHasMovedOnStaysWhereItIs) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        user.press(form.window(), key::tab);
        ASSERT_TRUE(form.cmdCancel.hasFocus()) << "the only button that is left";
        addIn.finish(L"Mail", false);
        EXPECT_TRUE(form.cmdCancel.hasFocus());
    });
}

TEST_F(KBGuidance, ACommandFromTheListLeavesTheFocusThere) {
    open([&](frmKBConfiguration& form) {
        user.doubleClickRow(form.sftKBConfiguration, 1);
        ASSERT_TRUE(form.locked());
        EXPECT_TRUE(form.sftKBConfiguration.hasFocus());
        addIn.finish(L"News", false);
        EXPECT_TRUE(form.sftKBConfiguration.hasFocus());
    });
}

TEST_F(KBGuidance, TheFocusStaysInTheListWhereTheButtonIsNoLongerAllowed) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        record({{L"Mail", {}, {}, 0}, {L"News", {}, {}, 7}});
        addIn.finish(L"Mail", false);
        ASSERT_FALSE(form.cmdUpdate.enabled());
        EXPECT_TRUE(form.sftKBConfiguration.hasFocus());
    });
}

TEST_F(KBGuidance, TheFocusThatAGuardedPressTookGoesOnWhenTheDialogUnlocks) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        EXPECT_FALSE(form.cmdApply.visible()) << "nothing for screen readers";
        user.click(form.cmdUpdate);
        user.click(form.cmdCancel);
        ASSERT_TRUE(form.cmdApply.hasFocus());
        addIn.finish(L"Mail", false);
        EXPECT_TRUE(form.cmdUpdate.hasFocus());
        EXPECT_FALSE(form.cmdApply.visible());
        user.doubleClickRow(form.sftKBConfiguration, 0);
        user.click(form.cmdCancel);
        addIn.finish(L"Mail", false);
        EXPECT_TRUE(form.sftKBConfiguration.hasFocus()) << "no button was pressed";
    });
}

// --- The current row --------------------------------------------------------------------------------------

TEST_F(KBGuidance, AnOpeningMakesTheFirstRowCurrentWhereNothingElseIsMeant) {
    stage->setValue(KEY, L"Projectname", L"Elsewhere");
    stage->setValue(KEY, L"KBConfigColumn", 0);
    stage->setValue(KEY, L"KBConfigSortOrder", 0);
    stage->setValue(KEY, L"KBConfigSortType", 1);
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(names(form), (Names{L"Post", L"News", L"Mail"}));
        EXPECT_EQ(current(form), L"Post") << "of the sorted list";
        EXPECT_EQ(buttons(form), ALL);
    });
}

TEST_F(KBGuidance, AfterARemovalTheNeighbourIsCurrent) {
    open([&](frmKBConfiguration& form) {
        remove(form, L"News", {L"Mail", L"Post"});
        EXPECT_EQ(current(form), L"Post") << "the next one";
        remove(form, L"Post", {L"Mail"});
        EXPECT_EQ(current(form), L"Mail") << "the one before, after the last";
        EXPECT_EQ(buttons(form), ALL);
        remove(form, L"Mail", {});
        EXPECT_EQ(current(form), L"(none)");
        EXPECT_EQ(buttons(form), "A");
    });
}

TEST_F(KBGuidance, AnEndByATickLeavesTheNeighbourOfARemovedOneCurrent) {
    open([&](frmKBConfiguration& form) {
        removeMail(form);
        recordNames({L"News", L"Post"});
        endByTick();
        EXPECT_EQ(names(form), (Names{L"News", L"Post"}));
        EXPECT_EQ(current(form), L"News");
    });
}

TEST_F(KBGuidance, TheCurrentRowStaysWhereTheAddInNamesNone) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"Post");
        recordNames({L"Archive", L"Mail", L"News", L"Post"});
        stage->setValue(KEY, L"ProjectEventName", L"");
        addIn.finish(L"Archive", false);
        EXPECT_EQ(current(form), L"Post");
    });
}

// --- The list's menu --------------------------------------------------------------------------------------

TEST_F(KBGuidance, TheMenuHoldsTheCommandsThatAreAllowedAndTheSort) {
    record({{L"Empty", {}, {}, 0}, {L"Mail", {}, {}, 7}});
    const auto with = [](Names commands) {
        for (const std::wstring& header : declaredHeaders()) commands.push_back(L"Sort by " + header);
        return commands;
    };
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        EXPECT_EQ(menuOf(form), with({L"&Add", L"&Edit", L"Re&name", L"Re&move", L"Re&build", L"&Update"}));
        choose(form, L"Empty");
        EXPECT_EQ(menuOf(form), with({L"&Add", L"&Edit", L"Re&name", L"Re&move"}));
        user.click(form.cmdEdit);
        EXPECT_THAT(menuOf(form), IsEmpty()) << "while the dialog is locked nothing is allowed";
    });
    recordNames({});
    open([&](frmKBConfiguration& form) { EXPECT_EQ(menuOf(form), with({L"&Add"})); });
}

TEST_F(KBGuidance, TheMenusEntriesDoWhatTheyAreCalled) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"News");
        chooseFromMenu(form, L"Re&build");
        EXPECT_TRUE(form.locked());
        EXPECT_TRUE(form.sftKBConfiguration.hasFocus());
        addIn.finish(L"News", false);
        chooseFromMenu(form, L"Sort by Knowledgebase");
        chooseFromMenu(form, L"Sort by Knowledgebase");
        EXPECT_EQ(names(form), (Names{L"Post", L"News", L"Mail"}));
        EXPECT_EQ(current(form), L"News");
    });
    EXPECT_THAT(sent(), Contains("addin NotifyKbRebuild(News)"));
}

// --- A fill that takes long -------------------------------------------------------------------------------

const std::string POINTER_HOURGLASS = "pointer 11";
const std::string POINTER_STANDARD = "pointer 0";

TEST_F(KBGuidance, AFillThatTakesLongIsSeenWhileItGoesOn) {
    const std::string read = "registry query Software\\Norvane\\Quillmark\\Alice\\Project";
    frmKBConfiguration form(application, page->window());
    bool seen = false;
    calls.takes(read + "1", 150);
    calls.during(read + "2", [&] {
        seen = true;
        EXPECT_TRUE(stage->isShown(form.window()));
        EXPECT_EQ(form.lblStatus.text(), L"Reading the knowledgebases: 1 of 3...");
        EXPECT_THAT(calls.lines(), Contains(POINTER_HOURGLASS));
        EXPECT_THAT(calls.lines(), Not(Contains(POINTER_STANDARD)));
    });
    stage->whenShown<frmKBConfiguration>([&](frmKBConfiguration& shown) {
        EXPECT_EQ(names(shown), (Names{L"Mail", L"News", L"Post"}));
        EXPECT_EQ(shown.lblStatus.text(), L"");
        EXPECT_TRUE(shown.sftKBConfiguration.hasFocus());
        user.closeWindow(shown.window());
    });
    form.Show();
    EXPECT_TRUE(seen);
    EXPECT_THAT(calls.lines(), Contains(POINTER_STANDARD));
}

TEST_F(KBGuidance, AFillThatIsDoneAtOnceShowsNoHourglass) {
    open([&](frmKBConfiguration&) {});
    EXPECT_THAT(calls.lines(), Not(Contains(POINTER_HOURGLASS)));
}

TEST_F(KBGuidance, ALongRefillAtTheEndOfACommandIsSeenAndTheStatusLineIsEmptyAfterIt) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        std::wstring said;
        const std::string read = "registry query Software\\Norvane\\Quillmark\\Alice\\Project";
        calls.takes(read + "2", 150);
        calls.during(read + "3", [&] { said = form.lblStatus.text(); });
        addIn.finish(L"Mail", false);
        calls.forgetFaults();
        EXPECT_EQ(said, L"Reading the knowledgebases: 2 of 3...");
        EXPECT_EQ(form.lblStatus.text(), L"");
    });
}

}  // namespace
}  // namespace tests
