// The page's buttons, the message button, the poll, the wizard rule and the knowledgebase events.
#include "common/knowledgebase_names.h"
#include "kb/frmKBConfiguration.h"
#include "settings/frmDispMatches.h"
#include "tests/page/page_test_base.h"
#include "tests/stage/patience.h"

namespace tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class PageCommands : public PageTest {
protected:
    void SetUp() override {
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        start();
        calls.clear();
    }

    /// At the next poll, as far as the stage's time is exact: a rule that took long is left out of some.
    bool pollMakes(const std::function<bool()>& isSo) {
        for (int polls = 0; polls < intervalsToWait() && !isSo(); ++polls) user.wait(260);
        return isSo();
    }
    bool pollMakes(const std::vector<bool>& states) {
        return pollMakes([&] { return buttonStates() == states; });
    }
    bool wizardBecomes(bool offered) {
        return pollMakes([&] { return page->cmdWizard.enabled() == offered; });
    }

    void raise(std::int32_t action, const std::wstring& name = L"Mail", bool flag = false) {
        bool bProcessing = flag;
        std::wstring strName = name;
        page->m_KBForm_KBClick(bProcessing, strName, action);
    }

    std::vector<bool> buttonStates() {
        return {page->cmdKnowledgeBase.enabled(), page->cmdSettings.enabled(), page->cmdAttachments.enabled(),
                page->cmdDispMatches.enabled(), page->cmdWizard.enabled()};
    }
    const std::vector<bool> allOff = std::vector<bool>(5, false);
    const std::vector<bool> allOn = std::vector<bool>(5, true);
};

// --- Why buttons are disabled -----------------------------------------------------------------------------

class PageReasons : public PageCommands {
protected:
    std::wstring info(int identifier) { return page->window().control<ui::Label>(identifier).text(); }
};

TEST_F(PageReasons, WhileTheAddInSearchesEachRowSaysSo) {
    const std::wstring before = info(IDC_lblSettingsInfo);
    stage->addIn().searching = true;
    EXPECT_TRUE(pollMakes(allOff));
    for (const int row : {IDC_lblKnowledgeBaseInfo, IDC_lblSettingsInfo, IDC_lblAttachmentsInfo,
                          IDC_lblDispMatchesInfo, IDC_lblWizardInfo})
        EXPECT_EQ(info(row), L"The add-in is searching. Please wait until it has finished.");
    EXPECT_EQ(page->cmdSettings.description(), info(IDC_lblSettingsInfo));
    stage->addIn().searching = false;
    EXPECT_TRUE(pollMakes(allOn));
    EXPECT_EQ(info(IDC_lblSettingsInfo), before);
    EXPECT_EQ(page->cmdSettings.description(), before);
}

TEST_F(PageReasons, TheWizardsRowSaysWhenItIsOffered) {
    const std::wstring offered = info(IDC_lblWizardInfo);
    stage->setValue(PROFILE, L"KBProcessState", 2);
    EXPECT_TRUE(wizardBecomes(false));
    EXPECT_EQ(info(IDC_lblWizardInfo), L"Offered while no knowledgebase has content and the add-in is idle.");
    stage->setValue(PROFILE, L"KBProcessState", 3);
    EXPECT_TRUE(wizardBecomes(true));
    EXPECT_EQ(info(IDC_lblWizardInfo), offered);
}

TEST_F(PageReasons, TheHourglassShowsWhileTheAddInIsLookedFor) {
    end();
    calls.clear();
    stage->setAddInRunning(false);
    start();
    const auto pointers = calls.linesWith("pointer");
    ASSERT_GE(pointers.size(), 2U);
    EXPECT_EQ(pointers[0], "pointer 11");
    EXPECT_EQ(pointers[1], "pointer 0");
}

// --- Knowledgebase events ---------------------------------------------------------------------------------

struct Event {
    std::int32_t code;
    const char* call;  ///< what leaves the page
};

class PageEvents : public PageCommands, public testing::WithParamInterface<Event> {};

