// The chooser of the base folder: its drives and folders, the way to a path, and how the keyboard walks them.
#include "kb/frmKnowledgeBase.h"
#include "kb/frmNewFolder.h"
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using vexa::frmKnowledgeBase;
using vexa::frmNewFolder;

/// On a folder that holds two others.
class FolderChooser : public KBTest {
public:
    /// A chooser that the script leaves open is closed.
    void open(FunctionRef<void(frmKnowledgeBase&)> script) {
        stage->whenShown<frmKnowledgeBase>([&](frmKnowledgeBase& form) {
            script(form);
            if (form.window().isOpen()) user.closeWindow(form.window());
        });
        frmKnowledgeBase(application, stage->owner()).Show();
    }
    void openOn(const std::wstring& path, FunctionRef<void(frmKnowledgeBase&)> script) {
        application.settings.VexaBaseDir = path;
        open(script);
    }
    void SetUp() override {
        KBTest::SetUp();
        stage->createFolder(base + L"\\beta");
        stage->createFolder(base + L"\\alpha");
        application.settings.VexaBaseDir = base;
    }
    static Names rows(const frmKnowledgeBase& form) {
        Names shown;
        for (int row = 0; row < form.dirVexaBaseDir.rowCount(); ++row)
            shown.push_back(form.dirVexaBaseDir.cellText(row, 0));
        return shown;
    }
    /// The rows of the folders in the one that is shown.
    static Names inside(const frmKnowledgeBase& form) {
        const Names all = rows(form);
        return {all.begin() + form.dirVexaBaseDir.currentRow() + 1, all.end()};
    }
    static ui::KeyEvent press(frmKnowledgeBase& form, int key, int modifiers = 0) {
        ui::KeyEvent event{key, modifiers};
        form.dirVexaBaseDir.onKeyDown(event);
        return event;
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
    });
}

