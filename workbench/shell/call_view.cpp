#include "workbench/shell/call_view.h"

#include <commctrl.h>

#include <algorithm>

#include "workbench/shell/window.h"

namespace workbench {
namespace {

enum Column { TIME, SIDE, NAME, ARGUMENTS, TIMES };

void setCell(HWND list, int row, int column, std::wstring text) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = text.data();
    SendMessageW(list, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

}  // namespace

void CallView::create(HWND parent) {
    list_ = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                            WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                                LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                            0, 0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    addColumn(TIME, L"Time", 90);
    addColumn(SIDE, L"From > to", 130);
    addColumn(NAME, L"Call", 170);
    addColumn(ARGUMENTS, L"Arguments, answer", 230);
    addColumn(TIMES, L"Times", 50);
    calls_.onChange = [this] { refresh(); };
    fit();
}

void CallView::addColumn(int index, const wchar_t* title, int width) {
    std::wstring text = title;
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.pszText = text.data();
    column.cx = scaled(width);
    column.iSubItem = index;
    SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void CallView::fit() {
    RECT area;
    GetClientRect(GetParent(list_), &area);
    MoveWindow(list_, 0, 0, area.right, area.bottom, TRUE);
}

void CallView::refresh() {
    const int count = static_cast<int>(calls_.calls().size());
    int shown = static_cast<int>(SendMessageW(list_, LVM_GETITEMCOUNT, 0, 0));
    if (shown > count) {
        SendMessageW(list_, LVM_DELETEALLITEMS, 0, 0);
        shown = 0;
    }
    for (; shown < count; ++shown) {
        LVITEMW item{};
        item.iItem = shown;
        SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        showRow(shown, calls_.calls()[static_cast<std::size_t>(shown)]);
    }
    if (count == 0) return;
    // The two before the new one may have been counted up.
    for (int row = std::max(0, count - 3); row < count; ++row)
        showRow(row, calls_.calls()[static_cast<std::size_t>(row)]);
    SendMessageW(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(count - 1), FALSE);
}

void CallView::showRow(int row, const Call& call) {
    setCell(list_, row, TIME, timeText(call.time));
    setCell(list_, row, SIDE, call.side);
    setCell(list_, row, NAME, call.name);
    setCell(list_, row, ARGUMENTS, call.arguments);
    setCell(list_, row, TIMES, std::to_wstring(call.times));
}

}  // namespace workbench
