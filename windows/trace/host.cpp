#include "windows/trace/host.h"

#include <ocidl.h>

#include "OutlookPages.h"
#include "windows/trace/traced_dispatch.h"

namespace trace {
namespace {

class TracedClientSite : public Traced<IOleClientSite> {
public:
    using Traced::Traced;
    TRACED_METHOD(SaveObject, ())
    TRACED_METHOD(GetMoniker, (assign, which, moniker), DWORD assign, DWORD which, IMoniker** moniker)
    TRACED_METHOD(GetContainer, (container), IOleContainer** container)
    TRACED_METHOD(ShowObject, ())
    TRACED_METHOD(OnShowWindow, (show), BOOL show)
    TRACED_METHOD(RequestNewObjectLayout, ())
};

/// The in-place sites: the newer one adds to the older.
template <class Site>
class TracedInPlaceSite : public Traced<Site> {
public:
    using Traced<Site>::Traced;
    using typename Traced<Site>::Target;
    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        const HRESULT result = this->call(L"GetWindow", &Site::GetWindow, window);
        if (SUCCEEDED(result) && window != nullptr) write(L"  it is " + shown(*window));
        return result;
    }
    TRACED_METHOD(ContextSensitiveHelp, (enter), BOOL enter)
    TRACED_METHOD(CanInPlaceActivate, ())
    TRACED_METHOD(OnInPlaceActivate, ())
    TRACED_METHOD(OnUIActivate, ())
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
    TRACED_METHOD(OnUIDeactivate, (undoable), BOOL undoable)
    TRACED_METHOD(OnInPlaceDeactivate, ())
    TRACED_METHOD(DiscardUndoState, ())
    TRACED_METHOD(DeactivateAndUndo, ())
    TRACED_METHOD(OnPosRectChange, (position), LPCRECT position)

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
    TRACED_METHOD(OnInPlaceActivateEx, (noRedraw, flags), BOOL* noRedraw, DWORD flags)
    TRACED_METHOD(OnInPlaceDeactivateEx, (noRedraw), BOOL noRedraw)
    TRACED_METHOD(RequestUIActivate, ())
};

class TracedFrame : public Traced<IOleInPlaceFrame> {
public:
    using Traced::Traced;
    TRACED_METHOD(GetWindow, (window), HWND* window)
    TRACED_METHOD(ContextSensitiveHelp, (enter), BOOL enter)
    TRACED_METHOD(GetBorder, (border), LPRECT border)
    TRACED_METHOD(RequestBorderSpace, (widths), LPCBORDERWIDTHS widths)
    TRACED_METHOD(SetBorderSpace, (widths), LPCBORDERWIDTHS widths)
    TRACED_METHOD(SetActiveObject, (object, name), IOleInPlaceActiveObject* object, LPCOLESTR name)
    TRACED_METHOD(InsertMenus, (menu, widths), HMENU menu, LPOLEMENUGROUPWIDTHS widths)
    TRACED_METHOD(SetMenu, (menu, descriptor, window), HMENU menu, HOLEMENU descriptor, HWND window)
    TRACED_METHOD(RemoveMenus, (menu), HMENU menu)
    TRACED_METHOD(SetStatusText, (text), LPCOLESTR text)
    TRACED_METHOD(EnableModeless, (enable), BOOL enable)
    TRACED_METHOD(TranslateAccelerator, (message, command), LPMSG message, WORD command)
};

class TracedControlSite : public Traced<IOleControlSite> {
public:
    using Traced::Traced;
    TRACED_METHOD(OnControlInfoChanged, ())
    TRACED_METHOD(LockInPlaceActive, (lock), BOOL lock)
    TRACED_METHOD(GetExtendedControl, (control), IDispatch** control)
    TRACED_METHOD(TransformCoords, (himetric, container, flags), POINTL* himetric, POINTF* container,
                  DWORD flags)
    TRACED_METHOD(TranslateAccelerator, (message, modifiers), MSG* message, DWORD modifiers)
    TRACED_METHOD(OnFocus, (focused), BOOL focused)
    TRACED_METHOD(ShowPropertyFrame, ())
};

class TracedPageSite : public TracedDispatch<PropertyPageSite> {
public:
    using TracedDispatch::TracedDispatch;
    TRACED_GETTER(Application, IDispatch**)
    TRACED_GETTER(Class, long*)
    TRACED_GETTER(Session, IDispatch**)
    TRACED_GETTER(Parent, IDispatch**)
    TRACED_METHOD(OnStatusChange, ())
};

const FacetRow FACETS_OF_HOSTS[] = {
    {IID_IOleClientSite, L"IOleClientSite", facet<TracedClientSite>},
    {IID_IOleWindow, L"IOleInPlaceSite", facet<TracedInPlaceSite<IOleInPlaceSite>>},
    {IID_IOleInPlaceSite, L"IOleInPlaceSite", facet<TracedInPlaceSite<IOleInPlaceSite>>},
    {IID_IOleInPlaceSiteEx, L"IOleInPlaceSiteEx", facet<TracedInPlaceSiteEx>},
    {IID_IOleInPlaceFrame, L"IOleInPlaceFrame", facet<TracedFrame>},
    {IID_IOleControlSite, L"IOleControlSite", facet<TracedControlSite>},
    {IID_PropertyPageSite, L"PropertyPageSite", facet<TracedPageSite>},
    {IID_IDispatch, L"IDispatch", facet<TracedDispatch<IDispatch>>},
};

}  // namespace

com::Ptr<IUnknown> tracedHost(IUnknown* object) {
    return TracedObject::create(object, L"control > host", FACETS_OF_HOSTS);
}

}  // namespace trace
