// Base of the tests that open a dialog again and again and count what is left behind.
#pragma once

#include <windows.h>

#include "tests/stage/form_test.h"
#include "tests/windows/leaks/resource_count.h"
#include "windows/controls/activation_context.h"

namespace tests {

inline constexpr int WARM_UP = 20;
inline constexpr int OPENINGS = 100;

struct Change {
    ResourceCount before;
    ResourceCount after;
    [[nodiscard]] long heapBlocks() const {
        return static_cast<long>(after.heapBlocks) - static_cast<long>(before.heapBlocks);
    }
};

/// Counts around many openings; what the first ones set up once and for all is left out.
inline Change changeBy(const std::function<void()>& open) {
    for (int opening = 0; opening < WARM_UP; ++opening) open();
    const ResourceCount before = countResources();
    for (int opening = 0; opening < OPENINGS; ++opening) open();
    return {before, countResources()};
}

inline INT_PTR CALLBACK ignoreAll(HWND, UINT, WPARAM, LPARAM) noexcept { return FALSE; }

/// Makes and destroys the dialog as the system alone does it.
inline void openBare(int templateIdentifier) {
    static const win::ActivationContext context{GetModuleHandleW(nullptr)};
    const win::Activation themed(context);
    DestroyWindow(CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateIdentifier), nullptr,
                                     ignoreAll, 0));
}

/// Opening the dialog leaves nothing behind. In its heap the system itself may (Wine keeps a block for some
/// themed dialogs): the program leaves no more than the bare dialog does.
inline void expectNothingLeft(Stage& stage, int templateIdentifier, const std::function<void()>& open) {
    static_cast<void>(stage.owner());
    const Change bare = changeBy([&] { openBare(templateIdentifier); });
    const Change change = changeBy([&] {
        open();
        stage.calls().clear();
    });
    EXPECT_EQ(change.after.windows, change.before.windows);
    EXPECT_EQ(change.after.menus, change.before.menus);
    EXPECT_EQ(change.after.icons, change.before.icons);
    EXPECT_EQ(change.after.gdiObjects, change.before.gdiObjects);
    EXPECT_EQ(change.after.handles, change.before.handles);
    if (!heapCountsEachBlock()) return;
    // Caches may take a block now and then; one per opening would be 100.
    EXPECT_LE(change.heapBlocks(), bare.heapBlocks() + OPENINGS / 10)
        << change.before << " / " << change.after;
}

class LeakTest : public FormTest {
protected:
    void expectNothingLeft(int templateIdentifier, const std::function<void()>& open) {
        tests::expectNothingLeft(*stage, templateIdentifier, open);
    }
};

}  // namespace tests
