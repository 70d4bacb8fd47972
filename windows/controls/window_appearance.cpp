// How a window follows the system's colours and the resolution of its monitor.
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
    takeDpi(dpi);
    SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    resized();
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
