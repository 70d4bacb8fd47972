#include "windows/controls/dpi.h"

#include <algorithm>
#include <vector>

namespace win {
namespace {

/// A function of user32 that older systems lack; null there.
template <class Function>
Function userFunction(const char* name) noexcept {
    const HMODULE user = GetModuleHandleW(L"user32.dll");
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(user, name)));
}

/// DPI_HOSTING_BEHAVIOR: what it was before, negative where the system has none.
int setHostingBehaviour(int behaviour) noexcept {
    static const auto set = userFunction<int(WINAPI*)(int)>("SetThreadDpiHostingBehavior");
    return set != nullptr ? set(behaviour) : -1;
}

BOOL CALLBACK noteChild(HWND child, LPARAM list) noexcept {
    try {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
    } catch (...) {
        return FALSE;
    }
}

/// The dialog's own controls; parts of a control are the control's business.
std::vector<HWND> controlsOf(HWND window) noexcept {
    std::vector<HWND> all;
    EnumChildWindows(window, noteChild, reinterpret_cast<LPARAM>(&all));
    std::erase_if(all, [&](HWND child) { return GetParent(child) != window; });
    return all;
}

/// A combo's height is that of the box with its list.
int heightOf(HWND control, const RECT& place) noexcept {
    RECT dropped{};
    if (SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped)) != 0)
        return dropped.bottom - dropped.top;
    return place.bottom - place.top;
}

void scaleControl(HWND control, int from, int to, HFONT font) noexcept {
    RECT place{};
    GetWindowRect(control, &place);
    const int height = heightOf(control, place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    const auto scaled = [=](int pixels) { return MulDiv(pixels, to, from); };
    if (font != nullptr) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    SetWindowPos(control, nullptr, scaled(place.left), scaled(place.top),
                 scaled(place.right) - scaled(place.left), scaled(height),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
}

}  // namespace

int systemDpi() noexcept {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

int dpiOf(HWND window) noexcept {
    static const auto ask = userFunction<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
    const int dpi = ask != nullptr ? static_cast<int>(ask(window)) : 0;
    return dpi > 0 ? dpi : systemDpi();
}

int wantedTextScale() noexcept {
    DWORD percent = 0;
    DWORD size = sizeof percent;
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Accessibility",
                                        L"TextScaleFactor", RRF_RT_REG_DWORD, nullptr, &percent, &size);
    return status == ERROR_SUCCESS ? static_cast<int>(std::clamp<DWORD>(percent, 100, 225)) : 100;
}

int systemMetric(int index, int dpi) noexcept {
    static const auto ask = userFunction<int(WINAPI*)(int, UINT)>("GetSystemMetricsForDpi");
    if (ask != nullptr) return ask(index, static_cast<UINT>(dpi));
    return MulDiv(GetSystemMetrics(index), dpi, systemDpi());
}

void keepDialogScaling(HWND dialog) noexcept {
    constexpr int EVERYTHING = 7;  // DDC_DISABLE_ALL, _RESIZE and _CONTROL_RELAYOUT
    static const auto tell = userFunction<BOOL(WINAPI*)(HWND, int, int)>("SetDialogDpiChangeBehavior");
    if (tell != nullptr) tell(dialog, EVERYTHING, EVERYTHING);
}

MixedResolutions::MixedResolutions() noexcept : before_(setHostingBehaviour(1)) {}

MixedResolutions::~MixedResolutions() {
    if (before_ >= 0) setHostingBehaviour(before_);
}

void scaleControls(HWND window, int from, int to, HFONT font) noexcept {
    for (const HWND control : controlsOf(window)) scaleControl(control, from, to, font);
}

HFONT scaledFont(HWND window, int from, int to) noexcept {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    LOGFONTW description{};
    if (GetObjectW(font, sizeof description, &description) == 0) return nullptr;
    description.lfHeight = MulDiv(description.lfHeight, to, from);
    return CreateFontIndirectW(&description);
}

}  // namespace win
