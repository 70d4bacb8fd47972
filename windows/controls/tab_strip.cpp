#include "windows/controls/tab_strip.h"

#include <uxtheme.h>
#include <vssym32.h>

#include "windows/controls/window.h"

namespace win {

TabStrip::~TabStrip() { forgetInside(); }

std::optional<LRESULT> TabStrip::onNotify(NMHDR& notification) {
    if (notification.code != TCN_SELCHANGE) return std::nullopt;
    raise(onClick);
    return 0;
}

std::optional<LRESULT> TabStrip::onMessage(UINT message, WPARAM, LPARAM) {
    if (message == WM_THEMECHANGED || message == WM_SYSCOLORCHANGE) forgetInside();
    return std::nullopt;
}

void TabStrip::addTab(const std::wstring& caption) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(caption.c_str());
    send(TCM_INSERTITEMW, static_cast<WPARAM>(count()), reinterpret_cast<LPARAM>(&item));
}

std::wstring TabStrip::tabCaption(int index) const {
    wchar_t text[128] = L"";
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = static_cast<int>(std::size(text));
    send(TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return item.pszText;
}

void TabStrip::setCurrent(int index) {
    if (index < 0 || index >= count() || index == current()) return;
    send(TCM_SETCURSEL, static_cast<WPARAM>(index));
    raise(onClick);
}

// --- Background of the pages ------------------------------------------------------------------------------

HBRUSH TabStrip::backgroundFor(HDC canvas, HWND control) {
    if (control == window() || inside() == nullptr) return nullptr;
    const RECT area = insideArea();
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog().window(), reinterpret_cast<POINT*>(&place), 2);
    RECT common{};
    IntersectRect(&common, &area, &place);
    if (!EqualRect(&common, &place)) return nullptr;
    SetBkMode(canvas, TRANSPARENT);
    return inside();
}

bool TabStrip::paintBackground(HDC canvas) {
    if (inside() == nullptr) return false;
    RECT dialogArea{};
    GetClientRect(dialog().window(), &dialogArea);
    FillRect(canvas, &dialogArea, GetSysColorBrush(COLOR_BTNFACE));
    const RECT area = insideArea();
    FillRect(canvas, &area, inside());
    return true;
}

/// The pane without its border, in the dialog's coordinates.
RECT TabStrip::insideArea() const {
    RECT area{};
    GetClientRect(window(), &area);
    send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    MapWindowPoints(window(), dialog().window(), reinterpret_cast<POINT*>(&area), 2);
    return area;
}

HBRUSH TabStrip::inside() {
    if (inside_ != nullptr || !IsAppThemed()) return inside_;
    const HTHEME theme = OpenThemeData(window(), VSCLASS_TAB);
    if (theme == nullptr) return nullptr;
    // Themes fill the pane with one colour; a small one, painted aside, shows which.
    const RECT sample{0, 0, 32, 32};
    const HDC screen = GetDC(window());
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, sample.right, sample.bottom);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    FillRect(memory, &sample, GetSysColorBrush(COLOR_BTNFACE));
    DrawThemeBackground(theme, memory, TABP_PANE, 0, &sample, nullptr);
    const COLORREF colour = GetPixel(memory, sample.right / 2, sample.bottom / 2);
    if (colour != CLR_INVALID) inside_ = CreateSolidBrush(colour);
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window(), screen);
    CloseThemeData(theme);
    return inside_;
}

void TabStrip::forgetInside() {
    if (inside_ != nullptr) DeleteObject(inside_);
    inside_ = nullptr;
}

}  // namespace win
