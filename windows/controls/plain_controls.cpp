#include "windows/controls/plain_controls.h"

#include "windows/controls/screen.h"
#include "windows/controls/window.h"

namespace win {
namespace {

bool isOption(HWND control) {
    const auto code = static_cast<UINT>(SendMessageW(control, WM_GETDLGCODE, 0, 0));
    return (code & DLGC_RADIOBUTTON) != 0;
}

bool startsGroup(HWND control) { return (GetWindowLongW(control, GWL_STYLE) & WS_GROUP) != 0; }

/// The options of the template's group around `option`, also the disabled and hidden ones.
std::vector<HWND> groupOf(HWND option) {
    HWND first = option;
    while (!startsGroup(first)) {
        const HWND before = GetWindow(first, GW_HWNDPREV);
        if (before == nullptr) break;
        first = before;
    }
    std::vector<HWND> group;
    for (HWND member = first; member != nullptr; member = GetWindow(member, GW_HWNDNEXT)) {
        if (member != first && startsGroup(member)) break;
        if (isOption(member)) group.push_back(member);
    }
    return group;
}

bool isChecked(HWND button) { return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED; }

void check(HWND button, bool checked) {
    SendMessageW(button, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

}  // namespace

// --- Label ------------------------------------------------------------------------------------------------

void Label::announce() {
    constexpr DWORD LIVE_REGION_CHANGED = 0x8019;
    live_ = true;
    NotifyWinEvent(LIVE_REGION_CHANGED, window(), OBJID_CLIENT, CHILDID_SELF);
}

// --- Button -----------------------------------------------------------------------------------------------

Button::Button(Window& window, HWND handle) : Captioned(window, handle) {
    if (isShown()) showIcon();
}

std::optional<LRESULT> Button::onMessage(UINT message, WPARAM wParam, LPARAM) {
    // A button of a page that nobody opens needs no icon.
    if (message == WM_SHOWWINDOW && wParam != FALSE) showIcon();
    return std::nullopt;
}

void Button::showIcon() {
    if ((style() & BS_ICON) == 0 || send(BM_GETIMAGE, IMAGE_ICON) != 0) return;
    const HICON icon = dialog().screen().icons().glyph(GetDlgCtrlID(window()), dialog().metric(SM_CXSMICON),
                                                       GetSysColor(COLOR_BTNTEXT));
    send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon));
}

void Button::drawIconAnew() {
    if (send(BM_SETIMAGE, IMAGE_ICON, 0) != 0) showIcon();
}

void Button::nameWindow() {
    const bool picture = (style() & (BS_ICON | BS_BITMAP)) != 0;
    const std::wstring& name = picture && caption().empty() ? tip() : caption();
    SetWindowTextW(window(), name.c_str());
}

// --- Check box --------------------------------------------------------------------------------------------

bool CheckBox::checked() const { return isChecked(window()); }

void CheckBox::setChecked(bool checked) {
    if (checked == isChecked(window())) return;
    check(window(), checked);
    raise(onClick);
}

// --- Option -----------------------------------------------------------------------------------------------

OptionButton::OptionButton(Window& window, HWND handle)
    : ControlOf(window, handle), known_(isChecked(handle)) {
    // Getting the focus alone must not select: a dialog may open with no option selected.
    send(BM_SETDONTCLICK, TRUE);
}

void OptionButton::onCommand(int code) {
    if (code != BN_CLICKED) return;
    const bool news = !known_ && selected();
    note(groupOf(window()));
    if (news) raise(onClick);
}

bool OptionButton::selected() const { return isChecked(window()); }

void OptionButton::setSelected(bool selected) {
    if (selected == isChecked(window())) return;
    const std::vector<HWND> group = groupOf(window());
    if (selected)
        for (HWND member : group) check(member, member == window());
    else
        check(window(), false);
    note(group);
    if (selected) raise(onClick);
}

void OptionButton::note(const std::vector<HWND>& group) {
    for (HWND member : group)
        if (auto* wrapper = dynamic_cast<OptionButton*>(dialog().find(GetDlgCtrlID(member))))
            wrapper->known_ = isChecked(member);
}

}  // namespace win
