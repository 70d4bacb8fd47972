// The control's own dual interface: the stored properties, the caption, and the page contract for callers
// that bind late.
#pragma once

#include "VexaPPE.h"
#include "windows/com/dispatch_part.h"
#include "windows/com/page_host.h"
#include "windows/com/stored_properties.h"

namespace com {

class Automation : public DispatchPart<IctlPPE> {
public:
    Automation(IUnknown& whole, StoredProperties& properties, PageHost& page)
        : DispatchPart(whole), properties_(properties), page_(page) {}

    STDMETHODIMP get_BackColor(OLE_COLOR* value) noexcept override;
    STDMETHODIMP put_BackColor(OLE_COLOR value) noexcept override;
    STDMETHODIMP get_ForeColor(OLE_COLOR* value) noexcept override;
    STDMETHODIMP put_ForeColor(OLE_COLOR value) noexcept override;
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_Font(IFontDisp** value) noexcept override;
    /// Takes a copy.
    STDMETHODIMP put_Font(IFontDisp* value) noexcept override;
    /// Takes the object itself.
    STDMETHODIMP putref_Font(IFontDisp* value) noexcept override;
    STDMETHODIMP get_BackStyle(short* value) noexcept override;
    STDMETHODIMP put_BackStyle(short value) noexcept override;
    STDMETHODIMP get_BorderStyle(short* value) noexcept override;
    STDMETHODIMP put_BorderStyle(short value) noexcept override;
    STDMETHODIMP get_Loading(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_Loading(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_Caption(BSTR* value) noexcept override;

    STDMETHODIMP GetPageInfo(BSTR* helpFile, LONG* helpContext) noexcept override;
    STDMETHODIMP get_Dirty(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP Apply() noexcept override;

private:
    HRESULT getColour(StoredProperty property, OLE_COLOR* value) noexcept;
    HRESULT setColour(StoredProperty property, OLE_COLOR value) noexcept;
    HRESULT getFlag(StoredProperty property, VARIANT_BOOL* value) noexcept;
    HRESULT setFlag(StoredProperty property, VARIANT_BOOL value) noexcept;
    HRESULT getStyle(StoredProperty property, short* value) noexcept;
    HRESULT setStyle(StoredProperty property, short value) noexcept;
    void setFont(const Ptr<IFontDisp>& font);

    StoredProperties& properties_;
    PageHost& page_;
};

}  // namespace com
