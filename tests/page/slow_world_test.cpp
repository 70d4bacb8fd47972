// The page in a world whose calls take time, handle messages meanwhile, or do not end.
#include "kb/frmKBConfiguration.h"
#include "tests/page/page_test_base.h"

namespace tests {
namespace {

using testing::Each;

constexpr const char* FOLDER_QUESTION = "files filesWithContent";

class SlowWorld : public PageTest {
protected:
    SlowWorld() {
        stage->setValue(ROOT, L"hWndSearchCtl", static_cast<std::int32_t>(LISTENING_WINDOW));
        stage->setValue(PROFILE, L"VexaBaseDir", folder);
        stage->createFolder(folder + L"\\Temp");
    }

    void addEmptyKnowledgebases(int count) {
        stage->setValue(PROFILE, L"ProjectCount", count);
        for (int index = 1; index <= count; ++index) {
            const std::wstring number = std::to_wstring(index);
            stage->setValue(PROFILE, L"Project" + number, L"Mail" + number);
        }
    }
    [[nodiscard]] std::size_t polls() { return calls.linesWith("addin IsSearching").size(); }
    [[nodiscard]] std::size_t rules() { return calls.linesWith("addin IsProcessing").size(); }

    const std::wstring folder = stage->folder() + L"kb";
};

// --- Pending events ---------------------------------------------------------------------------------------

TEST_F(SlowWorld, PendingEventsEndWhereThePollTakesLongerThanItsInterval) {
    start();
    calls.takes("addin IsSearching", 300);
    user.wait(400);  // from now on the poll is always due
    calls.clear();
    bool shown = false;
    stage->whenShown<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        shown = true;
        form.window().close();
    });
    user.click(page->cmdKnowledgeBase);
    EXPECT_TRUE(shown);
    EXPECT_LE(polls(), 2U * calls.linesWith("doevents").size());
}

TEST_F(SlowWorld, MovesOverTheMessageButtonReturnWhereThePollTakesLongerThanItsInterval) {
    start();
    calls.takes("addin IsSearching", 300);
    user.wait(400);
    calls.clear();
    user.moveMouse(page->cmdMsg, 21, 0);
    EXPECT_THAT(calls.linesWith("doevents"), SizeIs(1));
    EXPECT_LE(polls(), 1U);
}

// --- The poll ---------------------------------------------------------------------------------------------

/// A call of the poll in which the add-in handles messages, so that the next ticks come inside.
class PumpingAddIn : public SlowWorld, public testing::WithParamInterface<const char*> {};

TEST_P(PumpingAddIn, LetsNoSecondPollInToTheFirst) {
    addEmptyKnowledgebases(1);
    start();
    calls.clear();
    std::size_t inside = 0;
    calls.during(GetParam(), [&] {
        calls.clear();
        user.wait(800);
        inside = polls() + rules();
    });
    user.wait(400);
    EXPECT_EQ(inside, 0U);
    calls.clear();
    for (int turns = 0; turns < 50 && polls() == 0; ++turns) user.wait(100);
    EXPECT_GE(polls(), 1U) << "the poll goes on";
}

INSTANTIATE_TEST_SUITE_P(Calls, PumpingAddIn,
                         testing::Values("addin IsSearching", "addin IsProcessing", FOLDER_QUESTION),
                         [](const auto& one) {
                             std::string name = one.param;
                             std::erase(name, ' ');
                             return name;
                         });

TEST_F(SlowWorld, ATickInsideTheStartsRuleDoesNotAskItAgain) {
    addEmptyKnowledgebases(1);
    std::size_t inside = 0;
    calls.during("addin IsProcessing", [&] {
        calls.clear();
        for (int turns = 0; turns < 50 && polls() == 0; ++turns) user.wait(100);
        EXPECT_GE(polls(), 1U) << "the poll runs already";
        inside = rules();
    });
    start();
    EXPECT_EQ(inside, 0U);
}

TEST_F(SlowWorld, TheRuleAsksEachFolderOnceHoweverManyKnowledgebasesThereAre) {
    addEmptyKnowledgebases(300);
    create();
    page->UserControl_Initialize();
    calls.clear();
    while (rules() == 0) user.wait(100);
    EXPECT_THAT(calls.linesWith(FOLDER_QUESTION),
                ElementsAre(std::string(FOLDER_QUESTION) + " " + toUtf8(folder),
                            std::string(FOLDER_QUESTION) + " " + toUtf8(folder) + "\\Temp"));
    EXPECT_THAT(calls.linesWith("registry query " + toUtf8(PROFILE) + "Project1"), IsEmpty())
        << "without a file no name matters";
}

