// A window whose messages a test hears.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>

#include "tests/windows/stage/window_queries.h"

namespace tests {

class Listener {
public:
    /// `hear` answers whether the message has been handled; the system handles the others. Without a place
    /// on the screen the window is there for what is sent or posted to it alone.
    explicit Listener(std::function<bool(UINT message, WPARAM wParam)> hear, HWND parent = HWND_MESSAGE)
        : hear_(std::move(hear)),
          window_(
              makeWindow(L"Static", parent == HWND_MESSAGE ? 0 : WS_POPUP | WS_VISIBLE, {40, 40}, parent)) {
        SetWindowSubclass(window_, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() { DestroyWindow(window_); }

    [[nodiscard]] HWND window() const { return window_; }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) noexcept {
        if (reinterpret_cast<Listener*>(self)->hear_(message, wParam)) return 0;
        return DefSubclassProc(window, message, wParam, lParam);
    }
    std::function<bool(UINT, WPARAM)> hear_;
    HWND window_;
};

}  // namespace tests
