// The property page contract: Dirty, Apply, MarkChanged.
#include "tests/page/page_test_base.h"
#include "tests/support/known_settings.h"

namespace tests {
namespace {

class PageApply : public PageTest {
protected:
    void SetUp() override {
        start();
        calls.clear();
    }

    /// Names of the values written, in order.
    std::vector<std::string> written() {
        std::vector<std::string> names;
        for (const std::string& line : calls.linesWith("registry set")) {
            const std::size_t end = line.find(" = ");
            names.push_back(line.substr(line.rfind('\\', end) + 1, end - line.rfind('\\', end) - 1));
        }
        return names;
    }
};

TEST_F(PageApply, WritesItsValuesInTheirOrder) {
    page->PropertyPage_Apply();
    EXPECT_EQ(written(), namesAsWritten());
}

TEST_F(PageApply, WritesTextsAsTextAndFlagsAsOneOrZero) {
    application.settings.VexaBaseDir = L"C:\\Mail";
    application.settings.AutoInfo = true;
    application.settings.KeepHighlights = false;
    page->PropertyPage_Apply();
    EXPECT_EQ(text(PROFILE, L"VexaBaseDir"), L"C:\\Mail");
    EXPECT_EQ(integer(PROFILE, L"AutoInfo"), 1);
    EXPECT_EQ(integer(PROFILE, L"KeepHighlights"), 0);
    EXPECT_EQ(integer(PROFILE, L"AutoFindUnread"), 1) << "true is stored as 1";
}

TEST_F(PageApply, LogsTheNumberOfKnowledgebasesFirst) {
    application.settings.ProjectCount = 3;
    page->PropertyPage_Apply();
    EXPECT_EQ(log().back(), "ctlPPE, PropertyPage_Apply: 3 projects.");
}

TEST_F(PageApply, WritesItsLineBeforeItsValues) {
    page->PropertyPage_Apply();
    expectOrder("files write", "registry set");
}

TEST_F(PageApply, IsCleanBeforeTheAddInHearsOfLogging) {
    page->MarkChanged();
    application.settings.LoggingInformation = false;
    application.flags = {true, true, true};
    bool dirtyWhenTold = true;
    vexa::ChangeFlags flagsWhenTold{true, true, true};
    bool dirtyBefore = false;
    calls.during("addin SetFindShortcut", [&] { dirtyBefore = page->PropertyPage_Dirty(); });
    calls.during("addin SetLogging", [&] {
        dirtyWhenTold = page->PropertyPage_Dirty();
        flagsWhenTold = application.flags;
    });
    page->PropertyPage_Apply();
    EXPECT_TRUE(dirtyBefore);
    EXPECT_FALSE(dirtyWhenTold);
    EXPECT_EQ(flagsWhenTold, vexa::ChangeFlags());
}

TEST_F(PageApply, WithoutAnAddInKeepsTheNewLoggingState) {
    const auto addIn = application.addIn;
    application.addIn.reset();
    application.settings.LoggingInformation = false;
    page->PropertyPage_Apply();
    application.addIn = addIn;
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin"), IsEmpty()) << "there is nothing new to tell";
    application.settings.LoggingInformation = true;
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin"), ElementsAre("addin SetLogging(1)"));
}

TEST_F(PageApply, OneFlagTellsTheAddInOneThing) {
    application.flags.defaultKnowledgebaseChanged = true;
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin"), ElementsAre("addin SetDefaultKnowledgebase(default)"));
    calls.clear();
    application.flags.shortcutChanged = true;
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin"), ElementsAre("addin SetFindShortcut(0)"));
}

TEST_F(PageApply, WithChangedColoursOnlyCallsNoOperationOfTheAddIn) {
    application.settings.Penalty2 = 0x123456;
    application.flags.dialogChanged = true;
    page->PropertyPage_Apply();
    EXPECT_EQ(written(), namesAsWritten());
    EXPECT_THAT(calls.linesWith("addin"), IsEmpty());
    EXPECT_EQ(integer(PROFILE, L"Penalty2"), 0x123456);
}

TEST_F(PageApply, TellsTheAddInOfAChangedKnowledgebaseThenShortcutThenLogging) {
    application.settings.DefaultProject = L"Mail";
    application.settings.FindShortcut = 1;
    application.settings.LoggingInformation = false;
    application.flags = {true, true, true};
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin"), ElementsAre("addin SetDefaultKnowledgebase(Mail)",
                                                      "addin SetFindShortcut(1)", "addin SetLogging(0)"));
    EXPECT_EQ(calls.lines().back(), "addin SetLogging(0)") << "after all writes";
    EXPECT_EQ(application.flags, vexa::ChangeFlags());
}

