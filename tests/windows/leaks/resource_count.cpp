#include "tests/windows/leaks/resource_count.h"

#include <windows.h>
#include <winternl.h>

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "windows/controls/activation_context.h"

namespace tests {
namespace {

// Where a process keeps its table of GDI objects, and the table's layout.
constexpr std::size_t GDI_TABLE = sizeof(void*) == 8 ? 0xF8 : 0x94;
constexpr std::size_t GDI_ENTRIES = 0x10000;
constexpr std::size_t GDI_ENTRY_SIZE = 24;
constexpr std::size_t GDI_TYPE = 14;

std::size_t countGdiObjects() {
    PROCESS_BASIC_INFORMATION process{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process, sizeof process,
                              nullptr);
    const auto* environment = reinterpret_cast<const std::uint8_t*>(process.PebBaseAddress);
    const auto* table = *reinterpret_cast<const std::uint8_t* const*>(environment + GDI_TABLE);
    if (table == nullptr) return 0;
    std::size_t used = 0;
    for (std::size_t entry = 0; entry < GDI_ENTRIES; ++entry)
        used += table[entry * GDI_ENTRY_SIZE + GDI_TYPE] != 0;
    return used;
}

bool isOwnWindow(HWND window) {
    DWORD process = 0;
    return GetWindowThreadProcessId(window, &process) && process == GetCurrentProcessId();
}

bool isIcon(HICON icon) {
    ICONINFO parts{};
    if (!GetIconInfo(icon, &parts)) return false;
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    return true;
}

/// The low words of user handles are their places in a table. Free places are used again before new ones, so
/// many in a row without anything are its end.
void countUserObjects(ResourceCount& count) {
    constexpr ULONG_PTR MANY = 8192;
    ULONG_PTR lastUsed = 0x20;
    for (ULONG_PTR place = 0x20; place < 0xFFEE && place - lastUsed < MANY; place += 2) {
        const bool window = IsWindow(reinterpret_cast<HWND>(place)) != FALSE;
        const bool menu = !window && IsMenu(reinterpret_cast<HMENU>(place));
        const bool icon = !window && !menu && isIcon(reinterpret_cast<HICON>(place));
        if (window || menu || icon) lastUsed = place;
        count.windows += window && isOwnWindow(reinterpret_cast<HWND>(place));
        count.menus += menu;
        count.icons += icon;
    }
}

struct HandleEntry {
    ULONG process;
    std::uint8_t type;
    std::uint8_t flags;
    USHORT handle;
    void* object;
    ULONG access;
};

struct HandleTable {
    ULONG count;
    HandleEntry entries[1];
};

std::size_t countHandles() {
    constexpr auto ALL_HANDLES = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    std::vector<std::uint8_t> buffer(1 << 16);
    ULONG needed = 0;
    while (NtQuerySystemInformation(ALL_HANDLES, buffer.data(), static_cast<ULONG>(buffer.size()), &needed) <
           0)
        buffer.resize(buffer.size() * 2);
    const auto& table = *reinterpret_cast<const HandleTable*>(buffer.data());
    std::size_t own = 0;
    for (ULONG index = 0; index < table.count; ++index)
        own += table.entries[index].process == GetCurrentProcessId();
    return own;
}

INT_PTR CALLBACK ignoreAll(HWND, UINT, WPARAM, LPARAM) noexcept { return FALSE; }

std::size_t countHeapBlocks() {
    std::size_t blocks = 0;
    HANDLE heaps[64];
    const DWORD all = GetProcessHeaps(64, heaps);
    for (DWORD i = 0; i < all; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry)) blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        HeapUnlock(heaps[i]);
    }
    return blocks;
}

}  // namespace

ResourceCount countResources() {
    ResourceCount count;
    count.handles = countHandles();
    count.heapBlocks = countHeapBlocks();
    count.gdiObjects = countGdiObjects();
    countUserObjects(count);
    return count;
}

void expectSameObjects(const ResourceCount& before, const ResourceCount& after) {
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.menus, before.menus);
    EXPECT_EQ(after.icons, before.icons);
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.handles, before.handles);
}

long heapBlocksBetween(const ResourceCount& before, const ResourceCount& after) {
    return static_cast<long>(after.heapBlocks) - static_cast<long>(before.heapBlocks);
}

void openBare(int templateIdentifier, HWND parent) {
    static const win::ActivationContext context{GetModuleHandleW(nullptr)};
    const win::Activation themed(context);
    DestroyWindow(CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateIdentifier), parent,
                                     ignoreAll, 0));
}

bool heapCountsEachBlock() {
    constexpr std::size_t MANY = 100;
    std::array<void*, MANY> blocks{};
    const std::size_t before = countHeapBlocks();
    for (void*& block : blocks) block = HeapAlloc(GetProcessHeap(), 0, 48);
    const std::size_t after = countHeapBlocks();
    for (void* block : blocks) HeapFree(GetProcessHeap(), 0, block);
    return after == before + MANY;
}

}  // namespace tests
