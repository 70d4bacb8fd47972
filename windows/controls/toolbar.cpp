#include "windows/controls/toolbar.h"

#include <algorithm>

#include "windows/controls/popup_menu.h"
#include "windows/controls/screen.h"
#include "windows/controls/window.h"

namespace win {
namespace {

using Type = ui::ToolbarButton::Type;

constexpr int GAP = 8;  // pixels at 96 DPI

BYTE styleOf(const ui::ToolbarButton& button) {
    const auto text = static_cast<BYTE>(button.caption.empty() ? 0 : BTNS_SHOWTEXT);
    switch (button.type) {
        case Type::push: return BTNS_AUTOSIZE | BTNS_BUTTON | text;
        case Type::check: return BTNS_AUTOSIZE | BTNS_CHECK | text;
        case Type::dropDown: return BTNS_AUTOSIZE | BTNS_WHOLEDROPDOWN | text;
        default: return BTNS_SEP;
    }
}

}  // namespace

Toolbar::Toolbar(Window& dialogWindow, HWND handle) : ControlOf(dialogWindow, handle) {
    send(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    // A button's text that is not shown is its accessible name. Without TBSTYLE_LIST in the template the
    // system would show every text.
    send(TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
}

// --- Buttons ----------------------------------------------------------------------------------------------

ToolbarImages& Toolbar::images() const {
    return dialog().screen().toolbarImages(dialog().metric(SM_CXSMICON));
}

void Toolbar::setButtons(std::vector<ui::ToolbarButton> buttons) {
    while (send(TB_DELETEBUTTON)) continue;
    buttons_ = std::move(buttons);
    std::vector<TBBUTTON> rows;
    for (const ui::ToolbarButton& source : buttons_)
        rows.push_back(rowOf(source, static_cast<int>(rows.size()) + 1));
    send(TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images().enabled()));
    send(TB_SETDISABLEDIMAGELIST, 0, reinterpret_cast<LPARAM>(images().disabled()));
    send(TB_ADDBUTTONSW, rows.size(), reinterpret_cast<LPARAM>(rows.data()));
}

TBBUTTON Toolbar::rowOf(const ui::ToolbarButton& source, int index) const {
    TBBUTTON row{};
    const bool gap = source.type == Type::separator || source.type == Type::placeholder;
    row.iBitmap = gap ? MulDiv(GAP, dialog().dpi(), USER_DEFAULT_SCREEN_DPI) : I_IMAGENONE;
    if (source.icon != 0) row.iBitmap = images().place(source.icon);
    row.idCommand = index;
    row.fsState = TBSTATE_ENABLED;
    row.fsStyle = styleOf(source);
    const std::wstring& name = source.caption.empty() ? source.tooltip : source.caption;
    if (!gap) row.iString = reinterpret_cast<INT_PTR>(name.c_str());
    return row;
}

void Toolbar::coloursChanged() {
    images().followColours();
    InvalidateRect(window(), nullptr, TRUE);
}

/// Buttons, gaps and pictures of the new size, in the state that they had.
void Toolbar::rescaled() {
    std::vector<LRESULT> states;
    for (int index = 1; index <= count(); ++index)
        states.push_back(send(TB_GETSTATE, static_cast<WPARAM>(index)));
    setButtons(std::vector<ui::ToolbarButton>(buttons_));
    for (int index = 1; index <= count(); ++index)
        send(TB_SETSTATE, static_cast<WPARAM>(index), states[static_cast<std::size_t>(index) - 1]);
}

const ui::ToolbarButton& Toolbar::button(int index) const {
    return buttons_.at(static_cast<std::size_t>(index) - 1);
}

bool Toolbar::pressed(int index) const {
    return button(index).type == Type::check && send(TB_ISBUTTONCHECKED, static_cast<WPARAM>(index)) != 0;
}

void Toolbar::setPressed(int index, bool pressed) {
    if (button(index).type == Type::check)
        send(TB_CHECKBUTTON, static_cast<WPARAM>(index), MAKELPARAM(pressed, 0));
}

bool Toolbar::buttonEnabled(int index) const {
    static_cast<void>(button(index));  // an index out of range throws
    return send(TB_ISBUTTONENABLED, static_cast<WPARAM>(index)) != 0;
}

void Toolbar::setButtonEnabled(int index, bool enabled) {
    if (buttonEnabled(index) == enabled) return;  // the system would draw it again
    send(TB_ENABLEBUTTON, static_cast<WPARAM>(index), MAKELPARAM(enabled, 0));
}

ui::Rect Toolbar::buttonBounds(int index) const {
    static_cast<void>(button(index));
    RECT area{};
    send(TB_GETITEMRECT, static_cast<WPARAM>(index) - 1, reinterpret_cast<LPARAM>(&area));
    return {area.left, area.top, area.right - area.left, area.bottom - area.top};
}

void Toolbar::setButtonWidth(int index, int width) {
    static_cast<void>(button(index));
    TBBUTTONINFOW info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_SIZE;
    info.cx = static_cast<WORD>(width);
    send(TB_SETBUTTONINFOW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&info));
}

// --- What the user does -----------------------------------------------------------------------------------

std::optional<LRESULT> Toolbar::onNotify(NMHDR& notification) {
    switch (notification.code) {
        case TBN_DROPDOWN:
            openMenu(reinterpret_cast<const NMTOOLBARW&>(notification).iItem);
            return TBDDRET_DEFAULT;
        case TBN_GETINFOTIPW: tellTip(notification); return 0;
        // Asked in place of the other for a button whose text is shown.
        case TTN_GETDISPINFOW: tellTip(reinterpret_cast<NMTTDISPINFOW&>(notification)); return 0;
        default: return std::nullopt;
    }
}

void Toolbar::tellTip(NMHDR& notification) const {
    auto& tip = reinterpret_cast<NMTBGETINFOTIPW&>(notification);
    if (tip.iItem < 1 || tip.iItem > count() || tip.cchTextMax < 1) return;
    const std::wstring& text = button(tip.iItem).tooltip;
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(tip.cchTextMax) - 1);
    std::copy_n(text.begin(), length, tip.pszText);
    tip.pszText[length] = L'\0';
}

