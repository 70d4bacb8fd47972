// The list view shows the current row as selected, whatever the user does to the selection.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "kb/frmKBConfiguration.ids.h"
#include "tests/windows/controls/test_form.h"

namespace tests {
namespace {

class GridSelection : public ControlsTest {
protected:
    /// A list with two rows of which the second is current.
    void inList(const std::function<void(ui::Grid& grid, HWND list)>& script) {
        inDialog(IDD_frmKBConfiguration, [&](TestForm& form) {
            auto& grid = form.control<ui::Grid>(IDC_sftKBConfiguration);
            grid.setColumns({{L"Name", 90}});
            grid.addRow({{{L"Mail"}}});
            grid.addRow({{{L"News"}}});
            user.clickRow(grid, 1);
            script(grid, windowOf(grid));
            EXPECT_EQ(grid.currentRow(), 1);
            EXPECT_EQ(selectedRow(windowOf(grid)), 1);
        });
    }
    static int selectedRow(HWND list) {
        return static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    }
    static POINT middleOf(HWND list, int row) {
        RECT area{};
        area.left = LVIR_LABEL;
        SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
        return {area.left + 4, (area.top + area.bottom) / 2};
    }
    static POINT besideRows(HWND list) {
        RECT area{};
        GetClientRect(list, &area);
        return {area.right / 2, area.bottom - 4};
    }
};

TEST_F(GridSelection, ComesBackAfterACtrlClickOnTheSelectedRow) {
    inList([](ui::Grid&, HWND list) {
        const POINT place = middleOf(list, 1);
        clickAt(list, place.x, place.y, ui::modifier::control);
    });
}

TEST_F(GridSelection, ComesBackAfterCtrlAndSpace) {
    inList([](ui::Grid&, HWND list) {
        const HeldKeys held(ui::modifier::control);
        PostMessageW(list, WM_KEYDOWN, VK_SPACE, 1);
        deliverMessages();
    });
}

TEST_F(GridSelection, ComesBackAfterAClickBesideTheRows) {
    inList([](ui::Grid&, HWND list) {
        const POINT place = besideRows(list);
        clickAt(list, place.x, place.y, 0);
    });
}

TEST_F(GridSelection, ComesBackAfterARightClickBesideTheRows) {
    inList([](ui::Grid&, HWND list) {
        const POINT place = besideRows(list);
        PostMessageW(list, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(place.x, place.y));
        PostMessageW(list, WM_RBUTTONUP, 0, MAKELPARAM(place.x, place.y));
        deliverMessages();
    });
}

TEST_F(GridSelection, ComesBackWhereTheListViewItselfDeselectsEverything) {
    inList([](ui::Grid&, HWND list) {
        LVITEMW state{};
        state.stateMask = LVIS_SELECTED;
        SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&state));
        deliverMessages();
    });
}

TEST_F(GridSelection, AnotherRowThatTheUserPicksStaysPicked) {
    inList([&](ui::Grid& grid, HWND list) {
        user.clickRow(grid, 0);
        EXPECT_EQ(selectedRow(list), 0);
        EXPECT_EQ(grid.currentRow(), 0);
        const POINT place = middleOf(list, 1);
        clickAt(list, place.x, place.y, ui::modifier::control);
    });
}

}  // namespace
}  // namespace tests
