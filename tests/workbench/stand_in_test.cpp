// The stand-in add-in as the page meets it: told through the product's proxy, seen in the registry and by its
// event.
#include <gmock/gmock.h>
#include <windows.h>

#include "common/error.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/scratch_folder.h"
#include "tests/windows/stage/scratch_registry.h"
#include "windows/platform/addin.h"
#include "workbench/addin/automation.h"
#include "workbench/addin/contract.h"
#include "workbench/addin/search_window.h"
#include "workbench/addin/stand_in.h"
#include "workbench/addin/store.h"

namespace tests {
namespace {

namespace store = workbench::store;
namespace value = workbench::value;
using testing::ElementsAre;
using testing::IsEmpty;

using Finished = std::pair<std::wstring, bool>;

class StandInTest : public testing::Test {
protected:
    StandInTest() {
        store::writeText(workbench::ROOT_KEY, value::CurrentProfile, L"Tests");
        store::writeText(profile(), value::VexaBaseDir, folder);
        standIn.behaviour.workTime = 0;
        standIn.raiseProcessFinished = [this](const std::wstring& project, bool keepList) {
            automation->raiseProcessFinished(project, keepList);
        };
        connection = addIn.connect(
            [this](const std::wstring& project, bool keepList) { finished.emplace_back(project, keepList); });
    }
    ~StandInTest() override {
        knowledgebases.clear();
        connection.reset();
        automation->disconnect();
    }

    static std::wstring profile() { return store::profileKey(); }
    static std::wstring text(const std::wstring& name) { return store::readText(profile(), name, L"(none)"); }

    [[nodiscard]] bool fileExists(const std::wstring& name) const {
        return ScratchFolder::read(folder + L"\\" + name).has_value();
    }
    /// The description of the error that the call throws.
    template <class Call>
    std::wstring errorOf(Call call) {
        try {
            call();
        } catch (const vexa::Error& error) {
            return error.description();
        }
        return L"no error";
    }