TEST_F(FolderChooser, ShowsTheDriveAndThePathAndTheFoldersInItAlsoWhereTheDriveIsChosenAgain) {
    open([&](frmKnowledgeBase& form) {
        EXPECT_EQ(application.platform.conversions.lower(driveShown(form)), drive);
        const Names before = rows(form);
        EXPECT_EQ(application.platform.conversions.lower(before.front()), drive + L"\\");
        EXPECT_EQ(inside(form), (Names{L"alpha", L"beta"}));
        EXPECT_EQ(form.folder(), base);
        user.choose(form.drvVexaBaseDir, form.drvVexaBaseDir.selectedIndex());
        EXPECT_EQ(rows(form), before);
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
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_TRUE(application.bBaseDirChanged);
    EXPECT_EQ(application.settings.VexaBaseDir, base + L"\\beta");
}

TEST_F(FolderChooser, CancelChangesNothing) {
    open([&](frmKnowledgeBase& form) {
        user.doubleClickRow(form.dirVexaBaseDir, form.dirVexaBaseDir.currentRow() + 1);
        user.click(form.cmdCancel);
        EXPECT_FALSE(form.window().isOpen());
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
        EXPECT_EQ(rows(form), Names{L"Q:\\"});
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
        const Names before = rows(form);
        ASSERT_NE(shownDrive, L"Q:");
        chooseDrive(form, L"Q:");
        EXPECT_THAT(stage->messages(),
                    ElementsAre(ui::Message{L"Drive 'Q:' is not available.", L"Orbisearch",
                                            ui::MessageIcon::information, ui::MessageButtons::ok}));
        EXPECT_EQ(driveShown(form), shownDrive);
        EXPECT_EQ(rows(form), before);
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
        EXPECT_THAT(rows(form), IsEmpty());
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
    });
}

// --- Paths and keys ---------------------------------------------------------------------------------------

struct Path {
    const wchar_t* path;
    Names steps;
};

TEST_F(FolderChooser, PathsBeginWithTheDriveOrTheShareAndGoDownStepByStep) {
    // None of them can be read: they are shown without what is in them.
    for (const Path& one :
         {Path{L"Z:\\no\\such", {L"Z:\\", L"no", L"such"}},
          Path{L"Z:\\no\\such\\", {L"Z:\\", L"no", L"such"}},
          Path{L"Z:\\no\\\\such", {L"Z:\\", L"no", L"such"}}, Path{L"Z:\\", {L"Z:\\"}}, Path{L"Z:", {L"Z:"}},
          Path{L"\\\\server\\share\\a\\b", {L"\\\\server\\share\\", L"a", L"b"}},
          Path{L"\\\\server\\share\\", {L"\\\\server\\share\\"}},
          Path{L"\\\\server\\share", {L"\\\\server\\share"}}, Path{L"\\\\server", {L"\\\\server"}}}) {
        calls.failCallsWith("files subfolders");
        openOn(one.path, [&](frmKnowledgeBase& form) {
            EXPECT_EQ(rows(form), one.steps) << toUtf8(one.path);
            for (int row = 0; row < form.dirVexaBaseDir.rowCount(); ++row)
                EXPECT_EQ(form.dirVexaBaseDir.row(row).indent, row);
            EXPECT_EQ(form.dirVexaBaseDir.currentRow(), static_cast<int>(one.steps.size()) - 1);
            EXPECT_EQ(form.folder(), one.path) << "as it was given";
        });
        calls.forgetFaults();
    }
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(FolderChooser, TheFoldersOfAFolderStandOneStepDeeperInAlphabeticalOrder) {
    open([&](frmKnowledgeBase& form) {
        const int own = form.dirVexaBaseDir.currentRow();
        EXPECT_EQ(form.dirVexaBaseDir.row(own + 1).indent, own + 1);
        EXPECT_EQ(form.dirVexaBaseDir.row(own + 2).indent, own + 1);
        EXPECT_NE(form.dirVexaBaseDir.row(own + 1).picture, form.dirVexaBaseDir.row(own).picture);
        EXPECT_EQ(form.dirVexaBaseDir.cellText(own + 1, 0), L"alpha");
        user.doubleClickRow(form.dirVexaBaseDir, own + 1);
        EXPECT_EQ(form.folder(), base + L"\\alpha");
    });
}

TEST_F(FolderChooser, OfTheKeysOnlyThoseThatOpenAreTakenFromTheList) {
    constexpr int LETTER = 'A';
    open([&](frmKnowledgeBase& form) {
        EXPECT_TRUE(form.dirVexaBaseDir.wantsEnter);
        for (const int key : {key::up, key::down, key::tab, LETTER}) EXPECT_EQ(press(form, key).key, key);
        for (const int key : {key::enter, key::space, key::left, key::right}) {
            EXPECT_EQ(press(form, key, ui::modifier::control).key, key) << "with Ctrl";
            EXPECT_EQ(form.folder(), base);
        }
        for (const int key : {key::enter, key::space, key::right}) {
            EXPECT_EQ(press(form, key).key, 0);
            EXPECT_EQ(form.folder(), base) << "the open folder opened again";
        }
        EXPECT_EQ(press(form, key::left).key, 0);
        EXPECT_LT(form.folder().size(), base.size());
    });
}

TEST_F(FolderChooser, FromTheRootTheLeftKeyLeadsNowhere) {
    stage->addDrive(L"Q:", true);
    openOn(L"Q:\\", [&](frmKnowledgeBase& form) {
        EXPECT_EQ(press(form, key::left).key, 0);
        EXPECT_EQ(form.folder(), L"Q:\\");
        form.dirVexaBaseDir.setCurrentRow(-1);
        press(form, key::enter);
        EXPECT_EQ(form.folder(), L"Q:\\") << "no row, no folder";
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(FolderChooser, ARowThatIsNotThereOpensNothing) {
    open([&](frmKnowledgeBase& form) {
        const std::wstring before = form.folder();
        for (const int row : {-1, form.dirVexaBaseDir.rowCount()}) form.dirVexaBaseDir.onDoubleClick(row);
        EXPECT_EQ(form.folder(), before);
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(FolderChooser, TheListWorksWhereNobodyListens) {
    openOn(L"Z:\\no\\such", [&](frmKnowledgeBase& form) {
        vexa::FolderList list(form.dirVexaBaseDir, application.platform.files);
        list.showPath(L"Z:\\other\\way");
        EXPECT_EQ(list.path(), L"Z:\\other\\way");
        calls.failCallsWith("files subfolders");
        form.dirVexaBaseDir.onDoubleClick(0);
        calls.forgetFaults();
        EXPECT_EQ(list.path(), L"Z:\\other\\way") << "it cannot be read, and nobody wants to know";
        form.dirVexaBaseDir.onDoubleClick = nullptr;
        form.dirVexaBaseDir.onKeyDown = nullptr;
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(FolderChooser, AFolderAboveThatCannotBeReadIsSaid) {
    openOn(L"Z:\\no\\such", [&](frmKnowledgeBase& form) {
        calls.failCallsWith("files subfolders");
        press(form, key::left);
        calls.forgetFaults();
        EXPECT_EQ(form.folder(), L"Z:\\no\\such");
    });
    ASSERT_EQ(stage->messages().size(), 1U);
    EXPECT_TRUE(stage->messages()[0].text.starts_with(L"The folder cannot be opened.\r\n"));
    EXPECT_EQ(stage->messages()[0].title, L"Quillmark");
}

}  // namespace
}  // namespace tests
