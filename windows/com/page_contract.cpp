#include "windows/com/page_contract.h"

namespace com {

HRESULT getPageInfo(BSTR* helpFile, long* helpContext) {
    required(helpFile);
    required(helpContext);
    Bstr none{L""};
    SysFreeString(*helpFile);
    *helpFile = none.detach();
    *helpContext = 0;
    return S_OK;
}

HRESULT getDirty(PageHost& page, VARIANT_BOOL* dirty) {
    required(dirty) = VARIANT_FALSE;
    page.use([&](vexa::ctlPPE& form) {
        if (form.PropertyPage_Dirty()) *dirty = VARIANT_TRUE;
    });
    return S_OK;
}

HRESULT apply(PageHost& page) {
    page.use([](vexa::ctlPPE& form) { form.PropertyPage_Apply(); });
    return S_OK;
}

STDMETHODIMP OutlookPage::GetPageInfo(BSTR* helpFile, LONG* helpContext) noexcept {
    return automation([&] { return getPageInfo(helpFile, helpContext); });
}

STDMETHODIMP OutlookPage::get_Dirty(VARIANT_BOOL* dirty) noexcept {
    return automation([&] { return getDirty(page_, dirty); });
}

STDMETHODIMP OutlookPage::Apply() noexcept {
    return automation([&] { return apply(page_); });
}

}  // namespace com