TEST_P(PageEvents, AreWrittenToTheRegistryAndPassedOn) {
    stage->setValue(PROFILE, L"OldProjectname", L"Post");
    raise(GetParam().code);
    EXPECT_EQ(integer(PROFILE, L"ProjectEvent"), GetParam().code);
    EXPECT_EQ(text(PROFILE, L"ProjectEventName"), L"Mail");
    std::vector<std::string> passedOn = calls.linesWith("addin");
    for (const std::string& line : calls.linesWith("message")) passedOn.push_back(line);
    EXPECT_THAT(passedOn, ElementsAre(testing::StartsWith(GetParam().call)));
    EXPECT_THAT(calls.linesWith("pointer"), ElementsAre("pointer 13", "pointer 0"));
}

TEST_P(PageEvents, ComeToTheirEndWhereTheAddInFails) {
    calls.failCallsWith("addin");
    raise(GetParam().code);
    EXPECT_EQ(integer(PROFILE, L"ProjectEvent"), GetParam().code);
    EXPECT_EQ(calls.linesWith("pointer").back(), "pointer 0");
    if (std::string(GetParam().call).starts_with("addin")) {
        EXPECT_EQ(log().back(), "ctlPPE, Error m_KBForm_KBClick: The add-in failed");
    }
}

TEST_P(PageEvents, AreRecordedWithoutAnAddIn) {
    application.addIn.reset();
    raise(GetParam().code);
    EXPECT_EQ(integer(PROFILE, L"ProjectEvent"), GetParam().code);
    EXPECT_THAT(calls.linesWith("addin"), IsEmpty());
    EXPECT_EQ(calls.linesWith("pointer").back(), "pointer 0");
}

INSTANTIATE_TEST_SUITE_P(
    Codes, PageEvents,
    testing::Values(Event{0, "addin NotifyKbAdded(Mail)"}, Event{1, "addin NotifyKbRemoved(Mail)"},
                    Event{2, "message 4711 1139 0 0"}, Event{3, "addin NotifyKbRenamed(Post, Mail)"},
                    Event{4, "addin NotifyKbRebuild(Mail)"}, Event{5, "addin NotifyKbUpdate(Mail)"},
                    Event{6, "message 4711 1127 0 "}));

TEST_F(PageCommands, TheFlagOfAnEditEventBecomesTheMessagesLParam) {
    raise(2, L"Mail", true);
    EXPECT_THAT(calls.linesWith("message"), ElementsAre("message 4711 1139 0 1"));
}

TEST_F(PageCommands, UnknownEventCodesAreWrittenAndDoNothingElse) {
    for (const std::int32_t code : {7, -1, 1000}) {
        calls.clear();
        raise(code);
        EXPECT_EQ(integer(PROFILE, L"ProjectEvent"), code);
        EXPECT_EQ(text(PROFILE, L"ProjectEventName"), L"Mail");
        EXPECT_THAT(calls.linesWith("registry set"), SizeIs(2));
        EXPECT_THAT(calls.linesWith("registry delete"), IsEmpty());
        EXPECT_THAT(calls.linesWith("addin"), IsEmpty());
        EXPECT_THAT(calls.linesWith("message"), IsEmpty());
    }
}

TEST_F(PageCommands, ARenameWithoutAnOldNameTellsTheEmptyName) {
    raise(3);
    EXPECT_THAT(calls.linesWith("addin"), ElementsAre("addin NotifyKbRenamed(, Mail)"));
}

TEST_F(PageCommands, ADeadSearchWindowDoesNoHarmAndLeavesNoLine) {
    stage->setValue(ROOT, L"hWndSearchCtl", 4713);
    const std::size_t lines = log().size();
    raise(2);
    raise(6);
    EXPECT_THAT(calls.linesWith("message 4713"), SizeIs(2));
    EXPECT_EQ(calls.linesWith("pointer").back(), "pointer 0");
    EXPECT_EQ(log().size(), lines);
}

TEST_F(PageCommands, WhereNoSearchWindowIsStoredTheMessageGoesToTheHandleZero) {
    application.deleteValue(ROOT, L"hWndSearchCtl");
    raise(2);
    raise(6);
    EXPECT_THAT(calls.linesWith("message 0 "), SizeIs(2));
}

/// The number at the end of the line.
std::intptr_t lParamOf(const std::string& line) { return std::stoll(line.substr(line.rfind(' ') + 1)); }

