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
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR object) noexcept override {
        return call(L"SetHostNames", &IOleObject::SetHostNames, application, object);
    }
    STDMETHODIMP Close(DWORD save) noexcept override { return call(L"Close", &IOleObject::Close, save); }
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) noexcept override {
        return call(L"SetMoniker", &IOleObject::SetMoniker, which, moniker);
    }
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override {
        return call(L"GetMoniker", &IOleObject::GetMoniker, assign, which, moniker);
    }
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) noexcept override {
        return call(L"InitFromData", &IOleObject::InitFromData, data, creation, reserved);
    }
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) noexcept override {
        return call(L"GetClipboardData", &IOleObject::GetClipboardData, reserved, data);
    }
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override {
        return call(L"EnumVerbs", &IOleObject::EnumVerbs, verbs);
    }
    STDMETHODIMP Update() noexcept override { return call(L"Update", &IOleObject::Update); }
    STDMETHODIMP IsUpToDate() noexcept override { return call(L"IsUpToDate", &IOleObject::IsUpToDate); }
    STDMETHODIMP GetUserClassID(CLSID* identifier) noexcept override {
        return call(L"GetUserClassID", &IOleObject::GetUserClassID, identifier);
    }
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* name) noexcept override {
        return call(L"GetUserType", &IOleObject::GetUserType, form, name);
    }
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) noexcept override {
        return call(L"GetExtent", &IOleObject::GetExtent, aspect, size);
    }
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) noexcept override {
        return call(L"Advise", &IOleObject::Advise, sink, cookie);
    }
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override {
        return call(L"Unadvise", &IOleObject::Unadvise, cookie);
    }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) noexcept override {
        return call(L"EnumAdvise", &IOleObject::EnumAdvise, connections);
    }
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override {
        return call(L"GetMiscStatus", &IOleObject::GetMiscStatus, aspect, status);
    }
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) noexcept override {
        return call(L"SetColorScheme", &IOleObject::SetColorScheme, palette);
    }

private:
    com::Ptr<IOleClientSite> site_;
};

class TracedOleControl : public Traced<IOleControl> {
public:
    using Traced::Traced;
    STDMETHODIMP GetControlInfo(CONTROLINFO* information) noexcept override {
        return call(L"GetControlInfo", &IOleControl::GetControlInfo, information);
    }
    STDMETHODIMP OnMnemonic(MSG* message) noexcept override {
        return call(L"OnMnemonic", &IOleControl::OnMnemonic, message);
    }
    STDMETHODIMP OnAmbientPropertyChange(DISPID property) noexcept override {
        return call(L"OnAmbientPropertyChange", &IOleControl::OnAmbientPropertyChange, property);
    }
    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override {
        return call(L"FreezeEvents", &IOleControl::FreezeEvents, freeze);
    }
};

class TracedInPlaceObject : public Traced<IOleInPlaceObject> {
public:
    using Traced::Traced;
    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        return call(L"GetWindow", &IOleInPlaceObject::GetWindow, window);
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override {
        return call(L"ContextSensitiveHelp", &IOleInPlaceObject::ContextSensitiveHelp, enter);
    }
    STDMETHODIMP InPlaceDeactivate() noexcept override {
        return call(L"InPlaceDeactivate", &IOleInPlaceObject::InPlaceDeactivate);
    }
    STDMETHODIMP UIDeactivate() noexcept override {
        return call(L"UIDeactivate", &IOleInPlaceObject::UIDeactivate);
    }
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override {
        return call(L"SetObjectRects", &IOleInPlaceObject::SetObjectRects, position, clip);
    }
    STDMETHODIMP ReactivateAndUndo() noexcept override {
        return call(L"ReactivateAndUndo", &IOleInPlaceObject::ReactivateAndUndo);
    }
};

class TracedActiveObject : public Traced<IOleInPlaceActiveObject> {
public:
    using Traced::Traced;
    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        return call(L"GetWindow", &IOleInPlaceActiveObject::GetWindow, window);
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override {
        return call(L"ContextSensitiveHelp", &IOleInPlaceActiveObject::ContextSensitiveHelp, enter);
    }
    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override {
        return call(L"TranslateAccelerator", &IOleInPlaceActiveObject::TranslateAccelerator, message);
    }
    STDMETHODIMP OnFrameWindowActivate(BOOL activate) noexcept override {
        return call(L"OnFrameWindowActivate", &IOleInPlaceActiveObject::OnFrameWindowActivate, activate);
    }
    STDMETHODIMP OnDocWindowActivate(BOOL activate) noexcept override {
        return call(L"OnDocWindowActivate", &IOleInPlaceActiveObject::OnDocWindowActivate, activate);
    }
    STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL frame) noexcept override {
        return call(L"ResizeBorder", &IOleInPlaceActiveObject::ResizeBorder, border, window, frame);
    }
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override {
        return call(L"EnableModeless", &IOleInPlaceActiveObject::EnableModeless, enable);
    }
};

