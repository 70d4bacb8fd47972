// The choosers of the base folder and of the auto-update knowledgebase.
#include "kb/frmKnowledgeBase.h"
#include "kb/frmNewFolder.h"
#include "kb/frmSelectDefaultKB.h"
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vexa::frmKnowledgeBase;
using vexa::frmNewFolder;
using vexa::frmSelectDefaultKB;

// --- Auto-update knowledgebase ----------------------------------------------------------------------------

class DefaultChooser : public KBTest {
protected:
    void open(const std::function<void(frmSelectDefaultKB&)>& script) {
        stage->whenShown<frmSelectDefaultKB>(script);
        frmSelectDefaultKB(application, stage->owner()).Show();
    }
    void SetUp() override {
        KBTest::SetUp();
        recordNames({L"Mail", L"News"});
        application.settings.DefaultProject = L"Mail";
    }
};

TEST_F(DefaultChooser, CaptionsAreTheDialogsOwn) {
    open([&](frmSelectDefaultKB& form) {
        EXPECT_EQ(form.window().caption(), L"Select auto-update knowledgebase");
        EXPECT_EQ(form.lblInfo.text(),
                  L"Please select one of the defined knowledgebases to be configured for auto-update.");
        EXPECT_EQ(form.cmdCancel.text(), L"Cancel");
        user.click(form.cmdCancel);
    });
}

TEST_F(DefaultChooser, ListsNoneAndEveryKnowledgebaseInItsOrderWithNoneSelected) {
    recordNames({L"Zulu", L"Mail"});
    stage->setValue(KEY, L"ProjectCount", 3);
    open([&](frmSelectDefaultKB& form) {
        std::vector<std::wstring> rows;
        for (int row = 0; row < form.sftKnowledgebases.rowCount(); ++row)
            rows.push_back(form.sftKnowledgebases.cellText(row, 0));
        EXPECT_EQ(rows, (std::vector<std::wstring>{L"<None>", L"Zulu", L"Mail", L""}))
            << "a missing name is empty";
        EXPECT_EQ(form.sftKnowledgebases.currentRow(), 0);
        EXPECT_EQ(form.sftKnowledgebases.row(0).picture, 0);
        EXPECT_NE(form.sftKnowledgebases.row(1).picture, 0);
        user.click(form.cmdCancel);
    });
}

TEST_F(DefaultChooser, OKTakesTheNameOfTheCurrentRow) {
    open([&](frmSelectDefaultKB& form) {
        user.clickRow(form.sftKnowledgebases, 2);
        user.click(form.cmdOK);
    });
    EXPECT_EQ(application.settings.DefaultProject, L"News");
}

TEST_F(DefaultChooser, OKOnNoneClearsTheAutoUpdateKnowledgebase) {
    open([&](frmSelectDefaultKB& form) { user.click(form.cmdOK); });
    EXPECT_EQ(application.settings.DefaultProject, L"");
}

TEST_F(DefaultChooser, ADoubleClickActsAsOK) {
    open([&](frmSelectDefaultKB& form) { user.doubleClickRow(form.sftKnowledgebases, 2); });
    EXPECT_EQ(application.settings.DefaultProject, L"News");
}

TEST_F(DefaultChooser, TheKeyboardChooses) {
    application.settings.DefaultProject = L"News";
    open([&](frmSelectDefaultKB& form) {
        user.press(form.window(), key::down);
        user.press(form.window(), key::enter);
    });
    EXPECT_EQ(application.settings.DefaultProject, L"Mail");
}

TEST_F(DefaultChooser, CancelChangesNothing) {
    open([&](frmSelectDefaultKB& form) {
        user.clickRow(form.sftKnowledgebases, 2);
        user.click(form.cmdCancel);
    });
    EXPECT_EQ(application.settings.DefaultProject, L"Mail");
    EXPECT_FALSE(application.flags.defaultKnowledgebaseChanged);
}

