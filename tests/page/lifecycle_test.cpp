// The page's start and end.
#include "tests/page/page_test_base.h"
#include "tests/stage/patience.h"
#include "tests/support/known_settings.h"

namespace tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class PageLifeCycle : public PageTest {};

TEST_F(PageLifeCycle, AnAddInThatIsPresentAtOnceCostsOneSleepAndOneTrial) {
    start();
    EXPECT_THAT(calls.linesWith("clock sleep"), ElementsAre("clock sleep 100"));
    EXPECT_THAT(calls.linesWith("locate addin"), SizeIs(1));
    EXPECT_THAT(log(), ElementsAre("Trials to get OlAddIn: 1.", "ctlPPE, initialized."));
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_F(PageLifeCycle, WithoutTheAddInTheStartTriesAHundredTimesAndSaysSoOnce) {
    stage->setAddInRunning(false);
    start();
    EXPECT_THAT(calls.linesWith("locate addin"), SizeIs(100));
    EXPECT_THAT(calls.linesWith("clock sleep 100"), SizeIs(100));
    EXPECT_THAT(log(), ElementsAre("Trials to get OlAddIn: 100.", "ctlPPE, initialized."));
    ASSERT_THAT(stage->messages(), SizeIs(1));
    EXPECT_EQ(stage->messages()[0], (ui::Message{L"Failed to get AddIn.", L"VexaPPE", ui::MessageIcon::none,
                                                 ui::MessageButtons::ok}));
}

TEST_F(PageLifeCycle, AnAddInThatAppearsOnTheThirdTrialIsTakenThen) {
    stage->setAddInRunning(false);
    calls.during("clock sleep", [&] { calls.during("clock sleep", [&] { stage->setAddInRunning(true); }); });
    start();
    EXPECT_THAT(calls.linesWith("locate addin"), SizeIs(3));
    EXPECT_EQ(log()[0], "Trials to get OlAddIn: 3.");
}

TEST_F(PageLifeCycle, WithoutTheAddInThePageStillLoadsAppliesAndDoesNotPoll) {
    stage->setValue(PROFILE, L"MaxEntries", 33);
    stage->setAddInRunning(false);
    start();
    EXPECT_EQ(application.settings.MaxEntries, 33);
    application.settings.MaxEntries = 34;
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(PROFILE, L"MaxEntries"), 34);
    calls.clear();
    user.wait(1000);
    EXPECT_THAT(calls.linesWith("addin"), IsEmpty());
}

TEST_F(PageLifeCycle, WithAnEmptyRegistryThePageStartsWithTheDefaults) {
    start();
    EXPECT_EQ(application.settings, vexa::Settings());
    EXPECT_EQ(application.ProfileKey, PROFILE);
    EXPECT_EQ(application.log.LogPath, stage->folder().substr(0, stage->folder().size() - 1) + L"\\Log\\");
}

TEST_F(PageLifeCycle, TheFirstApplyCreatesTheProfileKeyWithEveryValueButProfileAndLogPath) {
    stage->setValue(PROFILE, L"CurrentProfile", L"Work");
    start();
    page->PropertyPage_Apply();
    const std::wstring profile = std::wstring(PROFILE) + L"Work";
    for (const vexa::Setting* setting : vexa::applyOrder()) {
        const std::wstring key = setting->key == vexa::SettingKey::root ? ROOT : profile;
        EXPECT_TRUE(stage->value(key, setting->name)) << narrow(setting->name);
    }
    EXPECT_FALSE(stage->value(profile, L"CurrentProfile"));
    EXPECT_FALSE(stage->value(profile, L"LogPath"));
    EXPECT_FALSE(stage->value(profile, L"LoggingInformation")) << "logging is shared by all profiles";
}

TEST_F(PageLifeCycle, LoggingFollowsTheRootKeyAndEverythingElseTheProfile) {
    const std::wstring profile = std::wstring(PROFILE) + L"Work";
    stage->setValue(PROFILE, L"CurrentProfile", L"Work");
    stage->setValue(ROOT, L"LoggingInformation", 0);
    stage->setValue(profile, L"LoggingInformation", 1);
    stage->setValue(ROOT, L"MaxEntries", 11);
    stage->setValue(profile, L"MaxEntries", 77);
    start();
    EXPECT_FALSE(application.settings.LoggingInformation);
    EXPECT_EQ(application.settings.MaxEntries, 77);
}