TEST_F(PageApply, SwitchingLoggingOffAndOnAgainCallsSetLoggingNotAtAll) {
    application.settings.LoggingInformation = false;
    application.settings.LoggingInformation = true;
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin SetLogging"), IsEmpty());
}

TEST_F(PageApply, TheAppliedLoggingStateIsTheNewOneToCompareWith) {
    application.settings.LoggingInformation = false;
    page->PropertyPage_Apply();
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin SetLogging"), ElementsAre("addin SetLogging(0)"));
    application.settings.LoggingInformation = true;
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin SetLogging"),
                ElementsAre("addin SetLogging(0)", "addin SetLogging(1)"));
}

TEST_F(PageApply, WithoutAnAddInStillWritesAllValuesAndClearsChanged) {
    application.addIn.reset();
    page->MarkChanged();
    application.settings.LoggingInformation = false;
    application.flags = {true, true, true};
    page->PropertyPage_Apply();
    EXPECT_EQ(written(), namesAsWritten());
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_EQ(application.flags, vexa::ChangeFlags());
}

TEST_F(PageApply, WhileCleanWritesAllValuesAgain) {
    page->PropertyPage_Apply();
    page->PropertyPage_Apply();
    EXPECT_THAT(written(), SizeIs(2 * namesAsWritten().size()));
}

TEST_F(PageApply, AFailingAddInDoesNotStopTheRemainingSteps) {
    page->MarkChanged();
    application.settings.LoggingInformation = false;
    application.flags = {true, true, true};
    calls.failCallsWith("addin");
    page->PropertyPage_Apply();
    EXPECT_THAT(calls.linesWith("addin"), SizeIs(3));
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_EQ(application.flags, vexa::ChangeFlags());
}

TEST_F(PageApply, MarkChangedTellsTheHostAndTheHostFindsThePageDirtyAtThatMoment) {
    bool dirtyWhenAsked = false;
    site.whenStatusChanges = [&] { dirtyWhenAsked = page->PropertyPage_Dirty(); };
    page->MarkChanged();
    EXPECT_TRUE(dirtyWhenAsked);
    EXPECT_THAT(calls.linesWith("site OnStatusChange"), SizeIs(1));
}

TEST_F(PageApply, TheDefaultKnowledgebaseEventAppliesAtOnce) {
    application.settings.DefaultProject = L"Mail";
    application.flags.defaultKnowledgebaseChanged = true;
    page->m_KBForm_DefaultKBChanged();
    EXPECT_EQ(text(PROFILE, L"DefaultProject"), L"Mail");
    EXPECT_THAT(calls.linesWith("addin"), ElementsAre("addin SetDefaultKnowledgebase(Mail)"));
}

TEST_F(PageApply, AFailureInTheDefaultKnowledgebaseEventIsLogged) {
    application.flags.defaultKnowledgebaseChanged = true;
    calls.failCallsWith("addin");
    page->m_KBForm_DefaultKBChanged();
    EXPECT_EQ(log().back(), "ctlPPE, Error m_KBForm_DefaultKBChanged: The add-in failed");
}

class PageStart : public PageTest {};

TEST_F(PageStart, LeavesThePageCleanAndTellsTheHostNothing) {
    start();
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("site OnStatusChange"), IsEmpty());
}

TEST_F(PageStart, MarkChangedWhileThePageLoadsDoesNothing) {
    stage->setValue(PROFILE, L"MaxEntries", 33);
    create();
    bool marked = false;
    calls.during("registry query Software\\Norvane\\Quillmark\\MaxEntries", [&] {
        page->MarkChanged();
        marked = true;
    });
    page->UserControl_Initialize();
    EXPECT_TRUE(marked);
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("site OnStatusChange"), IsEmpty());
}

}  // namespace
}  // namespace tests
