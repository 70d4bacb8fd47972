#include "workbench/host/page_site.h"

#include "workbench/host/ambient.h"

namespace workbench {

PageSite::PageSite(HWND window, PageEvents& events, CallList& calls)
    : window_(window), events_(&events), calls_(calls) {}

RECT PageSite::area() const {
    RECT area{};
    GetClientRect(window_, &area);
    return area;
}

HRESULT PageSite::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid == __uuidof(IUnknown) || iid == __uuidof(IOleClientSite))
        return give(static_cast<IOleClientSite*>(this), object);
    if (iid == __uuidof(IOleWindow) || iid == __uuidof(IOleInPlaceSite))
        return give(static_cast<IOleInPlaceSite*>(this), object);
    if (iid == __uuidof(IOleInPlaceUIWindow) || iid == __uuidof(IOleInPlaceFrame))
        return give(static_cast<IOleInPlaceFrame*>(this), object);
    if (iid == __uuidof(IOleControlSite)) return give(static_cast<IOleControlSite*>(this), object);
    if (iid == __uuidof(IDispatch)) return give(static_cast<IDispatch*>(this), object);
    if (iid == __uuidof(PropertyPageSite)) return give(static_cast<PropertyPageSite*>(&outlook_), object);
    return E_NOINTERFACE;
}

ULONG PageSite::AddRef() { return ++references_; }

ULONG PageSite::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

// --- Client site and place --------------------------------------------------------------------------------

HRESULT PageSite::GetContainer(IOleContainer** container) {
    return none(container) == E_POINTER ? E_POINTER : E_NOINTERFACE;
}

HRESULT PageSite::GetWindow(HWND* window) {
    if (window == nullptr) return E_POINTER;
    *window = window_;
    return S_OK;
}

HRESULT PageSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* position,
                                   RECT* clip, OLEINPLACEFRAMEINFO* info) {
    if (frame == nullptr || document == nullptr || position == nullptr || clip == nullptr || info == nullptr)
        return E_POINTER;
    *document = nullptr;
    *position = area();
    *clip = *position;
    info->fMDIApp = FALSE;
    info->hwndFrame = GetAncestor(window_, GA_ROOT);
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    *frame = com::Ptr<IOleInPlaceFrame>(this).detach();
    return S_OK;
}

HRESULT PageSite::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    activeObject_ = com::Ptr<IOleInPlaceActiveObject>(object);
    return S_OK;
}

HRESULT PageSite::TranslateAccelerator(MSG* message, DWORD) {
    if (message == nullptr) return E_POINTER;
    return events_ != nullptr && events_->leftoverKey(*message) ? S_OK : S_FALSE;
}

// --- Ambient properties -----------------------------------------------------------------------------------

HRESULT PageSite::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT PageSite::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                         UINT*) {
    if ((flags & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
    if (result == nullptr) return E_POINTER;
    return ambientProperty(member, *result);
}

// --- Outlook's page site ----------------------------------------------------------------------------------

void PageSite::statusChanged() {
    calls_.note(side::pageToHost, L"OnStatusChange");
    if (events_ != nullptr) events_->statusChanged();
}

}  // namespace workbench
