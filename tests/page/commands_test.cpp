// The page's buttons, the message button, the poll, the wizard rule and the knowledgebase events.
#include "common/knowledgebase_names.h"
#include "kb/frmKBConfiguration.h"
#include "settings/frmDispMatches.h"
#include "tests/page/page_test_base.h"
#include "tests/stage/patience.h"

namespace tests {
namespace {

class PageCommands : public PageTest {
protected:
    void SetUp() override {
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        start();
        calls.clear();
    }

    /// At the next poll, as far as the stage's time is exact: a rule that took long is left out of some.
    bool pollMakes(FunctionRef<bool()> isSo) {
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
        std::vector<bool> states;
        for (const PageRow& row : rows()) states.push_back(row.button.enabled());
        return states;
    }
    const std::vector<bool> allOff = std::vector<bool>(5, false);
    const std::vector<bool> allOn = std::vector<bool>(5, true);
};

// --- Why buttons are disabled -----------------------------------------------------------------------------

TEST_F(PageCommands, WhileTheAddInSearchesEachRowSaysSo) {
    const std::wstring before = rows()[1].description.text();
    stage->addIn().searching = true;
    EXPECT_TRUE(pollMakes(allOff));
    for (const PageRow& row : rows()) {
        EXPECT_EQ(row.description.text(), L"The add-in is searching. Please wait until it has finished.");
        EXPECT_EQ(row.button.description(), row.description.text());
    }
    stage->addIn().searching = false;
    EXPECT_TRUE(pollMakes(allOn));
    EXPECT_EQ(rows()[1].description.text(), before);
    EXPECT_EQ(page->cmdSettings.description(), before);
}

TEST_F(PageCommands, TheWizardsRowSaysWhenItIsOffered) {
    const ui::Label& info = rows().back().description;
    const std::wstring offered = info.text();
    stage->setValue(PROFILE, L"KBProcessState", 2);
    EXPECT_TRUE(wizardBecomes(false));
    EXPECT_EQ(info.text(), L"Offered while no knowledgebase has content and the add-in is idle.");
    stage->setValue(PROFILE, L"KBProcessState", 3);
    EXPECT_TRUE(wizardBecomes(true));
    EXPECT_EQ(info.text(), offered);
}

TEST_F(PageCommands, TheHourglassShowsWhileTheAddInIsLookedFor) {
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

const Event EVENTS[] = {{0, "addin NotifyKbAdded(Mail)"},   {1, "addin NotifyKbRemoved(Mail)"},
                        {2, "message 4711 1139 0 0"},       {3, "addin NotifyKbRenamed(Post, Mail)"},
                        {4, "addin NotifyKbRebuild(Mail)"}, {5, "addin NotifyKbUpdate(Mail)"},
                        {6, "message 4711 1127 0 "}};

class PageEvents : public PageCommands {
protected:
    /// Raises each of them, plays `check` with it; it is in the registry, and the pointer has come back.
    void raiseEach(FunctionRef<void(const Event&)> check) {
        stage->setValue(PROFILE, L"OldProjectname", L"Post");
        for (const Event& event : EVENTS) {
            SCOPED_TRACE(event.code);
            calls.clear();
            raise(event.code);
            EXPECT_EQ(integer(PROFILE, L"ProjectEvent"), event.code);
            EXPECT_EQ(text(PROFILE, L"ProjectEventName"), L"Mail");
            EXPECT_THAT(calls.linesWith("pointer"), ElementsAre("pointer 13", "pointer 0"));
            check(event);
        }
    }
};

TEST_F(PageEvents, AreWrittenToTheRegistryAndPassedOn) {
    raiseEach([&](const Event& event) {
        std::vector<std::string> passedOn = calls.linesWith("addin");
        for (const std::string& line : calls.linesWith("message")) passedOn.push_back(line);
        EXPECT_THAT(passedOn, ElementsAre(StartsWith(event.call)));
    });
}

TEST_F(PageEvents, ComeToTheirEndWhereTheAddInFails) {
    calls.failCallsWith("addin");
    std::ptrdiff_t failures = 0;
    raiseEach([&](const Event& event) {
        if (std::string(event.call).starts_with("addin")) ++failures;
        EXPECT_EQ(std::ranges::count(log(), "ctlPPE, Error m_KBForm_KBClick: The add-in failed"), failures);
    });
}

TEST_F(PageEvents, AreRecordedWithoutAnAddIn) {
    application.addIn.reset();
    raiseEach([&](const Event&) { EXPECT_THAT(calls.linesWith("addin"), IsEmpty()); });
}

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

TEST_F(PageCommands, TheWizardButtonNamesTheCurrentKnowledgebaseOrDefaultWhereThereIsNone) {
    struct Current {
        std::int32_t count;
        const wchar_t* stored;
        const wchar_t* named;
    };
    for (const Current& current : {Current{1, nullptr, L"default"}, Current{2, L"Archive", L"Archive"},
                                   Current{0, L"Archive", L"default"}, Current{-1, L"Archive", L"Archive"}}) {
        SCOPED_TRACE(current.count);
        stage->setValue(PROFILE, L"ProjectCount", current.count);
        if (current.stored) stage->setValue(PROFILE, L"Projectname", current.stored);
        calls.clear();
        user.click(page->cmdWizard);
        EXPECT_EQ(integer(PROFILE, L"ProjectEvent"), 6);
        EXPECT_EQ(text(PROFILE, L"ProjectEventName"), current.named);
        EXPECT_THAT(calls.linesWith("message 4711 1127 0 "), SizeIs(1));
    }
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

/// What there is before the start, and whether the wizard is offered then.
struct WizardCase {
    const char* name;
    bool allowed;
    std::vector<std::pair<const wchar_t*, vexa::Value>> values;
    std::vector<std::pair<const wchar_t*, const char*>> files;  ///< below the stage's folder, with content
    const wchar_t* base = L"kb";  ///< the base folder; this one has a subfolder "Temp"
};

void addKnowledgebase(Stage& stage) {
    stage.setValue(PROFILE, L"ProjectCount", 1);
    stage.setValue(PROFILE, L"Project1", L"Mail");
    stage.setValue(PROFILE, L"VexaBaseDir", stage.folder() + L"kb");
    stage.createFolder(stage.folder() + L"kb");
    stage.createFolder(stage.folder() + L"kb\\Temp");
}

class WizardRule : public PageTest, public testing::WithParamInterface<WizardCase> {
protected:
    void expectDecision() {
        for (const auto& [name, value] : GetParam().values) stage->setValue(PROFILE, name, value);
        for (const auto& [path, content] : GetParam().files)
            stage->writeFile(stage->folder() + path, content);
        start();
        EXPECT_EQ(page->cmdWizard.enabled(), GetParam().allowed);
    }
};

TEST_P(WizardRule, DecidesByTheProcessStateWhetherTheWizardIsOffered) { expectDecision(); }

INSTANTIATE_TEST_SUITE_P(
    WithoutKnowledgebases, WizardRule,
    testing::Values(WizardCase{"NothingYet", true, {}, {}},
                    WizardCase{"StateOneIsNotThree", false, {{L"KBProcessState", 1}}, {}},
                    WizardCase{"StateTwoIsNotThreeEvenWithNoFiles", false, {{L"KBProcessState", 2}}, {}},
                    WizardCase{"StateThree", true, {{L"KBProcessState", 3}}, {}}),
    namedRow);

class WizardRuleOfFiles : public WizardRule {};

TEST_P(WizardRuleOfFiles, DecideWhetherTheWizardIsOffered) {
    addKnowledgebase(*stage);
    stage->createFolder(stage->folder() + L"bare");
    stage->setValue(PROFILE, L"VexaBaseDir", stage->folder() + GetParam().base);
    stage->createFolder(stage->folder() + L"kb\\Folder.dct");
    expectDecision();
}

INSTANTIATE_TEST_SUITE_P(
    OfKnowledgebases, WizardRuleOfFiles,
    testing::Values(
        WizardCase{"None", true, {}, {}},
        WizardCase{"AnEmptyOneDoesNotBlock", true, {}, {{L"kb\\Mail.dct", ""}}},
        WizardCase{"OneWithContentBlocks", false, {}, {{L"kb\\Mail.dct", "x"}}},
        WizardCase{"OneInTempWithContentBlocks", false, {}, {{L"kb\\Temp\\Mail.dct", "x"}}},
        WizardCase{"OneByteBlocksInTheSecondKnowledgebase",
                   false,
                   {{L"ProjectCount", 2}, {L"Project2", L"Post"}},
                   {{L"kb\\Post.dct", "x"}}},
        WizardCase{"AKnowledgebaseBehindTheCountDoesNotBlock",
                   true,
                   {{L"Project2", L"Post"}},
                   {{L"kb\\Post.dct", "x"}}},
        WizardCase{"OtherFilesDoNotBlock",
                   true,
                   {},
                   {{L"kb\\Mail.dctx", "x"}, {L"kb\\Mail2.dct", "x"}, {L"Mail.dct", "x"}}},
        WizardCase{"AFolderWithTheFilesNameDoesNotBlock", true, {{L"Project1", L"Folder"}}, {}},
        WizardCase{
            "MissingTempDoesNotMatterNorTheCaseOfAName", false, {}, {{L"bare\\MAIL.DCT", "x"}}, L"bare"},
        WizardCase{"MissingNameReadsAsDefault", false, {{L"ProjectCount", 2}}, {{L"kb\\default.dct", "x"}}},
        WizardCase{"NegativeCountIsNone", true, {{L"ProjectCount", -5}}, {{L"kb\\Mail.dct", "x"}}}),
    namedRow);

TEST_F(PageCommands, ABrokenCountOfTwoThousandMillionIsHeldAtAHundredThousand) {
    stage->setValue(PROFILE, L"ProjectCount", 2'000'000'000);
    EXPECT_EQ(vexa::knowledgebaseCount(application), 100'000);
}

// The rule follows the profile that is set, and what the add-in does meanwhile.
TEST_F(PageCommands, TheRuleReadsBelowTheSetProfile) {
    const auto refuse = [&](const wchar_t* name, const vexa::Value& value, const vexa::Value& harmless) {
        stage->setValue(WORK, name, value);
        EXPECT_TRUE(wizardBecomes(false)) << narrow(name);
        stage->setValue(WORK, name, harmless);
        EXPECT_TRUE(wizardBecomes(true)) << narrow(name);
    };
    application.ProfileKey = WORK;
    stage->setValue(PROFILE, L"KBProcessState", 2);
    stage->createFolder(stage->folder() + L"kb");
    stage->writeFile(stage->folder() + L"kb\\Mail.dct", "x");
    stage->setValue(WORK, L"VexaBaseDir", stage->folder() + L"kb");
    stage->setValue(WORK, L"ProjectCount", 1);
    stage->setValue(WORK, L"Project1", L"Post");
    refuse(L"KBProcessState", 2, 3);
    refuse(L"Project1", L"Mail", L"Post");
    stage->setValue(WORK, L"Project1", L"mAIL");
    refuse(L"ProjectCount", 1, 0);
    stage->setValue(WORK, L"ProjectCount", 1);
    stage->setValue(WORK, L"VexaBaseDir", stage->folder() + L"none");
    refuse(L"VexaBaseDir", stage->folder() + L"kb", stage->folder() + L"none");
}

TEST_F(PageCommands, AFileThatAppearsAndAnAddInThatProcessesDisableTheWizardAtTheNextPoll) {
    stage->addIn().processing = true;
    EXPECT_TRUE(wizardBecomes(false));
    EXPECT_TRUE(page->cmdKnowledgeBase.enabled());
    stage->addIn().processing = false;
    EXPECT_TRUE(wizardBecomes(true));
    addKnowledgebase(*stage);
    stage->writeFile(stage->folder() + L"kb\\Temp\\Mail.dct", "x");
    EXPECT_TRUE(wizardBecomes(false));
    EXPECT_TRUE(page->cmdSettings.enabled());
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

TEST_F(PageCommands, AnAddInThatFailsOrIsGoneSearchesNoMoreAndGivesTheButtonsBack) {
    EXPECT_EQ(buttonStates(), allOn);
    stage->addIn().searching = true;
    EXPECT_TRUE(pollMakes(allOff));
    calls.failCallsWith("addin");
    EXPECT_TRUE(pollMakes(allOn));
    calls.forgetFaults();
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