TEST_F(SlowWorld, ABaseFolderThatCannotBeReadIsNotAskedForItsSubfolder) {
    addEmptyKnowledgebases(3);
    stage->setValue(PROFILE, L"VexaBaseDir", stage->folder() + L"offline");
    start();
    EXPECT_TRUE(page->cmdWizard.enabled());
    EXPECT_THAT(calls.linesWith(FOLDER_QUESTION), Each(testing::EndsWith("offline")));
}

TEST_F(SlowWorld, ARuleThatTakesLongIsLeftOutForNineTimesAsLong) {
    constexpr std::int64_t ROUND = 10 * 2 * 40;  // two questions, and nine times as long without
    addEmptyKnowledgebases(3);
    calls.takes(FOLDER_QUESTION, 40);
    start();
    calls.clear();
    const std::int64_t begin = application.platform.clock.milliseconds();
    for (int turns = 0; turns < 50 && rules() < 3; ++turns) user.wait(250);
    EXPECT_EQ(rules(), 3U) << "it is asked again";
    EXPECT_GE(application.platform.clock.milliseconds() - begin, 2 * ROUND);
    EXPECT_GE(polls(), 3U) << "the buttons follow the add-in as before";
}

TEST_F(SlowWorld, ARuleThatTookLongIsNotAskedTwiceAtTheStart) {
    addEmptyKnowledgebases(3);
    calls.takes(FOLDER_QUESTION, 100);
    start();
    EXPECT_EQ(rules(), 1U);
    EXPECT_TRUE(page->cmdWizard.enabled());
}

TEST_F(SlowWorld, WhileTheRuleIsLeftOutTheWizardStaysAsItIs) {
    addEmptyKnowledgebases(1);
    calls.takes(FOLDER_QUESTION, 300);
    start();
    EXPECT_TRUE(page->cmdWizard.enabled());
    user.sendKey(page->cmdMsg, 21);
    user.wait(600);
    EXPECT_FALSE(page->cmdWizard.enabled()) << "the add-in has switched it off";
    user.sendKey(page->cmdMsg, 20);
    user.wait(600);
    EXPECT_TRUE(page->cmdWizard.enabled());
    EXPECT_EQ(rules(), 1U);
}

TEST_F(SlowWorld, AfterASearchTheWizardIsAsItWasBeforeWhileTheRuleIsLeftOut) {
    addEmptyKnowledgebases(1);
    calls.takes(FOLDER_QUESTION, 300);
    start();
    for (const bool offered : {true, false}) {
        user.moveMouse(page->cmdMsg, offered ? 20 : 21, 0);
        stage->addIn().searching = true;
        user.wait(350);
        EXPECT_FALSE(page->cmdWizard.enabled());
        stage->addIn().searching = false;
        user.wait(350);
        EXPECT_EQ(page->cmdWizard.enabled(), offered);
        EXPECT_TRUE(page->cmdSettings.enabled());
    }
    EXPECT_EQ(rules(), 1U);
}

TEST_F(SlowWorld, WhenTheKnowledgebaseDialogHasClosedTheRuleIsAskedAtOnce) {
    addEmptyKnowledgebases(1);
    calls.takes(FOLDER_QUESTION, 300);
    start();
    stage->whenShown<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        stage->writeFile(folder + L"\\Mail1.dct", "x");
        form.window().close();
    });
    user.click(page->cmdKnowledgeBase);
    EXPECT_FALSE(page->cmdWizard.enabled());
}

// --- The search window ------------------------------------------------------------------------------------

TEST_F(SlowWorld, AHungSearchWindowIsLoggedAndThePointerComesBack) {
    start();
    calls.clear();
    calls.failCallsWith("message");
    user.click(page->cmdWizard);
    EXPECT_EQ(log().back(), "ctlPPE, Error m_KBForm_KBClick: The window does not respond");
    EXPECT_EQ(calls.linesWith("pointer").back(), "pointer 0");
}

TEST_F(SlowWorld, CommandsTellWhetherAnybodyHasThem) {
    start();
    const auto addIn = application.addIn;
    const auto raise = [&](std::int32_t code) {
        bool bProcessing = false;
        std::wstring strName = L"Mail";
        return page->m_KBForm_KBClick(bProcessing, strName, code);
    };
    for (std::int32_t code = -1; code <= 7; ++code) {
        SCOPED_TRACE(code);
        EXPECT_EQ(raise(code), code >= 0 && code <= 6);
        calls.failCallsWith("addin");
        calls.failCallsWith("message");
        EXPECT_FALSE(raise(code)) << "refused";
        calls.forgetFaults();
        application.addIn.reset();
        stage->setValue(ROOT, L"hWndSearchCtl", 0);
        EXPECT_FALSE(raise(code)) << "nobody is there";
        application.addIn = addIn;
        stage->setValue(ROOT, L"hWndSearchCtl", static_cast<std::int32_t>(LISTENING_WINDOW));
    }
}

}  // namespace
}  // namespace tests