TEST_F(PageLifeCycle, TheHandleOfTheMessageButtonIsPublishedAndWithdrawn) {
    start();
    EXPECT_EQ(integer(PROFILE, L"hWndProperties"), static_cast<std::int32_t>(page->cmdMsg.handle()));
    EXPECT_FALSE(page->cmdMsg.visible());
    end();
    EXPECT_FALSE(stage->value(PROFILE, L"hWndProperties"));
    EXPECT_EQ(log().back(), "ctlPPE, terminated.");
}

TEST_F(PageLifeCycle, TheMessageHandleGoesBeforeTheLastLine) {
    start();
    calls.clear();
    end();
    const std::string withdrawn = "registry delete Software\\Norvane\\Quillmark\\hWndProperties";
    const auto& lines = calls.lines();
    const auto deleted = std::ranges::find(lines, withdrawn);
    const auto written =
        std::ranges::find_if(lines, [](const std::string& l) { return l.starts_with("files write"); });
    ASSERT_NE(deleted, lines.end());
    ASSERT_NE(written, lines.end());
    EXPECT_LT(deleted, written);
}

TEST_F(PageLifeCycle, TheMessageHandleIsPublishedAndWithdrawnBelowTheSetProfile) {
    const std::wstring work = std::wstring(PROFILE) + L"Work";
    stage->setValue(PROFILE, L"CurrentProfile", L"Work");
    stage->setValue(PROFILE, L"hWndProperties", 1);
    start();
    EXPECT_EQ(integer(work, L"hWndProperties"), static_cast<std::int32_t>(page->cmdMsg.handle()));
    end();
    EXPECT_FALSE(stage->value(work, L"hWndProperties"));
    EXPECT_EQ(integer(PROFILE, L"hWndProperties"), 1) << "somebody else's";
}

TEST_F(PageLifeCycle, APageWithdrawsItsHandleFromWhereItPublishedItWhateverTheProfileIsNow) {
    const std::wstring home = std::wstring(PROFILE) + L"Home";
    const std::wstring work = std::wstring(PROFILE) + L"Work";
    stage->setValue(PROFILE, L"CurrentProfile", L"Home");
    start();
    stage->setValue(PROFILE, L"CurrentProfile", L"Work");
    FakePageSite otherSite{calls};
    vexa::ctlPPE other(application, stage->createPage(IDD_ctlPPE, {400, 420}), otherSite);
    other.UserControl_Initialize();
    end();
    EXPECT_FALSE(stage->value(home, L"hWndProperties"));
    EXPECT_EQ(integer(work, L"hWndProperties"), static_cast<std::int32_t>(other.cmdMsg.handle()));
    other.UserControl_Terminate();
    EXPECT_FALSE(stage->value(work, L"hWndProperties"));
}

TEST_F(PageLifeCycle, ASecondStartWithAnotherProfileReadsAndWritesThatOne) {
    stage->setValue(PROFILE, L"CurrentProfile", L"Home");
    stage->setValue(std::wstring(PROFILE) + L"Home", L"MaxEntries", 31);
    stage->setValue(std::wstring(PROFILE) + L"Work", L"MaxEntries", 32);
    stage->setValue(std::wstring(PROFILE) + L"Work", L"LogPath", stage->folder() + L"worklog\\");
    start();
    EXPECT_EQ(application.settings.MaxEntries, 31);
    end();
    stage->setValue(PROFILE, L"CurrentProfile", L"Work");
    start();
    EXPECT_EQ(application.ProfileKey, std::wstring(PROFILE) + L"Work");
    EXPECT_EQ(application.settings.MaxEntries, 32);
    EXPECT_EQ(application.log.LogPath, stage->folder() + L"worklog\\");
    application.settings.MaxEntries = 33;
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(std::wstring(PROFILE) + L"Work", L"MaxEntries"), 33);
    EXPECT_EQ(integer(std::wstring(PROFILE) + L"Home", L"MaxEntries"), 31);
}

TEST_F(PageLifeCycle, AStartWithoutAnAddInLeavesNone) {
    start();
    end();
    stage->setAddInRunning(false);
    start();
    EXPECT_EQ(application.addIn, nullptr) << "the one of before may be gone";
    stage->setAddInRunning(true);
    end();
    start();
    EXPECT_NE(application.addIn, nullptr);
}

