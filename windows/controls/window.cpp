#include "windows/controls/window.h"

#include <commctrl.h>
#include <richedit.h>
#include <uxtheme.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "ui/form.h"
#include "windows/controls/control_factory.h"
#include "windows/controls/dpi.h"
#include "windows/controls/screen.h"
#include "windows/controls/template_reader.h"
#include "windows/platform/desktop.h"
#include "windows/platform/messages.h"
#include "windows/platform/text.h"

namespace win {
namespace {

constexpr UINT MODAL_LOOP_RUNS = WM_APP + 1;
constexpr UINT MONITOR_CHANGED = 0x02E0;           // WM_DPICHANGED
constexpr UINT DPI_CHANGED_AFTER_PARENT = 0x02E3;  // WM_DPICHANGED_AFTERPARENT

/// What holds while a window runs modally: its owner is disabled, and gets activation and focus back.
class DisabledOwner {
public:
    explicit DisabledOwner(HWND window)
        : window_(window), owner_(GetWindow(window, GW_OWNER)), focus_(GetFocus()) {
        ReleaseCapture();
        // EnableWindow answers whether the window was disabled before.
        enableAgain_ = owner_ != nullptr && !EnableWindow(owner_, FALSE);
    }
    DisabledOwner(const DisabledOwner&) = delete;
    DisabledOwner& operator=(const DisabledOwner&) = delete;
    ~DisabledOwner() {
        // First the owner, then the window: else the system activates another program's window.
        if (enableAgain_) EnableWindow(owner_, TRUE);
        ShowWindow(window_, SW_HIDE);
        const bool takesKeys = IsWindowEnabled(focus_) && IsWindowEnabled(GetAncestor(focus_, GA_ROOT));
        if (IsWindowVisible(focus_) && takesKeys) SetFocus(focus_);
    }

private:
    HWND window_;
    HWND owner_;
    HWND focus_;
    bool enableAgain_;
};

}  // namespace

Window::Window(Screen& screen, Role role, int templateIdentifier, HWND parent, Window* owner)
    : screen_(screen), role_(role), templateIdentifier_(templateIdentifier), owner_(owner) {
    const Activation themed(screen_.context());
    if (usesClass(screen_.instance(), templateIdentifier, MSFTEDIT_CLASS)) screen_.loadRichEdit();
    // The procedure learns of this object from WM_INITDIALOG and sets handle_.
    if (CreateDialogParamW(screen_.instance(), MAKEINTRESOURCEW(templateIdentifier), parent, procedure,
                           reinterpret_cast<LPARAM>(this)) == nullptr)
        throwLastError();
    tooltips_ = std::make_unique<Tooltips>(screen_.context(), handle_);
    dpi_ = firstDpi_ = dpiOf(handle_);
    if (role_ == Role::dialog) {
        keepDialogScaling(handle_);
        enlargeForText();
    }
    showIcon();
    // A page lies on a tab and shows the tab's own background.
    if (role_ == Role::page) EnableThemeDialogTexture(handle_, ETDT_ENABLETAB);
    screen_.add(*this);
    noteDialog(handle_);
}

void Window::watchMessages(MessageWatch& watch) {
    hook(handle_, *this);
    watch_ = &watch;
}

Window::~Window() {
    open_ = false;
    screen_.remove(*this);
    for (Timer* timer : timers_) timer->forgetWindow();
    // From here on nobody hears what the system says to the window: controls that are being taken apart still
    // cause messages.
    if (handle_ != nullptr) SetWindowLongPtrW(handle_, DWLP_USER, 0);
    if (handle_ != nullptr && watch_ != nullptr) unhook(handle_);
    controls_.clear();
    tooltips_.reset();
    if (handle_ != nullptr) {
        forgetDialog(handle_);
        DestroyWindow(handle_);
    }
    if (font_ != nullptr) DeleteObject(font_);
}

INT_PTR CALLBACK Window::procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    try {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(handle, DWLP_USER, lParam);
            reinterpret_cast<Window*>(lParam)->handle_ = handle;
            return FALSE;  // the focus is set when the window is shown
        }
        auto* window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, DWLP_USER));
        if (window == nullptr) return FALSE;
        const auto answer = window->handle(message, wParam, lParam);
        if (!answer) return FALSE;
        // Brushes are answered directly, everything else through the dialog's own place for answers.
        if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) return *answer;
        SetWindowLongPtrW(handle, DWLP_MSGRESULT, *answer);
        return TRUE;
    } catch (...) {
        return FALSE;  // nothing may reach the system; a handler that fails has ended its event
    }
}

