#include "windows/com/automation.h"

#include "windows/com/container.h"
#include "windows/com/names.h"

namespace com {

STDMETHODIMP Automation::get_Font(IFontDisp** value) noexcept {
    return automation([&] {
        required(value) = nullptr;
        IDispatch* font = properties_.values()[Font].pdispVal;
        *value = Ptr<IDispatch>(font).as<IFontDisp>().detach();
        return S_OK;
    });
}

STDMETHODIMP Automation::put_Font(IFontDisp* value) noexcept {
    return automation([&] {
        const auto copy = copyOf(value);
        if (value != nullptr && !copy) return E_INVALIDARG;
        set(Font, &VARIANT::pdispVal, copy.get());
        return S_OK;
    });
}

STDMETHODIMP Automation::putref_Font(IFontDisp* value) noexcept {
    return automation([&] {
        set(Font, &VARIANT::pdispVal, Ptr<IFontDisp>(value).get());
        return S_OK;
    });
}

STDMETHODIMP Automation::get_Caption(BSTR* value) noexcept {
    return automation([&] {
        required(value) = nullptr;
        *value = Bstr(CAPTION).detach();
        return S_OK;
    });
}

}  // namespace com
