#include "windows/controls/tab_strip.h"

#include <commctrl.h>
#include <uxtheme.h>

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
    if (!IsAppThemed() || !IntersectRect(&common, &area, &place) || !EqualRect(&common, &place))
        return nullptr;
    if (body_ == nullptr) paintBody();
    SetBkMode(canvas, TRANSPARENT);
    SetBrushOrgEx(canvas, area.left - place.left, area.top - place.top, nullptr);
    return body_;
}

void TabStrip::paintBody() {
    RECT area{};
    GetClientRect(window(), &area);
    const HDC screen = GetDC(window());
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP picture = CreateCompatibleBitmap(screen, area.right, area.bottom);
    const HGDIOBJ before = SelectObject(memory, picture);
    FillRect(memory, &area, GetSysColorBrush(COLOR_BTNFACE));
    send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory), PRF_CLIENT | PRF_ERASEBKGND);
    SelectObject(memory, before);
    body_ = CreatePatternBrush(picture);
    DeleteObject(picture);
    DeleteDC(memory);
    ReleaseDC(window(), screen);
}

void TabStrip::forgetBody() {
    if (body_ != nullptr) DeleteObject(body_);
    body_ = nullptr;
}

}  // namespace win
