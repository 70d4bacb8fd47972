// Which folders the chooser of the base folder shows on the way to a path, and how the keyboard walks them.
#include "kb/frmKnowledgeBase.h"
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::IsEmpty;
using vexa::frmKnowledgeBase;
using Names = std::vector<std::wstring>;

class FolderPaths : public KBTest {
protected:
    void openOn(const std::wstring& path, const std::function<void(frmKnowledgeBase&)>& script) {
        application.settings.VexaBaseDir = path;
        stage->whenShown<frmKnowledgeBase>([&](frmKnowledgeBase& form) {
            script(form);
            user.closeWindow(form.window());
        });
        frmKnowledgeBase(application, stage->owner()).Show();
    }
    static Names rows(const frmKnowledgeBase& form) {
        Names shown;
        for (int row = 0; row < form.dirVexaBaseDir.rowCount(); ++row)
            shown.push_back(form.dirVexaBaseDir.cellText(row, 0));
        return shown;
    }
    static ui::KeyEvent press(frmKnowledgeBase& form, int key, int modifiers = 0) {
        ui::KeyEvent event{key, modifiers};
        form.dirVexaBaseDir.onKeyDown(event);
        return event;
    }
};

struct Path {
    const wchar_t* path;
    Names steps;
};

TEST_F(FolderPaths, BeginWithTheDriveOrTheShareAndGoDownStepByStep) {
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

TEST_F(FolderPaths, TheFoldersOfAFolderStandOneStepDeeperInAlphabeticalOrder) {
    for (const wchar_t* name : {L"beta", L"alpha"}) stage->createFolder(stage->folder() + name);
    const std::wstring base = stage->folder().substr(0, stage->folder().size() - 1);
    openOn(base, [&](frmKnowledgeBase& form) {
        const int own = form.dirVexaBaseDir.currentRow();
        EXPECT_EQ(form.dirVexaBaseDir.row(own + 1).indent, own + 1);
        EXPECT_EQ(form.dirVexaBaseDir.row(own + 2).indent, own + 1);
        EXPECT_NE(form.dirVexaBaseDir.row(own + 1).picture, form.dirVexaBaseDir.row(own).picture);
        EXPECT_EQ(form.dirVexaBaseDir.cellText(own + 1, 0), L"alpha");
        user.doubleClickRow(form.dirVexaBaseDir, own + 1);
        EXPECT_EQ(form.folder(), base + L"\\alpha");
    });
}

TEST_F(FolderPaths, OfTheKeysOnlyThoseThatOpenAreTakenFromTheList) {
    constexpr int LETTER = 'A';
    const std::wstring base = stage->folder().substr(0, stage->folder().size() - 1);
    openOn(base, [&](frmKnowledgeBase& form) {
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

TEST_F(FolderPaths, FromTheRootTheLeftKeyLeadsNowhere) {
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

TEST_F(FolderPaths, ARowThatIsNotThereOpensNothing) {
    openOn(stage->folder().substr(0, stage->folder().size() - 1), [&](frmKnowledgeBase& form) {
        const std::wstring before = form.folder();
        for (const int row : {-1, form.dirVexaBaseDir.rowCount()}) form.dirVexaBaseDir.onDoubleClick(row);
        EXPECT_EQ(form.folder(), before);
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(FolderPaths, TheListWorksWhereNobodyListens) {
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

TEST_F(FolderPaths, AFolderAboveThatCannotBeReadIsSaid) {
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