TEST_F(DefaultChooser, WithoutKnowledgebasesOnlyNoneIsOffered) {
    stage->setValue(KEY, L"ProjectCount", -3);
    open([&](frmSelectDefaultKB& form) {
        EXPECT_EQ(form.sftKnowledgebases.rowCount(), 1);
        user.press(form.window(), key::escape);
    });
}

// --- Base folder ------------------------------------------------------------------------------------------

class FolderChooser : public KBTest {
protected:
    void open(const std::function<void(frmKnowledgeBase&)>& script) {
        stage->whenShown<frmKnowledgeBase>(script);
        frmKnowledgeBase(application, stage->owner()).Show();
    }
    void SetUp() override {
        KBTest::SetUp();
        stage->createFolder(base + L"\\beta");
        stage->createFolder(base + L"\\alpha");
        application.settings.VexaBaseDir = base;
    }
    static std::vector<std::wstring> shown(const frmKnowledgeBase& form) {
        std::vector<std::wstring> rows;
        for (int row = 0; row < form.dirVexaBaseDir.rowCount(); ++row)
            rows.push_back(form.dirVexaBaseDir.cellText(row, 0));
        return rows;
    }
    /// The rows of the folders in the one that is shown.
    static std::vector<std::wstring> inside(const frmKnowledgeBase& form) {
        const auto rows = shown(form);
        return {rows.begin() + form.dirVexaBaseDir.currentRow() + 1, rows.end()};
    }
    void chooseDrive(frmKnowledgeBase& form, const std::wstring& name) {
        for (int index = 0; index < form.drvVexaBaseDir.count(); ++index)
            if (form.drvVexaBaseDir.item(index) == name) user.choose(form.drvVexaBaseDir, index);
    }
    [[nodiscard]] std::wstring driveShown(const frmKnowledgeBase& form) const {
        const int index = form.drvVexaBaseDir.selectedIndex();
        return index == -1 ? L"" : form.drvVexaBaseDir.item(index);
    }

    const std::wstring base = stage->folder() + L"Base";
    const std::wstring drive = application.platform.conversions.lower(stage->folder().substr(0, 2));
};

TEST_F(FolderChooser, CaptionsAreTheDialogsOwn) {
    open([&](frmKnowledgeBase& form) {
        EXPECT_EQ(form.window().caption(), L"Knowledgebase");
        EXPECT_EQ(form.cmdNewDirectory.text(), L"&New...");
        EXPECT_EQ(form.cmdRepository.text(), L"&Select folders...");
        EXPECT_EQ(form.cmdCancel.text(), L"Cancel");
        user.click(form.cmdCancel);
    });
}

TEST_F(FolderChooser, TheDriveThatIsShownChosenAgainStaysInItsFolder) {
    open([&](frmKnowledgeBase& form) {
        const std::vector<std::wstring> before = shown(form);
        user.choose(form.drvVexaBaseDir, form.drvVexaBaseDir.selectedIndex());
        EXPECT_EQ(shown(form), before);
        EXPECT_EQ(inside(form), (std::vector<std::wstring>{L"alpha", L"beta"}));
        user.click(form.cmdCancel);
    });
}

TEST_F(FolderChooser, ShowsTheDriveAndThePathAndTheFoldersInIt) {
    open([&](frmKnowledgeBase& form) {
        EXPECT_EQ(application.platform.conversions.lower(driveShown(form)), drive);
        const auto rows = shown(form);
        EXPECT_EQ(application.platform.conversions.lower(rows.front()), drive + L"\\");
        EXPECT_EQ(inside(form), (std::vector<std::wstring>{L"alpha", L"beta"}));
        EXPECT_EQ(form.folder(), base);
        user.click(form.cmdCancel);
    });
}

TEST_F(FolderChooser, OKWithoutAChangeLeavesTheFlagAsItWas) {
    for (const bool before : {false, true}) {
        application.bBaseDirChanged = before;
        open([&](frmKnowledgeBase& form) { user.click(form.cmdOk); });
        EXPECT_EQ(application.bBaseDirChanged, before);
        EXPECT_EQ(application.settings.VexaBaseDir, base);
    }
}