TEST_F(PageCommands, TheWizardsMessagePointsToAZeroThatStaysWithRoomBehindIt) {
    const auto zero = [&] {
        raise(6);
        return reinterpret_cast<std::int32_t*>(lParamOf(calls.linesWith("message 4711 1127 0 ").back()));
    };
    std::int32_t* const first = zero();
    for (int behind = 0; behind < 16; ++behind) EXPECT_EQ(first[behind], 0) << behind;
    // A receiver may leave something there.
    first[0] = first[1] = 7;
    calls.clear();
    EXPECT_EQ(zero()[0], 0);
    EXPECT_EQ(zero()[1], 0);
}

TEST_F(PageCommands, AnEventIsWrittenPassedOnAndThenThePointerComesBack) {
    for (const auto& [code, call] :
         {std::pair{4, "addin NotifyKbRebuild(Mail)"}, std::pair{2, "message 4711 1139 0 0"}}) {
        calls.clear();
        raise(code);
        std::vector<std::string> steps;
        for (const std::string& line : calls.lines())
            if (!line.starts_with("registry") || line.starts_with("registry set")) steps.push_back(line);
        const std::string key = "registry set Software\\Norvane\\Quillmark\\ProjectEvent";
        EXPECT_THAT(steps, ElementsAre("pointer 13", key + " = " + std::to_string(code), key + "Name = Mail",
                                       call, "pointer 0"));
    }
}

// --- Wizard -----------------------------------------------------------------------------------------------

TEST_F(PageCommands, TheWizardButtonNamesTheCurrentKnowledgebase) {
    stage->setValue(PROFILE, L"ProjectCount", 2);
    stage->setValue(PROFILE, L"Projectname", L"Archive");
    user.click(page->cmdWizard);
    EXPECT_EQ(integer(PROFILE, L"ProjectEvent"), 6);
    EXPECT_EQ(text(PROFILE, L"ProjectEventName"), L"Archive");
    EXPECT_THAT(calls.linesWith("message 4711 1127 0 "), SizeIs(1));
}

TEST_F(PageCommands, WithoutKnowledgebasesTheWizardButtonNamesDefault) {
    stage->setValue(PROFILE, L"Projectname", L"Archive");
    user.click(page->cmdWizard);
    EXPECT_EQ(text(PROFILE, L"ProjectEventName"), L"default");
}

TEST_F(PageCommands, AMissingNameOfTheCurrentKnowledgebaseIsDefault) {
    stage->setValue(PROFILE, L"ProjectCount", 1);
    user.click(page->cmdWizard);
    EXPECT_EQ(text(PROFILE, L"ProjectEventName"), L"default");
}

TEST_F(PageCommands, ANegativeCountStillNamesTheCurrentKnowledgebase) {
    stage->setValue(PROFILE, L"ProjectCount", -1);
    stage->setValue(PROFILE, L"Projectname", L"Archive");
    user.click(page->cmdWizard);
    EXPECT_EQ(text(PROFILE, L"ProjectEventName"), L"Archive");
}

TEST_F(PageCommands, LinesAfterTheStartCarryTheContainersNameButThatOfTheFocus) {
    site.displayNameAnswer = L"Quillmark1";
    page->cmdWizard.setFocus();
    EXPECT_EQ(log().back(), "ctlPPEcmdWizard got focus.");
    user.sendKey(page->cmdMsg, 65);
    EXPECT_EQ(log().back(), "Quillmark1, cmdMsg_KeyDown.");
    user.moveMouse(page->cmdMsg, 1, 0);
    EXPECT_EQ(log().back(), "Quillmark1, cmdMsg_MouseMove.");
    page->PropertyPage_Apply();
    EXPECT_EQ(log().back(), "Quillmark1, PropertyPage_Apply: 0 projects.");
    calls.failCallsWith("addin Notify");
    raise(4);
    EXPECT_EQ(log().back(), "Quillmark1, Error m_KBForm_KBClick: The add-in failed");
}

TEST_F(PageCommands, TheWizardButtonLogsItsFocusUnderTheTypesName) {
    page->cmdWizard.setFocus();
    EXPECT_THAT(log(), Contains("ctlPPEcmdWizard got focus."));
}

