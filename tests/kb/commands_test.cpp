// The commands of the knowledgebase dialog: what each asks, tells the add-in and leaves behind.
#include "kb/frmKnowledgeBase.h"
#include "kb/frmSelectDefaultKB.h"
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using vexa::frmSelectDefaultKB;

const ui::Message AUTO_UPDATE_RUNS{
    L"An auto-update is currently running.\r\nPlease wait until it is complete and try again.", L"Quillmark",
    ui::MessageIcon::exclamation, ui::MessageButtons::ok};

ui::Message question(const std::wstring& text) {
    return {text, L"Quillmark", ui::MessageIcon::question, ui::MessageButtons::yesNo};
}

/// A question that Enter answers by No.
ui::Message removalQuestion(const std::wstring& text) {
    return {text, L"Quillmark", ui::MessageIcon::question, ui::MessageButtons::yesNo, MessageAnswer::no};
}

class KBCommands : public KBMailAndNews {
public:
    /// Sends nothing, asks nothing and changes nothing.
    void expectNothing(const frmKBConfiguration& form) {
        expectList(form, {L"Mail", L"News"});
        EXPECT_EQ(buttons(form), ALL);
        EXPECT_THAT(sent(), IsEmpty());
        EXPECT_EQ(stored(L"KBProcessState"), MISSING);
    }
};

// --- The guard --------------------------------------------------------------------------------------------

TEST_F(KBCommands, EachShowsTheMessageAndChangesNothingWhileAnAutoUpdateRuns) {
    addIn.autoUpdateRunning = true;
    std::vector<ui::Message> expected;
    openForEach(COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        user.click(command.button(form));
        expected.push_back(AUTO_UPDATE_RUNS);
        EXPECT_EQ(stage->messages(), expected);
        expectNothing(form);
    });
}

TEST_F(KBCommands, EachDoesNothingWhereTheAddInIsGone) {
    openForEach(COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        calls.failCallsWith("addin");
        user.click(command.button(form));
        calls.forgetFaults();
        EXPECT_THAT(stage->messages(), IsEmpty());
        expectNothing(form);
    });
}

TEST_F(KBCommands, EachIsDisabledWhileTheDialogIsLocked) {
    openForEach(COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        if (!form.locked()) lockByUpdate(form);
        ui::Button& button = command.button(form);
        user.click(button);
        if (button.onClick) button.onClick();  // whoever asks for it
        expectLocked(form);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
        EXPECT_THAT(sent(), IsEmpty());
        EXPECT_THAT(calls.linesWith("addin IsAutoUpdateRunning"), IsEmpty());
    });
}

TEST_F(KBCommands, EachCanBeGivenByItsAccessKey) {
    openForEach(COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        const std::wstring caption = command.button(form).text();
        const int letter = caption[caption.find(L'&') + 1];
        stage->answerMessages({MessageAnswer::no});
        user.press(form.window(), letter >= 'a' ? letter - 'a' + 'A' : letter, ui::modifier::alt);
        EXPECT_THAT(calls.linesWith("addin IsAutoUpdateRunning"), SizeIs(1));
        addIn.finish(L"Mail", false);
    });
}

// --- Edit, Rebuild, Update --------------------------------------------------------------------------------