void Toolbar::tellTip(NMTTDISPINFOW& tip) {
    const int index = static_cast<int>(tip.hdr.idFrom);
    if (index >= 1 && index <= count())
        tip.lpszText = buttons_[static_cast<std::size_t>(index) - 1].tooltip.data();
}

void Toolbar::openMenu(int index) {
    if (!canBePressed(index)) return;
    RECT area{};
    send(TB_GETITEMRECT, static_cast<WPARAM>(index) - 1, reinterpret_cast<LPARAM>(&area));
    MapWindowPoints(window(), nullptr, reinterpret_cast<POINT*>(&area), 2);
    const std::vector<ui::ToolbarMenuEntry>& entries = button(index).menu;
    std::vector<std::wstring> texts;
    for (const ui::ToolbarMenuEntry& entry : entries) texts.push_back(entry.text);
    const int chosen = PopupMenu(texts).ask(dialog().window(), area);
    if (chosen > 0) raise(onMenuClick, std::wstring(entries[static_cast<std::size_t>(chosen) - 1].key));
}

// --- Keyboard ---------------------------------------------------------------------------------------------

std::optional<LRESULT> Toolbar::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE: {
            const auto* asked = reinterpret_cast<const MSG*>(lParam);
            const bool enter = asked && asked->message == WM_KEYDOWN && asked->wParam == VK_RETURN;
            return DLGC_WANTARROWS | (enter ? DLGC_WANTMESSAGE : 0);
        }
        case WM_SETFOCUS: showHot(); return 0;
        case WM_KILLFOCUS: send(TB_SETHOTITEM, static_cast<WPARAM>(-1)); return 0;
        case WM_KEYDOWN: return takeKey(wParam) ? std::optional<LRESULT>(0) : std::nullopt;
        default: return std::nullopt;
    }
}

bool Toolbar::canBePressed(int index) const {
    if (index < 1 || index > count()) return false;
    const Type type = button(index).type;
    return buttonEnabled(index) && type != Type::separator && type != Type::placeholder;
}

void Toolbar::showHot() {
    if (!canBePressed(hot_)) hot_ = 0;
    if (hot_ == 0) moveHot(1);
    send(TB_SETHOTITEM, static_cast<WPARAM>(hot_) - 1);
}

void Toolbar::moveHot(int step) {
    for (int index = hot_ + step; index >= 1 && index <= count(); index += step)
        if (canBePressed(index)) {
            hot_ = index;
            send(TB_SETHOTITEM, static_cast<WPARAM>(hot_) - 1);
            return;
        }
}

void Toolbar::pressHot() {
    if (!canBePressed(hot_)) return;
    const Type type = button(hot_).type;
    if (type == Type::dropDown) return openMenu(hot_);
    if (type == Type::check) setPressed(hot_, !pressed(hot_));
    raise(onButtonClick, hot_);
}

bool Toolbar::takeKey(WPARAM key) {
    switch (key) {
        case VK_LEFT: moveHot(-1); return true;
        case VK_RIGHT: moveHot(1); return true;
        case VK_SPACE:
        case VK_RETURN: pressHot(); return true;
        case VK_DOWN:
            if (canBePressed(hot_) && button(hot_).type == Type::dropDown) openMenu(hot_);
            return true;
        default: return false;
    }
}

}  // namespace win
