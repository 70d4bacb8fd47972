#include "windows/trace/host.h"

#include <ocidl.h>

#include "OutlookPages.h"
#include "windows/trace/traced_dispatch.h"

namespace trace {
namespace {

class TracedClientSite : public Traced<IOleClientSite> {
public:
    using Traced::Traced;
    STDMETHODIMP SaveObject() noexcept override { return call(L"SaveObject", &IOleClientSite::SaveObject); }
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override {
        return call(L"GetMoniker", &IOleClientSite::GetMoniker, assign, which, moniker);
    }
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override {
        return call(L"GetContainer", &IOleClientSite::GetContainer, container);
    }
    STDMETHODIMP ShowObject() noexcept override { return call(L"ShowObject", &IOleClientSite::ShowObject); }
    STDMETHODIMP OnShowWindow(BOOL show) noexcept override {
        return call(L"OnShowWindow", &IOleClientSite::OnShowWindow, show);
    }
    STDMETHODIMP RequestNewObjectLayout() noexcept override {
        return call(L"RequestNewObjectLayout", &IOleClientSite::RequestNewObjectLayout);
    }
};

/// The in-place sites: the newer one adds to the older.
template <class Site>
class TracedInPlaceSite : public Traced<Site> {
public:
    using Traced<Site>::Traced;
    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        const HRESULT result = this->call(L"GetWindow", &Site::GetWindow, window);
        if (SUCCEEDED(result) && window != nullptr) write(L"  it is " + shown(*window));
        return result;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override {
        return this->call(L"ContextSensitiveHelp", &Site::ContextSensitiveHelp, enter);
    }
    STDMETHODIMP CanInPlaceActivate() noexcept override {
        return this->call(L"CanInPlaceActivate", &Site::CanInPlaceActivate);
    }
    STDMETHODIMP OnInPlaceActivate() noexcept override {
        return this->call(L"OnInPlaceActivate", &Site::OnInPlaceActivate);
    }
    STDMETHODIMP OnUIActivate() noexcept override { return this->call(L"OnUIActivate", &Site::OnUIActivate); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO information) noexcept override {
        const HRESULT result = this->call(L"GetWindowContext", &Site::GetWindowContext, frame, document,
                                          position, clip, information);
        if (FAILED(result)) return result;
        write(L"  position " + shown(static_cast<const RECT*>(position)) + L", clip " +
              shown(static_cast<const RECT*>(clip)));
        if (frame != nullptr) replace(*frame);
        return result;
    }
    STDMETHODIMP Scroll(SIZE extent) noexcept override { return this->target().Scroll(extent); }
    STDMETHODIMP OnUIDeactivate(BOOL undoable) noexcept override {
        return this->call(L"OnUIDeactivate", &Site::OnUIDeactivate, undoable);
    }
    STDMETHODIMP OnInPlaceDeactivate() noexcept override {
        return this->call(L"OnInPlaceDeactivate", &Site::OnInPlaceDeactivate);
    }
    STDMETHODIMP DiscardUndoState() noexcept override {
        return this->call(L"DiscardUndoState", &Site::DiscardUndoState);
    }
    STDMETHODIMP DeactivateAndUndo() noexcept override {
        return this->call(L"DeactivateAndUndo", &Site::DeactivateAndUndo);
    }
    STDMETHODIMP OnPosRectChange(LPCRECT position) noexcept override {
        return this->call(L"OnPosRectChange", &Site::OnPosRectChange, position);
    }

private:
    /// The control gets the traced frame in place of the container's.
    static void replace(IOleInPlaceFrame*& frame) {
        if (frame == nullptr) return;
        com::Ptr<IOleInPlaceFrame> traced = tracedHostAs(frame);
        if (!traced) return;
        frame->Release();
        frame = traced.detach();
    }
};

class TracedInPlaceSiteEx : public TracedInPlaceSite<IOleInPlaceSiteEx> {
public:
    using TracedInPlaceSite::TracedInPlaceSite;
    STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) noexcept override {
        return call(L"OnInPlaceActivateEx", &IOleInPlaceSiteEx::OnInPlaceActivateEx, noRedraw, flags);
    }
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL noRedraw) noexcept override {
        return call(L"OnInPlaceDeactivateEx", &IOleInPlaceSiteEx::OnInPlaceDeactivateEx, noRedraw);
    }
    STDMETHODIMP RequestUIActivate() noexcept override {
        return call(L"RequestUIActivate", &IOleInPlaceSiteEx::RequestUIActivate);
    }
};