struct WizardCase {
    const char* name;
    std::function<void(Stage&)> prepare;
    bool allowed;
};

void addKnowledgebase(Stage& stage) {
    stage.setValue(PROFILE, L"ProjectCount", 1);
    stage.setValue(PROFILE, L"Project1", L"Mail");
    stage.setValue(PROFILE, L"VexaBaseDir", stage.folder() + L"kb");
    stage.createFolder(stage.folder() + L"kb");
    stage.createFolder(stage.folder() + L"kb\\Temp");
}

class WizardRule : public PageTest, public testing::WithParamInterface<WizardCase> {};

TEST_P(WizardRule, DecidesWhetherTheWizardIsOffered) {
    GetParam().prepare(*stage);
    start();
    EXPECT_EQ(page->cmdWizard.enabled(), GetParam().allowed);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, WizardRule,
    testing::Values(
        WizardCase{"NothingYet", [](Stage&) {}, true},
        WizardCase{"AddInProcesses", [](Stage& stage) { stage.addIn().processing = true; }, false},
        WizardCase{"StateOneIsNotThree", [](Stage& stage) { stage.setValue(PROFILE, L"KBProcessState", 1); },
                   false},
        WizardCase{"StateTwoIsNotThreeEvenWithNoFiles",
                   [](Stage& stage) { stage.setValue(PROFILE, L"KBProcessState", 2); }, false},
        WizardCase{"StateThree", [](Stage& stage) { stage.setValue(PROFILE, L"KBProcessState", 3); }, true},
        WizardCase{"KnowledgebaseWithoutFile", addKnowledgebase, true},
        WizardCase{"EmptyFileDoesNotBlock",
                   [](Stage& stage) {
                       addKnowledgebase(stage);
                       stage.writeFile(stage.folder() + L"kb\\Mail.dct", "");
                   },
                   true},
        WizardCase{"FileWithContentBlocks",
                   [](Stage& stage) {
                       addKnowledgebase(stage);
                       stage.writeFile(stage.folder() + L"kb\\Mail.dct", "x");
                   },
                   false},
        WizardCase{"FileInTempWithContentBlocks",
                   [](Stage& stage) {
                       addKnowledgebase(stage);
                       stage.writeFile(stage.folder() + L"kb\\Temp\\Mail.dct", "x");
                   },
                   false},
        WizardCase{"OneByteBlocksInTheSecondKnowledgebase",
                   [](Stage& stage) {
                       addKnowledgebase(stage);
                       stage.setValue(PROFILE, L"ProjectCount", 2);
                       stage.setValue(PROFILE, L"Project2", L"Post");
                       stage.writeFile(stage.folder() + L"kb\\Post.dct", "x");
                   },
                   false},
        WizardCase{"AKnowledgebaseBehindTheCountDoesNotBlock",
                   [](Stage& stage) {
                       addKnowledgebase(stage);
                       stage.setValue(PROFILE, L"Project2", L"Post");
                       stage.writeFile(stage.folder() + L"kb\\Post.dct", "x");
                   },
                   true},
        WizardCase{"OtherFilesDoNotBlock",
                   [](Stage& stage) {
                       addKnowledgebase(stage);
                       stage.writeFile(stage.folder() + L"kb\\Mail.dctx", "x");
                       stage.writeFile(stage.folder() + L"kb\\Mail2.dct", "x");
                       stage.writeFile(stage.folder() + L"Mail.dct", "x");
                   },
                   true},
        WizardCase{"AFolderWithTheFilesNameDoesNotBlock",
                   [](Stage& stage) {
                       addKnowledgebase(stage);
                       stage.createFolder(stage.folder() + L"kb\\Mail.dct");
                   },
                   true},
        WizardCase{"MissingTempDoesNotMatter",
                   [](Stage& stage) {
                       stage.setValue(PROFILE, L"ProjectCount", 1);
                       stage.setValue(PROFILE, L"Project1", L"Mail");
                       stage.setValue(PROFILE, L"VexaBaseDir", stage.folder() + L"bare");
                       stage.createFolder(stage.folder() + L"bare");
                       stage.writeFile(stage.folder() + L"bare\\MAIL.DCT", "x");
                   },
                   false},
        WizardCase{"MissingNameReadsAsDefault",
                   [](Stage& stage) {
                       addKnowledgebase(stage);
                       stage.setValue(PROFILE, L"ProjectCount", 2);
                       stage.writeFile(stage.folder() + L"kb\\default.dct", "x");
                   },
                   false},
        WizardCase{"NegativeCountIsNone",
                   [](Stage& stage) {
                       addKnowledgebase(stage);
                       stage.setValue(PROFILE, L"ProjectCount", -5);
                       stage.writeFile(stage.folder() + L"kb\\Mail.dct", "x");
                   },
                   true}),
    [](const auto& one) { return std::string(one.param.name); });

