#include "windows/controls/swatch.h"

namespace win {
namespace {

constexpr COLORREF BLACK = RGB(0, 0, 0);
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

/// Halfway between two colours.
COLORREF between(COLORREF one, COLORREF other) {
    const auto middle = [](int a, int b) { return (a + b) / 2; };
    return RGB(middle(GetRValue(one), GetRValue(other)), middle(GetGValue(one), GetGValue(other)),
               middle(GetBValue(one), GetBValue(other)));
}

/// Black or white, whichever stands out more from `background`. The eye's sense of brightness goes about with
/// the square of a colour's parts; the bound is where black and white contrast alike.
COLORREF readableOn(COLORREF background) {
    const auto square = [](int part) { return part * part; };
    const int brightness = (2126 * square(GetRValue(background)) + 7152 * square(GetGValue(background)) +
                            722 * square(GetBValue(background))) /
                           (255 * 255);
    return brightness >= 1800 ? BLACK : WHITE;
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

Swatch::Swatch(Window& window, HWND handle) : ControlOf(window, handle), caption_(windowText()) {}

void Swatch::onCommand(int code) {
    // The second press of a double click comes under a code of its own.
    if (code == BN_CLICKED || code == BN_DOUBLECLICKED) raise(onClick);
}

void Swatch::setText(const std::wstring& text) {
    caption_ = text;
    nameWindow();
}

void Swatch::setTooltip(const std::wstring& text) {
    ControlOf::setTooltip(text);
    nameWindow();
}

/// Screen readers tell the window's text: without a caption it is the tooltip.
void Swatch::nameWindow() {
    SetWindowTextW(window(), (caption_.empty() ? tip() : caption_).c_str());
    InvalidateRect(window(), nullptr, FALSE);
}

void Swatch::setColour(ui::Colour colour) {
    colour_ = colour;
    InvalidateRect(window(), nullptr, FALSE);
}

bool Swatch::onDrawItem(const DRAWITEMSTRUCT& item) {
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    const auto shown = static_cast<COLORREF>(colour_) & WHITE;
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const COLORREF ground = disabled ? between(shown, face) : shown;

    RECT area = item.rcItem;
    outline(item.hDC, area, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
    InflateRect(&area, -1, -1);
    // A rim in the dialog's own colour keeps the edge visible around any colour; it goes when pressed.
    if (!pressed) {
        outline(item.hDC, area, face);
        InflateRect(&area, -1, -1);
    }
    fill(item.hDC, area, ground);
    drawCaption(item, caption_, area, disabled ? GetSysColor(COLOR_GRAYTEXT) : readableOn(ground));
    if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT)) {
        InflateRect(&area, -2, -2);
        SetTextColor(item.hDC, readableOn(ground));
        SetBkColor(item.hDC, ground);
        DrawFocusRect(item.hDC, &area);
    }
    return true;
}

}  // namespace win
