// The page's start and end.
#include "tests/page/page_test_base.h"
#include "tests/stage/patience.h"
#include "tests/support/known_settings.h"

namespace tests {
namespace {

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
    for (const vexa::Setting* setting : vexa::applyOrder()) {
        const auto* key = setting->key == vexa::SettingKey::root ? ROOT : WORK;
        EXPECT_TRUE(stage->value(key, setting->name)) << narrow(setting->name);
    }
    EXPECT_FALSE(stage->value(WORK, L"CurrentProfile"));
    EXPECT_FALSE(stage->value(WORK, L"LogPath"));
    EXPECT_FALSE(stage->value(WORK, L"LoggingInformation")) << "logging is shared by all profiles";
}

TEST_F(PageLifeCycle, LoggingFollowsTheRootKeyAndEverythingElseTheProfile) {
    stage->setValue(PROFILE, L"CurrentProfile", L"Work");
    stage->setValue(ROOT, L"LoggingInformation", 0);
    stage->setValue(WORK, L"LoggingInformation", 1);
    stage->setValue(ROOT, L"MaxEntries", 11);
    stage->setValue(WORK, L"MaxEntries", 77);
    start();
    EXPECT_FALSE(application.settings.LoggingInformation);
    EXPECT_EQ(application.settings.MaxEntries, 77);
}

TEST_F(PageLifeCycle, TheHandleOfTheMessageButtonIsPublishedAndWithdrawnBeforeTheLastLine) {
    start();
    EXPECT_EQ(integer(PROFILE, L"hWndProperties"), messageHandle(*page));
    EXPECT_FALSE(page->cmdMsg.visible());
    calls.clear();
    end();
    EXPECT_FALSE(stage->value(PROFILE, L"hWndProperties"));
    EXPECT_EQ(log().back(), "ctlPPE, terminated.");
    expectOrder("registry delete Software\\Norvane\\Quillmark\\hWndProperties", "files write");
}

TEST_F(PageLifeCycle, TheMessageHandleIsPublishedAndWithdrawnBelowTheSetProfile) {
    stage->setValue(PROFILE, L"CurrentProfile", L"Work");
    stage->setValue(PROFILE, L"hWndProperties", 1);
    start();
    EXPECT_EQ(integer(WORK, L"hWndProperties"), messageHandle(*page));
    end();
    EXPECT_FALSE(stage->value(WORK, L"hWndProperties"));
    EXPECT_EQ(integer(PROFILE, L"hWndProperties"), 1) << "somebody else's";
}

TEST_F(PageLifeCycle, APageWithdrawsItsHandleFromWhereItPublishedItWhateverTheProfileIsNow) {
    stage->setValue(PROFILE, L"CurrentProfile", L"Home");
    start();
    stage->setValue(PROFILE, L"CurrentProfile", L"Work");
    const auto other = startAnother();
    end();
    EXPECT_FALSE(stage->value(HOME, L"hWndProperties"));
    EXPECT_EQ(integer(WORK, L"hWndProperties"), messageHandle(*other));
    other->UserControl_Terminate();
    EXPECT_FALSE(stage->value(WORK, L"hWndProperties"));
}

TEST_F(PageLifeCycle, ASecondStartWithAnotherProfileReadsAndWritesThatOne) {
    stage->setValue(PROFILE, L"CurrentProfile", L"Home");
    stage->setValue(HOME, L"MaxEntries", 31);
    stage->setValue(WORK, L"MaxEntries", 32);
    stage->setValue(WORK, L"LogPath", stage->folder() + L"worklog\\");
    start();
    EXPECT_EQ(application.settings.MaxEntries, 31);
    end();
    stage->setValue(PROFILE, L"CurrentProfile", L"Work");
    start();
    EXPECT_EQ(application.ProfileKey, WORK);
    EXPECT_EQ(application.settings.MaxEntries, 32);
    EXPECT_EQ(application.log.LogPath, stage->folder() + L"worklog\\");
    application.settings.MaxEntries = 33;
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(WORK, L"MaxEntries"), 33);
    EXPECT_EQ(integer(HOME, L"MaxEntries"), 31);
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
    const auto other = startAnother();
    EXPECT_NE(application.addIn, nullptr);
    EXPECT_THAT(stage->messages(), SizeIs(1)) << "the second page has found none and says so";
    calls.clear();
    user.wait(1000);
    EXPECT_GE(calls.linesWith("addin IsSearching").size(), 1U) << "the first page polls";
    EXPECT_LE(calls.linesWith("addin IsSearching").size(), 5U) << "the second does not";
    end();
    other->UserControl_Initialize();
    EXPECT_EQ(application.addIn, nullptr) << "now it is the only page";
    other->UserControl_Terminate();
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
    expected.push_back("registry set " + root + "\\hWndProperties = " + std::to_string(messageHandle(*page)));
    // What took long is not asked twice: in real windows on a loaded machine the rule may.
    const bool mayBeSlow = intervalsToWait() > 1;
    if (!mayBeSlow || steps.size() > expected.size() + 1)
        expected.insert(expected.end(), rule.begin(), rule.end());
    expected.push_back("registry query " + root + "\\AppVer");
    EXPECT_EQ(steps, expected);
}