TEST_F(KBCommands, NothingHappensWithoutACurrentRow) {
    openForEach(std::span(COMMANDS).first(5), [&](frmKBConfiguration& form, const Command& command) {
        form.sftKBConfiguration.setCurrentRow(-1);
        command.button(form).setEnabled(true);
        user.click(command.button(form));
        EXPECT_FALSE(form.locked());
        EXPECT_THAT(sent(), IsEmpty());
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(KBCommands, ADoubleClickOnARowEditsIt) {
    open([&](frmKBConfiguration& form) {
        user.doubleClickRow(form.sftKBConfiguration, 1);
        expectLocked(form);
    });
    EXPECT_EQ(storedText(L"ProjectEventName"), L"News");
}

// --- Remove -----------------------------------------------------------------------------------------------

struct Removal {
    const char* name;
    Names rows;               ///< the first one is to be removed
    std::wstring autoUpdate;  ///< before
    bool asksForAutoUpdate;   ///< the question says that it is the auto-update knowledgebase
    MessageAnswer answer;
    int chosen;            ///< the row that is picked in the chooser; -1 where none is shown
    std::wstring nowAuto;  ///< the auto-update knowledgebase afterwards
    std::vector<std::string> sent;
};

const std::string REMOVED = "addin NotifyKbRemoved(Mail)";
constexpr MessageAnswer YES = MessageAnswer::yes;
constexpr MessageAnswer NO = MessageAnswer::no;

const Removal REMOVALS[] = {
    {"No", {L"Mail", L"News"}, L"Other", false, NO, -1, L"Other", {}},
    {"Yes", {L"Mail", L"News"}, L"Other", false, YES, -1, L"Other", {REMOVED}},
    {"AutoUpdateNo", {L"Mail"}, L"Mail", true, NO, -1, L"Mail", {}},
    {"OtherCase", {L"Mail"}, L"mail", false, YES, -1, L"mail", {REMOVED}},
    {"LastOne", {L"Mail"}, L"Mail", true, YES, -1, L"", {REMOVED, "addin SetDefaultKnowledgebase()"}},
    {"OthersLeft",
     {L"Mail", L"News"},
     L"Mail",
     true,
     YES,
     2,
     L"News",
     {REMOVED, "addin SetDefaultKnowledgebase(News)"}},
    {"NoName", {L""}, L"", false, YES, -1, L"", {"addin NotifyKbRemoved()"}},
};

class KBRemovals : public KBCommands, public testing::WithParamInterface<Removal> {};

TEST_P(KBRemovals, AskAndTellTheAddInOnYes) {
    const Removal& removal = GetParam();
    const std::wstring& name = removal.rows.front();
    application.settings.DefaultProject = removal.autoUpdate;
    openWith(removal.rows, [&](frmKBConfiguration& form) {
        choose(form, name);
        stage->answerMessages({removal.answer});
        if (removal.chosen != -1)
            stage->whenShown<frmSelectDefaultKB>([&](frmSelectDefaultKB& chooser) {
                EXPECT_EQ(application.settings.DefaultProject, L"");
                user.clickRow(chooser.sftKnowledgebases, removal.chosen);
                user.click(chooser.cmdOK);
            });
        user.click(form.cmdRemove);
        EXPECT_EQ(names(form), removal.rows) << "the add-in removes it, not the dialog";
        EXPECT_EQ(form.locked(), removal.answer == MessageAnswer::yes);
    });
    std::wstring question = L"Are you sure you want to remove the knowledgebase '" + name + L"'?";
    if (removal.asksForAutoUpdate)
        question = L"You specified '" + name + L"' as the auto-update knowledgebase.\r\r" + question;
    EXPECT_THAT(stage->messages(), ElementsAre(removalQuestion(question)));
    EXPECT_EQ(sent(), removal.sent);
    EXPECT_EQ(application.settings.DefaultProject, removal.nowAuto);
    // The page applies another auto-update knowledgebase at once.
    const bool changed = removal.nowAuto != removal.autoUpdate;
    EXPECT_EQ(storedText(L"DefaultProject"), changed ? removal.nowAuto : L"(missing)");
    EXPECT_EQ(application.settings.ProjectCount, static_cast<int>(removal.rows.size()));
    const std::string line = "frmKBConfiguration, removing '" + toUtf8(name) + "'";
    EXPECT_EQ(std::ranges::count(log(), line), removal.answer == MessageAnswer::yes ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Table, KBRemovals, testing::ValuesIn(REMOVALS), namedRow);

// --- Add --------------------------------------------------------------------------------------------------

TEST_F(KBCommands, AddOnAnEmptyListProposesDefault) {
    openWith({}, [&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        EXPECT_EQ(names(form), Names{L"default"});
        EXPECT_EQ(cells(form, 0), (Row{L"default", L"-", L"-", L"-"}));
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), 0);
        EXPECT_EQ(buttons(form), "");
    });
}

TEST_F(KBCommands, AddProposesTheFirstFreeNumberFromTheNumberOfRows) {
    struct Proposal {
        Names rows;
        const wchar_t* proposed;
    };
    for (const Proposal& proposal :
         {Proposal{{L"default"}, L"New[1]"}, Proposal{{L"default", L"New[1]"}, L"New[2]"},
          Proposal{{L"New[3]"}, L"New[1]"}, Proposal{{L"a", L"NEW[2]"}, L"New[3]"},
          Proposal{{L"new[2]", L"New[3]"}, L"New[4]"}}) {
        openWith(proposal.rows, [&](frmKBConfiguration& form) {
            user.click(form.cmdAdd);
            EXPECT_EQ(current(form), proposal.proposed);
            EXPECT_THAT(
                log(), Contains("frmKBConfiguration, GetNewKBName: " + std::to_string(proposal.rows.size())));
        });
    }
}

TEST_F(KBCommands, TheNewRowTakesItsPlaceInAListSortedByNameAndStaysLastInOneSortedByAnotherColumn) {
    openWith({L"Alpha", L"Zulu"}, [&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        EXPECT_EQ(names(form), (Names{L"Alpha", L"New[2]", L"Zulu"}));
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), 1);
        user.press(form.window(), key::escape);
        user.clickHeader(form.sftKBConfiguration, 3);
        user.click(form.cmdAdd);
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), 2);
    });
}

