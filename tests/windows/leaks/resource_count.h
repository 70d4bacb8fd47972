// What this process holds of the system: windows and other user objects, GDI objects, kernel handles, heap
// blocks. Wine keeps no counters of them, so they are counted one by one.
#pragma once

#include <windows.h>

#include <cstddef>
#include <ostream>

namespace tests {

struct ResourceCount {
    std::size_t windows = 0;
    std::size_t menus = 0;
    std::size_t icons = 0;
    std::size_t gdiObjects = 0;
    std::size_t handles = 0;
    std::size_t heapBlocks = 0;
    bool operator==(const ResourceCount&) const = default;
};

[[nodiscard]] ResourceCount countResources();

/// Everything but the heap is as before.
void expectSameObjects(const ResourceCount& before, const ResourceCount& after);
[[nodiscard]] long heapBlocksBetween(const ResourceCount& before, const ResourceCount& after);

/// Makes and destroys the dialog as the system alone does it.
void openBare(int templateIdentifier, HWND parent = nullptr);

/// Whether the heap counts each block for itself. Newer ones hand out small blocks from groups, which come
/// and go as a whole: then the number of blocks says nothing.
[[nodiscard]] bool heapCountsEachBlock();

inline std::ostream& operator<<(std::ostream& out, const ResourceCount& count) {
    return out << "windows " << count.windows << ", menus " << count.menus << ", icons " << count.icons
               << ", GDI objects " << count.gdiObjects << ", handles " << count.handles << ", heap blocks "
               << count.heapBlocks;
}

}  // namespace tests