TEST_F(PageLifeCycle, AStoredValueThatDoesNotConvertLeavesWhatTheRecordHas) {
    application.settings.MaxEntries = 55;
    stage->setValue(PROFILE, L"MaxEntries", L"many");
    stage->setValue(PROFILE, L"MinRel", vexa::Bytes{1, 2, 3, 4});
    stage->setValue(PROFILE, L"AutoFindDelay", L" 15 ");
    stage->setRawValue(PROFILE, L"ColorHotSpots", 2, {'%', 0});
    stage->setValue(PROFILE, L"DefaultProject", 7);
    start();
    EXPECT_EQ(application.settings.MaxEntries, 55);
    EXPECT_EQ(application.settings.MinRel, 40);
    EXPECT_EQ(application.settings.AutoFindDelay, 15);
    EXPECT_EQ(application.settings.ColorHotSpots, 0x00FFFF);
    EXPECT_EQ(application.settings.DefaultProject, L"7");
}

TEST_F(PageLifeCycle, AFlagStoredAsFiveReadsAsTrueAndIsWrittenBackAsOne) {
    stage->setValue(PROFILE, L"AutoInfo", 5);
    start();
    EXPECT_TRUE(application.settings.AutoInfo);
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(PROFILE, L"AutoInfo"), 1);
}

TEST_F(PageLifeCycle, ASecondPageInTheSameProcessStartsAfreshButSharesTheRecordAndTheLogWithItsVersion) {
    stage->setValue(ROOT, L"AppVer", L"3.1.4");
    start();
    application.flags.shortcutChanged = true;
    end();
    stage->setValue(PROFILE, L"MaxEntries", 90);
    start();
    EXPECT_EQ(application.settings.MaxEntries, 90);
    EXPECT_TRUE(application.flags.shortcutChanged) << "the change flags outlive a page";
    EXPECT_FALSE(page->PropertyPage_Dirty());
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
    expectOrder("screen message Failed to get AddIn.", "registry");
}

TEST_F(PageLifeCycle, TwoPagesAliveAtOnceDoNotDisturbEachOther) {
    start();
    const auto other = startAnother();
    page->MarkChanged();
    EXPECT_TRUE(page->PropertyPage_Dirty());
    EXPECT_FALSE(other->PropertyPage_Dirty());
    EXPECT_EQ(integer(PROFILE, L"hWndProperties"), messageHandle(*other));
    other->UserControl_Terminate();
}

TEST_F(PageLifeCycle, ALogFolderThatCannotBeMadeDoesNotDisturbTheStart) {
    stage->setValue(PROFILE, L"LogPath", L"Z:\\no\\such\\folder\\");
    start();
    EXPECT_TRUE(page->cmdKnowledgeBase.enabled());
    EXPECT_EQ(integer(PROFILE, L"hWndProperties"), messageHandle(*page));
}