TEST_F(KBCommands, AnAcceptedNameIsAnnouncedAndItsFoldersAreChosenAtOnce) {
    stage->setValue(KEY, L"DefaultProject", L"Mail");
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        enter(form, L"Archive");
        EXPECT_EQ(names(form), (Names{L"Archive", L"Mail"}));
        EXPECT_EQ(current(form), L"Archive");
        expectLocked(form);
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbAdded(Archive)", "message 4711 1139 0 0"));
    EXPECT_EQ(stored(L"ProjectEvent"), 2);
    EXPECT_EQ(storedText(L"ProjectEventName"), L"Archive");
    EXPECT_THAT(log(), Contains("New project: Archive"));
    EXPECT_THAT(log(), Contains("frmKBConfiguration, Postedit (NewProject) Index after sorting: 0"));
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(KBCommands, TheProposedNameCanBeAcceptedAsItIs) {
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        user.press(form.window(), key::enter);
        EXPECT_EQ(current(form), L"New[1]");
        expectLocked(form);
    });
    EXPECT_THAT(sent(), Contains("addin NotifyKbAdded(New[1])"));
}

TEST_F(KBCommands, EscTakesTheNewRowAwayAndLeavesTheFocusInTheListAndTheRowBeforeCurrent) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"News");
        user.click(form.cmdAdd);
        user.press(form.window(), key::escape);
        EXPECT_TRUE(form.window().isOpen()) << "Esc belongs to the editor";
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
        EXPECT_EQ(current(form), L"News");
        EXPECT_EQ(buttons(form), ALL);
        EXPECT_TRUE(form.sftKBConfiguration.hasFocus());
    });
    EXPECT_THAT(sent(), IsEmpty());
}

TEST_F(KBCommands, EscOnTheFirstRowEverLeavesAnEmptyList) {
    openWith({}, [&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        user.press(form.window(), key::escape);
        EXPECT_EQ(form.sftKBConfiguration.rowCount(), 0);
        EXPECT_EQ(buttons(form), "A");
    });
}

TEST_F(KBCommands, ClosingWhileANewRowIsNamedForgetsIt) {
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        user.closeWindow(form.window());
    });
    EXPECT_EQ(application.settings.ProjectCount, 1);
    EXPECT_THAT(sent(), IsEmpty());
}