    ScratchRegistry registry;
    const ScratchFolder scratch;
    const std::wstring folder = scratch.path();
    workbench::CallList calls;
    workbench::StandIn standIn{calls};
    workbench::Knowledgebases knowledgebases;
    com::Ptr<workbench::Automation> automation =
        com::Ptr<workbench::Automation>::attach(new workbench::Automation(standIn, calls));
    win::AddIn addIn{com::Ptr<IOlAddIn>(automation.get())};
    std::vector<Finished> finished;
    std::unique_ptr<vexa::EventConnection> connection;
};

// --- Knowledgebases ---------------------------------------------------------------------------------------

TEST_F(StandInTest, AnAddedKnowledgebaseStandsAtTheEndOfTheListAtOnceWithoutAnEvent) {
    addIn.NotifyKbAdded(L"default");
    addIn.NotifyKbAdded(L"Übersicht");
    EXPECT_EQ(store::readNumber(profile(), value::ProjectCount), 2u);
    EXPECT_EQ(text(L"Project1"), L"default");
    EXPECT_EQ(text(L"Project2"), L"Übersicht");
    EXPECT_EQ(text(value::Projectname), L"default");
    EXPECT_THAT(finished, IsEmpty());
}

TEST_F(StandInTest, AnAddedKnowledgebaseIsEmptyAndNeverUpdated) {
    addIn.NotifyKbAdded(L"Mail");
    const std::wstring key = profile() + L"\\Mail";
    EXPECT_EQ(store::readText(key, value::KBLastUpdate), L"-1");
    EXPECT_EQ(static_cast<LONG>(store::readNumber(key, value::KBSize)), -1);
    EXPECT_EQ(store::readNumber(key, value::KBDocuments, 7), 0u);
    EXPECT_FALSE(fileExists(L"Mail.dct"));
}

TEST_F(StandInTest, ARebuildCountsTheDocumentsAndRaisesTheEvent) {
    addIn.NotifyKbAdded(L"Mail");
    addIn.NotifyKbRebuild(L"Mail");
    const workbench::KnowledgebaseState state = knowledgebases.state(L"Mail");
    EXPECT_GT(state.documents, 0);
    EXPECT_GT(state.size, 0);
    EXPECT_NE(state.lastUpdate, L"-1");
    EXPECT_TRUE(fileExists(L"Mail.dct"));
    EXPECT_THAT(finished, ElementsAre(Finished(L"Mail", false)));
}

TEST_F(StandInTest, AnUpdateAddsDocuments) {
    addIn.NotifyKbAdded(L"Mail");
    addIn.NotifyKbRebuild(L"Mail");
    const LONG before = knowledgebases.state(L"Mail").documents;
    addIn.NotifyKbUpdate(L"Mail");
    EXPECT_GT(knowledgebases.state(L"Mail").documents, before);
}

TEST_F(StandInTest, ARemovedKnowledgebaseLeavesNoGapNoKeyAndNoFile) {
    for (const wchar_t* name : {L"one", L"two", L"three"}) addIn.NotifyKbAdded(name);
    addIn.NotifyKbRebuild(L"two");
    addIn.NotifyKbRemoved(L"two");
    EXPECT_THAT(knowledgebases.names(), ElementsAre(L"one", L"three"));
    EXPECT_EQ(text(L"Project3"), L"(none)");
    EXPECT_EQ(store::dump().find(L"\\two\\"), std::wstring::npos);
    EXPECT_FALSE(fileExists(L"two.dct"));
    EXPECT_EQ(finished.back(), Finished(L"two", false));
}

TEST_F(StandInTest, TheCurrentKnowledgebaseFollowsARemovalAndARename) {
    addIn.NotifyKbAdded(L"one");
    addIn.NotifyKbAdded(L"two");
    addIn.NotifyKbRemoved(L"one");
    EXPECT_EQ(text(value::Projectname), L"two");
    addIn.NotifyKbRenamed(L"two", L"zwei");
    EXPECT_EQ(text(value::Projectname), L"zwei");
    addIn.NotifyKbRemoved(L"zwei");
    EXPECT_EQ(text(value::Projectname), L"(none)");
    EXPECT_EQ(store::readNumber(profile(), value::ProjectCount, 9), 0u);
}

TEST_F(StandInTest, ARenameKeepsThePlaceAndTheContent) {
    for (const wchar_t* name : {L"one", L"two", L"three"}) addIn.NotifyKbAdded(name);
    addIn.NotifyKbRebuild(L"two");
    const workbench::KnowledgebaseState before = knowledgebases.state(L"two");
    finished.clear();
    addIn.NotifyKbRenamed(L"two", L"zwei");
    EXPECT_THAT(knowledgebases.names(), ElementsAre(L"one", L"zwei", L"three"));
    EXPECT_EQ(knowledgebases.state(L"zwei").lastUpdate, before.lastUpdate);
    EXPECT_EQ(knowledgebases.state(L"zwei").documents, before.documents);
    EXPECT_TRUE(fileExists(L"zwei.dct"));
    EXPECT_FALSE(fileExists(L"two.dct"));
    EXPECT_THAT(finished, IsEmpty());
}

// --- Working on a command ---------------------------------------------------------------------------------

TEST_F(StandInTest, WhileItWorksItSaysThatItProcesses) {
    standIn.behaviour.workTime = 60'000;
    addIn.NotifyKbAdded(L"Mail");
    addIn.NotifyKbRebuild(L"Mail");
    EXPECT_TRUE(addIn.IsProcessing());
    EXPECT_FALSE(addIn.IsAutoUpdateRunning());
    EXPECT_THAT(finished, IsEmpty());
    standIn.finishNow();
    EXPECT_FALSE(addIn.IsProcessing());
    EXPECT_THAT(finished, ElementsAre(Finished(L"Mail", false)));
}

TEST_F(StandInTest, TheWorkEndsByItselfThroughTheMessageLoop) {
    standIn.behaviour.workTime = 30;
    addIn.NotifyKbAdded(L"Mail");
    addIn.NotifyKbUpdate(L"Mail");
    const ULONGLONG end = GetTickCount64() + 5000;
    while (finished.empty() && GetTickCount64() < end) deliverFor(1);
    EXPECT_THAT(finished, ElementsAre(Finished(L"Mail", false)));
}

TEST_F(StandInTest, CommandsAreCarriedOutOneAfterTheOther) {
    standIn.behaviour.workTime = 60'000;
    addIn.NotifyKbAdded(L"one");
    addIn.NotifyKbAdded(L"two");
    addIn.NotifyKbRebuild(L"one");
    addIn.NotifyKbRebuild(L"two");
    standIn.finishNow();
    EXPECT_TRUE(addIn.IsProcessing());
    standIn.finishNow();
    EXPECT_THAT(finished, ElementsAre(Finished(L"one", false), Finished(L"two", false)));
}

TEST_F(StandInTest, AnAutoUpdateIsToldApartFromACommand) {
    standIn.behaviour.workTime = 60'000;
    addIn.NotifyKbAdded(L"Mail");
    store::writeText(profile(), value::DefaultProject, L"Mail");
    standIn.runAutoUpdate();
    EXPECT_TRUE(addIn.IsAutoUpdateRunning());
    standIn.finishNow();
    EXPECT_FALSE(addIn.IsAutoUpdateRunning());
    EXPECT_GT(knowledgebases.state(L"Mail").documents, 0);
}

TEST_F(StandInTest, MayEndByItsStateInPlaceOfTheEvent) {
    standIn.behaviour.finishesByState = true;
    addIn.NotifyKbAdded(L"Mail");
    addIn.NotifyKbRebuild(L"Mail");
    EXPECT_EQ(store::readNumber(profile(), value::KBProcessState), 3u);
    EXPECT_THAT(finished, IsEmpty());
}

TEST_F(StandInTest, MayAskToKeepTheList) {
    standIn.behaviour.keepsList = true;
    addIn.NotifyKbAdded(L"Mail");
    addIn.NotifyKbUpdate(L"Mail");
    EXPECT_THAT(finished, ElementsAre(Finished(L"Mail", true)));
}

// --- The search window ------------------------------------------------------------------------------------

TEST_F(StandInTest, TheSearchWindowEditsTheKnowledgebaseOfTheLastEvent) {
    const workbench::SearchWindow window(standIn, calls);
    const auto handle = reinterpret_cast<HWND>(
        static_cast<ULONG_PTR>(store::readNumber(workbench::ROOT_KEY, value::hWndSearchCtl)));
    ASSERT_EQ(handle, window.handle());
    addIn.NotifyKbAdded(L"Mail");
    store::writeText(profile(), value::ProjectEventName, L"Mail");
    SendMessageA(handle, 1139, 0, 1);
    EXPECT_THAT(finished, ElementsAre(Finished(L"Mail", false)));
    EXPECT_GT(knowledgebases.state(L"Mail").documents, 0);
    EXPECT_EQ(store::readNumber(profile(), value::EditNoChange, 9), 0u);
}

TEST_F(StandInTest, AnEditMayLeaveItsFlagAndTheKnowledgebaseAsItWas) {
    const workbench::SearchWindow window(standIn, calls);
    standIn.behaviour.editNoChange = true;
    addIn.NotifyKbAdded(L"Mail");
    store::writeText(profile(), value::ProjectEventName, L"Mail");
    SendMessageA(window.handle(), 1139, 0, 0);
    EXPECT_EQ(store::readNumber(profile(), value::EditNoChange), 1u);
    EXPECT_EQ(knowledgebases.state(L"Mail").documents, 0);
}

TEST_F(StandInTest, TheSearchWindowNotesEveryMessageAndWithdrawsItsHandle) {
    {
        const workbench::SearchWindow window(standIn, calls);
        calls.clear();
        SendMessageA(window.handle(), 1127, 0, 0);
        SendMessageA(window.handle(), WM_KEYDOWN, 2, 0);
        ASSERT_EQ(calls.calls().size(), 2u);
        EXPECT_EQ(calls.calls()[0].name, L"1127 start wizard");
        EXPECT_EQ(calls.calls()[1].name, L"WM_KEYDOWN knowledgebase gone");
    }
    EXPECT_EQ(store::readNumber(workbench::ROOT_KEY, value::hWndSearchCtl, 7), 7u);
}

// --- Failures ---------------------------------------------------------------------------------------------

TEST_F(StandInTest, AnOperationFailsWithTheDescriptionSetForItAndDoesNothing) {
    addIn.NotifyKbAdded(L"Mail");
    standIn.behaviour.failures[L"NotifyKbRemoved"] = L"Die Datei ist gesperrt: ü";
    EXPECT_EQ(errorOf([&] { addIn.NotifyKbRemoved(L"Mail"); }), L"Die Datei ist gesperrt: ü");
    EXPECT_THAT(knowledgebases.names(), ElementsAre(L"Mail"));
    standIn.behaviour.failures[L"IsSearching"] = L"";
    EXPECT_NE(errorOf([&] { (void)addIn.IsSearching(); }), L"no error");
}

TEST_F(StandInTest, AfterItsEndEveryCallSaysThatItIsGone) {
    automation->disconnect();
    EXPECT_NE(errorOf([&] { addIn.SetLogging(true); }), L"no error");
    EXPECT_NE(errorOf([&] { (void)addIn.IsProcessing(); }), L"no error");
    EXPECT_NE(errorOf([&] { (void)addIn.connect([](const std::wstring&, bool) {}); }), L"no error");
}

TEST_F(StandInTest, WhileItIsAwayEveryCallSaysThatItIsGone) {
    standIn.behaviour.away = true;
    EXPECT_NE(errorOf([&] { addIn.NotifyKbUpdate(L"Mail"); }), L"no error");
    EXPECT_NE(errorOf([&] { (void)addIn.IsSearching(); }), L"no error");
    EXPECT_NE(errorOf([&] { (void)addIn.connect([](const std::wstring&, bool) {}); }), L"no error");
    standIn.behaviour.away = false;
    EXPECT_EQ(errorOf([&] { (void)addIn.IsSearching(); }), L"no error");
}

TEST_F(StandInTest, EveryCallIsNotedWithItsArguments) {
    calls.clear();
    addIn.SetDefaultKnowledgebase(L"Mail");
    addIn.SetFindShortcut(1);
    addIn.NotifyKbRenamed(L"a", L"b");
    std::vector<std::wstring> noted;
    for (const workbench::Call& call : calls.calls()) noted.push_back(call.name + L" " + call.arguments);
    EXPECT_THAT(noted, ElementsAre(L"SetDefaultKnowledgebase \"Mail\"", L"SetFindShortcut 1",
                                   L"NotifyKbRenamed \"a\", \"b\""));
}

TEST_F(StandInTest, AReportThatCannotBeWrittenIsAFailureWithADescription) {
    standIn.behaviour.mailFolder = folder + L"\\no\\such\\folder";
    EXPECT_NE(errorOf([&] {
                  addIn.SendMail({L"s", L"b", L"r", L"to", L"", 0, true});
              }).find(standIn.behaviour.mailFolder),
              std::wstring::npos);
}

}  // namespace
}  // namespace tests
