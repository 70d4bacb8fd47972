// A top-level window that holds a page, as the dialog of a host does.
#pragma once

#include <windows.h>

#include "tests/windows/stage/window_queries.h"
#include "ui/geometry.h"

namespace tests {

class Container {
public:
    /// `size` is that of the inner area, in pixels.
    explicit Container(const ui::Size& size) {
        static const EmptyDialog empty;
        handle_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &empty.head, nullptr, ignore, 0);
        RECT area{0, 0, size.width, size.height};
        AdjustWindowRectEx(&area, WS_OVERLAPPEDWINDOW, FALSE, WS_EX_CONTROLPARENT);
        SetWindowPos(handle_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;
    ~Container() { DestroyWindow(handle_); }

    [[nodiscard]] HWND window() const { return handle_; }
    /// Fills the inner area with the page and shows both.
    void show(HWND page) {
        const RECT area = innerAreaOf(handle_);
        SetWindowPos(page, nullptr, 0, 0, area.right, area.bottom, SWP_NOZORDER | SWP_SHOWWINDOW);
        ShowWindow(handle_, SW_SHOW);
    }

private:
    /// The template, and the words for no menu, the dialog class and no title.
    struct EmptyDialog {
        DLGTEMPLATE head{WS_OVERLAPPEDWINDOW, WS_EX_CONTROLPARENT, 0, 0, 0, 100, 100};
        WORD menu = 0;
        WORD windowClass = 0;
        WORD title = 0;
    };
    static INT_PTR CALLBACK ignore(HWND, UINT, WPARAM, LPARAM) noexcept { return FALSE; }

    HWND handle_;
};

}  // namespace tests