TEST_F(FolderChooser, OKTakesTheFolderThatIsShown) {
    open([&](frmKnowledgeBase& form) {
        user.doubleClickRow(form.dirVexaBaseDir, form.dirVexaBaseDir.currentRow() + 2);
        EXPECT_EQ(form.folder(), base + L"\\beta");
        EXPECT_THAT(inside(form), IsEmpty());
        user.click(form.cmdOk);
    });
    EXPECT_TRUE(application.bBaseDirChanged);
    EXPECT_EQ(application.settings.VexaBaseDir, base + L"\\beta");
}

TEST_F(FolderChooser, CancelChangesNothing) {
    open([&](frmKnowledgeBase& form) {
        user.doubleClickRow(form.dirVexaBaseDir, form.dirVexaBaseDir.currentRow() + 1);
        user.click(form.cmdCancel);
    });
    EXPECT_FALSE(application.bBaseDirChanged);
    EXPECT_EQ(application.settings.VexaBaseDir, base);
}

TEST_F(FolderChooser, TheKeyboardWalksDownAndUp) {
    open([&](frmKnowledgeBase& form) {
        form.dirVexaBaseDir.setFocus();
        user.press(form.window(), key::down);
        user.press(form.window(), key::right);
        EXPECT_EQ(form.folder(), base + L"\\alpha");
        user.press(form.window(), key::left);
        EXPECT_EQ(application.platform.conversions.lower(form.folder()),
                  application.platform.conversions.lower(base));
        user.press(form.window(), key::down);
        user.press(form.window(), key::space);
        EXPECT_EQ(form.dirVexaBaseDir.cellText(form.dirVexaBaseDir.currentRow(), 0), L"alpha");
        user.click(form.cmdCancel);
    });
}

