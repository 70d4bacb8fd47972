#include "windows/trace/control.h"

#include <ocidl.h>

#include "OutlookPages.h"
#include "VexaPPE.h"
#include "windows/trace/host.h"
#include "windows/trace/traced_dispatch.h"

namespace trace {
namespace {

class TracedOleObject : public Traced<IOleObject> {
public:
    using Traced::Traced;
    /// The control gets the traced site; the container gets its own back.
    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override {
        const com::Ptr<IOleClientSite> traced = tracedHostAs(site);
        site_ = com::Ptr<IOleClientSite>(site);
        return call(L"SetClientSite", &IOleObject::SetClientSite, traced.get());
    }
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override {
        if (site == nullptr) return E_POINTER;
        *site = com::Ptr<IOleClientSite>(site_).detach();
        write(L"IOleObject::GetClientSite = " + shown(*site));
        return S_OK;
    }
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT place) noexcept override {
        const com::Ptr<IOleClientSite> traced = tracedHostAs(site);
        return call(L"DoVerb", &IOleObject::DoVerb, verb, message, traced.get(), index, parent, place);
    }
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override {
        write(L"the size is " + shown(static_cast<const SIZE*>(size)));
        return call(L"SetExtent", &IOleObject::SetExtent, aspect, size);
    }
    TRACED_METHOD(SetHostNames, (application, object), LPCOLESTR application, LPCOLESTR object)
    TRACED_METHOD(Close, (save), DWORD save)
    TRACED_METHOD(SetMoniker, (which, moniker), DWORD which, IMoniker* moniker)
    TRACED_METHOD(GetMoniker, (assign, which, moniker), DWORD assign, DWORD which, IMoniker** moniker)
    TRACED_METHOD(InitFromData, (data, creation, reserved), IDataObject* data, BOOL creation, DWORD reserved)
    TRACED_METHOD(GetClipboardData, (reserved, data), DWORD reserved, IDataObject** data)
    TRACED_METHOD(EnumVerbs, (verbs), IEnumOLEVERB** verbs)
    TRACED_METHOD(Update, ())
    TRACED_METHOD(IsUpToDate, ())
    TRACED_METHOD(GetUserClassID, (identifier), CLSID* identifier)
    TRACED_METHOD(GetUserType, (form, name), DWORD form, LPOLESTR* name)
    TRACED_METHOD(GetExtent, (aspect, size), DWORD aspect, SIZEL* size)
    TRACED_METHOD(Advise, (sink, cookie), IAdviseSink* sink, DWORD* cookie)
    TRACED_METHOD(Unadvise, (cookie), DWORD cookie)
    TRACED_METHOD(EnumAdvise, (connections), IEnumSTATDATA** connections)
    TRACED_METHOD(GetMiscStatus, (aspect, status), DWORD aspect, DWORD* status)
    TRACED_METHOD(SetColorScheme, (palette), LOGPALETTE* palette)

private:
    com::Ptr<IOleClientSite> site_;
};

class TracedOleControl : public Traced<IOleControl> {
public:
    using Traced::Traced;
    TRACED_METHOD(GetControlInfo, (information), CONTROLINFO* information)
    TRACED_METHOD(OnMnemonic, (message), MSG* message)
    TRACED_METHOD(OnAmbientPropertyChange, (property), DISPID property)
    TRACED_METHOD(FreezeEvents, (freeze), BOOL freeze)
};

class TracedInPlaceObject : public Traced<IOleInPlaceObject> {
public:
    using Traced::Traced;
    TRACED_METHOD(GetWindow, (window), HWND* window)
    TRACED_METHOD(ContextSensitiveHelp, (enter), BOOL enter)
    TRACED_METHOD(InPlaceDeactivate, ())
    TRACED_METHOD(UIDeactivate, ())
    TRACED_METHOD(SetObjectRects, (position, clip), LPCRECT position, LPCRECT clip)
    TRACED_METHOD(ReactivateAndUndo, ())
};

class TracedActiveObject : public Traced<IOleInPlaceActiveObject> {
public:
    using Traced::Traced;
    TRACED_METHOD(GetWindow, (window), HWND* window)
    TRACED_METHOD(ContextSensitiveHelp, (enter), BOOL enter)
    TRACED_METHOD(TranslateAccelerator, (message), LPMSG message)
    TRACED_METHOD(OnFrameWindowActivate, (activate), BOOL activate)
    TRACED_METHOD(OnDocWindowActivate, (activate), BOOL activate)
    TRACED_METHOD(ResizeBorder, (border, window, frame), LPCRECT border, IOleInPlaceUIWindow* window,
                  BOOL frame)
    TRACED_METHOD(EnableModeless, (enable), BOOL enable)
};

class TracedView : public Traced<IViewObject2> {
public:
    using Traced::Traced;
    TRACED_METHOD(GetColorSet, (aspect, index, details, device, target, palette), DWORD aspect, LONG index,
                  void* details, DVTARGETDEVICE* device, HDC target, LOGPALETTE** palette)
    TRACED_METHOD(Freeze, (aspect, index, details, freeze), DWORD aspect, LONG index, void* details,
                  DWORD* freeze)
    TRACED_METHOD(Unfreeze, (freeze), DWORD freeze)
    TRACED_METHOD(SetAdvise, (aspects, flags, sink), DWORD aspects, DWORD flags, IAdviseSink* sink)
    TRACED_METHOD(GetAdvise, (aspects, flags, sink), DWORD* aspects, DWORD* flags, IAdviseSink** sink)
    TRACED_METHOD(GetExtent, (aspect, index, device, size), DWORD aspect, LONG index, DVTARGETDEVICE* device,
                  LPSIZEL size)
    /// The function among its arguments is the container's own and is not shown.
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* details, DVTARGETDEVICE* device, HDC target, HDC canvas,
                      LPCRECTL bounds, LPCRECTL window, WINBOOL(CALLBACK* go)(ULONG_PTR),
                      ULONG_PTR parameter) noexcept override {
        write(L"IViewObject2::Draw(" + shownAll(aspect, canvas) + L")");
        return Traced::target().Draw(aspect, index, details, device, target, canvas, bounds, window, go,
                                     parameter);
    }
};

