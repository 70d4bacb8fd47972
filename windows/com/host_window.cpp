#include "windows/com/host_window.h"

#include <utility>

#include "windows/com/boundary.h"
#include "windows/com/names.h"
#include "windows/controls/dpi.h"
#include "windows/platform/module.h"

namespace com {
namespace {

constexpr wchar_t CLASS_NAME[] = L"VexaPPE.HostWindow";

/// Registered at the first use, not when the library is loaded.
void registerWindowClass(WNDPROC procedure) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = win::thisModule();
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = CLASS_NAME;
    RegisterClassExW(&windowClass);
}

}  // namespace

// The dialog manager goes through windows with WS_EX_CONTROLPARENT to the page's buttons.
HostWindow::HostWindow() { create(WS_POPUP | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW, nullptr); }

HostWindow::HostWindow(HWND parent) {
    create(WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, parent);
}

void HostWindow::create(DWORD style, DWORD extendedStyle, HWND parent) {
    registerWindowClass(procedure);
    const win::MixedResolutions mixed;
    handle_ = CreateWindowExW(extendedStyle, CLASS_NAME, CAPTION, style, 0, 0, 0, 0, parent, nullptr,
                              win::thisModule(), nullptr);
    if (handle_ == nullptr) throw Failure(HRESULT_FROM_WIN32(GetLastError()));
    SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

HostWindow::~HostWindow() {
    if (handle_ == nullptr) return;
    SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    DestroyWindow(handle_);
}

LRESULT CALLBACK HostWindow::procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* window = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (message == WM_DESTROY && window != nullptr) window->lost();
    // Edits of old habits send this to their parent; the window lives until its owner ends it.
    if (message == WM_CLOSE) return 0;
    return DefWindowProcW(handle, message, wParam, lParam);
}

void HostWindow::lost() noexcept {
    SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    handle_ = nullptr;
    try {
        // The handler may destroy this object.
        if (const auto handler = std::exchange(onLost, nullptr)) handler();
    } catch (...) {
        return;  // the window goes all the same
    }
}

void HostWindow::unregisterClass() noexcept { UnregisterClassW(CLASS_NAME, win::thisModule()); }

}  // namespace com
