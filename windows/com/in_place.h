// The control in its container's window: activation, the focus and the keys.
#pragma once

#include <ole2.h>

#include <memory>

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
    STDMETHODIMP InPlaceDeactivate() noexcept override;
    STDMETHODIMP UIDeactivate() noexcept override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
    STDMETHODIMP ReactivateAndUndo() noexcept override { return E_NOTIMPL; }

    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
    STDMETHODIMP OnFrameWindowActivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }

    /// Shows the page in the container. `parent` and `place` stand in where the container does not tell its
    /// window and the page's place there. Throws Failure where the container refuses.
    void activate(HWND parent, const RECT* place);
    /// Makes the control the container's active object, with the focus in it. It must be active in place.
    void activateUi();
    void hide() noexcept;
    /// Takes the page out of the container's window; does nothing while it is not there.
    void deactivate() noexcept;

    [[nodiscard]] bool isActive() const { return frame_ != nullptr; }
    /// The container wants no input, or wants it again.
    void followUiDead() const;
    void repaint() const;

private:
    [[nodiscard]] HWND requestPlace(HWND parent, RECT& position, RECT& clip);
    void place(const RECT& position, const RECT& clip);
    void becomeUiActive();
    void deactivateUi() noexcept;
    void focusMoved(bool entered);
    void tellFocus(bool focused) noexcept;
    void frameLost() noexcept;
    void forgetContainerWindows() noexcept;
    void enableModeless(bool enable) noexcept;
    [[nodiscard]] bool translate(MSG& message);
    [[nodiscard]] bool translateTab(MSG& message);

    Container& container_;
    PageHost& page_;
    Ptr<IOleInPlaceSite> site_;
    Ptr<IOleInPlaceFrame> frameSite_;
    Ptr<IOleInPlaceUIWindow> documentSite_;
    std::unique_ptr<HostWindow> frame_;
    bool uiActive_ = false;
    bool focusTold_ = false;
    bool modelessDisabled_ = false;
};

}  // namespace com
