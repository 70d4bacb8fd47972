// The host closes the dialog inside a call: nothing is read, shown, asked or sent any more.
#include "kb/frmKnowledgeBase.h"
#include "kb/frmNewFolder.h"
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using vexa::frmKBConfiguration;

class KBClosed : public KBTest {
protected:
    void SetUp() override {
        KBTest::SetUp();
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        recordNames({L"Mail", L"News"});
    }
    void hostClosesDuring(const std::string& call) {
        calls.during(call, [this] { stage->closeDialogs(); });
    }
};

TEST_F(KBClosed, ByTheCallThatRefusesANameReadsNoListAnew) {
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
        EXPECT_THAT(calls.linesWith("addin Notify"), testing::SizeIs(1));
        EXPECT_THAT(log(), Not(Contains("frmKBConfiguration, Lookup: ProjectEventName")));
        EXPECT_THAT(stage->messages(), IsEmpty());
    }
}

TEST_F(KBClosed, WhileTheListIsReadAnewAfterARefusalSelectsNothing) {
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

TEST_F(KBClosed, WhileTheAddInHearsOfTheFirstKnowledgebaseOffersNothing) {
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

TEST_F(KBClosed, WhileTheAddInHearsOfTheRemovalOfTheAutoUpdateKnowledgebaseShowsNoChooser) {
    application.settings.DefaultProject = L"Mail";
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->answerMessages({ui::MessageAnswer::yes});
        hostClosesDuring("addin NotifyKbRemoved");
        user.click(form.cmdRemove);
    });
    EXPECT_EQ(application.settings.DefaultProject, L"");
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRemoved(Mail)", "addin SetDefaultKnowledgebase()"));
}

TEST_F(KBClosed, WhileTheAddInIsAskedWhetherItUpdatesGivesNoCommand) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        hostClosesDuring("addin IsAutoUpdateRunning");
        user.click(form.cmdUpdate);
        EXPECT_FALSE(form.locked());
    });
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_EQ(stored(L"KBProcessState"), MISSING);
}

TEST_F(KBClosed, WhileItIsLockedLooksForNoEndAnyMore) {
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdUpdate);
        user.closeWindow(form.window());
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(1000);
        EXPECT_EQ(stored(L"KBProcessState"), 3) << "no tick has consumed it";
    });
}

TEST_F(KBClosed, AfterANewFolderHasBeenNamedCreatesNone) {
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
