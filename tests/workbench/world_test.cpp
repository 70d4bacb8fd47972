// The menu "World": each of its entries does what it says.
#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "workbench/addin/automation.h"
#include "workbench/addin/contract.h"
#include "workbench/addin/store.h"
#include "workbench/world/slow_files.h"
#include "workbench/world/world.h"

namespace tests {
namespace {

namespace store = workbench::store;
namespace value = workbench::value;

constexpr unsigned LONG_TIME = 300;    // milliseconds
constexpr ULONGLONG SHORT_TIME = 250;  // less than that, with room for a coarse clock

template <class Action>
ULONGLONG timeOf(Action action) {
    const ULONGLONG start = GetTickCount64();
    action();
    return GetTickCount64() - start;
}

class WorldTest : public testing::Test {
protected:
    WorldTest() { store::writeText(store::profileKey(), value::VexaBaseDir, L"C:\\far\\away"); }
    ~WorldTest() override { store::removeValue(store::profileKey(), value::VexaBaseDir); }

    [[nodiscard]] bool isSearching() {
        VARIANT_BOOL result = VARIANT_FALSE;
        EXPECT_EQ(automation->IsSearching(&result), S_OK);
        return result != VARIANT_FALSE;
    }

    workbench::CallList calls;
    workbench::StandIn standIn{calls};
    workbench::World& world = standIn.world;
    com::Ptr<workbench::Automation> automation =
        com::Ptr<workbench::Automation>::attach(new workbench::Automation(standIn, calls));
};

TEST_F(WorldTest, IsSearchingTakesItsTime) {
    world.weather.searchingTime = LONG_TIME;
    EXPECT_GE(timeOf([this] { EXPECT_FALSE(isSearching()); }), SHORT_TIME);
    world.weather.searchingTime = 0;
    EXPECT_LT(timeOf([this] { EXPECT_FALSE(isSearching()); }), SHORT_TIME);
}

TEST_F(WorldTest, QuestionsAboutTheBaseFolderTakeTheirTime) {
    workbench::slowDownFilesOf(GetModuleHandleW(nullptr));
    world.weather.baseFolderTime = LONG_TIME;
    world.apply();
    EXPECT_GE(timeOf([] { GetFileAttributesW(L"C:\\far\\away\\mail.dct"); }), SHORT_TIME);
    EXPECT_LT(timeOf([] { GetFileAttributesW(L"C:\\near\\mail.dct"); }), SHORT_TIME);
    world.weather.baseFolderTime = 0;
    world.apply();
    EXPECT_LT(timeOf([] { GetFileAttributesW(L"C:\\far\\away\\mail.dct"); }), SHORT_TIME);
}

TEST_F(WorldTest, AHungSearchWindowStandsInForTheOther) {
    store::writeNumber(workbench::ROOT_KEY, value::hWndSearchCtl, 4711);
    world.weather.hungSearchWindow = true;
    world.apply();
    const auto window = reinterpret_cast<HWND>(
        static_cast<ULONG_PTR>(store::readNumber(workbench::ROOT_KEY, value::hWndSearchCtl)));
    EXPECT_TRUE(IsWindow(window));
    DWORD_PTR answer = 0;
    EXPECT_EQ(SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, 100, &answer), 0);
    world.weather.hungSearchWindow = false;
    world.apply();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(store::readNumber(workbench::ROOT_KEY, value::hWndSearchCtl), 4711u);
    store::removeValue(workbench::ROOT_KEY, value::hWndSearchCtl);
}

TEST_F(WorldTest, TheEventComesFromAnotherThread) {
    std::thread::id raisedOn;
    const HANDLE raised = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const auto note = [&] {
        raisedOn = std::this_thread::get_id();
        SetEvent(raised);
    };
    world.raise(note);
    EXPECT_EQ(raisedOn, std::this_thread::get_id());
    ResetEvent(raised);
    world.weather.eventFromThread = true;
    world.raise(note);
    ASSERT_EQ(WaitForSingleObject(raised, 5000), WAIT_OBJECT_0);
    EXPECT_NE(raisedOn, std::this_thread::get_id());
    CloseHandle(raised);
}

TEST_F(WorldTest, TheAddInLetsMessagesRun) {
    constexpr UINT MESSAGE = WM_APP + 77;
    MSG message;
    PostThreadMessageW(GetCurrentThreadId(), MESSAGE, 0, 0);
    EXPECT_FALSE(isSearching());
    EXPECT_TRUE(PeekMessageW(&message, nullptr, MESSAGE, MESSAGE, PM_NOREMOVE)) << "nothing ran";
    world.weather.pumps = true;
    EXPECT_FALSE(isSearching());
    EXPECT_FALSE(PeekMessageW(&message, nullptr, MESSAGE, MESSAGE, PM_REMOVE))
        << "it was taken inside the call";
}

}  // namespace
}  // namespace tests
