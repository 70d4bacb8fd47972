// The control's own dual interface: the stored properties, the caption, and the page contract for callers
// that bind late.
#pragma once

#include "VexaPPE.h"
#include "windows/com/page_contract.h"
#include "windows/com/stored_properties.h"

namespace com {

class Automation : public PageContract<IctlPPE> {
public:
    Automation(IUnknown& whole, StoredProperties& properties, PageHost& page)
        : PageContract(whole, page), properties_(properties) {}

    STDMETHODIMP get_BackColor(OLE_COLOR* value) noexcept override { return getColour(BackColor, value); }
    STDMETHODIMP put_BackColor(OLE_COLOR value) noexcept override { return putColour(BackColor, value); }
    STDMETHODIMP get_ForeColor(OLE_COLOR* value) noexcept override { return getColour(ForeColor, value); }
    STDMETHODIMP put_ForeColor(OLE_COLOR value) noexcept override { return putColour(ForeColor, value); }
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) noexcept override { return getFlag(Enabled, value); }
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) noexcept override { return putFlag(Enabled, value); }
    STDMETHODIMP get_Font(IFontDisp** value) noexcept override;
    /// Takes a copy.
    STDMETHODIMP put_Font(IFontDisp* value) noexcept override;
    /// Takes the object itself.
    STDMETHODIMP putref_Font(IFontDisp* value) noexcept override;
    STDMETHODIMP get_BackStyle(short* value) noexcept override { return getStyle(BackStyle, value); }
    STDMETHODIMP put_BackStyle(short value) noexcept override { return putStyle(BackStyle, value); }
    STDMETHODIMP get_BorderStyle(short* value) noexcept override { return getStyle(BorderStyle, value); }
    STDMETHODIMP put_BorderStyle(short value) noexcept override { return putStyle(BorderStyle, value); }
    STDMETHODIMP get_Loading(VARIANT_BOOL* value) noexcept override { return getFlag(Loading, value); }
    STDMETHODIMP put_Loading(VARIANT_BOOL value) noexcept override { return putFlag(Loading, value); }
    STDMETHODIMP get_Caption(BSTR* value) noexcept override;

private:
    using enum StoredProperty;

    /// Each kind of value lies in a member of its own of the property's VARIANT.
    template <class Member, class Value>
    HRESULT get(StoredProperty property, Member VARIANT::*member, Value* value) noexcept {
        return automation([&] {
            required(value) = static_cast<Value>(properties_.values()[property].*member);
            return S_OK;
        });
    }
    template <class Member, class Value>
    HRESULT put(StoredProperty property, Member VARIANT::*member, Value value) noexcept {
        return automation([&] {
            set(property, member, value);
            return S_OK;
        });
    }
    template <class Member, class Value>
    void set(StoredProperty property, Member VARIANT::*member, Value value) {
        VARIANT wanted{};
        wanted.vt = storedPropertyRows()[static_cast<std::size_t>(property)].type;
        wanted.*member = static_cast<Member>(value);
        properties_.set(property, wanted);
    }
    HRESULT getColour(StoredProperty property, OLE_COLOR* value) {
        return get(property, &VARIANT::lVal, value);
    }
    HRESULT putColour(StoredProperty property, OLE_COLOR value) {
        return put(property, &VARIANT::lVal, value);
    }
    HRESULT getFlag(StoredProperty property, VARIANT_BOOL* value) {
        return get(property, &VARIANT::boolVal, value);
    }
    HRESULT putFlag(StoredProperty property, VARIANT_BOOL value) {
        return put(property, &VARIANT::boolVal, value != VARIANT_FALSE ? VARIANT_TRUE : VARIANT_FALSE);
    }
    HRESULT getStyle(StoredProperty property, short* value) { return get(property, &VARIANT::iVal, value); }
    HRESULT putStyle(StoredProperty property, short value) { return put(property, &VARIANT::iVal, value); }

    StoredProperties& properties_;
};

}  // namespace com
