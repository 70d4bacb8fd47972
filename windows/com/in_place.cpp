#include "windows/com/in_place.h"

#include <algorithm>

#include "common/raised.h"
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

}  // namespace

/// One stay in a container's window, from the question whether the control may come to the word that it has
/// gone. What the container is told in it comes in pairs.
struct InPlace::Stay {
    enum class Ui { inactive, active, leaving };

    explicit Stay(Ptr<IOleInPlaceSite> container) : site(std::move(container)) {}

    HRESULT tellActivated() const {
        if (!newerSite) return site->OnInPlaceActivate();
        BOOL needsNoRedraw = FALSE;
        return newerSite->OnInPlaceActivateEx(&needsNoRedraw, 0);
    }

    void enableModeless(bool enable) noexcept {
        if (enable == !modelessDisabled || !frame) return;
        modelessDisabled = !enable;
        frame->EnableModeless(enable);
    }

    void tellFocus(bool focused) noexcept {
        if (focused == focusTold) return;
        focusTold = focused;
        if (focusSite) focusSite->OnFocus(focused);
    }

    const Ptr<IOleInPlaceSite> site;
    Ptr<IOleInPlaceSiteEx> newerSite;
    Ptr<IOleControlSite> focusSite;
    Ptr<IOleInPlaceFrame> frame;
    Ptr<IOleInPlaceUIWindow> document;
    std::unique_ptr<HostWindow> window;
    bool announced = false;
    Ui ui = Ui::inactive;
    bool focusTold = false;
    bool modelessDisabled = false;
};

InPlace::InPlace(IUnknown& whole, Container& container, PageHost& page)
    : Part(whole), container_(container), page_(page) {
    page_.onFocus = [this](bool entered) { focusMoved(entered); };
    page_.onModal = [this](bool runs) { enableModeless(!runs); };
}

STDMETHODIMP InPlace::GetWindow(HWND* window) noexcept {
    if (window == nullptr) return E_POINTER;
    *window = isActive() ? stay_->window->handle() : nullptr;
    return *window != nullptr ? S_OK : E_FAIL;
}

bool InPlace::isActive() const { return stay_ && stay_->window && stay_->window->handle() != nullptr; }

bool InPlace::isShown() const {
    return isActive() && (GetWindowLongW(stay_->window->handle(), GWL_STYLE) & WS_VISIBLE) != 0;
}

bool InPlace::isUiActive() const { return isActive() && stay_->ui == Stay::Ui::active; }

// --- Activation -------------------------------------------------------------------------------------------

void InPlace::activate(HWND parent, const RECT* place) {
    if (isActive()) {
        ShowWindow(stay_->window->handle(), SW_SHOWNA);
        return;
    }
    const auto stay = beginStay();
    try {
        enter(*stay, parent, place);
    } catch (...) {
        if (stay_ == stay) leave();
        throw;
    }
}

/// Throws Failure where the container asks inside an activation that is under way, or is being taken back.
std::shared_ptr<InPlace::Stay> InPlace::beginStay() {
    auto site = container_.site().as<IOleInPlaceSite>();
    if (!site) throw Failure(E_FAIL);
    if (stay_ || leaving_) throw Failure(E_UNEXPECTED);
    return stay_ = std::make_shared<Stay>(std::move(site));
}

void InPlace::enter(Stay& stay, HWND parent, const RECT* place) {
    // Questions for interfaces are calls, too: the stay is known by now, and nobody has been told of it yet.
    stay.newerSite = stay.site.as<IOleInPlaceSiteEx>();
    stay.focusSite = stay.site.as<IOleControlSite>();
    goOnWith(stay);
    unlessRefused(stay.site->CanInPlaceActivate());
    goOnWith(stay);
    stay.announced = true;
    const HRESULT answer = stay.tellActivated();
    goOnWith(stay);
    stay.announced = false;
    unlessRefused(answer);
    stay.announced = true;
    const HWND container = askForWindow(stay, parent);
    const Place wanted = askForPlace(stay, place);
    auto window = std::make_unique<HostWindow>(container);
    goOnWith(stay);
    if (window->handle() == nullptr) throw Failure(E_FAIL);  // gone with the container's window
    stay.window = std::move(window);
    stay.window->onLost = [this] { frameLost(); };
    moveTo(stay, wanted);
    goOnWith(stay);
    followUiDead();
    goOnWith(stay);
    ShowWindow(stay.window->handle(), SW_SHOWNA);
    goOnWith(stay);
}

/// Throws Failure where there is no window.
HWND InPlace::askForWindow(Stay& stay, HWND parent) const {
    HWND told = nullptr;
    if (SUCCEEDED(stay.site->GetWindow(&told)) && told != nullptr) parent = told;
    goOnWith(stay);
    if (parent == nullptr) throw Failure(E_FAIL);
    return parent;
}

InPlace::Place InPlace::askForPlace(Stay& stay, const RECT* place) const {
    const SIZE natural = page_.naturalSize();
    const RECT own = place ? *place : RECT{0, 0, natural.cx, natural.cy};
    OLEINPLACEFRAMEINFO information{};
    information.cb = sizeof information;
    Place told{};
    const HRESULT answer = stay.site->GetWindowContext(stay.frame.out(), stay.document.out(), &told.first,
                                                       &told.second, &information);
    goOnWith(stay);
    return SUCCEEDED(answer) ? told : Place{own, own};
}

