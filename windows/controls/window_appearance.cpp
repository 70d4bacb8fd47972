// How a window follows the system's colours and the resolution of its monitor.
#include <algorithm>
#include <utility>

#include "windows/controls/dpi.h"
#include "windows/controls/screen.h"
#include "windows/controls/window.h"

namespace win {
namespace {

BOOL CALLBACK forwardColourChange(HWND control, LPARAM) noexcept {
    SendMessageW(control, WM_SYSCOLORCHANGE, 0, 0);
    return TRUE;
}

}  // namespace

// --- Colours ----------------------------------------------------------------------------------------------

void Window::refreshColours() {
    EnumChildWindows(handle_, forwardColourChange, 0);
    tellColours();
}

void Window::tellColours() {
    for (const auto& [identifier, wrapper] : controls_) wrapper->coloursChanged();
    InvalidateRect(handle_, nullptr, TRUE);
}

// --- Resolution -------------------------------------------------------------------------------------------

int Window::metric(int index) const { return systemMetric(index, dpi_); }

double Window::magnification() const { return static_cast<double>(dpi_) / systemDpi(); }

void Window::monitorChanged(int dpi, const RECT& place) {
    takeDpi(MulDiv(dpi, textScale_, 100));
    SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    raise(onResize);
}

/// Bigger text is a higher resolution of all that the dialog holds, as far as the monitor has room for it.
void Window::enlargeForText() {
    RECT outer{};
    RECT inner{};
    MONITORINFO monitor{sizeof monitor, {}, {}, 0};
    GetWindowRect(handle_, &outer);
    GetClientRect(handle_, &inner);
    GetMonitorInfoW(MonitorFromWindow(handle_, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& room = monitor.rcWork;
    const SIZE size{outer.right - outer.left, outer.bottom - outer.top};
    const auto most = [](int available, int frame, int content) {
        return content > 0 ? (available - frame) * 100 / content : 100;
    };
    const int fitting = std::min(most(room.right - room.left, size.cx - inner.right, inner.right),
                                 most(room.bottom - room.top, size.cy - inner.bottom, inner.bottom));
    textScale_ = std::clamp(fitting, 100, wantedTextScale());
    if (textScale_ == 100) return;
    const SIZE more{MulDiv(inner.right, textScale_ - 100, 100), MulDiv(inner.bottom, textScale_ - 100, 100)};
    // It grows to all sides, as far as the room goes.
    const int left = std::clamp(outer.left - more.cx / 2, room.left, room.right - size.cx - more.cx);
    const int top = std::clamp(outer.top - more.cy / 2, room.top, room.bottom - size.cy - more.cy);
    SetWindowPos(handle_, nullptr, left, top, size.cx + more.cx, size.cy + more.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    takeDpi(MulDiv(dpi_, textScale_, 100));
}

void Window::takeDpi(int dpi) {
    if (dpi <= 0 || dpi == dpi_) return;
    const HFONT font = scaledFont(handle_, firstDpi_, dpi);  // the dialog itself keeps its first font
    scaleControls(handle_, std::exchange(dpi_, dpi), dpi, font);
    if (font != nullptr) DeleteObject(std::exchange(font_, font));
    showIcon();
    for (const auto& [identifier, wrapper] : controls_) wrapper->rescaled();
    raise(onRescale);
    InvalidateRect(handle_, nullptr, TRUE);
}

/// The title bar's icon, where the module has one under the dialog's identifier. The system shares it and
/// frees it.
void Window::showIcon() {
    const int side = metric(SM_CXSMICON);
    const HANDLE icon = LoadImageW(screen_.instance(), MAKEINTRESOURCEW(templateIdentifier_), IMAGE_ICON,
                                   side, side, LR_SHARED);
    if (icon != nullptr) SendMessageW(handle_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}

}  // namespace win