TEST_F(KBCommands, LeavingTheEditorAcceptsTheName) {
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        user.rewrite(form.sftKBConfiguration, L"Archive");
        form.cmdBaseFolder.setFocus();
        user.wait(0);
        expectLocked(form);
    });
    EXPECT_THAT(sent(), Contains("addin NotifyKbAdded(Archive)"));
}

TEST_F(KBCommands, TheFirstKnowledgebaseIsOfferedForAutoUpdate) {
    openWith({}, [&](frmKBConfiguration& form) {
        stage->answerMessages({MessageAnswer::yes});
        user.click(form.cmdAdd);
        enter(form, L"Archive");
    });
    EXPECT_THAT(stage->messages(),
                ElementsAre(question(L"Would you like 'Archive' to be configured for auto-update?")));
    EXPECT_EQ(application.settings.DefaultProject, L"Archive");
    EXPECT_EQ(storedText(L"DefaultProject"), L"Archive");
    EXPECT_EQ(application.settings.ProjectCount, 1);
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbAdded(Archive)", "addin SetDefaultKnowledgebase(Archive)",
                                    "message 4711 1139 0 0"));
    EXPECT_THAT(log(), Contains("frmKBConfiguration, auto-update kb: 'default'; items: 1"));
}

TEST_F(KBCommands, NothingIsConfiguredForAutoUpdateOnNoOrWhereOneIsStoredOrThereAreOthers) {
    for (const auto& [stored, rows, asked] :
         {std::tuple{L"", 0, true}, std::tuple{L"Elsewhere", 0, false}, std::tuple{L"", 1, false}}) {
        stage->setValue(KEY, L"DefaultProject", std::wstring(stored));
        const std::size_t before = stage->messages().size();
        openWith(Names(static_cast<std::size_t>(rows), L"Mail"), [&](frmKBConfiguration& form) {
            calls.clear();
            stage->answerMessages({MessageAnswer::no});
            user.click(form.cmdAdd);
            enter(form, L"Archive");
        });
        EXPECT_EQ(stage->messages().size() - before, asked ? 1u : 0u);
        EXPECT_EQ(application.settings.DefaultProject, L"default") << "what the record starts with";
        EXPECT_THAT(sent(), ElementsAre("addin NotifyKbAdded(Archive)", "message 4711 1139 0 0"));
        stage->answerMessages({});
    }
}

TEST_F(KBCommands, AnAutoUpdateThatStartsWhileANameIsEnteredStopsTheChoiceOfFoldersOnly) {
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        addIn.autoUpdateRunning = true;
        enter(form, L"Archive");
        EXPECT_FALSE(form.locked());
        EXPECT_EQ(buttons(form), "AENM") << "no documents yet";
        addIn.autoUpdateRunning = false;
        choose(form, L"Mail");
        calls.clear();
        user.click(form.cmdEdit);
    });
    EXPECT_EQ(storedText(L"ProjectEventName"), L"Mail") << "a later Edit is of the current row";
    EXPECT_THAT(stage->messages(), ElementsAre(AUTO_UPDATE_RUNS));
}

// --- Rename -----------------------------------------------------------------------------------------------

TEST_F(KBCommands, ARenameHandsTheOldAndTheNewNameToTheAddIn) {
    open([&](frmKBConfiguration& form) {
        rename(form, L"Mail", L"Post");
        EXPECT_EQ(names(form), (Names{L"News", L"Post"}));
        EXPECT_EQ(current(form), L"Post");
        EXPECT_FALSE(form.locked());
    });
    EXPECT_EQ(storedText(L"OldProjectname"), L"Mail");
    EXPECT_EQ(storedText(L"ProjectEventName"), L"Post");
    EXPECT_EQ(stored(L"ProjectEvent"), 3);
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRenamed(Mail, Post)"));
    EXPECT_THAT(calls.linesWith("pointer"),
                ElementsAre("pointer 11", "pointer 13", "pointer 0", "pointer 0"));
    EXPECT_THAT(log(), Contains("frmKBConfiguration, PostEdit Index: 0"));
    EXPECT_THAT(log(), Contains("frmKBConfiguration, Postedit (Rename) Index after sorting: 1"));
}