class TracedStream : public Traced<IPersistStreamInit> {
public:
    using Traced::Traced;
    TRACED_METHOD(GetClassID, (identifier), CLSID* identifier)
    TRACED_METHOD(IsDirty, ())
    TRACED_METHOD(Load, (stream), IStream* stream)
    TRACED_METHOD(Save, (stream, clear), IStream* stream, BOOL clear)
    TRACED_METHOD(GetSizeMax, (size), ULARGE_INTEGER* size)
    TRACED_METHOD(InitNew, ())
};

class TracedBag : public Traced<IPersistPropertyBag> {
public:
    using Traced::Traced;
    TRACED_METHOD(GetClassID, (identifier), CLSID* identifier)
    TRACED_METHOD(InitNew, ())
    TRACED_METHOD(Load, (bag, log), IPropertyBag* bag, IErrorLog* log)
    TRACED_METHOD(Save, (bag, clear, all), IPropertyBag* bag, BOOL clear, BOOL all)
};

class TracedPoints : public Traced<IConnectionPointContainer> {
public:
    using Traced::Traced;
    TRACED_METHOD(EnumConnectionPoints, (points), IEnumConnectionPoints** points)
    TRACED_METHOD(FindConnectionPoint, (source, point), REFIID source, IConnectionPoint** point)
};

class TracedClassInfo : public Traced<IProvideClassInfo> {
public:
    using Traced::Traced;
    TRACED_METHOD(GetClassInfo, (information), ITypeInfo** information)
};

class TracedPage : public TracedDispatch<PropertyPage> {
public:
    using TracedDispatch::TracedDispatch;
    TRACED_METHOD(GetPageInfo, (file, context), BSTR* file, long* context)
    STDMETHODIMP get_Dirty(VARIANT_BOOL* dirty) noexcept override {
        const HRESULT result = call(L"Dirty", &PropertyPage::get_Dirty, dirty);
        if (SUCCEEDED(result) && dirty != nullptr) write(L"  it is " + shown(*dirty));
        return result;
    }
    TRACED_METHOD(Apply, ())
};

const FacetRow FACETS_OF_CONTROLS[] = {
    {IID_IOleObject, L"IOleObject", facet<TracedOleObject>},
    {IID_IOleControl, L"IOleControl", facet<TracedOleControl>},
    {IID_IOleWindow, L"IOleInPlaceObject", facet<TracedInPlaceObject>},
    {IID_IOleInPlaceObject, L"IOleInPlaceObject", facet<TracedInPlaceObject>},
    {IID_IOleInPlaceActiveObject, L"IOleInPlaceActiveObject", facet<TracedActiveObject>},
    {IID_IViewObject, L"IViewObject2", facet<TracedView>},
    {IID_IViewObject2, L"IViewObject2", facet<TracedView>},
    {IID_IPersist, L"IPersistStreamInit", facet<TracedStream>},
    {IID_IPersistStreamInit, L"IPersistStreamInit", facet<TracedStream>},
    {IID_IPersistPropertyBag, L"IPersistPropertyBag", facet<TracedBag>},
    {IID_IConnectionPointContainer, L"IConnectionPointContainer", facet<TracedPoints>},
    {IID_IProvideClassInfo, L"IProvideClassInfo", facet<TracedClassInfo>},
    {IID_PropertyPage, L"PropertyPage", facet<TracedPage>},
    {IID_IDispatch, L"IDispatch", facet<TracedDispatch<IDispatch>>},
};

}  // namespace

com::Ptr<IUnknown> tracedControl(IUnknown* object) {
    return TracedObject::create(object, L"host > control", FACETS_OF_CONTROLS);
}

}  // namespace trace
