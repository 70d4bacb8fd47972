#include "tests/windows/stage/container.h"

namespace tests {
namespace {

/// An empty dialog: the template, and the words for no menu, the dialog class and no title.
struct EmptyDialog {
    DLGTEMPLATE head{WS_OVERLAPPEDWINDOW, WS_EX_CONTROLPARENT, 0, 0, 0, 100, 100};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
};

INT_PTR CALLBACK ignore(HWND, UINT, WPARAM, LPARAM) noexcept { return FALSE; }

}  // namespace

Container::Container(const ui::Size& size) {
    static const EmptyDialog empty;
    handle_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &empty.head, nullptr, ignore, 0);
    RECT area{0, 0, size.width, size.height};
    AdjustWindowRectEx(&area, WS_OVERLAPPEDWINDOW, FALSE, WS_EX_CONTROLPARENT);
    SetWindowPos(handle_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

Container::~Container() { DestroyWindow(handle_); }

void Container::show(HWND page) {
    RECT area{};
    GetClientRect(handle_, &area);
    SetWindowPos(page, nullptr, 0, 0, area.right, area.bottom, SWP_NOZORDER | SWP_SHOWWINDOW);
    ShowWindow(handle_, SW_SHOW);
}

}  // namespace tests
