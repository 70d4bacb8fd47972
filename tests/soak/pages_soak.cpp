// Five hundred pages made, activated and destroyed in one process: what the process holds afterwards is what
// it held after the first twenty. Then two hundred that the host ends while one of their dialogs is open.
#include <windows.h>

#include <winternl.h>

#include <array>
#include <cstdio>

#include "page/ctlPPE.ids.h"
#include "tests/windows/com/control_test.h"
#include "tests/windows/stage/messages.h"
#include "windows/controls/activation_context.h"

namespace tests {
namespace {

constexpr int WARM_UP = 20;
constexpr int PAGES = 500;
constexpr int ENDS_DURING_DIALOGS = 200;

/// Wine keeps no count of a process's USER objects, but answers for each handle whether it is one.
int countWindows() {
    int count = 0;
    for (UINT_PTR handle = 0x20; handle < 0xFFEF; handle += 2) {
        DWORD process = 0;
        if (IsWindow(reinterpret_cast<HWND>(handle)) &&
            GetWindowThreadProcessId(reinterpret_cast<HWND>(handle), &process) != 0 &&
            process == GetCurrentProcessId())
            ++count;
    }
    return count;
}

int countMenusAndIcons() {
    int count = 0;
    for (UINT_PTR handle = 0x20; handle < 0xFFEF; handle += 2) {
        if (IsMenu(reinterpret_cast<HMENU>(handle))) ++count;
        ICONINFO icon{};
        if (!GetIconInfo(reinterpret_cast<HICON>(handle), &icon)) continue;
        ++count;
        DeleteObject(icon.hbmColor);
        DeleteObject(icon.hbmMask);
    }
    return count;
}

/// One entry of the table of GDI objects that each process sees.
struct GdiEntry {
    ULONG64 object;
    ULONG owner;
    USHORT unique;
    UCHAR type;
    UCHAR flags;
    ULONG64 user;
};
static_assert(sizeof(GdiEntry) == 24);

/// Offset of the table's address in the process's environment block.
#ifdef _WIN64
constexpr std::size_t GDI_TABLE = 0xF8;
#else
constexpr std::size_t GDI_TABLE = 0x94;
#endif

int countGdiObjects() {
    PROCESS_BASIC_INFORMATION process{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process, sizeof process,
                              nullptr);
    const auto* block = reinterpret_cast<const BYTE*>(process.PebBaseAddress);
    const auto* table = *reinterpret_cast<GdiEntry* const*>(block + GDI_TABLE);
    if (table == nullptr) return 0;
    int count = 0;
    for (int entry = 0; entry < 0x10000; ++entry) count += table[entry].type != 0;
    return count;
}

/// The system's list of handles, of which this process's are counted.
int countHandles() {
    struct Entry {
        ULONG owner;
        BYTE type;
        BYTE flags;
        USHORT handle;
        void* object;
        ULONG access;
    };
    struct List {
        ULONG count;
        Entry entries[1];
    };
    constexpr auto HANDLES = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    std::vector<BYTE> buffer(1 << 20);
    ULONG size = 0;
    while (NtQuerySystemInformation(HANDLES, buffer.data(), static_cast<ULONG>(buffer.size()), &size) != 0)
        buffer.resize(buffer.size() * 2);
    const auto* list = reinterpret_cast<const List*>(buffer.data());
    int count = 0;
    for (ULONG i = 0; i < list->count; ++i) count += list->entries[i].owner == GetCurrentProcessId();
    return count;
}

int countHeapBlocks() {
    int count = 0;
    HANDLE heaps[64];
    const DWORD all = GetProcessHeaps(64, heaps);
    for (DWORD i = 0; i < all; ++i) {
        HeapLock(heaps[i]);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry)) count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        HeapUnlock(heaps[i]);
    }
    return count;
}

struct Count {
    const char* name;
    int number;
};
/// On the stack: the counts themselves take no block of the heap.
using Counts = std::array<Count, 5>;

Counts countAll() {
    return {{{"windows", countWindows()},
             {"menus and icons", countMenusAndIcons()},
             {"GDI objects", countGdiObjects()},
             {"process handles", countHandles()},
             {"heap blocks", countHeapBlocks()}}};
}

void print(const char* when, const Counts& counts) {
    std::printf("%-20s", when);
    for (const Count& count : counts) std::printf("  %s %d", count.name, count.number);
    std::printf("\n");
    std::fflush(stdout);
}

INT_PTR CALLBACK nothing(HWND, UINT, WPARAM, LPARAM) noexcept { return FALSE; }

