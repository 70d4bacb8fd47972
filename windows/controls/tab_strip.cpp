#include "windows/controls/tab_strip.h"

#include <commctrl.h>
#include <uxtheme.h>

#include "windows/controls/window.h"

namespace win {

TabStrip::~TabStrip() { forgetBody(); }

std::optional<LRESULT> TabStrip::onNotify(NMHDR& notification) {
    if (notification.code != TCN_SELCHANGE) return std::nullopt;
    raise(onClick);
    return 0;
}

std::optional<LRESULT> TabStrip::onMessage(UINT message, WPARAM, LPARAM) {
    if (message == WM_SIZE || message == WM_THEMECHANGED || message == WM_SYSCOLORCHANGE) forgetBody();
    return std::nullopt;
}

void TabStrip::addTab(const std::wstring& caption) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(caption.c_str());
    send(TCM_INSERTITEMW, static_cast<WPARAM>(count()), reinterpret_cast<LPARAM>(&item));
}

int TabStrip::count() const { return static_cast<int>(send(TCM_GETITEMCOUNT)); }

std::wstring TabStrip::tabCaption(int index) const {
    wchar_t text[128] = L"";
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = static_cast<int>(std::size(text));
    send(TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return item.pszText;
}

int TabStrip::current() const { return static_cast<int>(send(TCM_GETCURSEL)); }

void TabStrip::setCurrent(int index) {
    if (index < 0 || index >= count() || index == current()) return;
    send(TCM_SETCURSEL, static_cast<WPARAM>(index));
    raise(onClick);
}

// --- Background of the pages ------------------------------------------------------------------------------

HBRUSH TabStrip::backgroundFor(HDC canvas, HWND control) {
    RECT area{};
    RECT place{};
    RECT common{};
    GetWindowRect(window(), &area);
    GetWindowRect(control, &place);
    IntersectRect(&common, &area, &place);
    if (!hasBody() || control == window() || !EqualRect(&common, &place)) return nullptr;
    SetBkMode(canvas, TRANSPARENT);
    SetBrushOrgEx(canvas, area.left - place.left, area.top - place.top, nullptr);
    return brush_;
}

bool TabStrip::paintBackground(HDC canvas) {
    if (!hasBody()) return false;
    RECT dialogArea{};
    GetClientRect(dialog().window(), &dialogArea);
    FillRect(canvas, &dialogArea, GetSysColorBrush(COLOR_BTNFACE));
    const ui::Rect area = place();
    const HDC memory = CreateCompatibleDC(canvas);
    const HGDIOBJ before = SelectObject(memory, body_);
    BitBlt(canvas, area.left, area.top, area.width, area.height, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
    return true;
}

bool TabStrip::hasBody() {
    if (!IsAppThemed()) return false;
    if (body_ == nullptr) paintBody();
    return body_ != nullptr;
}

void TabStrip::paintBody() {
    RECT area{};
    GetClientRect(window(), &area);
    const HDC screen = GetDC(window());
    const HDC memory = CreateCompatibleDC(screen);
    body_ = CreateCompatibleBitmap(screen, area.right, area.bottom);
    const HGDIOBJ before = SelectObject(memory, body_);
    FillRect(memory, &area, GetSysColorBrush(COLOR_BTNFACE));
    send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory), PRF_CLIENT | PRF_ERASEBKGND);
    SelectObject(memory, before);
    brush_ = CreatePatternBrush(body_);
    DeleteDC(memory);
    ReleaseDC(window(), screen);
}

void TabStrip::forgetBody() {
    if (brush_ != nullptr) DeleteObject(brush_);
    if (body_ != nullptr) DeleteObject(body_);
    brush_ = nullptr;
    body_ = nullptr;
}

}  // namespace win