TEST_F(KBCommands, NeitherAnUnchangedNameNorEscNorDelRaisesAnything) {
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        user.press(form.window(), key::enter);
        expectList(form, {L"Mail"});
        user.click(form.cmdRename);
        user.rewrite(form.sftKBConfiguration, L"Post");
        user.press(form.window(), key::escape);
        expectList(form, {L"Mail"});
        EXPECT_TRUE(form.window().isOpen());
        choose(form, L"Mail");
        user.press(form.window(), key::remove);
        expectList(form, {L"Mail"});
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_EQ(storedText(L"OldProjectname"), L"(missing)");
}

TEST_F(KBCommands, ARenameRewritesDefaultProjectWhereThatIsItsNameToTheLetter) {
    for (const auto& [before, after, written] :
         {std::tuple{L"mail", L"mail", L"(missing)"}, std::tuple{L"Mail", L"Post", L"Post"}}) {
        application.settings.DefaultProject = before;
        openWith({L"Mail"}, [&](frmKBConfiguration& form) { rename(form, L"Mail", L"Post"); });
        EXPECT_EQ(storedText(L"DefaultProject"), written) << narrow(before);
        EXPECT_EQ(application.settings.DefaultProject, after) << narrow(before);
    }
}

TEST_F(KBCommands, F2RenamesTheCurrentRow) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"News");
        user.press(form.window(), key::f2);
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), 1);
        enter(form, L"Archive");
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRenamed(News, Archive)"));
}

TEST_F(KBCommands, ASlowSecondClickRenamesTheCurrentRow) {
    open([&](frmKBConfiguration& form) {
        user.clickRowAndRest(form.sftKBConfiguration, 1);
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), -1) << "the first click only makes the row current";
        user.clickRowAndRest(form.sftKBConfiguration, 1);
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), 1);
        enter(form, L"Archive");
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRenamed(News, Archive)"));
}

TEST_F(KBCommands, F2AndASlowSecondClickOnAGreyedRowDoNothing) {
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        ASSERT_EQ(current(form), L"Mail");
        form.sftKBConfiguration.setFocus();
        form.sftKBConfiguration.setAllRowsEnabled(false);
        user.press(form.window(), key::f2);
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), -1);
        user.clickRowAndRest(form.sftKBConfiguration, 0);
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), -1);
    });
}

TEST_F(KBCommands, RenamingARowWithoutANameNeverHandsOverTheNameOfAnEarlierRename) {
    openWith({L"", L"Mail"}, [&](frmKBConfiguration& form) {
        rename(form, L"Mail", L"Post");
        calls.clear();
        user.clickRow(form.sftKBConfiguration, 0);
        user.click(form.cmdRename);
        enter(form, L"Named");
    });
    EXPECT_EQ(storedText(L"OldProjectname"), L"");
}

TEST_F(KBCommands, AnotherCommandFirstFinishesTheNameThatIsBeingEntered) {
    stage->setValue(std::wstring(KEY) + L"\\Post", L"KBDocuments", 7);
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        user.rewrite(form.sftKBConfiguration, L"Post");
        user.click(form.cmdUpdate);
        EXPECT_TRUE(form.locked());
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRenamed(Mail, Post)", "addin NotifyKbUpdate(Post)"));
}

TEST_F(KBCommands, AClickOnAHeaderFinishesTheNameThatIsBeingEntered) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        user.rewrite(form.sftKBConfiguration, L"Post");
        user.clickHeader(form.sftKBConfiguration, 0);
        EXPECT_EQ(names(form), (Names{L"Post", L"News"})) << "sorted downwards";
        EXPECT_EQ(current(form), L"Post");
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRenamed(Mail, Post)"));
}

// --- Folder, Close, mouse ---------------------------------------------------------------------------------

