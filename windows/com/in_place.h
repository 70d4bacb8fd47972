// The control in its container's window: activation, the focus and the keys.
//
// The container may react inside any call that the control makes to it: deactivate or close the control, take
// its site away, activate it again, let go of its last reference. So whatever was true before such a call is
// looked at again after it.
#pragma once

#include <ole2.h>

#include <memory>
#include <utility>

#include "windows/com/container.h"
#include "windows/com/host_window.h"
#include "windows/com/page_host.h"
#include "windows/com/part.h"

namespace com {

class InPlace : public Part<IOleInPlaceObject, IOleInPlaceActiveObject> {
public:
    InPlace(IUnknown& whole, Container& container, PageHost& page);

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    // IOleInPlaceObject
    STDMETHODIMP InPlaceDeactivate() noexcept override {
        deactivate();
        return S_OK;
    }
    STDMETHODIMP UIDeactivate() noexcept override {
        deactivateUi();
        return S_OK;
    }
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
    STDMETHODIMP ReactivateAndUndo() noexcept override { return E_NOTIMPL; }

    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
    STDMETHODIMP OnFrameWindowActivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }

    /// Shows the page in the container. `parent` and `place` stand in where the container does not tell its
    /// window and the page's place there. Throws Failure where the container refuses, ends the activation
    /// while it is told of it, or asks for one inside another.
    void activate(HWND parent, const RECT* place);
    /// Makes the control the container's active object, with the focus in it. It must be active in place.
    void activateUi();
    void hide() noexcept;
    /// Takes the page out of the container's window; does nothing while it is not there.
    void deactivate() noexcept;

    [[nodiscard]] bool isActive() const;
    /// Active, and not hidden.
    [[nodiscard]] bool isShown() const;
    [[nodiscard]] bool isUiActive() const;
    /// The container wants no input, or wants it again.
    void followUiDead() const;
    void repaint() const;

private:
    struct Stay;
    using Place = std::pair<RECT, RECT>;  // the position, and what of it is visible

    [[nodiscard]] std::shared_ptr<Stay> beginStay();
    void enter(Stay& stay, HWND parent, const RECT* place);
    [[nodiscard]] HWND askForWindow(Stay& stay, HWND parent) const;
    [[nodiscard]] Place askForPlace(Stay& stay, const RECT* place) const;
    void goOnWith(const Stay& stay) const;
    void leave() noexcept;
    void frameLost() noexcept;
    void moveTo(const Stay& stay, const Place& place);

    void becomeUiActive(Stay& stay);
    void offerActiveObject(const Stay& stay, IOleInPlaceUIWindow* window);
    void deactivateUi() noexcept;
    void focusMoved(bool entered);
    void enableModeless(bool enable) const noexcept;
    [[nodiscard]] bool translate(MSG& message);
    [[nodiscard]] bool translateTab(MSG& message);

    Container& container_;
    PageHost& page_;
    /// Shared with the calls that run for it, which may outlast it.
    std::shared_ptr<Stay> stay_;
    bool leaving_ = false;
};

}  // namespace com