std::optional<LRESULT> Window::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: command(wParam, reinterpret_cast<HWND>(lParam)); return 0;
        case WM_TIMER: tick(wParam); return 0;
        case WM_SIZE: raise(onResize); return 0;
        case MONITOR_CHANGED:
            monitorChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return 0;
        case DPI_CHANGED_AFTER_PARENT:
            takeDpi(dpiOf(handle_));
            raise(onResize);
            return 0;
        case WM_CLOSE:
            // Controls of old habits send this to their parent; a page lives until its container ends it.
            if (role_ == Role::dialog) close();
            return 0;
        case WM_ERASEBKGND: return eraseBackground(reinterpret_cast<HDC>(wParam));
        case WM_SETCURSOR: return keepPointer() ? std::optional<LRESULT>(TRUE) : std::nullopt;
        case WM_SYSCOLORCHANGE: refreshColours(); return std::nullopt;
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE: tellColours(); return std::nullopt;
        case WM_NCDESTROY: vanished(); return std::nullopt;
        case MODAL_LOOP_RUNS: scripted(); return 0;
        case WM_HELP: return showHelp();
        case WM_SYSCOMMAND: return (wParam & 0xFFF0) == SC_CONTEXTHELP ? showHelp() : std::nullopt;
        default: return route(message, wParam, lParam);
    }
}

/// What goes to the wrapper of the control that says it.
std::optional<LRESULT> Window::route(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto wrapperOf = [this](HWND control) { return find(GetDlgCtrlID(control)); };
    switch (message) {
        case WM_NOTIFY: {
            auto& notification = *reinterpret_cast<NMHDR*>(lParam);
            ControlBase* wrapper = wrapperOf(notification.hwndFrom);
            if (wrapper == nullptr) wrapper = ownerOfTips(notification.hwndFrom);
            return wrapper ? wrapper->onNotify(notification) : std::nullopt;
        }
        case WM_DRAWITEM: {
            ControlBase* wrapper = find(static_cast<int>(wParam));
            if (wrapper && wrapper->onDrawItem(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam))) return TRUE;
            return std::nullopt;
        }
        case WM_HSCROLL:
        case WM_VSCROLL: {
            ControlBase* wrapper = lParam ? wrapperOf(reinterpret_cast<HWND>(lParam)) : nullptr;
            if (wrapper == nullptr) return std::nullopt;
            wrapper->onScroll(LOWORD(wParam));
            return 0;
        }
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN: return background(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
        default: return std::nullopt;
    }
}

std::optional<LRESULT> Window::background(HDC canvas, HWND control) {
    for (const auto& [identifier, wrapper] : controls_)
        if (const HBRUSH brush = wrapper->backgroundFor(canvas, control))
            return reinterpret_cast<LRESULT>(brush);
    return std::nullopt;
}

std::optional<LRESULT> Window::eraseBackground(HDC canvas) {
    for (const auto& [identifier, wrapper] : controls_)
        if (wrapper->paintBackground(canvas)) return TRUE;
    return std::nullopt;
}

/// Enter and Esc come as commands of the buttons that they press, whether or not there are such buttons and
/// they are enabled.
void Window::command(WPARAM wParam, HWND sender) {
    const int identifier = LOWORD(wParam);
    // Access keys and a focus left behind reach a control below a dialog, too.
    if (HIWORD(wParam) == BN_CLICKED && !IsWindowEnabled(GetAncestor(handle_, GA_ROOT))) return;
    const bool ofPart = sender != nullptr && GetDlgCtrlID(sender) != identifier;
    ControlBase* wrapper = find(ofPart ? GetDlgCtrlID(sender) : identifier);
    const bool takes = wrapper != nullptr && IsWindowEnabled(wrapper->window());
    if (ofPart) {
        if (takes) wrapper->onButton(identifier);
        return;
    }
    if (takes) wrapper->onCommand(HIWORD(wParam));
    if (identifier == IDCANCEL && role_ == Role::dialog && GetDlgItem(handle_, IDCANCEL) == nullptr) close();
}

void Window::tick(std::uintptr_t identifier) {
    const auto timer = std::ranges::find(timers_, identifier, &Timer::identifier);
    if (timer != timers_.end()) (*timer)->tick();
}

void Window::scripted() {
    if (form_ != nullptr && isOpen()) raise(screen_.onModal, *form_);
}