class TracedFrame : public Traced<IOleInPlaceFrame> {
public:
    using Traced::Traced;
    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        return call(L"GetWindow", &IOleInPlaceFrame::GetWindow, window);
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override {
        return call(L"ContextSensitiveHelp", &IOleInPlaceFrame::ContextSensitiveHelp, enter);
    }
    STDMETHODIMP GetBorder(LPRECT border) noexcept override {
        return call(L"GetBorder", &IOleInPlaceFrame::GetBorder, border);
    }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS widths) noexcept override {
        return call(L"RequestBorderSpace", &IOleInPlaceFrame::RequestBorderSpace, widths);
    }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) noexcept override {
        return call(L"SetBorderSpace", &IOleInPlaceFrame::SetBorderSpace, widths);
    }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) noexcept override {
        return call(L"SetActiveObject", &IOleInPlaceFrame::SetActiveObject, object, name);
    }
    STDMETHODIMP InsertMenus(HMENU menu, LPOLEMENUGROUPWIDTHS widths) noexcept override {
        return call(L"InsertMenus", &IOleInPlaceFrame::InsertMenus, menu, widths);
    }
    STDMETHODIMP SetMenu(HMENU menu, HOLEMENU descriptor, HWND window) noexcept override {
        return call(L"SetMenu", &IOleInPlaceFrame::SetMenu, menu, descriptor, window);
    }
    STDMETHODIMP RemoveMenus(HMENU menu) noexcept override {
        return call(L"RemoveMenus", &IOleInPlaceFrame::RemoveMenus, menu);
    }
    STDMETHODIMP SetStatusText(LPCOLESTR text) noexcept override {
        return call(L"SetStatusText", &IOleInPlaceFrame::SetStatusText, text);
    }
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override {
        return call(L"EnableModeless", &IOleInPlaceFrame::EnableModeless, enable);
    }
    STDMETHODIMP TranslateAccelerator(LPMSG message, WORD command) noexcept override {
        return call(L"TranslateAccelerator", &IOleInPlaceFrame::TranslateAccelerator, message, command);
    }
};

class TracedControlSite : public Traced<IOleControlSite> {
public:
    using Traced::Traced;
    STDMETHODIMP OnControlInfoChanged() noexcept override {
        return call(L"OnControlInfoChanged", &IOleControlSite::OnControlInfoChanged);
    }
    STDMETHODIMP LockInPlaceActive(BOOL lock) noexcept override {
        return call(L"LockInPlaceActive", &IOleControlSite::LockInPlaceActive, lock);
    }
    STDMETHODIMP GetExtendedControl(IDispatch** control) noexcept override {
        return call(L"GetExtendedControl", &IOleControlSite::GetExtendedControl, control);
    }
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept override {
        return call(L"TransformCoords", &IOleControlSite::TransformCoords, himetric, container, flags);
    }
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override {
        return call(L"TranslateAccelerator", &IOleControlSite::TranslateAccelerator, message, modifiers);
    }
    STDMETHODIMP OnFocus(BOOL focused) noexcept override {
        return call(L"OnFocus", &IOleControlSite::OnFocus, focused);
    }
    STDMETHODIMP ShowPropertyFrame() noexcept override {
        return call(L"ShowPropertyFrame", &IOleControlSite::ShowPropertyFrame);
    }
};

class TracedPageSite : public TracedDispatch<PropertyPageSite> {
public:
    using TracedDispatch::TracedDispatch;
    STDMETHODIMP get_Application(IDispatch** object) noexcept override {
        return call(L"Application", &PropertyPageSite::get_Application, object);
    }
    STDMETHODIMP get_Class(long* kind) noexcept override {
        return call(L"Class", &PropertyPageSite::get_Class, kind);
    }
    STDMETHODIMP get_Session(IDispatch** session) noexcept override {
        return call(L"Session", &PropertyPageSite::get_Session, session);
    }
    STDMETHODIMP get_Parent(IDispatch** parent) noexcept override {
        return call(L"Parent", &PropertyPageSite::get_Parent, parent);
    }
    STDMETHODIMP OnStatusChange() noexcept override {
        return call(L"OnStatusChange", &PropertyPageSite::OnStatusChange);
    }
};

std::unique_ptr<Facet> hostFacet(TracedObject& whole, IUnknown& object, REFIID iid) {
    if (iid == IID_IOleClientSite)
        return facet<TracedClientSite, IOleClientSite>(whole, object, iid, L"IOleClientSite");
    if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow)
        return facet<TracedInPlaceSite<IOleInPlaceSite>, IOleInPlaceSite>(whole, object, IID_IOleInPlaceSite,
                                                                          L"IOleInPlaceSite");
    if (iid == IID_IOleInPlaceSiteEx)
        return facet<TracedInPlaceSiteEx, IOleInPlaceSiteEx>(whole, object, iid, L"IOleInPlaceSiteEx");
    if (iid == IID_IOleInPlaceFrame)
        return facet<TracedFrame, IOleInPlaceFrame>(whole, object, iid, L"IOleInPlaceFrame");
    if (iid == IID_IOleControlSite)
        return facet<TracedControlSite, IOleControlSite>(whole, object, iid, L"IOleControlSite");
    if (iid == IID_PropertyPageSite)
        return facet<TracedPageSite, PropertyPageSite>(whole, object, iid, L"PropertyPageSite");
    if (iid == IID_IDispatch)
        return facet<TracedDispatch<IDispatch>, IDispatch>(whole, object, iid, L"IDispatch");
    return nullptr;
}

}  // namespace

com::Ptr<IUnknown> tracedHost(IUnknown* object) {
    return TracedObject::create(object, L"control > host", hostFacet);
}

}  // namespace trace
