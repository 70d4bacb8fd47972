// The host closes the page while the knowledgebase dialog, or something that it has opened, is open: every
// dialog closes as by its close box, the innermost first, and nothing is asked or sent any more.
#include "kb/frmKnowledgeBase.h"
#include "kb/frmNewFolder.h"
#include "kb/frmSelectDefaultKB.h"
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

class KBHostCloses : public KBMailAndNews {
public:
    /// Plays `script` in the open dialog, during which the host closes the page: the dialog has closed, too,
    /// nobody listens any more, and the page can end.
    void openAndClose(FunctionRef<void(frmKBConfiguration&)> script) {
        open([&](frmKBConfiguration& form) {
            script(form);
            EXPECT_FALSE(form.window().isOpen());
        });
        expectEnded();
    }
    /// The host closes the page inside the next call that begins so.
    void hostClosesDuring(const std::string& call) {
        calls.during(call, [this] { stage->closeDialogs(); });
    }
    /// Nobody listens any more, and the page can end.
    void expectEnded() {
        EXPECT_EQ(addIn.connections(), 0u);
        end();
        EXPECT_THAT(log(), Contains("frmKBConfiguration, form unload."));
    }
};

TEST_F(KBHostCloses, OverTheLockedDialog) {
    openAndClose([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        stage->closeDialogs();
    });
    EXPECT_EQ(stored(L"KBProcessState"), 2) << "the add-in is still at it";
    EXPECT_EQ(stored(L"KBConfigColumn"), 0) << "the sort is kept on the way";
    addIn.finish(L"Mail", false);
}

TEST_F(KBHostCloses, WhileANameIsEdited) {
    openAndClose([&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        stage->closeDialogs();
    });
    EXPECT_EQ(application.settings.ProjectCount, 2) << "the new row counts for nothing";
    EXPECT_THAT(sent(), IsEmpty());
}

TEST_F(KBHostCloses, OverTheRemovalQuestion) {
    openAndClose([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        hostClosesDuring("screen message Are you sure");
        user.click(form.cmdRemove);
    });
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_EQ(stored(L"KBProcessState"), MISSING);
}

TEST_F(KBHostCloses, OverARefusal) {
    openAndClose([&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        hostClosesDuring("screen message The name may not contain");
        enter(form, L"a*b");
    });
    EXPECT_EQ(stage->messages().size(), 1u);
    EXPECT_EQ(application.settings.ProjectCount, 2);
    EXPECT_THAT(sent(), IsEmpty());
}

TEST_F(KBHostCloses, OverTheAutoUpdateQuestion) {
    recordNames({});
    openAndClose([&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        hostClosesDuring("screen message Would you like");
        enter(form, L"Archive");
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbAdded(Archive)")) << "no folders are chosen any more";
    EXPECT_EQ(application.settings.ProjectCount, 1) << "the add-in knows of the new one";
    EXPECT_EQ(stored(L"KBProcessState"), MISSING);
}

TEST_F(KBHostCloses, OverTheMessageOfARunningAutoUpdate) {
    addIn.autoUpdateRunning = true;
    openAndClose([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        hostClosesDuring("screen message An auto-update");
        user.click(form.cmdEdit);
    });
    EXPECT_THAT(sent(), IsEmpty());
}

TEST_F(KBHostCloses, OverTheChooserOfTheAutoUpdateKnowledgebase) {
    application.settings.DefaultProject = L"Mail";
    openAndClose([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->answerMessages({MessageAnswer::yes});
        stage->whenShown<vexa::frmSelectDefaultKB>([&](vexa::frmSelectDefaultKB& chooser) {
            user.clickRow(chooser.sftKnowledgebases, 2);
            stage->closeDialogs();
            EXPECT_FALSE(chooser.window().isOpen());
        });
        user.click(form.cmdRemove);
    });
    EXPECT_EQ(application.settings.DefaultProject, L"") << "none was chosen";
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRemoved(Mail)", "addin SetDefaultKnowledgebase()"));
}

TEST_F(KBHostCloses, OverTheChooserOfTheBaseFolder) {
    const std::wstring before = application.settings.VexaBaseDir;
    openAndClose([&](frmKBConfiguration& form) {
        stage->whenShown<vexa::frmKnowledgeBase>([&](vexa::frmKnowledgeBase& chooser) {
            stage->closeDialogs();
            EXPECT_FALSE(chooser.window().isOpen());
        });
        user.click(form.cmdBaseFolder);
    });
    EXPECT_EQ(application.settings.VexaBaseDir, before);
    EXPECT_FALSE(application.flags.dialogChanged);
}

TEST_F(KBHostCloses, WhileTheDialogLoads) {
    stage->setValue(KEY, L"KBConfigSortOrder", 1);
    stage->setValue(KEY, L"KBConfigColumn", 2);
    stage->setValue(KEY, L"KBConfigSortType", 8);
    application.settings.ProjectCount = 2;
    addIn.processing = true;
    hostClosesDuring("doevents");
    user.click(page->cmdKnowledgeBase);
    EXPECT_EQ(stored(L"KBConfigSortOrder"), 1) << "the saved sort stays as it was";
    EXPECT_EQ(stored(L"KBConfigColumn"), 2);
    EXPECT_EQ(stored(L"KBConfigSortType"), 8);
    EXPECT_EQ(application.settings.ProjectCount, 2);
    EXPECT_EQ(stored(L"KBProcessState"), MISSING);
    EXPECT_THAT(log(), Not(Contains("frmKBConfiguration, ...load finished.")));
    expectEnded();
}

TEST_F(KBHostCloses, WhileTheDialogAsksTheAddInAtLoad) {
    addIn.processing = true;
    hostClosesDuring("addin IsProcessing");
    user.click(page->cmdKnowledgeBase);
    EXPECT_EQ(stored(L"KBProcessState"), MISSING);
    EXPECT_EQ(application.settings.ProjectCount, 2);
    expectEnded();
}

TEST_F(KBHostCloses, WhileTheListIsReadAnew) {
    openAndClose([&](frmKBConfiguration&) {
        hostClosesDuring("doevents");
        addIn.finish(L"Mail", false);
    });
    EXPECT_EQ(application.settings.ProjectCount, 2) << "not what the emptied list holds";
}

TEST_F(KBHostCloses, AndThePageCanShowTheDialogAgain) {
    hostClosesDuring("doevents");
    user.click(page->cmdKnowledgeBase);
    open([&](frmKBConfiguration& form) { EXPECT_EQ(names(form), (Names{L"Mail", L"News"})); });
}

// --- A second opening -------------------------------------------------------------------------------------

TEST_F(KBHostCloses, APressOnThePageWhileTheDialogLoadsOpensNoSecondOne) {
    int presses = 0;
    calls.during("doevents", [&] {
        ++presses;
        user.click(page->cmdKnowledgeBase);
        user.press(page->window(), key::space);
        user.click(page->cmdSettings);
    });
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
        EXPECT_EQ(addIn.connections(), 1u);
    });
    EXPECT_EQ(presses, 1);
}