void Window::vanished() {
    // The container or the system has destroyed the window; a modal loop that runs for it must end.
    close();
    forgetDialog(handle_);
    handle_ = nullptr;
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

// --- Timers and sizes -------------------------------------------------------------------------------------

std::unique_ptr<ui::Timer> Window::createTimer() {
    auto timer = std::make_unique<Timer>(*this, ++lastTimer_);
    timers_.push_back(timer.get());
    return timer;
}

ui::Size Window::outerSize() const {
    RECT area{};
    GetWindowRect(handle_, &area);
    return {area.right - area.left, area.bottom - area.top};
}

void Window::setOuterSize(const ui::Size& size) {
    SetWindowPos(handle_, nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

ui::Size Window::innerSize() const {
    RECT area{};
    GetClientRect(handle_, &area);
    return {area.right, area.bottom};
}

// --- Modal showing ----------------------------------------------------------------------------------------

void Window::runModal(ui::Form& form, const std::function<void()>& load) {
    if (!isOpen() || screen_.isClosing()) return;
    // The container enables its windows again before the dialog hides, or the system would find none of them
    // to activate; so its modal state ends first and begins last.
    const DisabledOwner owner(handle_);
    const Screen::Modal running(screen_, *this);
    if (!isOpen()) return;
    load();
    if (!isOpen()) return;
    form_ = &form;
    show();
    PostMessageW(handle_, MODAL_LOOP_RUNS, 0, 0);
    pump();
    form_ = nullptr;
}

void Window::show() {
    ShowWindow(handle_, SW_SHOW);
    SetForegroundWindow(handle_);
    if (firstFocus_ != nullptr)
        moveFocus(handle_, firstFocus_);
    else
        SendMessageW(handle_, WM_NEXTDLGCTL,
                     reinterpret_cast<WPARAM>(GetNextDlgTabItem(handle_, nullptr, FALSE)), TRUE);
}

void Window::present() {
    if (!IsWindowVisible(handle_)) {
        ShowWindow(handle_, SW_SHOW);
        SetForegroundWindow(handle_);
    }
    RedrawWindow(handle_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void Window::pump() {
    MSG message;
    while (isOpen()) {
        const BOOL received = GetMessageW(&message, nullptr, 0, 0);
        if (received > 0) {
            dispatchToDialogs(message);
            continue;
        }
        close();
        // The thread is to end: the outer loops must see it, too.
        if (received == 0) PostQuitMessage(static_cast<int>(message.wParam));
    }
}

void Window::close() {
    if (!open_ || std::exchange(closing_, true)) return;
    screen_.closeDialogsOf(*this);
    // A menu of the window that is open would keep the modal loop from returning.
    if (handle_ != nullptr) SendMessageW(handle_, WM_CANCELMODE, 0, 0);
    try {
        raise(onQueryUnload);
    } catch (...) {
        // A form that fails to end itself is closed all the same.
    }
    open_ = false;
    // The modal loop may be waiting for a message.
    if (handle_ != nullptr) PostMessageW(handle_, WM_NULL, 0, 0);
}

bool Window::descendsFrom(const Window& other) const {
    for (const Window* owner = owner_; owner != nullptr; owner = owner->owner_)
        if (owner == &other) return true;
    return false;
}

void Window::forgetOwner(const Window& owner) {
    if (owner_ == &owner) owner_ = nullptr;
}

// --- Controls ---------------------------------------------------------------------------------------------

ui::Control& Window::bind(ui::Kind kind, int identifier) {
    if (ControlBase* bound = find(identifier)) return bound->asControl();
    const HWND control = GetDlgItem(handle_, identifier);
    if (control == nullptr) throw std::logic_error("no such control: " + std::to_string(identifier));
    // Only a finished wrapper is listed: while it is made, its control may already ask the window.
    auto wrapper = makeControl(kind, *this, control);
    return controls_.emplace(identifier, std::move(wrapper)).first->second->asControl();
}

ControlBase* Window::find(int identifier) const {
    const auto found = controls_.find(identifier);
    return found == controls_.end() ? nullptr : found->second.get();
}

ControlBase* Window::ownerOfTips(HWND tips) const {
    for (const auto& [identifier, wrapper] : controls_)
        if (tips != nullptr && wrapper->tipWindow() == tips) return wrapper.get();
    return nullptr;
}

void Window::setFocus(HWND control) {
    if (IsWindowVisible(handle_))
        moveFocus(handle_, control);
    else
        firstFocus_ = control;
}

void moveFocus(HWND dialog, HWND next) {
    if ((SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0)
        SetFocus(next);
    else
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
}

}  // namespace win
