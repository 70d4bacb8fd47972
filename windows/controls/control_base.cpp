#include "windows/controls/control_base.h"

#include <windowsx.h>

#include <utility>

#include "windows/controls/annotations.h"
#include "windows/controls/screen.h"
#include "windows/controls/window.h"

namespace win {
namespace {

int modifiersNow() {
    int modifiers = 0;
    if (GetKeyState(VK_SHIFT) < 0) modifiers += ui::modifier::shift;
    if (GetKeyState(VK_CONTROL) < 0) modifiers += ui::modifier::control;
    if (GetKeyState(VK_MENU) < 0) modifiers += ui::modifier::alt;
    return modifiers;
}

int heldButton(WPARAM keys) {
    if (keys & MK_LBUTTON) return 1;
    if (keys & MK_RBUTTON) return 2;
    return keys & MK_MBUTTON ? 4 : 0;
}

/// The button that goes down with a message; 0 where none does.
int pressedButton(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: return 1;
        case WM_RBUTTONDOWN: return 2;
        case WM_MBUTTONDOWN: return 4;
        default: return 0;
    }
}

}  // namespace

ControlBase::ControlBase(Window& window, HWND handle, ui::Control& control)
    : dialog_(window), handle_(handle), control_(control) {
    hook(handle_, *this);
}

ControlBase::~ControlBase() {
    forgetReaders();
    if (handle_ != nullptr) unhook(handle_);
}

MessageWatch* ControlBase::watch() const noexcept { return dialog_.watch(); }

std::optional<LRESULT> ControlBase::heard(UINT message, WPARAM wParam, LPARAM lParam) {
    const int button = pressedButton(message);
    if (button != 0 && mouseDownTaken(button, lParam)) return 0;
    if ((message == WM_KEYDOWN || message == WM_SYSKEYDOWN) && keyTaken(static_cast<int>(wParam))) return 0;
    if (message == WM_MOUSEMOVE) mouseMoved(wParam, lParam);
    if (message == WM_SETFOCUS) raise(control_.onGotFocus);
    if (message == WM_GETDLGCODE && lParam != 0 && dialog_.wantsKey(*reinterpret_cast<const MSG*>(lParam)))
        return DLGC_WANTMESSAGE;
    if (message == WM_KEYDOWN && dialog_.takeKey(wParam)) return 0;
    if (asksForObject(message, lParam)) answerReader();
    if (message == WM_DESTROY) forgetReaders();
    return onMessage(message, wParam, lParam);
}

bool ControlBase::mouseDownTaken(int button, LPARAM lParam) {
    ui::MouseEvent event{button, modifiersNow(), GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    raise(control_.onMouseDown, event);
    return event.button == 0;
}

void ControlBase::mouseMoved(WPARAM wParam, LPARAM lParam) {
    if (!tip_.empty() && !std::exchange(tipReady_, true)) {
        dialog_.tooltips().set(handle_, tip_);
        dialog_.tooltips().relay(handle_, WM_MOUSEMOVE, wParam, lParam);
    }
    ui::MouseEvent event{heldButton(wParam), modifiersNow(), GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    raise(control_.onMouseMove, event);
}

bool ControlBase::keyTaken(int key) {
    if (!control_.onKeyDown) return false;
    const HWND handle = handle_;
    ui::KeyEvent event{key, modifiersNow()};
    raise(control_.onKeyDown, event);
    if (event.key != 0) return false;
    // The characters that the key stands for are waiting already.
    MSG character;
    while (PeekMessageW(&character, handle, WM_CHAR, WM_DEADCHAR, PM_REMOVE)) continue;
    return true;
}

void ControlBase::enable(bool enabled) {
    if (enabled == isEnabled()) return;  // the system would tell the control all the same
    if (!enabled) leaveFocus();
    EnableWindow(handle_, enabled);
}

void ControlBase::show(bool visible) {
    if (!visible) leaveFocus();
    ShowWindow(handle_, visible ? SW_SHOWNA : SW_HIDE);
}

bool ControlBase::isFocused() const { return handle_ != nullptr && dialog_.focus() == handle_; }

void ControlBase::focus() {
    if (handle_ != nullptr && isEnabled() && isShown()) dialog_.setFocus(handle_);
}

/// A control that can no longer take keys must not keep the focus: the keyboard would be dead. A page whose
/// last stop it was gives the focus back to its host's dialog.
void ControlBase::leaveFocus() {
    if (handle_ == nullptr || GetFocus() != handle_) return;
    for (const HWND dialog : {dialog_.window(), GetAncestor(handle_, GA_ROOT)}) {
        const HWND next = GetNextDlgTabItem(dialog, handle_, FALSE);
        if (next == nullptr || next == handle_) continue;
        moveFocus(dialog, next);
        return;
    }
}

ui::Rect ControlBase::place() const {
    RECT area{};
    GetWindowRect(handle_, &area);
    MapWindowPoints(nullptr, GetParent(handle_), reinterpret_cast<POINT*>(&area), 2);
    return {area.left, area.top, area.right - area.left, area.bottom - area.top};
}

void ControlBase::placeAt(const ui::Rect& bounds) {
    if (bounds == place()) return;  // the system would have it laid out again
    SetWindowPos(handle_, nullptr, bounds.left, bounds.top, bounds.width, bounds.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlBase::setTip(const std::wstring& text) {
    tip_ = text;
    if (handle_ != nullptr && tipReady_) dialog_.tooltips().set(handle_, text);
}

// --- Screen readers ---------------------------------------------------------------------------------------

void ControlBase::describe(const std::wstring& text) {
    description_ = text;
    tellReaders();
}

void ControlBase::answerReader() {
    const Annotations::Words words{description_, accessibleValue(), isLive()};
    if (words.description.empty() && words.value.empty() && !words.live) return;
    annotated_ = dialog_.screen().annotations().tell(handle_, words);
}

void ControlBase::tellReaders() {
    if (!annotated_ || handle_ == nullptr) return;
    forgetReaders();
    answerReader();
    NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, handle_, OBJID_CLIENT, CHILDID_SELF);
}

void ControlBase::forgetReaders() noexcept {
    if (annotated_ && handle_ != nullptr) dialog_.screen().annotations().forget(handle_);
    annotated_ = false;
}

}  // namespace win