/// The heap blocks that the system itself keeps of each themed dialog that it makes and destroys. Wine's
/// themed controls keep some; a bare dialog from the page's template, without any code of the page, tells how
/// many.
int blocksKeptPerDialog(HWND parent) {
    constexpr int DIALOGS = 20;
    const win::ActivationContext context(GetModuleHandleW(nullptr));
    const win::Activation themed(context);
    const auto makeAndDestroy = [&] {
        DestroyWindow(
            CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_ctlPPE), parent, nothing, 0));
    };
    for (int i = 0; i < DIALOGS; ++i) makeAndDestroy();
    const int before = countHeapBlocks();
    for (int i = 0; i < DIALOGS; ++i) makeAndDestroy();
    return (countHeapBlocks() - before) / DIALOGS;
}

class Soak : public ControlTest {
protected:
    Soak() { container.acceptAnything(); }

    void openAndClose() {
        create();
        as<IOleObject>()->SetClientSite(container.site());
        ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
        EXPECT_EQ(as<PropertyPage>()->Apply(), S_OK);
        end();
        container.forget();
        deliverMessages();
    }
};

TEST_F(Soak, FiveHundredPagesLeaveNothingBehind) {
    for (int page = 0; page < WARM_UP; ++page) openAndClose();
    const Counts before = countAll();
    print("after the first 20:", before);
    for (int page = WARM_UP; page < PAGES; ++page) openAndClose();
    const Counts after = countAll();
    print("after 500:", after);
    const int kept = blocksKeptPerDialog(window);
    std::printf("the system keeps %d heap blocks per bare dialog\n", kept);
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_GT(before[i].number, 0) << before[i].name;
        const bool heap = i + 1 == before.size();
        EXPECT_EQ(after[i].number - before[i].number, heap ? kept * (PAGES - WARM_UP) : 0) << before[i].name;
    }
}

// The counts see a leak of each kind, so that equal counts mean something.
TEST_F(Soak, CountsNoticeEachKindOfLeak) {
    const Counts before = countAll();
    const HWND child =
        CreateWindowExW(0, L"Static", L"", WS_CHILD, 0, 0, 1, 1, window, nullptr, nullptr, nullptr);
    const HMENU menu = CreateMenu();
    const HBRUSH brush = CreateSolidBrush(0x123456);
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    void* block = HeapAlloc(GetProcessHeap(), 0, 100);
    const Counts with = countAll();
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_GT(with[i].number, before[i].number) << before[i].name;
    HeapFree(GetProcessHeap(), 0, block);
    CloseHandle(event);
    DeleteObject(brush);
    DestroyMenu(menu);
    DestroyWindow(child);
}

class EndsDuringDialogs : public Soak {
protected:
    static inline EndsDuringDialogs* current = nullptr;
    static inline int ended = 0;

    static BOOL CALLBACK isDialog(HWND found, LPARAM place) noexcept {
        if (!IsWindowVisible(found) || GetWindow(found, GW_OWNER) == nullptr) return TRUE;
        *reinterpret_cast<HWND*>(place) = found;
        return FALSE;
    }
    /// Takes everything away, in one of three ways, once the dialog is there.
    static void CALLBACK whenOpen(HWND, UINT, UINT_PTR, DWORD) noexcept {
        HWND dialog = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), isDialog, reinterpret_cast<LPARAM>(&dialog));
        if (dialog == nullptr || current == nullptr) return;
        EndsDuringDialogs& test = *std::exchange(current, nullptr);
        ++ended;
        switch (ended % 3) {
            case 0: test.as<IOleObject>()->Close(OLECLOSE_NOSAVE); break;
            case 1: test.as<IOleObject>()->SetClientSite(nullptr); break;
            default: DestroyWindow(test.window);
        }
        test.control.reset();
    }
};

TEST_F(EndsDuringDialogs, TwoHundredOfThemLeaveNoControl) {
    for (int page = 0; page < ENDS_DURING_DIALOGS; ++page) {
        container.moveTo(window);
        create();
        as<IOleObject>()->SetClientSite(container.site());
        ASSERT_EQ(as<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, container.site(), 0, window, nullptr),
                  S_OK);
        current = this;
        const UINT_PTR timer = SetTimer(nullptr, 0, 10, whenOpen);
        SendMessageW(child(IDC_cmdDispMatches), BM_CLICK, 0, 0);
        KillTimer(nullptr, timer);
        deliverMessages();
        ASSERT_EQ(ended, page + 1);
        ASSERT_EQ(library.canUnloadNow(), S_OK) << "the control of round " << page << " is left";
        if (!IsWindow(window)) window = createContainerWindow();
    }
}

}  // namespace
}  // namespace tests
