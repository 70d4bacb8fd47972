#include "windows/com/control.h"

#include "windows/com/boundary.h"

namespace com {
namespace {

/// What the count is while the object ends: whoever takes and gives back a reference then does not end it
/// again.
constexpr LONG ENDING = 1 << 24;

}  // namespace

void Control::create(REFIID iid, void** out) {
    const auto control = Ptr<Control>::attach(new Control);
    check(control->QueryInterface(iid, out));
    try {
        control->page_.start();
        control->view_.setExtent(toHimetric(control->page_.naturalSize()));
    } catch (...) {
        static_cast<IUnknown*>(*out)->Release();
        *out = nullptr;
        throw;
    }
}

IUnknown* Control::find(REFIID iid) noexcept {
    struct Entry {
        const IID& iid;
        IUnknown* object;
    };
    const Entry entries[] = {
        {IID_IUnknown, this},
        {IID_IDispatch, static_cast<IctlPPE*>(&automation_)},
        {IID_IctlPPE, static_cast<IctlPPE*>(&automation_)},
        {IID_PropertyPage, static_cast<PropertyPage*>(&outlookPage_)},
        {IID_IOleObject, static_cast<IOleObject*>(&oleObject_)},
        {IID_IOleControl, static_cast<IOleControl*>(&controlEvents_)},
        {IID_IOleWindow, static_cast<IOleInPlaceObject*>(&inPlace_)},
        {IID_IOleInPlaceObject, static_cast<IOleInPlaceObject*>(&inPlace_)},
        {IID_IOleInPlaceActiveObject, static_cast<IOleInPlaceActiveObject*>(&inPlace_)},
        {IID_IViewObject, static_cast<IViewObject2*>(&view_)},
        {IID_IViewObject2, static_cast<IViewObject2*>(&view_)},
        {IID_IPersist, static_cast<IPersistStreamInit*>(&persistence_)},
        {IID_IPersistStreamInit, static_cast<IPersistStreamInit*>(&persistence_)},
        {IID_IPersistPropertyBag, static_cast<IPersistPropertyBag*>(&persistence_)},
        {IID_IConnectionPointContainer, static_cast<IConnectionPointContainer*>(&connectionPoints_)},
        {IID_IProvideClassInfo, static_cast<IProvideClassInfo*>(&classInfo_)},
        {IID_ISupportErrorInfo, static_cast<ISupportErrorInfo*>(&classInfo_)},
    };
    for (const Entry& entry : entries)
        if (entry.iid == iid) return entry.object;
    return nullptr;
}

STDMETHODIMP Control::QueryInterface(REFIID iid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    IUnknown* object = find(iid);
    *out = object;
    if (object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) Control::AddRef() noexcept {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
}

STDMETHODIMP_(ULONG) Control::Release() noexcept {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) {
        references_ = ENDING;
        end();
        delete this;
    }
    return static_cast<ULONG>(left);
}

/// The end of a control that its container let go without closing it.
void Control::end() noexcept {
    inPlace_.deactivate();
    page_.close();
    view_.disconnect();
    connectionPoints_.propertyNotify.disconnectAll();
    container_.enter(nullptr);
}

}  // namespace com