TEST_F(PageCommands, ABrokenCountOfTwoThousandMillionIsHeldAtAHundredThousand) {
    stage->setValue(PROFILE, L"ProjectCount", 2'000'000'000);
    EXPECT_EQ(vexa::knowledgebaseCount(application), 100'000);
}

// The rule follows the profile that is set, and what the add-in does meanwhile.
TEST_F(PageCommands, TheRuleReadsBelowTheSetProfile) {
    const std::wstring work = std::wstring(PROFILE) + L"Work";
    const auto refuse = [&](const wchar_t* name, const vexa::Value& value, const vexa::Value& harmless) {
        stage->setValue(work, name, value);
        EXPECT_TRUE(wizardBecomes(false)) << narrow(name);
        stage->setValue(work, name, harmless);
        EXPECT_TRUE(wizardBecomes(true)) << narrow(name);
    };
    application.ProfileKey = work;
    stage->setValue(PROFILE, L"KBProcessState", 2);
    stage->createFolder(stage->folder() + L"kb");
    stage->writeFile(stage->folder() + L"kb\\Mail.dct", "x");
    stage->setValue(work, L"VexaBaseDir", stage->folder() + L"kb");
    stage->setValue(work, L"ProjectCount", 1);
    stage->setValue(work, L"Project1", L"Post");
    refuse(L"KBProcessState", 2, 3);
    refuse(L"Project1", L"Mail", L"Post");
    stage->setValue(work, L"Project1", L"mAIL");
    refuse(L"ProjectCount", 1, 0);
    stage->setValue(work, L"ProjectCount", 1);
    stage->setValue(work, L"VexaBaseDir", stage->folder() + L"none");
    refuse(L"VexaBaseDir", stage->folder() + L"kb", stage->folder() + L"none");
}

TEST_F(PageCommands, AFileThatAppearsDisablesTheWizardAtTheNextPoll) {
    addKnowledgebase(*stage);
    EXPECT_TRUE(wizardBecomes(true));
    stage->writeFile(stage->folder() + L"kb\\Temp\\Mail.dct", "x");
    EXPECT_TRUE(wizardBecomes(false));
    EXPECT_TRUE(page->cmdSettings.enabled());
}

TEST_F(PageCommands, AnAddInThatProcessesDisablesTheWizardAtTheNextPoll) {
    stage->addIn().processing = true;
    EXPECT_TRUE(wizardBecomes(false));
    EXPECT_TRUE(page->cmdKnowledgeBase.enabled());
    stage->addIn().processing = false;
    EXPECT_TRUE(wizardBecomes(true));
}

// --- The message button -----------------------------------------------------------------------------------

TEST_F(PageCommands, KeyTwentyEnablesTheWizardAndTwentyOneDisablesIt) {
    user.sendKey(page->cmdMsg, 21);
    EXPECT_FALSE(page->cmdWizard.enabled());
    user.sendKey(page->cmdMsg, 20);
    EXPECT_TRUE(page->cmdWizard.enabled());
    user.sendKey(page->cmdMsg, 65);
    EXPECT_TRUE(page->cmdWizard.enabled());
    EXPECT_THAT(log(), testing::IsSupersetOf({"ctlPPE, cmdMsg_KeyDown.", "ctlPPE, cmdMsg_KeyDown.",
                                              "ctlPPE, cmdMsg_KeyDown."}));
}

TEST_F(PageCommands, AMouseMoveAtTwentyEnablesTheWizardAndAtTwentyOneDisablesIt) {
    user.moveMouse(page->cmdMsg, 21, 0);
    EXPECT_FALSE(page->cmdWizard.enabled());
    user.moveMouse(page->cmdMsg, 20, 5);
    EXPECT_TRUE(page->cmdWizard.enabled());
    user.moveMouse(page->cmdMsg, 19, 0);
    EXPECT_TRUE(page->cmdWizard.enabled());
    EXPECT_EQ(log().back(), "ctlPPE, cmdMsg_MouseMove.");
    EXPECT_THAT(calls.linesWith("doevents"), SizeIs(3));
}

TEST_F(PageCommands, MovesThatComeWhileEventsRunAreNotHandledOneInsideTheOther) {
    calls.during("doevents", [&] { user.moveMouse(page->cmdMsg, 21, 0); });
    user.moveMouse(page->cmdMsg, 1, 0);
    EXPECT_FALSE(page->cmdWizard.enabled());
    EXPECT_THAT(calls.linesWith("doevents"), SizeIs(1));
    EXPECT_THAT(log(), testing::IsSupersetOf({"ctlPPE, cmdMsg_MouseMove.", "ctlPPE, cmdMsg_MouseMove."}));
    user.moveMouse(page->cmdMsg, 20, 0);
    EXPECT_THAT(calls.linesWith("doevents"), SizeIs(2));
}

// --- Poll -------------------------------------------------------------------------------------------------

TEST_F(PageCommands, WhileTheAddInSearchesAllButtonsAreDisabledWithinAQuarterSecondAndComeBack) {
    EXPECT_EQ(buttonStates(), allOn);
    stage->addIn().searching = true;
    EXPECT_TRUE(pollMakes(allOff));
    stage->addIn().searching = false;
    EXPECT_TRUE(pollMakes(allOn));
}

TEST_F(PageCommands, AnAddInThatGoesAwayWhileSearchingGivesTheButtonsBack) {
    stage->addIn().searching = true;
    EXPECT_TRUE(pollMakes(allOff));
    calls.failCallsWith("addin");
    EXPECT_TRUE(pollMakes(allOn));
}

TEST_F(PageCommands, AnAddInThatIsGoneSearchesNoMore) {
    stage->addIn().searching = true;
    EXPECT_TRUE(pollMakes(allOff));
    application.addIn.reset();
    EXPECT_TRUE(pollMakes(allOn));
}

TEST_F(PageCommands, DisabledButtonsTakeNoClick) {
    stage->addIn().searching = true;
    EXPECT_TRUE(pollMakes(allOff));
    calls.clear();
    user.click(page->cmdWizard);
    user.click(page->cmdDispMatches);
    EXPECT_THAT(calls.linesWith("message"), IsEmpty());
    EXPECT_THAT(calls.linesWith("registry set"), IsEmpty());
}

// --- Buttons ----------------------------------------------------------------------------------------------

TEST_F(PageCommands, TheKnowledgebaseButtonLogsShowsAndAsksTheWizardRuleAfterwards) {
    std::vector<std::string> logWhenShown;
    stage->whenShown<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        logWhenShown = log();
        addKnowledgebase(*stage);
        stage->writeFile(stage->folder() + L"kb\\Mail.dct", "x");
        calls.clear();
        form.window().close();
    });
    user.click(page->cmdKnowledgeBase);
    EXPECT_THAT(logWhenShown, Contains("ctlPPE, showing kb configuration dialog."));
    EXPECT_FALSE(page->cmdWizard.enabled());
    EXPECT_EQ(calls.lines().back(), "doevents");
}