TEST_F(KBHostCloses, InTheCallThatRefusesANameReadsNoListAnew) {
    for (const bool adding : {true, false}) {
        open([&](frmKBConfiguration& form) {
            choose(form, L"Mail");
            user.click(adding ? form.cmdAdd : form.cmdRename);
            calls.clear();
            calls.failCallsWith("addin Notify");
            hostClosesDuring("addin Notify");
            enter(form, L"Post");
            EXPECT_FALSE(form.window().isOpen());
        });
        calls.forgetFaults();
        EXPECT_THAT(calls.linesWith("addin Notify"), SizeIs(1));
        EXPECT_THAT(log(), Not(Contains("frmKBConfiguration, Lookup: ProjectEventName")));
        EXPECT_THAT(stage->messages(), IsEmpty());
    }
}

TEST_F(KBHostCloses, WhileTheListIsReadAnewAfterARefusalSelectsNothing) {
    application.settings.ProjectCount = 2;
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        calls.failCallsWith("addin Notify");
        hostClosesDuring("doevents");
        enter(form, L"Post");
        EXPECT_FALSE(form.window().isOpen());
        EXPECT_EQ(form.sftKBConfiguration.currentRow(), -1);
    });
    calls.forgetFaults();
    EXPECT_EQ(application.settings.ProjectCount, 2) << "not what the emptied list holds";
}

TEST_F(KBHostCloses, WhileTheAddInHearsOfTheFirstKnowledgebaseOffersNothing) {
    recordNames({});
    open([&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        hostClosesDuring("addin Notify");
        enter(form, L"Archive");
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbAdded(Archive)")) << "no folders are chosen any more";
    EXPECT_EQ(application.settings.DefaultProject, L"default");
}

TEST_F(KBHostCloses, WhileTheAddInHearsOfTheRemovalOfTheAutoUpdateKnowledgebaseShowsNoChooser) {
    application.settings.DefaultProject = L"Mail";
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->answerMessages({MessageAnswer::yes});
        hostClosesDuring("addin NotifyKbRemoved");
        user.click(form.cmdRemove);
    });
    EXPECT_EQ(application.settings.DefaultProject, L"");
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRemoved(Mail)", "addin SetDefaultKnowledgebase()"));
}

TEST_F(KBHostCloses, WhileTheAddInIsAskedWhetherItUpdatesGivesNoCommand) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        hostClosesDuring("addin IsAutoUpdateRunning");
        user.click(form.cmdUpdate);
        EXPECT_FALSE(form.locked());
    });
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_EQ(stored(L"KBProcessState"), MISSING);
}

TEST_F(KBHostCloses, WhileItIsLockedLooksForNoEndAnyMore) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        user.closeWindow(form.window());
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(1000);
        EXPECT_EQ(stored(L"KBProcessState"), 3) << "no tick has consumed it";
    });
}

TEST_F(KBHostCloses, AfterANewFolderHasBeenNamedCreatesNone) {
    application.settings.VexaBaseDir = stage->folder() + L"Base";
    stage->createFolder(stage->folder() + L"Base");
    stage->whenShown<vexa::frmKnowledgeBase>([&](vexa::frmKnowledgeBase& form) {
        stage->whenShown<vexa::frmNewFolder>([&](vexa::frmNewFolder& question) {
            user.type(question.txtFolderName, L"Gamma");
            user.click(question.cmdOk);
            stage->closeDialogs();
        });
        user.click(form.cmdNewDirectory);
        EXPECT_FALSE(form.window().isOpen());
    });
    vexa::frmKnowledgeBase(application, stage->owner()).Show();
    EXPECT_THAT(calls.linesWith("files createFolder"), IsEmpty());
}

}  // namespace
}  // namespace tests
