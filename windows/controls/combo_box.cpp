#include "windows/controls/combo_box.h"

#include <algorithm>
#include <utility>

#include "windows/controls/strokes.h"
#include "windows/controls/window.h"

namespace win {
namespace {

constexpr int MOST_SHOWN_ITEMS = 12;

}  // namespace

void ComboBox::onCommand(int code) {
    switch (code) {
        case CBN_DROPDOWN:
            told_ = NO_ENTRY;
            widenList();
            break;
        // The entry that is shown already can be chosen, too: then the selection does not change.
        case CBN_SELENDOK:
        case CBN_SELCHANGE: tellChoice(); break;
        default: break;
    }
}

/// The system tells of one choice once or twice.
void ComboBox::tellChoice() {
    const int chosen = selectedIndex();
    if (std::exchange(told_, chosen) != chosen) raise(onClick);
}

/// Long items are seen whole in the list, as far as the screen reaches.
void ComboBox::widenList() {
    const int rim = 2 * dialog().metric(SM_CXVSCROLL);
    const int most = GetSystemMetrics(SM_CXSCREEN) / 2;
    send(CB_SETDROPPEDWIDTH,
         static_cast<WPARAM>(std::clamp(longestItem() + rim, place().width, std::max(most, place().width))));
}

int ComboBox::longestItem() const {
    const HDC context = GetDC(window());
    const HGDIOBJ before = SelectObject(context, reinterpret_cast<HFONT>(send(WM_GETFONT)));
    LONG longest = 0;
    for (int index = 0; index < count(); ++index) {
        const std::wstring text = item(index);
        SIZE size{};
        GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
        longest = std::max(longest, size.cx);
    }
    SelectObject(context, before);
    ReleaseDC(window(), context);
    return longest;
}

void ComboBox::move(const ui::Rect& bounds) {
    const ui::Rect before = place();
    if (bounds.width == before.width && bounds.height == before.height) {
        // A box that only moves keeps its list; with a size the system would lay out both anew.
        SetWindowPos(window(), nullptr, bounds.left, bounds.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        return;
    }
    // The height that the system wants is that of the box with its list dropped down.
    const int list = static_cast<int>(send(CB_GETITEMHEIGHT)) * MOST_SHOWN_ITEMS;
    ControlOf::move({bounds.left, bounds.top, bounds.width, bounds.height + list});
}

void ComboBox::add(const std::wstring& item) {
    send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
}

std::wstring ComboBox::item(int index) const {
    const LRESULT length = send(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length == CB_ERR) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void ComboBox::select(int index) {
    const bool inRange = index >= 0 && index < count();
    told_ = NO_ENTRY;
    send(CB_SETCURSEL, inRange ? static_cast<WPARAM>(index) : static_cast<WPARAM>(-1));
}

bool ComboBox::pointerInside() const {
    POINT pointer{};
    RECT area{};
    GetCursorPos(&pointer);
    ScreenToClient(window(), &pointer);
    GetClientRect(window(), &area);
    return PtInRect(&area, pointer) != FALSE;
}

void ComboBox::draw(const ui::Strokes& strokes) {
    const HDC context = GetDC(window());
    if (context == nullptr) return;
    drawStrokes(context, strokes);
    ReleaseDC(window(), context);
}

}  // namespace win
