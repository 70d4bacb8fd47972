// The component's own windows around the page: the frame in the container, and the hidden window that the
// page lies in while no container shows it.
#pragma once

#include <windows.h>

#include <functional>

namespace com {

/// A window that holds nothing but the page. It goes with the object, or before it where its parent goes.
class HostWindow {
public:
    /// A hidden window of its own.
    HostWindow();
    /// A child of the container's window. Throws Failure.
    explicit HostWindow(HWND parent);
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow();

    /// Null once the window is gone.
    [[nodiscard]] HWND handle() const { return handle_; }

    /// The parent's end takes this window along; the page can still leave it. Not raised by the destructor.
    std::function<void()> onLost;

    /// Gives the window class back, before the library is unloaded.
    static void unregisterClass() noexcept;

private:
    void create(DWORD style, DWORD extendedStyle, HWND parent);
    static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void lost() noexcept;

    HWND handle_ = nullptr;
};

}  // namespace com