/// After each call to the container: throws Failure where the stay has ended inside it.
void InPlace::goOnWith(const Stay& stay) const {
    if (stay_.get() != &stay) throw Failure(OLE_E_NOT_INPLACEACTIVE);
}

/// The frame takes the visible part of the position; the page keeps its whole size inside.
void InPlace::moveTo(const Stay& stay, const Place& place) {
    const HWND frame = stay.window->handle();
    const RECT whole = proper(place.first);
    RECT visible{};
    if (!IntersectRect(&visible, &whole, &place.second))
        visible = {whole.left, whole.top, whole.left, whole.top};
    SetWindowPos(frame, nullptr, visible.left, visible.top, visible.right - visible.left,
                 visible.bottom - visible.top, SWP_NOZORDER | SWP_NOACTIVATE);
    RECT inner = whole;
    OffsetRect(&inner, -visible.left, -visible.top);
    if (isActive()) page_.moveInto(frame, inner);
}

STDMETHODIMP InPlace::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept {
    return atBoundary([&] {
        const RECT& wanted = required(position);
        if (!isActive()) return E_UNEXPECTED;
        const auto stay = stay_;
        moveTo(*stay, {wanted, clip ? *clip : wanted});
        return S_OK;
    });
}

void InPlace::hide() noexcept {
    deactivateUi();
    if (isActive()) ShowWindow(stay_->window->handle(), SW_HIDE);
}

void InPlace::deactivate() noexcept {
    const Ptr<IUnknown> self(&whole());
    const auto stay = stay_;
    deactivateUi();
    // The container may have ended the stay while it was told, and begun another.
    if (stay && stay_ == stay) leave();
}

void InPlace::leave() noexcept {
    const auto stay = std::exchange(stay_, nullptr);
    {
        const vexa::Raised leaving(leaving_);
        page_.park();
        stay->window.reset();
        stay->enableModeless(true);
    }
    if (stay->announced) stay->site->OnInPlaceDeactivate();
}

/// The container's window goes without a word to the control: so does the activation.
void InPlace::frameLost() noexcept {
    // With its window the container may let go of the control.
    const Ptr<IUnknown> self(&whole());
    const auto stay = std::exchange(stay_, nullptr);
    if (!stay) return;
    const vexa::Raised leaving(leaving_);
    page_.cancelDialogs();
    page_.park();
    stay->enableModeless(true);
}

void InPlace::followUiDead() const {
    const auto stay = stay_;
    if (!isActive()) return;
    const bool dead = container_.isDead();
    if (isActive() && stay_ == stay) EnableWindow(stay->window->handle(), !dead);
}

void InPlace::repaint() const {
    if (isActive())
        RedrawWindow(stay_->window->handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// --- The active object ------------------------------------------------------------------------------------

void InPlace::activateUi() {
    if (!isActive()) return;
    const auto stay = stay_;
    becomeUiActive(*stay);
    if (isUiActive() && page_.isOpen() && !IsChild(page_.window(), GetFocus()))
        focusOutermostStop(page_.window());
    if (stay->ui == Stay::Ui::active) stay->tellFocus(true);
}

void InPlace::becomeUiActive(Stay& stay) {
    if (stay.ui != Stay::Ui::inactive) return;
    // Set first: the container may set the focus, which leads back here.
    stay.ui = Stay::Ui::active;
    const HRESULT answer = stay.site->OnUIActivate();
    if (stay.ui == Stay::Ui::active && FAILED(answer) && answer != E_NOTIMPL) {
        stay.ui = Stay::Ui::inactive;
        throw Failure(answer);
    }
    offerActiveObject(stay, stay.frame.get());
    offerActiveObject(stay, stay.document.get());
}

/// A container that ends the activity inside the call must not keep what it was given.
void InPlace::offerActiveObject(const Stay& stay, IOleInPlaceUIWindow* window) {
    if (window == nullptr || stay.ui != Stay::Ui::active) return;
    window->SetActiveObject(this, CAPTION);
    if (stay.ui != Stay::Ui::active) window->SetActiveObject(nullptr, nullptr);
}

void InPlace::deactivateUi() noexcept {
    const Ptr<IUnknown> self(&whole());
    const auto stay = stay_;
    if (!stay || stay->ui != Stay::Ui::active) return;
    // Until the last word is said the container cannot make the control active anew.
    stay->ui = Stay::Ui::leaving;
    if (stay->frame) stay->frame->SetActiveObject(nullptr, nullptr);
    if (stay->document) stay->document->SetActiveObject(nullptr, nullptr);
    stay->tellFocus(false);
    stay->ui = Stay::Ui::inactive;
    stay->site->OnUIDeactivate(FALSE);
}

void InPlace::focusMoved(bool entered) {
    if (!isActive()) return;
    const auto stay = stay_;
    if (entered) becomeUiActive(*stay);
    if (!entered || stay->ui == Stay::Ui::active) stay->tellFocus(entered);
}

/// While the page's dialogs run; each disabling is taken back, also where the container takes the page away.
void InPlace::enableModeless(bool enable) const noexcept {
    const auto stay = stay_;
    if (stay) stay->enableModeless(enable);
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
