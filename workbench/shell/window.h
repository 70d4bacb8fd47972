// A plain window whose messages arrive at an object.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

class Window {
public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() { destroy(); }

    [[nodiscard]] HWND handle() const { return handle_; }

protected:
    struct Place {
        DWORD style;
        DWORD extendedStyle;
        int left;
        int top;
        int width;
        int height;
    };
    /// False where the system cannot make the window.
    bool create(const wchar_t* className, const std::wstring& title, const Place& place, HWND owner,
                HMENU menu = nullptr);
    void destroy();
    /// Nothing that is thrown leaves the window: the message then counts as handled.
    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
        return DefWindowProcW(handle_, message, wParam, lParam);
    }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    HWND handle_ = nullptr;
};

/// Pixels for a distance at 96 DPI, on this screen.
[[nodiscard]] int scaled(int distance);

/// The font of dialogs; lives as long as the process.
[[nodiscard]] HFONT dialogFont();

}  // namespace workbench