TEST_F(FolderChooser, EnterInTheListOpensTheFolderAndThePathThatOKTakesIsShown) {
    open([&](frmKnowledgeBase& form) {
        EXPECT_EQ(form.txtPath.text(), base);
        form.dirVexaBaseDir.setFocus();
        user.press(form.window(), key::down);
        EXPECT_EQ(form.txtPath.text(), base) << "a folder that is only selected is not taken";
        user.press(form.window(), key::enter);
        ASSERT_TRUE(form.window().isOpen()) << "OK was not pressed";
        EXPECT_EQ(form.txtPath.text(), base + L"\\alpha");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(application.settings.VexaBaseDir, base + L"\\alpha");
}

TEST_F(FolderChooser, AnotherDriveShowsItsRoot) {
    stage->addDrive(L"Q:", true);
    open([&](frmKnowledgeBase& form) {
        chooseDrive(form, L"Q:");
        EXPECT_EQ(driveShown(form), L"Q:");
        EXPECT_EQ(shown(form), std::vector<std::wstring>{L"Q:\\"});
        EXPECT_EQ(form.folder(), L"Q:\\");
        user.click(form.cmdOk);
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
    EXPECT_EQ(application.settings.VexaBaseDir, L"Q:\\");
    EXPECT_TRUE(application.bBaseDirChanged);
}

TEST_F(FolderChooser, AnUnreadyDriveShowsTheMessageAndLeavesBothListsOnThePreviousDriveAndFolder) {
    stage->addDrive(L"Q:", false);
    open([&](frmKnowledgeBase& form) {
        const std::wstring shownDrive = driveShown(form);
        const auto rows = shown(form);
        ASSERT_NE(shownDrive, L"Q:");
        chooseDrive(form, L"Q:");
        EXPECT_THAT(stage->messages(),
                    ElementsAre(ui::Message{L"Drive 'Q:' is not available.", L"Orbisearch",
                                            ui::MessageIcon::information, ui::MessageButtons::ok}));
        EXPECT_EQ(driveShown(form), shownDrive);
        EXPECT_EQ(shown(form), rows);
        EXPECT_EQ(form.folder(), base);
        user.click(form.cmdOk);
    });
    EXPECT_EQ(application.settings.VexaBaseDir, base);
    EXPECT_FALSE(application.bBaseDirChanged);
}

TEST_F(FolderChooser, AFolderThatCannotBeOpenedIsSaidAndChangesNothing) {
    open([&](frmKnowledgeBase& form) {
        calls.failCallsWith("files subfolders");
        user.doubleClickRow(form.dirVexaBaseDir, form.dirVexaBaseDir.currentRow() + 1);
        calls.forgetFaults();
        EXPECT_EQ(stage->messages().size(), 1u);
        EXPECT_EQ(form.folder(), base);
        user.click(form.cmdCancel);
    });
}

TEST_F(FolderChooser, ABaseFolderThatIsGoneIsKeptUnlessAnotherIsChosen) {
    application.settings.VexaBaseDir = base + L"\\gone";
    open([&](frmKnowledgeBase& form) { user.click(form.cmdOk); });
    EXPECT_EQ(application.settings.VexaBaseDir, base + L"\\gone");
    EXPECT_FALSE(application.bBaseDirChanged);
}

TEST_F(FolderChooser, WithoutABaseFolderNoDriveIsShown) {
    application.settings.VexaBaseDir = L"";
    open([&](frmKnowledgeBase& form) {
        EXPECT_EQ(driveShown(form), L"");
        EXPECT_THAT(shown(form), IsEmpty());
        user.click(form.cmdNewDirectory);
        user.click(form.cmdOk);
    });
    EXPECT_FALSE(application.bBaseDirChanged);
}

TEST_F(FolderChooser, SelectFoldersDoesNothingAndIsDisabled) {
    open([&](frmKnowledgeBase& form) {
        EXPECT_FALSE(form.cmdRepository.enabled());
        calls.clear();
        user.click(form.cmdRepository);
        EXPECT_THAT(calls.lines(), IsEmpty());
        user.click(form.cmdCancel);
    });
}

TEST_F(FolderChooser, NewAsksForANameAndCreatesTheFolder) {
    open([&](frmKnowledgeBase& form) {
        stage->whenShown<frmNewFolder>([&](frmNewFolder& question) {
            EXPECT_FALSE(question.cmdOk.enabled()) << "no name yet";
            user.type(question.txtFolderName, L"Gamma");
            user.press(question.window(), key::enter);
        });
        user.click(form.cmdNewDirectory);
        EXPECT_EQ(form.folder(), base + L"\\Gamma");
        user.click(form.cmdOk);
    });
    EXPECT_TRUE(application.platform.files.folderExists(base + L"\\Gamma"));
    EXPECT_EQ(application.settings.VexaBaseDir, base + L"\\Gamma");
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(FolderChooser, AFolderThatCannotBeCreatedIsSaid) {
    open([&](frmKnowledgeBase& form) {
        stage->whenShown<frmNewFolder>([&](frmNewFolder& question) {
            user.type(question.txtFolderName, L"alpha");
            user.click(question.cmdOk);
        });
        user.click(form.cmdNewDirectory);
        ASSERT_EQ(stage->messages().size(), 1u);
        EXPECT_TRUE(stage->messages()[0].text.starts_with(L"The folder 'alpha' cannot be created.\r\n"));
        EXPECT_EQ(form.folder(), base);
        user.click(form.cmdCancel);
    });
}

TEST_F(FolderChooser, ACancelledNameCreatesNothing) {
    open([&](frmKnowledgeBase& form) {
        stage->whenShown<frmNewFolder>([&](frmNewFolder& question) {
            user.type(question.txtFolderName, L"Gamma");
            user.press(question.window(), key::escape);
        });
        calls.clear();
        user.click(form.cmdNewDirectory);
        EXPECT_THAT(calls.linesWith("files createFolder"), IsEmpty());
        user.click(form.cmdCancel);
    });
}

}  // namespace
}  // namespace tests