TEST_F(PageCommands, WhenTheKnowledgebaseDialogHasClosedTheHostIsToldThenTheRuleAskedThenEventsRun) {
    stage->whenShown<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        application.flags.dialogChanged = true;
        form.window().close();
        calls.clear();
    });
    user.click(page->cmdKnowledgeBase);
    std::vector<std::string> steps;
    for (const std::string& line : calls.lines())
        if (!line.starts_with("registry") && !line.starts_with("files")) steps.push_back(line);
    EXPECT_THAT(steps, ElementsAre("site OnStatusChange", "addin IsProcessing()", "doevents"));
}

/// A dialog's button, and the line that the log gets where the dialog cannot be made.
struct FailingButton {
    ui::Button& (*button)(vexa::ctlPPE& page);
    const char* procedure;
};

class PageButtonFaults : public PageCommands, public testing::WithParamInterface<FailingButton> {};

TEST_P(PageButtonFaults, ADialogThatFailsIsLoggedUnderItsButton) {
    stage->whenShown(Script([](ui::Form& form) { form.window().close(); }));
    calls.failCallsWith("site OnStatusChange");
    application.flags.dialogChanged = true;
    user.click(GetParam().button(*page));
    EXPECT_THAT(log(), Contains("ctlPPE, Error " + std::string(GetParam().procedure) + ": The host failed"));
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, PageButtonFaults,
    testing::Values(FailingButton{[](vexa::ctlPPE& page) -> ui::Button& { return page.cmdAttachments; },
                                  "cmdAttachments_Click"},
                    FailingButton{[](vexa::ctlPPE& page) -> ui::Button& { return page.cmdDispMatches; },
                                  "cmdDispMatches_Click"},
                    FailingButton{[](vexa::ctlPPE& page) -> ui::Button& { return page.cmdKnowledgeBase; },
                                  "cmdKnowledgeBase_Click"}),
    [](const auto& one) { return std::string(one.param.procedure); });