TEST_F(PageLifeCycle, AStartWithoutAnAddInLeavesAloneTheOneThatAnotherPageUses) {
    start();
    stage->setAddInRunning(false);
    FakePageSite otherSite{calls};
    vexa::ctlPPE other(application, stage->createPage(IDD_ctlPPE, {400, 420}), otherSite);
    other.UserControl_Initialize();
    EXPECT_NE(application.addIn, nullptr);
    EXPECT_THAT(stage->messages(), SizeIs(1)) << "the second page has found none and says so";
    calls.clear();
    user.wait(1000);
    EXPECT_GE(calls.linesWith("addin IsSearching").size(), 1U) << "the first page polls";
    EXPECT_LE(calls.linesWith("addin IsSearching").size(), 5U) << "the second does not";
    end();
    other.UserControl_Initialize();
    EXPECT_EQ(application.addIn, nullptr) << "now it is the only page";
    other.UserControl_Terminate();
}

TEST_F(PageLifeCycle, AContainerThatFailsToTellItsNameDoesNotStopTheStart) {
    calls.failCallsWith("site DisplayName");
    start();
    EXPECT_TRUE(page->cmdSettings.enabled());
    EXPECT_EQ(log().back(), "ctlPPE, initialized.");
}

TEST_F(PageLifeCycle, TheStartTakesItsStepsInOrder) {
    stage->setValue(ROOT, L"Unrelated", 1);  // without the key nothing is asked
    start();
    std::vector<std::string> steps;
    for (const std::string& line : calls.lines()) {
        if (line.starts_with("locate") || line.starts_with("clock sleep") || line.starts_with("addin") ||
            line.starts_with("registry query") || line.starts_with("registry set"))
            if (steps.empty() || steps.back() != line) steps.push_back(line);
    }
    const std::string root = "Software\\Norvane\\Quillmark";
    std::vector<std::string> expected{"locate addin", "clock sleep 100",
                                      "registry query " + root + "\\CurrentProfile",
                                      "registry query " + root + "\\LogPath"};
    for (const std::string& name : namesAsRead()) expected.push_back("registry query " + root + "\\" + name);
    // The wizard rule, the message handle, the buttons, then the log's version line.
    const std::vector<std::string> rule{"addin IsProcessing()", "registry query " + root + "\\KBProcessState",
                                        "registry query " + root + "\\ProjectCount",
                                        "registry query " + root + "\\VexaBaseDir"};
    expected.insert(expected.end(), rule.begin(), rule.end());
    expected.push_back("registry set " + root + "\\hWndProperties = " +
                       std::to_string(static_cast<std::int32_t>(page->cmdMsg.handle())));
    // What took long is not asked twice: in real windows on a loaded machine the rule may.
    const bool mayBeSlow = intervalsToWait() > 1;
    if (!mayBeSlow || steps.size() > expected.size() + 1)
        expected.insert(expected.end(), rule.begin(), rule.end());
    expected.push_back("registry query " + root + "\\AppVer");
    EXPECT_EQ(steps, expected);
}

TEST_F(PageLifeCycle, AStoredValueThatDoesNotConvertLeavesTheDefault) {
    stage->setValue(PROFILE, L"MaxEntries", L"many");
    stage->setValue(PROFILE, L"MinRel", vexa::Bytes{1, 2, 3, 4});
    stage->setValue(PROFILE, L"AutoFindDelay", L" 15 ");
    stage->setRawValue(PROFILE, L"ColorHotSpots", 2, {'%', 0});
    stage->setValue(PROFILE, L"DefaultProject", 7);
    start();
    EXPECT_EQ(application.settings.MaxEntries, 20);
    EXPECT_EQ(application.settings.MinRel, 40);
    EXPECT_EQ(application.settings.AutoFindDelay, 15);
    EXPECT_EQ(application.settings.ColorHotSpots, 0x00FFFF);
    EXPECT_EQ(application.settings.DefaultProject, L"7");
}

TEST_F(PageLifeCycle, AStoredValueThatDoesNotConvertKeepsWhatTheRecordHad) {
    application.settings.MaxEntries = 55;
    stage->setValue(PROFILE, L"MaxEntries", L"many");
    start();
    EXPECT_EQ(application.settings.MaxEntries, 55);
}

TEST_F(PageLifeCycle, AFlagStoredAsFiveReadsAsTrueAndIsWrittenBackAsOne) {
    stage->setValue(PROFILE, L"AutoInfo", 5);
    start();
    EXPECT_TRUE(application.settings.AutoInfo);
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(PROFILE, L"AutoInfo"), 1);
}

TEST_F(PageLifeCycle, ASecondPageInTheSameProcessStartsAfreshButSharesTheRecord) {
    start();
    application.flags.shortcutChanged = true;
    end();
    stage->setValue(PROFILE, L"MaxEntries", 90);
    start();
    EXPECT_EQ(application.settings.MaxEntries, 90);
    EXPECT_TRUE(application.flags.shortcutChanged) << "the change flags outlive a page";
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_THAT(log(), ElementsAre("Trials to get OlAddIn: 1.", "ctlPPE, initialized.", "ctlPPE, terminated.",
                                   "Trials to get OlAddIn: 1.", "ctlPPE, initialized."))
        << "one log per process";
}

