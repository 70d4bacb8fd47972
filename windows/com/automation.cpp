#include "windows/com/automation.h"

#include "windows/com/container.h"
#include "windows/com/names.h"
#include "windows/com/page_contract.h"

namespace com {

// --- Stored properties ------------------------------------------------------------------------------------

HRESULT Automation::getColour(StoredProperty property, OLE_COLOR* value) noexcept {
    return automation([&] {
        required(value) = static_cast<OLE_COLOR>(properties_.values()[property].lVal);
        return S_OK;
    });
}

HRESULT Automation::setColour(StoredProperty property, OLE_COLOR value) noexcept {
    return automation([&] {
        VARIANT wanted{};
        wanted.vt = VT_I4;
        wanted.lVal = static_cast<LONG>(value);
        properties_.set(property, wanted);
        return S_OK;
    });
}

HRESULT Automation::getFlag(StoredProperty property, VARIANT_BOOL* value) noexcept {
    return automation([&] {
        required(value) = properties_.values()[property].boolVal;
        return S_OK;
    });
}

HRESULT Automation::setFlag(StoredProperty property, VARIANT_BOOL value) noexcept {
    return automation([&] {
        VARIANT wanted{};
        wanted.vt = VT_BOOL;
        wanted.boolVal = value != VARIANT_FALSE ? VARIANT_TRUE : VARIANT_FALSE;
        properties_.set(property, wanted);
        return S_OK;
    });
}

HRESULT Automation::getStyle(StoredProperty property, short* value) noexcept {
    return automation([&] {
        required(value) = properties_.values()[property].iVal;
        return S_OK;
    });
}

HRESULT Automation::setStyle(StoredProperty property, short value) noexcept {
    return automation([&] {
        VARIANT wanted{};
        wanted.vt = VT_I2;
        wanted.iVal = value;
        properties_.set(property, wanted);
        return S_OK;
    });
}

void Automation::setFont(const Ptr<IFontDisp>& font) {
    VARIANT wanted{};
    wanted.vt = VT_DISPATCH;
    wanted.pdispVal = font.get();
    properties_.set(StoredProperty::Font, wanted);
}

STDMETHODIMP Automation::get_BackColor(OLE_COLOR* value) noexcept {
    return getColour(StoredProperty::BackColor, value);
}
STDMETHODIMP Automation::put_BackColor(OLE_COLOR value) noexcept {
    return setColour(StoredProperty::BackColor, value);
}
STDMETHODIMP Automation::get_ForeColor(OLE_COLOR* value) noexcept {
    return getColour(StoredProperty::ForeColor, value);
}
STDMETHODIMP Automation::put_ForeColor(OLE_COLOR value) noexcept {
    return setColour(StoredProperty::ForeColor, value);
}
STDMETHODIMP Automation::get_Enabled(VARIANT_BOOL* value) noexcept {
    return getFlag(StoredProperty::Enabled, value);
}
STDMETHODIMP Automation::put_Enabled(VARIANT_BOOL value) noexcept {
    return setFlag(StoredProperty::Enabled, value);
}
STDMETHODIMP Automation::get_Loading(VARIANT_BOOL* value) noexcept {
    return getFlag(StoredProperty::Loading, value);
}
STDMETHODIMP Automation::put_Loading(VARIANT_BOOL value) noexcept {
    return setFlag(StoredProperty::Loading, value);
}
STDMETHODIMP Automation::get_BackStyle(short* value) noexcept {
    return getStyle(StoredProperty::BackStyle, value);
}
STDMETHODIMP Automation::put_BackStyle(short value) noexcept {
    return setStyle(StoredProperty::BackStyle, value);
}
STDMETHODIMP Automation::get_BorderStyle(short* value) noexcept {
    return getStyle(StoredProperty::BorderStyle, value);
}
STDMETHODIMP Automation::put_BorderStyle(short value) noexcept {
    return setStyle(StoredProperty::BorderStyle, value);
}

STDMETHODIMP Automation::get_Font(IFontDisp** value) noexcept {
    return automation([&] {
        required(value) = nullptr;
        IDispatch* font = properties_.values()[StoredProperty::Font].pdispVal;
        *value = Ptr<IDispatch>(font).as<IFontDisp>().detach();
        return S_OK;
    });
}

STDMETHODIMP Automation::put_Font(IFontDisp* value) noexcept {
    return automation([&] {
        const auto copy = copyOf(value);
        if (value != nullptr && !copy) return E_INVALIDARG;
        setFont(copy);
        return S_OK;
    });
}

STDMETHODIMP Automation::putref_Font(IFontDisp* value) noexcept {
    return automation([&] {
        setFont(Ptr<IFontDisp>(value));
        return S_OK;
    });
}

// --- The page ---------------------------------------------------------------------------------------------

STDMETHODIMP Automation::get_Caption(BSTR* value) noexcept {
    return automation([&] {
        required(value) = nullptr;
        *value = Bstr(CAPTION).detach();
        return S_OK;
    });
}

STDMETHODIMP Automation::GetPageInfo(BSTR* helpFile, LONG* helpContext) noexcept {
    return automation([&] { return getPageInfo(helpFile, helpContext); });
}

STDMETHODIMP Automation::get_Dirty(VARIANT_BOOL* value) noexcept {
    return automation([&] { return getDirty(page_, value); });
}

STDMETHODIMP Automation::Apply() noexcept {
    return automation([&] { return apply(page_); });
}

}  // namespace com
