#include "windows/com/ole_object.h"

#include <olectl.h>

#include <cwchar>

#include "common/guarded.h"
#include "windows/com/boundary.h"
#include "windows/com/names.h"

namespace com {

// --- Site and end -----------------------------------------------------------------------------------------

STDMETHODIMP OleObject::SetClientSite(IOleClientSite* site) noexcept {
    return atBoundary([&] {
        const Ptr<IOleClientSite> entered(site);
        if (site == other_.container.site().get()) return S_OK;
        other_.page.cancelDialogs();
        other_.inPlace.deactivate();
        other_.container.enter(site);
        // The old container may have activated the control once more when it learned of the end.
        other_.inPlace.deactivate();
        if (site != nullptr) other_.persistence.containerChanged();
        return S_OK;
    });
}

STDMETHODIMP OleObject::GetClientSite(IOleClientSite** site) noexcept {
    if (site == nullptr) return E_POINTER;
    *site = Ptr<IOleClientSite>(other_.container.site()).detach();
    return S_OK;
}

STDMETHODIMP OleObject::Close(DWORD option) noexcept {
    return atBoundary([&] {
        vexa::attempt([&] { saveWhereWanted(option); });
        other_.inPlace.deactivate();
        other_.page.close();
        // The container may have activated the control once more when it learned of the end.
        other_.inPlace.deactivate();
        other_.container.leavePageSite();
        if (advises_) advises_->SendOnClose();
        return S_OK;
    });
}

void OleObject::saveWhereWanted(DWORD option) {
    const Ptr<IOleClientSite> site = other_.container.site();
    if (option == OLECLOSE_NOSAVE || !site || other_.persistence.IsDirty() != S_OK) return;
    site->SaveObject();
    if (advises_) advises_->SendOnSave();
}

// --- Verbs ------------------------------------------------------------------------------------------------

/// The answer is what is true in the end, whatever the container has made of the control meanwhile.
STDMETHODIMP OleObject::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT place) noexcept {
    return atBoundary([&] {
        if (verb > 0) return OLEOBJ_S_INVALIDVERB;
        if (!other_.page.isOpen()) return E_UNEXPECTED;
        const HRESULT result = com::atBoundary([&] { return carryOut(verb, parent, place); });
        if (isCarriedOut(verb)) return S_OK;
        return FAILED(result) ? result : OLE_E_NOT_INPLACEACTIVE;
    });
}

HRESULT OleObject::carryOut(LONG verb, HWND parent, const RECT* place) {
    switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_UIACTIVATE:
            other_.inPlace.activate(parent, place);
            other_.inPlace.activateUi();
            return S_OK;
        case OLEIVERB_SHOW:
        case OLEIVERB_INPLACEACTIVATE: other_.inPlace.activate(parent, place); return S_OK;
        case OLEIVERB_HIDE: other_.inPlace.hide(); return S_OK;
        default: return E_NOTIMPL;
    }
}

bool OleObject::isCarriedOut(LONG verb) const {
    switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_UIACTIVATE: return other_.inPlace.isUiActive();
        case OLEIVERB_SHOW:
        case OLEIVERB_INPLACEACTIVATE: return other_.inPlace.isShown();
        case OLEIVERB_HIDE: return !other_.inPlace.isShown();
        default: return false;
    }
}

STDMETHODIMP OleObject::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
    if (verbs == nullptr) return E_POINTER;
    *verbs = nullptr;
    return OLE_S_USEREG;
}

// --- Size -------------------------------------------------------------------------------------------------

STDMETHODIMP OleObject::SetExtent(DWORD aspect, SIZEL* size) noexcept {
    return atBoundary([&] {
        if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
        // Only kept: some containers tell it in wrong units, so the layout follows the activation's
        // rectangle.
        other_.view.setExtent(required(size));
        return S_OK;
    });
}

STDMETHODIMP OleObject::GetExtent(DWORD aspect, SIZEL* size) noexcept {
    return other_.view.GetExtent(aspect, -1, nullptr, size);
}

// --- Sinks ------------------------------------------------------------------------------------------------

IOleAdviseHolder& OleObject::advises() {
    if (!advises_) check(CreateOleAdviseHolder(advises_.out()));
    return *advises_.get();
}

STDMETHODIMP OleObject::Advise(IAdviseSink* sink, DWORD* cookie) noexcept {
    return atBoundary([&] {
        required(cookie) = 0;
        return advises().Advise(&required(sink), cookie);
    });
}

STDMETHODIMP OleObject::Unadvise(DWORD cookie) noexcept {
    return advises_ ? advises_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

STDMETHODIMP OleObject::EnumAdvise(IEnumSTATDATA** connections) noexcept {
    return atBoundary([&] {
        required(connections) = nullptr;
        return advises().EnumAdvise(connections);
    });
}

// --- What it is -------------------------------------------------------------------------------------------

STDMETHODIMP OleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (moniker == nullptr) return E_POINTER;
    *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::GetClipboardData(DWORD, IDataObject** data) noexcept {
    if (data == nullptr) return E_POINTER;
    *data = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::GetUserType(DWORD form, LPOLESTR* name) noexcept {
    if (name == nullptr) return E_POINTER;
    const wchar_t* text = form == USERCLASSTYPE_FULL ? CLASS_DESCRIPTION : CAPTION;
    const std::size_t bytes = (std::wcslen(text) + 1) * sizeof(wchar_t);
    *name = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (*name == nullptr) return E_OUTOFMEMORY;
    std::wmemcpy(*name, text, bytes / sizeof(wchar_t));
    return S_OK;
}

STDMETHODIMP OleObject::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
    return handOut(status, aspect == DVASPECT_CONTENT ? MISC_STATUS : 0);
}

}  // namespace com