TEST_F(PageLifeCycle, TwoPageStartsInOneProcessWriteOneVersionLine) {
    stage->setValue(ROOT, L"AppVer", L"3.1.4");
    start();
    end();
    start();
    EXPECT_THAT(log(),
                ElementsAre("3.1.4", "Trials to get OlAddIn: 1.", "ctlPPE, initialized.",
                            "ctlPPE, terminated.", "Trials to get OlAddIn: 1.", "ctlPPE, initialized."));
}

// As where the library lets everything go between two pages, but stays loaded.
TEST_F(PageLifeCycle, WhatTheProcessRemembersGoesOnInANewApplication) {
    stage->setValue(ROOT, L"AppVer", L"3.1.4");
    start();
    application.settings.MaxEntries = 77;
    application.flags.shortcutChanged = true;
    application.bBaseDirChanged = true;
    end();
    vexa::Application next(application.platform, application.screen);
    next.recall(application.remember());
    EXPECT_EQ(next.settings, application.settings);
    EXPECT_EQ(next.flags, application.flags);
    EXPECT_TRUE(next.bBaseDirChanged);
    const std::vector<std::string> before = log();
    next.log.LogPath = application.log.LogPath;
    next.WriteLogLine(L"more");
    std::vector<std::string> expected = before;
    expected.push_back("more");
    EXPECT_EQ(log(), expected) << "the log goes on, without a second version line";
}

TEST_F(PageLifeCycle, TheMissingAddInIsReportedBeforeTheSettingsAreRead) {
    stage->setAddInRunning(false);
    start();
    const auto& lines = calls.lines();
    const auto box = std::ranges::find(lines, "screen message Failed to get AddIn.");
    const auto read =
        std::ranges::find_if(lines, [](const std::string& line) { return line.starts_with("registry"); });
    ASSERT_NE(box, lines.end());
    ASSERT_NE(read, lines.end());
    EXPECT_LT(box, read);
}

TEST_F(PageLifeCycle, TwoPagesAliveAtOnceDoNotDisturbEachOther) {
    start();
    FakePageSite otherSite{calls};
    vexa::ctlPPE other(application, stage->createPage(IDD_ctlPPE, {400, 420}), otherSite);
    other.UserControl_Initialize();
    page->MarkChanged();
    EXPECT_TRUE(page->PropertyPage_Dirty());
    EXPECT_FALSE(other.PropertyPage_Dirty());
    EXPECT_EQ(integer(PROFILE, L"hWndProperties"), static_cast<std::int32_t>(other.cmdMsg.handle()));
    other.UserControl_Terminate();
}

TEST_F(PageLifeCycle, ALogFolderThatCannotBeMadeDoesNotDisturbTheStart) {
    stage->setValue(PROFILE, L"LogPath", L"Z:\\no\\such\\folder\\");
    start();
    EXPECT_TRUE(page->cmdKnowledgeBase.enabled());
    EXPECT_EQ(integer(PROFILE, L"hWndProperties"), static_cast<std::int32_t>(page->cmdMsg.handle()));
}

TEST_F(PageLifeCycle, NoLogIsWrittenWhileLoggingIsOff) {
    stage->setValue(ROOT, L"LoggingInformation", 0);
    start();
    EXPECT_THAT(calls.linesWith("files"), IsEmpty());
}

TEST_F(PageLifeCycle, EveryRowKeepsItsDistanceFromTheEdgesAtAnyWidth) {
    create();
    const int margin = static_cast<int>(120 / application.screen.twipsPerPixelX() + 0.5);
    for (const int width : {250, 400, 700}) {
        user.resize(page->window(), {width, 450});
        const int inner = page->window().innerSize().width;
        int previousBottom = 0;
        for (const int row :
             {IDC_lneKnowledgeBase, IDC_lneSettings, IDC_lneAttachments, IDC_lneDispMatches, IDC_lneWizard}) {
            ui::Window& window = page->window();
            const ui::Rect line = window.control<ui::Line>(row).bounds();
            const ui::Rect caption = window.control<ui::Label>(row + 1).bounds();
            const ui::Rect description = window.control<ui::Label>(row + 2).bounds();
            const ui::Rect picture = window.control<ui::Picture>(row + 3).bounds();
            const ui::Rect button = window.control<ui::Button>(row + 4).bounds();
            EXPECT_EQ(caption.left, margin);
            EXPECT_EQ(description.left, margin);
            EXPECT_EQ(description.left + description.width, inner - margin);
            EXPECT_EQ(line.left + line.width, inner - margin);
            EXPECT_GE(line.top, previousBottom);
            EXPECT_GE(caption.top, line.top);
            EXPECT_GE(description.top, caption.top + caption.height);
            EXPECT_GE(picture.top, description.top + description.height);
            EXPECT_GE(button.left, picture.left + picture.width);
            previousBottom = picture.top + picture.height;
        }
    }
}

