#include "workbench/shell/window.h"

namespace workbench {

bool Window::create(const wchar_t* className, const std::wstring& title, const Place& place, HWND owner,
                    HMENU menu) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    windowClass.lpszClassName = className;
    RegisterClassExW(&windowClass);  // a class that is there already serves as well
    CreateWindowExW(place.extendedStyle, className, title.c_str(), place.style, place.left, place.top,
                    place.width, place.height, owner, menu, windowClass.hInstance, this);
    return handle_ != nullptr;
}

void Window::destroy() {
    if (handle_ != nullptr) DestroyWindow(handle_);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NCCREATE) {
        self = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        self->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    try {
        return self->onMessage(message, wParam, lParam);
    } catch (...) {
        return 0;
    }
}

int scaled(int distance) {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return MulDiv(distance, dpi, USER_DEFAULT_SCREEN_DPI);
}

HFONT dialogFont() {
    static const HFONT font =
        CreateFontW(-scaled(11), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, L"MS Shell Dlg 2");
    return font;
}

}  // namespace workbench
