#include "windows/controls/swatch.h"

#include <iterator>

#include "ui/contrast.h"

namespace win {
namespace {

constexpr COLORREF WHITE = RGB(255, 255, 255);

/// Fills with a colour for the time of one call.
void fill(HDC canvas, const RECT& area, COLORREF colour) {
    SetDCBrushColor(canvas, colour);
    FillRect(canvas, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void outline(HDC canvas, const RECT& area, COLORREF colour) {
    SetDCBrushColor(canvas, colour);
    FrameRect(canvas, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void drawCaption(const DRAWITEMSTRUCT& item, const std::wstring& caption, RECT area, COLORREF colour) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(item.hwndItem, WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(item.hDC, font);
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, colour);
    UINT format = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
    if (item.itemState & ODS_NOACCEL) format |= DT_HIDEPREFIX;
    DrawTextW(item.hDC, caption.c_str(), -1, &area, format);
    SelectObject(item.hDC, before);
}

}  // namespace

void Swatch::onCommand(int code) {
    // The second press of a double click comes under a code of its own.
    if (code == BN_CLICKED || code == BN_DOUBLECLICKED) raise(onClick);
}

void Swatch::nameWindow() {
    SetWindowTextW(window(), name().c_str());
    InvalidateRect(window(), nullptr, FALSE);
}

/// Screen readers tell the window's text: without a caption it is that of the label before the swatch, else
/// the tooltip.
std::wstring Swatch::name() const {
    if (!caption().empty()) return caption();
    const HWND before = GetWindow(window(), GW_HWNDPREV);
    wchar_t label[100] = L"";
    const bool isText = (SendMessageW(before, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) != 0;
    if (isText) GetWindowTextW(before, label, static_cast<int>(std::size(label)));
    return label[0] != L'\0' ? label : tip();
}

void Swatch::setColour(ui::Colour colour) {
    colour_ = colour;
    InvalidateRect(window(), nullptr, FALSE);
    tellReaders();
}

std::wstring Swatch::accessibleValue() const {
    const auto part = [this](int shift) { return std::to_wstring(colour_ >> shift & 0xFF); };
    return L"Red " + part(0) + L", green " + part(8) + L", blue " + part(16);
}

/// Enter would press the dialog's default button: a control that draws itself is none that it takes for one.
std::optional<LRESULT> Swatch::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr LPARAM REPEATED = 1 << 30;
    if (message == WM_GETDLGCODE && lParam != 0) {
        const auto& asked = *reinterpret_cast<const MSG*>(lParam);
        const bool enter =
            (asked.message == WM_KEYDOWN || asked.message == WM_CHAR) && asked.wParam == VK_RETURN;
        if (enter) return DLGC_BUTTON | DLGC_WANTMESSAGE;
    }
    if (message != WM_KEYDOWN || wParam != VK_RETURN) return std::nullopt;
    if ((lParam & REPEATED) == 0) raise(onClick);
    return 0;
}

bool Swatch::onDrawItem(const DRAWITEMSTRUCT& item) {
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    const auto shown = static_cast<COLORREF>(colour_) & WHITE;

    // The colour is the setting, disabled or not: only the frame and the caption tell.
    RECT area = item.rcItem;
    outline(item.hDC, area, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
    InflateRect(&area, -1, -1);
    // A rim in the dialog's own colour keeps the edge visible around any colour; it goes when pressed.
    if (!pressed) {
        outline(item.hDC, area, GetSysColor(COLOR_BTNFACE));
        InflateRect(&area, -1, -1);
    }
    fill(item.hDC, area, shown);
    const ui::Colour ink = disabled ? ui::disabledCaptionOn(colour_) : ui::captionOn(colour_);
    drawCaption(item, caption(), area, static_cast<COLORREF>(ink));
    if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT)) {
        InflateRect(&area, -2, -2);
        SetTextColor(item.hDC, static_cast<COLORREF>(ink));
        SetBkColor(item.hDC, shown);
        DrawFocusRect(item.hDC, &area);
    }
    return true;
}

}  // namespace win