class TracedView : public Traced<IViewObject2> {
public:
    using Traced::Traced;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* details, DVTARGETDEVICE* device, HDC target,
                             LOGPALETTE** palette) noexcept override {
        return call(L"GetColorSet", &IViewObject2::GetColorSet, aspect, index, details, device, target,
                    palette);
    }
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* details, DWORD* freeze) noexcept override {
        return call(L"Freeze", &IViewObject2::Freeze, aspect, index, details, freeze);
    }
    STDMETHODIMP Unfreeze(DWORD freeze) noexcept override {
        return call(L"Unfreeze", &IViewObject2::Unfreeze, freeze);
    }
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override {
        return call(L"SetAdvise", &IViewObject2::SetAdvise, aspects, flags, sink);
    }
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override {
        return call(L"GetAdvise", &IViewObject2::GetAdvise, aspects, flags, sink);
    }
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, LPSIZEL size) noexcept override {
        return call(L"GetExtent", &IViewObject2::GetExtent, aspect, index, device, size);
    }
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
    STDMETHODIMP GetClassID(CLSID* identifier) noexcept override {
        return call(L"GetClassID", &IPersistStreamInit::GetClassID, identifier);
    }
    STDMETHODIMP IsDirty() noexcept override { return call(L"IsDirty", &IPersistStreamInit::IsDirty); }
    STDMETHODIMP Load(IStream* stream) noexcept override {
        return call(L"Load", &IPersistStreamInit::Load, stream);
    }
    STDMETHODIMP Save(IStream* stream, BOOL clear) noexcept override {
        return call(L"Save", &IPersistStreamInit::Save, stream, clear);
    }
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) noexcept override {
        return call(L"GetSizeMax", &IPersistStreamInit::GetSizeMax, size);
    }
    STDMETHODIMP InitNew() noexcept override { return call(L"InitNew", &IPersistStreamInit::InitNew); }
};

class TracedBag : public Traced<IPersistPropertyBag> {
public:
    using Traced::Traced;
    STDMETHODIMP GetClassID(CLSID* identifier) noexcept override {
        return call(L"GetClassID", &IPersistPropertyBag::GetClassID, identifier);
    }
    STDMETHODIMP InitNew() noexcept override { return call(L"InitNew", &IPersistPropertyBag::InitNew); }
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override {
        return call(L"Load", &IPersistPropertyBag::Load, bag, log);
    }
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clear, BOOL all) noexcept override {
        return call(L"Save", &IPersistPropertyBag::Save, bag, clear, all);
    }
};

class TracedPoints : public Traced<IConnectionPointContainer> {
public:
    using Traced::Traced;
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override {
        return call(L"EnumConnectionPoints", &IConnectionPointContainer::EnumConnectionPoints, points);
    }
    STDMETHODIMP FindConnectionPoint(REFIID source, IConnectionPoint** point) noexcept override {
        return call(L"FindConnectionPoint", &IConnectionPointContainer::FindConnectionPoint, source, point);
    }
};

class TracedClassInfo : public Traced<IProvideClassInfo> {
public:
    using Traced::Traced;
    STDMETHODIMP GetClassInfo(ITypeInfo** information) noexcept override {
        return call(L"GetClassInfo", &IProvideClassInfo::GetClassInfo, information);
    }
};

class TracedPage : public TracedDispatch<PropertyPage> {
public:
    using TracedDispatch::TracedDispatch;
    STDMETHODIMP GetPageInfo(BSTR* file, long* context) noexcept override {
        return call(L"GetPageInfo", &PropertyPage::GetPageInfo, file, context);
    }
    STDMETHODIMP get_Dirty(VARIANT_BOOL* dirty) noexcept override {
        const HRESULT result = call(L"Dirty", &PropertyPage::get_Dirty, dirty);
        if (SUCCEEDED(result) && dirty != nullptr) write(L"  it is " + shown(*dirty));
        return result;
    }
    STDMETHODIMP Apply() noexcept override { return call(L"Apply", &PropertyPage::Apply); }
};

std::unique_ptr<Facet> controlFacet(TracedObject& whole, IUnknown& object, REFIID iid) {
    if (iid == IID_IOleObject) return facet<TracedOleObject, IOleObject>(whole, object, iid, L"IOleObject");
    if (iid == IID_IOleControl)
        return facet<TracedOleControl, IOleControl>(whole, object, iid, L"IOleControl");
    if (iid == IID_IOleInPlaceObject || iid == IID_IOleWindow)
        return facet<TracedInPlaceObject, IOleInPlaceObject>(whole, object, IID_IOleInPlaceObject,
                                                             L"IOleInPlaceObject");
    if (iid == IID_IOleInPlaceActiveObject)
        return facet<TracedActiveObject, IOleInPlaceActiveObject>(whole, object, iid,
                                                                  L"IOleInPlaceActiveObject");
    if (iid == IID_IViewObject || iid == IID_IViewObject2)
        return facet<TracedView, IViewObject2>(whole, object, IID_IViewObject2, L"IViewObject2");
    if (iid == IID_IPersistStreamInit || iid == IID_IPersist)
        return facet<TracedStream, IPersistStreamInit>(whole, object, IID_IPersistStreamInit,
                                                       L"IPersistStreamInit");
    if (iid == IID_IPersistPropertyBag)
        return facet<TracedBag, IPersistPropertyBag>(whole, object, iid, L"IPersistPropertyBag");
    if (iid == IID_IConnectionPointContainer)
        return facet<TracedPoints, IConnectionPointContainer>(whole, object, iid,
                                                              L"IConnectionPointContainer");
    if (iid == IID_IProvideClassInfo)
        return facet<TracedClassInfo, IProvideClassInfo>(whole, object, iid, L"IProvideClassInfo");
    if (iid == IID_PropertyPage) return facet<TracedPage, PropertyPage>(whole, object, iid, L"PropertyPage");
    if (iid == IID_IDispatch)
        return facet<TracedDispatch<IDispatch>, IDispatch>(whole, object, iid, L"IDispatch");
    return nullptr;
}

}  // namespace

com::Ptr<IUnknown> tracedControl(IUnknown* object) {
    return TracedObject::create(object, L"host > control", controlFacet);
}

}  // namespace trace
