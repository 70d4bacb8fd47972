// The control as an object of its container: the site, the verbs, the size and the end.
#pragma once

#include <ole2.h>

#include "VexaPPE.h"
#include "windows/com/container.h"
#include "windows/com/in_place.h"
#include "windows/com/page_host.h"
#include "windows/com/part.h"
#include "windows/com/persistence.h"
#include "windows/com/view.h"

namespace com {

class OleObject : public Part<IOleObject> {
public:
    struct Neighbours {
        Container& container;
        PageHost& page;
        InPlace& inPlace;
        View& view;
        Persistence& persistence;
    };
    OleObject(IUnknown& whole, const Neighbours& neighbours) : Part(whole), other_(neighbours) {}

    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
    STDMETHODIMP Close(DWORD option) noexcept override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject** data) noexcept override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT place) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
    STDMETHODIMP Update() noexcept override { return S_OK; }
    STDMETHODIMP IsUpToDate() noexcept override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* classId) noexcept override { return handOut(classId, CLSID_ctlPPE); }
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* name) noexcept override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) noexcept override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }

private:
    void saveWhereWanted(DWORD option);
    [[nodiscard]] HRESULT carryOut(LONG verb, HWND parent, const RECT* place);
    [[nodiscard]] bool isCarriedOut(LONG verb) const;
    [[nodiscard]] IOleAdviseHolder& advises();

    Neighbours other_;
    Ptr<IOleAdviseHolder> advises_;
};

}  // namespace com