TEST_F(PageCommands, ADialogThatChangedNothingLeavesThePageClean) {
    stage->whenShown<vexa::frmDispMatches>([&](vexa::frmDispMatches& form) { user.click(form.cmdOk); });
    user.click(page->cmdDispMatches);
    EXPECT_FALSE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("site OnStatusChange"), IsEmpty());
}

TEST_F(PageCommands, ADialogThatChangedASettingMarksThePageChangedWhenItHasClosed) {
    stage->whenShown<vexa::frmDispMatches>([&](vexa::frmDispMatches& form) {
        user.click(form.chkKeepHighlights);
        user.click(form.cmdOk);
        EXPECT_FALSE(page->PropertyPage_Dirty());
    });
    user.click(page->cmdDispMatches);
    EXPECT_TRUE(page->PropertyPage_Dirty());
    EXPECT_THAT(calls.linesWith("site OnStatusChange"), SizeIs(1));
    page->PropertyPage_Apply();
    EXPECT_EQ(integer(PROFILE, L"KeepHighlights"), 1);
}

TEST_F(PageCommands, AHostThatFailsToHearOfAChangeIsLogged) {
    calls.failCallsWith("site OnStatusChange");
    stage->whenShown<vexa::frmDispMatches>([&](vexa::frmDispMatches& form) {
        user.click(form.chkKeepHighlights);
        user.click(form.cmdOk);
    });
    user.click(page->cmdDispMatches);
    EXPECT_TRUE(page->PropertyPage_Dirty());
    EXPECT_EQ(log().back(), "ctlPPE, Error cmdDispMatches_Click: The host failed");
}

TEST_F(PageCommands, TabReachesEachEnabledButtonInOrder) {
    page->cmdKnowledgeBase.setFocus();
    ui::Window& window = page->window();
    for (ui::Button* next :
         {&page->cmdSettings, &page->cmdAttachments, &page->cmdDispMatches, &page->cmdWizard}) {
        user.press(window, key::tab);
        EXPECT_TRUE(next->hasFocus()) << narrow(next->text());
    }
    page->cmdSettings.setEnabled(false);
    page->cmdKnowledgeBase.setFocus();
    user.press(window, key::tab);
    EXPECT_TRUE(page->cmdAttachments.hasFocus());
}

TEST_F(PageCommands, TheCaptionsAreTheButtonsOwn) {
    EXPECT_EQ(page->cmdKnowledgeBase.text(), L"&Knowledgebase...");
    EXPECT_EQ(page->cmdSettings.text(), L"&Settings...");
    EXPECT_EQ(page->cmdAttachments.text(), L"&Attachments...");
    EXPECT_EQ(page->cmdDispMatches.text(), L"&Highlights...");
    EXPECT_EQ(page->cmdWizard.text(), L"&Wizard...");
}

}  // namespace
}  // namespace tests