/// A page of some size and resolution, and where its rows stand then.
struct Layout {
    const char* name;
    double twips;  ///< per pixel
    ui::Size page;
    int rowHeight;
    // Those of the first row.
    ui::Rect line, caption, description, picture, button;
};

class PageLayout : public PageTest, public testing::WithParamInterface<Layout> {
protected:
    void expectAt(const ui::Control& control, ui::Rect wanted, int row) {
        wanted.top += row * GetParam().rowHeight;
        EXPECT_EQ(control.bounds(), wanted) << "row " << row;
    }
};

TEST_P(PageLayout, PutsEachRowWhereItBelongs) {
    const Layout& layout = GetParam();
    stage->setTwipsPerPixel(layout.twips, layout.twips);
    create();
    user.resize(page->window(), layout.page);
    ui::Window& window = page->window();
    int row = 0;
    for (const int first :
         {IDC_lneKnowledgeBase, IDC_lneSettings, IDC_lneAttachments, IDC_lneDispMatches, IDC_lneWizard}) {
        expectAt(window.control<ui::Line>(first), layout.line, row);
        expectAt(window.control<ui::Label>(first + 1), layout.caption, row);
        expectAt(window.control<ui::Label>(first + 2), layout.description, row);
        expectAt(window.control<ui::Picture>(first + 3), layout.picture, row);
        expectAt(window.control<ui::Button>(first + 4), layout.button, row);
        ++row;
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, PageLayout,
                         testing::Values(Layout{"AtRest",
                                                15,
                                                {400, 420},
                                                84,
                                                {8, 2, 384, 2},
                                                {8, 4, 384, 14},
                                                {8, 19, 384, 14},
                                                {8, 35, 32, 32},
                                                {48, 38, 120, 25}},
                                         Layout{"LowRowsOverflow",
                                                15,
                                                {300, 200},
                                                69,
                                                {8, 2, 284, 2},
                                                {8, 4, 284, 14},
                                                {8, 19, 284, 14},
                                                {8, 35, 32, 32},
                                                {48, 38, 120, 25}},
                                         Layout{"HighRowsEnd",
                                                15,
                                                {300, 900},
                                                89,
                                                {8, 2, 284, 2},
                                                {8, 4, 284, 14},
                                                {8, 19, 284, 14},
                                                {8, 35, 32, 32},
                                                {48, 38, 120, 25}},
                                         Layout{"FinerScreen",
                                                12,
                                                {400, 420},
                                                86,
                                                {10, 3, 380, 3},
                                                {10, 5, 380, 18},
                                                {10, 24, 380, 18},
                                                {10, 44, 40, 40},
                                                {60, 48, 150, 31}},
                                         // Every distance to the twip.
                                         Layout{"ByTheTwip",
                                                1,
                                                {4000, 4000},
                                                1035,
                                                {120, 30, 3760, 30},
                                                {120, 60, 3760, 210},
                                                {120, 285, 3760, 210},
                                                {120, 525, 480, 480},
                                                {720, 577, 1800, 375}}),
                         [](const auto& one) { return std::string(one.param.name); });

// The page of a classic property sheet has 218 dialog units, some 354 pixels at 96 DPI.
TEST_F(PageLifeCycle, AllRowsFitThePageOfAClassicPropertySheet) {
    create();
    const int height = static_cast<int>(354 * 15 / application.screen.twipsPerPixelY());
    user.resize(page->window(), {400, height});
    for (const ui::Control* control :
         {static_cast<ui::Control*>(&page->cmdWizard),
          static_cast<ui::Control*>(&page->window().control<ui::Picture>(IDC_picWizard))})
        EXPECT_LE(control->bounds().top + control->bounds().height, height);
}

TEST_F(PageLifeCycle, APageWithoutAnyRoomKeepsItsRowsAndDoesNotFail) {
    create();
    user.resize(page->window(), {0, 0});
    EXPECT_GE(page->window().control<ui::Label>(IDC_lblWizardInfo).bounds().width, 0);
}

}  // namespace
}  // namespace tests