TEST_F(PageLifeCycle, NoWizardIsOfferedWhereTheAddInProcessesAtTheStart) {
    stage->addIn().processing = true;
    start();
    EXPECT_FALSE(page->cmdWizard.enabled());
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
        for (const PageRow& row : rows()) {
            const ui::Rect line = row.line.bounds();
            const ui::Rect caption = row.caption.bounds();
            const ui::Rect description = row.description.bounds();
            const ui::Rect picture = row.picture.bounds();
            EXPECT_EQ(caption.left, margin);
            EXPECT_EQ(description.left, margin);
            EXPECT_EQ(description.left + description.width, inner - margin);
            EXPECT_EQ(line.left + line.width, inner - margin);
            EXPECT_GE(line.top, previousBottom);
            EXPECT_GE(caption.top, line.top);
            EXPECT_GE(description.top, caption.top + caption.height);
            EXPECT_GE(picture.top, description.top + description.height);
            EXPECT_GE(row.button.bounds().left, picture.left + picture.width);
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
    std::vector<ui::Rect> firstRow;  ///< line, caption, description, picture, button
};

/// The first row where a pixel has 15 twips.
std::vector<ui::Rect> usual(int width) {
    return {{8, 2, width, 2}, {8, 4, width, 14}, {8, 19, width, 14}, {8, 35, 32, 32}, {48, 38, 120, 25}};
}

class PageLayout : public PageTest, public testing::WithParamInterface<Layout> {};

TEST_P(PageLayout, PutsEachRowWhereItBelongs) {
    stage->setTwipsPerPixel(GetParam().twips, GetParam().twips);
    create();
    user.resize(page->window(), GetParam().page);
    std::vector<ui::Rect> expected = GetParam().firstRow;
    for (const PageRow& row : rows()) {
        const std::vector<ui::Rect> bounds{row.line.bounds(), row.caption.bounds(), row.description.bounds(),
                                           row.picture.bounds(), row.button.bounds()};
        EXPECT_EQ(bounds, expected) << narrow(row.button.text());
        for (ui::Rect& next : expected) next.top += GetParam().rowHeight;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, PageLayout,
    testing::Values(
        Layout{"AtRest", 15, {400, 420}, 84, usual(384)},
        Layout{"LowRowsOverflow", 15, {300, 200}, 69, usual(284)},
        Layout{"HighRowsEnd", 15, {300, 900}, 89, usual(284)},
        Layout{"FinerScreen",
               12,
               {400, 420},
               86,
               {{10, 3, 380, 3}, {10, 5, 380, 18}, {10, 24, 380, 18}, {10, 44, 40, 40}, {60, 48, 150, 31}}},
        // Every distance to the twip.
        Layout{"ByTheTwip",
               1,
               {4000, 4000},
               1035,
               {{120, 30, 3760, 30},
                {120, 60, 3760, 210},
                {120, 285, 3760, 210},
                {120, 525, 480, 480},
                {720, 577, 1800, 375}}}),
    namedRow);

// The page of a classic property sheet has 218 dialog units, some 354 pixels at 96 DPI.
TEST_F(PageLifeCycle, AllRowsFitThePageOfAClassicPropertySheet) {
    create();
    const int height = static_cast<int>(354 * 15 / application.screen.twipsPerPixelY());
    user.resize(page->window(), {400, height});
    const PageRow last = rows().back();
    EXPECT_LE(last.button.bounds().top + last.button.bounds().height, height);
    EXPECT_LE(last.picture.bounds().top + last.picture.bounds().height, height);
}

TEST_F(PageLifeCycle, APageWithoutAnyRoomKeepsItsRowsAndDoesNotFail) {
    create();
    user.resize(page->window(), {0, 0});
    EXPECT_GE(page->window().control<ui::Label>(IDC_lblWizardInfo).bounds().width, 0);
}

}  // namespace
}  // namespace tests
