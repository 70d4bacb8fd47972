// The page, and each of its dialogs, opened again and again in one process: what the process holds afterwards
// is what it held after the first ones. Then pages that the host ends while one of their dialogs is open.
//   soak_tests.exe            for every run of the tests
//   soak_tests.exe --long     10,000 openings of each, flat from 1,000 on
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <span>

#include "page/ctlPPE.ids.h"
#include "tests/windows/leaks/resource_count.h"
#include "tests/windows/matrix/hostile_world.h"
#include "tests/windows/matrix/tables.h"

namespace tests {
namespace {

struct Length {
    int warmUp;
    int openings;
    int endsDuringDialogs;
};
constexpr Length USUAL{20, 50, 30};
constexpr Length LONG{1000, 10000, 2000};
Length length = USUAL;

/// The heap blocks that the system itself keeps of each themed dialog that it makes and destroys, in
/// `DIALOGS` rounds. Wine's themed controls keep some; bare dialogs from the templates, without any code of
/// the program, tell how many.
constexpr int DIALOGS = 20;
long blocksKeptByBareDialogs(const std::vector<int>& templates, HWND parent) {
    const auto makeAndDestroy = [&] {
        for (int round = 0; round < DIALOGS; ++round)
            for (const int identifier : templates) openBare(identifier, parent);
    };
    makeAndDestroy();
    const ResourceCount before = countResources();
    makeAndDestroy();
    return heapBlocksBetween(before, countResources());
}

class Soak : public HostileWorld {
protected:
    /// Counts after the first openings and after all.
    void expectNothingLeft(const char* name, const std::vector<int>& templates,
                           const std::function<void()>& open) {
        for (int round = 0; round < length.warmUp; ++round) open();
        const ResourceCount before = countResources();
        for (int round = length.warmUp; round < length.openings; ++round) open();
        const ResourceCount after = countResources();
        const long kept = blocksKeptByBareDialogs(templates, hostWindow());
        std::cout << name << "\n  after " << length.warmUp << ": " << before << "\n  after "
                  << length.openings << ": " << after << "\n  the system keeps " << kept << " heap blocks of "
                  << DIALOGS << " bare dialogs" << std::endl;
        expectSameObjects(before, after);
        const long rounds = length.openings - length.warmUp;
        if (!heapCountsEachBlock()) return;
        // Caches may take a block now and then; one for each opening would be many times as many.
        EXPECT_LE(heapBlocksBetween(before, after), kept * rounds / DIALOGS + 3 + rounds / 100);
    }
};

TEST_F(Soak, PagesLeaveNothingBehind) {
    expectNothingLeft("the page", {IDD_ctlPPE}, [&] {
        prepare();
        EXPECT_EQ(as<PropertyPage>()->Apply(), S_OK);
        finish();
    });
}

class SoakOf : public Soak, public testing::WithParamInterface<Situation> {};

TEST_P(SoakOf, DialogsLeaveNothingBehind) {
    expectNothingLeft(GetParam().name, GetParam().templates, [&] {
        prepare();
        play(GetParam(), [] {});
    });
}

/// The other situation lies on the way to it.
bool leadsThrough(const Situation& situation, const Situation& other) {
    return situation.buttons.size() > other.buttons.size() &&
           std::ranges::equal(other.buttons, std::span(situation.buttons).first(other.buttons.size()));
}

/// Each way to dialogs of the program: an inner one's opening is one of the outer ones, too.
std::vector<Situation> waysToDialogs() {
    const std::vector<Situation> all = ownDialogs();
    std::vector<Situation> ways = all;
    std::erase_if(ways, [&](const Situation& each) {
        return std::ranges::any_of(all, [&](const Situation& other) { return leadsThrough(other, each); });
    });
    return ways;
}

INSTANTIATE_TEST_SUITE_P(Each, SoakOf, testing::ValuesIn(waysToDialogs()), situationName);

// The counts see a leak of each kind, so that equal counts mean something.
TEST_F(Soak, CountsNoticeEachKindOfLeak) {
    const ResourceCount before = countResources();
    const HWND child = makeWindow(L"Static", WS_CHILD, {1, 1}, hostWindow());
    const HMENU menu = CreateMenu();
    const HBRUSH brush = CreateSolidBrush(0x123456);
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    void* block = HeapAlloc(GetProcessHeap(), 0, 100);
    const ResourceCount with = countResources();
    EXPECT_GT(with.windows, before.windows);
    EXPECT_GT(with.menus, before.menus);
    EXPECT_GT(with.gdiObjects, before.gdiObjects);
    EXPECT_GT(with.handles, before.handles);
    // Only another Wine than the distribution's has another heap.
    EXPECT_TRUE(with.heapBlocks > before.heapBlocks || std::getenv("TEST_WINE") != nullptr);
    EXPECT_TRUE(heapCountsEachBlock() || std::getenv("TEST_WINE") != nullptr);
    HeapFree(GetProcessHeap(), 0, block);
    CloseHandle(event);
    DeleteObject(brush);
    DestroyMenu(menu);
    DestroyWindow(child);
}

// Takes everything away, in one of three ways, while a dialog is open.
TEST_F(Soak, EndsDuringDialogsLeaveNoControl) {
    for (int round = 0; round < length.endsDuringDialogs; ++round) {
        prepare();
        play(situations()[1], [&] {
            if (round % 3 == 0) object()->Close(OLECLOSE_NOSAVE);
            if (round % 3 == 1) object()->SetClientSite(nullptr);
            if (round % 3 == 2) DestroyWindow(hostWindow());
            releaseLast();
        });
        verifyAtRest();
        finish();
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace tests

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    if (count > 1 && std::strcmp(arguments[1], "--long") == 0) tests::length = tests::LONG;
    return RUN_ALL_TESTS();
}