TEST_F(KBCommands, FolderShowsTheChooserAndAChangedFolderMarksThePageChanged) {
    stage->createFolder(stage->folder() + L"Knowledge");
    application.settings.VexaBaseDir = stage->folder().substr(0, stage->folder().size() - 1);
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        stage->whenShown<vexa::frmKnowledgeBase>([&](vexa::frmKnowledgeBase& chooser) {
            const int last = chooser.dirVexaBaseDir.rowCount() - 1;
            user.doubleClickRow(chooser.dirVexaBaseDir, last);
            user.click(chooser.cmdOk);
        });
        user.click(form.cmdBaseFolder);
        EXPECT_TRUE(application.flags.dialogChanged);
        EXPECT_FALSE(application.bBaseDirChanged) << "the page has seen it";
    });
    EXPECT_EQ(application.settings.VexaBaseDir, stage->folder() + L"Knowledge");
    EXPECT_TRUE(page->PropertyPage_Dirty());
}

TEST_F(KBCommands, FolderDoesNothingWhileTheDialogIsLocked) {
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdUpdate);
        user.click(form.cmdBaseFolder);
        form.cmdBaseFolder.onClick();
    });
    EXPECT_FALSE(application.flags.dialogChanged);
}

TEST_F(KBCommands, CloseEscAndTheCloseBoxUnloadTheDialogAndTheLastTwoAlsoWhileItIsLocked) {
    const std::function<void(frmKBConfiguration&)> ways[] = {
        [&](frmKBConfiguration& form) { user.click(form.cmdCancel); },
        [&](frmKBConfiguration& form) { user.press(form.window(), key::escape); },
        [&](frmKBConfiguration& form) { user.closeWindow(form.window()); },
    };
    for (int way = 0; way < 3; ++way)
        for (const bool locked : {false, true})
            openWith({L"Mail"}, [&](frmKBConfiguration& form) {
                choose(form, L"Mail");
                if (locked) user.click(form.cmdUpdate);
                ways[way](form);
                EXPECT_EQ(form.window().isOpen(), locked && way == 0) << way << locked;
            });
}

TEST_F(KBCommands, APressOnAButtonOfTheLockedDialogTriggersNothingAndMovesTheFocusToApply) {
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdUpdate);
        user.click(form.cmdCancel);
        EXPECT_TRUE(form.window().isOpen());
        EXPECT_TRUE(form.cmdApply.hasFocus());
        ui::MouseEvent event{1, ui::modifier::shift, 3, 3};
        for (ui::Button* button : {&form.cmdAdd, &form.cmdApply, &form.cmdCancel, &form.cmdEdit,
                                   &form.cmdRebuild, &form.cmdRename, &form.cmdUpdate}) {
            event = {1, ui::modifier::shift, 3, 3};
            calls.clear();
            button->onMouseDown(event);
            EXPECT_EQ(event.button, 0);
            EXPECT_EQ(event.modifiers, 0);
            EXPECT_THAT(calls.linesWith("doevents"), SizeIs(1));
        }
        event = {1, ui::modifier::shift, 3, 3};
        form.cmdRemove.onMouseMove(event);
        EXPECT_EQ(event.button, 0);
        addIn.finish(L"Mail", false);
        user.click(form.cmdCancel);
        EXPECT_FALSE(form.window().isOpen());
    });
}

TEST_F(KBCommands, EveryCommandButtonIsReachedByTab) {
    openWith({L"Mail"}, [&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        std::vector<ui::Control*> order{&form.cmdAdd,        &form.cmdEdit,    &form.cmdRename,
                                        &form.cmdRemove,     &form.cmdRebuild, &form.cmdUpdate,
                                        &form.cmdBaseFolder, &form.cmdCancel,  &form.sftKBConfiguration};
        for (ui::Control* next : order) {
            user.press(form.window(), key::tab);
            EXPECT_TRUE(next->hasFocus());
        }
    });
}

}  // namespace
}  // namespace tests
