#include "windows/com/in_place.h"

#include <algorithm>

#include "common/guarded.h"
#include "windows/com/boundary.h"
#include "windows/com/keyboard.h"
#include "windows/com/names.h"

namespace com {
namespace {

/// A rectangle that may be inside out counts as empty.
RECT proper(const RECT& rectangle) {
    RECT result = rectangle;
    result.right = std::max(result.left, result.right);
    result.bottom = std::max(result.top, result.bottom);
    return result;
}

/// Containers may leave calls out; only an explicit no is one.
void unlessRefused(HRESULT answer) {
    if (answer == S_FALSE) throw Failure(E_FAIL);
    if (answer != E_NOTIMPL) check(answer);
}

HRESULT tellActivated(const Ptr<IOleInPlaceSite>& site) {
    const auto newer = site.as<IOleInPlaceSiteEx>();
    if (!newer) return site->OnInPlaceActivate();
    BOOL needsNoRedraw = FALSE;
    return newer->OnInPlaceActivateEx(&needsNoRedraw, 0);
}

}  // namespace

InPlace::InPlace(IUnknown& whole, Container& container, PageHost& page)
    : Part(whole), container_(container), page_(page) {
    page_.onFocus = [this](bool entered) { focusMoved(entered); };
    page_.onModal = [this](bool runs) { enableModeless(!runs); };
}

STDMETHODIMP InPlace::GetWindow(HWND* window) noexcept {
    if (window == nullptr) return E_POINTER;
    *window = frame_ ? frame_->handle() : nullptr;
    return *window != nullptr ? S_OK : E_FAIL;
}

// --- Activation -------------------------------------------------------------------------------------------

void InPlace::activate(HWND parent, const RECT* place_) {
    if (isActive()) {
        ShowWindow(frame_->handle(), SW_SHOWNA);
        return;
    }
    site_ = container_.site().as<IOleInPlaceSite>();
    if (!site_) throw Failure(E_FAIL);
    bool told = false;
    try {
        unlessRefused(site_->CanInPlaceActivate());
        unlessRefused(tellActivated(site_));
        told = true;
        RECT position = place_ ? *place_ : RECT{0, 0, page_.naturalSize().cx, page_.naturalSize().cy};
        RECT clip = position;
        frame_ = std::make_unique<HostWindow>(requestPlace(parent, position, clip));
        frame_->onLost = [this] { frameLost(); };
        place(position, clip);
        followUiDead();
        ShowWindow(frame_->handle(), SW_SHOWNA);
    } catch (...) {
        frame_.reset();
        const auto site = site_;
        forgetContainerWindows();
        if (told) site->OnInPlaceDeactivate();
        throw;
    }
}

/// The container's window; asks for the page's place in it, too. Throws Failure where there is no window.
HWND InPlace::requestPlace(HWND parent, RECT& position, RECT& clip) {
    HWND told = nullptr;
    if (SUCCEEDED(site_->GetWindow(&told)) && told != nullptr) parent = told;
    OLEINPLACEFRAMEINFO information{};
    information.cb = sizeof information;
    RECT toldPosition{};
    RECT toldClip{};
    if (SUCCEEDED(site_->GetWindowContext(frameSite_.out(), documentSite_.out(), &toldPosition, &toldClip,
                                          &information))) {
        position = toldPosition;
        clip = toldClip;
    }
    if (parent == nullptr) throw Failure(E_FAIL);
    return parent;
}

/// The frame takes the visible part of `position`; the page keeps its whole size inside.
void InPlace::place(const RECT& position, const RECT& clip) {
    const RECT whole = proper(position);
    RECT visible{};
    if (!IntersectRect(&visible, &whole, &clip)) visible = {whole.left, whole.top, whole.left, whole.top};
    SetWindowPos(frame_->handle(), nullptr, visible.left, visible.top, visible.right - visible.left,
                 visible.bottom - visible.top, SWP_NOZORDER | SWP_NOACTIVATE);
    RECT inner = whole;
    OffsetRect(&inner, -visible.left, -visible.top);
    page_.moveInto(frame_->handle(), inner);
}

STDMETHODIMP InPlace::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept {
    return atBoundary([&] {
        const RECT& wanted = required(position);
        if (!isActive()) return E_UNEXPECTED;
        place(wanted, clip ? *clip : wanted);
        return S_OK;
    });
}

void InPlace::hide() noexcept {
    deactivateUi();
    if (isActive()) ShowWindow(frame_->handle(), SW_HIDE);
}

STDMETHODIMP InPlace::InPlaceDeactivate() noexcept {
    deactivate();
    return S_OK;
}

void InPlace::deactivate() noexcept {
    if (!isActive()) return;
    deactivateUi();
    if (!isActive()) return;  // the container took the page away while it was told
    page_.park();
    const auto ended = std::move(frame_);
    const auto site = site_;
    forgetContainerWindows();
    site->OnInPlaceDeactivate();
}

/// The container's window goes without a word to the control: so does the activation.
void InPlace::frameLost() noexcept {
    // With its window the container may let go of the control.
    const Ptr<IUnknown> self(&whole());
    page_.cancelDialogs();
    page_.park();
    uiActive_ = false;
    focusTold_ = false;
    frame_.reset();
    forgetContainerWindows();
}

void InPlace::forgetContainerWindows() noexcept {
    enableModeless(true);
    documentSite_.reset();
    frameSite_.reset();
    site_.reset();
}

void InPlace::followUiDead() const {
    if (isActive()) EnableWindow(frame_->handle(), !container_.isDead());
}

void InPlace::repaint() const {
    if (isActive())
        RedrawWindow(frame_->handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// --- The active object ------------------------------------------------------------------------------------

void InPlace::activateUi() {
    if (!isActive()) return;
    becomeUiActive();
    const HWND focus = GetFocus();
    if (page_.isOpen() && !IsChild(page_.window(), focus)) focusOutermostStop(page_.window());
    if (uiActive_) tellFocus(true);
}

void InPlace::becomeUiActive() {
    if (uiActive_) return;
    // Set first: the container may set the focus, which leads back here.
    uiActive_ = true;
    const HRESULT answer = site_->OnUIActivate();
    if (FAILED(answer) && answer != E_NOTIMPL) {
        uiActive_ = false;
        throw Failure(answer);
    }
    const auto self = static_cast<IOleInPlaceActiveObject*>(this);
    if (frameSite_) frameSite_->SetActiveObject(self, CAPTION);
    if (documentSite_) documentSite_->SetActiveObject(self, CAPTION);
}

STDMETHODIMP InPlace::UIDeactivate() noexcept {
    deactivateUi();
    return S_OK;
}

void InPlace::deactivateUi() noexcept {
    if (!uiActive_) return;
    uiActive_ = false;
    const auto site = site_;
    if (frameSite_) frameSite_->SetActiveObject(nullptr, nullptr);
    if (documentSite_) documentSite_->SetActiveObject(nullptr, nullptr);
    tellFocus(false);
    if (site) site->OnUIDeactivate(FALSE);
}

void InPlace::focusMoved(bool entered) {
    if (!isActive()) return;
    if (entered) becomeUiActive();
    tellFocus(entered);
}

void InPlace::tellFocus(bool focused) noexcept {
    if (focused == focusTold_) return;
    focusTold_ = focused;
    vexa::attempt([&] { container_.tellFocus(focused); });
}

/// While the page's dialogs run; each disabling is taken back, also where the container takes the page away.
void InPlace::enableModeless(bool enable) noexcept {
    if (enable == !modelessDisabled_ || !frameSite_) return;
    modelessDisabled_ = !enable;
    frameSite_->EnableModeless(enable);
}

// --- Keys -------------------------------------------------------------------------------------------------

STDMETHODIMP InPlace::TranslateAccelerator(LPMSG message) noexcept {
    // E_POINTER would be the right word, but the contract knows only "used" and "not used".
    if (message == nullptr) return E_POINTER;
    return atBoundary([&] { return translate(*message) ? S_OK : S_FALSE; }) == S_OK ? S_OK : S_FALSE;
}

bool InPlace::translate(MSG& message) {
    if (!isActive() || !page_.isOpen() || !IsChild(page_.window(), message.hwnd)) return false;
    if (message.message == WM_KEYDOWN) {
        switch (message.wParam) {
            case VK_TAB: return GetKeyState(VK_CONTROL) >= 0 && translateTab(message);
            case VK_LEFT:
            case VK_RIGHT:
            case VK_UP:
            case VK_DOWN: return IsDialogMessageW(page_.window(), &message) != FALSE;
            // Enter and Esc press the container's OK and Cancel.
            default: return container_.offerKey(message);
        }
    }
    return message.message == WM_SYSCHAR &&
           pressAccessKey(page_.window(), static_cast<wchar_t>(message.wParam));
}

/// At its last stop the page leaves Tab to the container, so that the focus can go on to OK and Cancel.
bool InPlace::translateTab(MSG& message) {
    const bool backwards = GetKeyState(VK_SHIFT) < 0;
    if (isOutermostStop(page_.window(), GetFocus(), backwards)) return container_.offerKey(message);
    return IsDialogMessageW(page_.window(), &message) != FALSE;
}

}  // namespace com
