// The property page contract, as both of the control's dual interfaces offer it.
#pragma once

#include <ole2.h>

#include "OutlookPages.h"
#include "windows/com/dispatch_part.h"
#include "windows/com/page_host.h"

namespace com {

template <class Interface>
class PageContract : public DispatchPart<Interface> {
public:
    PageContract(IUnknown& whole, PageHost& page) : DispatchPart<Interface>(whole), page_(page) {}

    /// No help: the file's name is empty, the context 0. A name that came in is freed.
    STDMETHODIMP GetPageInfo(BSTR* helpFile, LONG* helpContext) noexcept override {
        return this->automation([&] {
            required(helpFile);
            required(helpContext);
            Bstr none{L""};
            SysFreeString(*helpFile);
            *helpFile = none.detach();
            *helpContext = 0;
            return S_OK;
        });
    }
    STDMETHODIMP get_Dirty(VARIANT_BOOL* dirty) noexcept override {
        return this->automation([&] {
            required(dirty) = VARIANT_FALSE;
            page_.use([&](vexa::ctlPPE& form) {
                if (form.PropertyPage_Dirty()) *dirty = VARIANT_TRUE;
            });
            return S_OK;
        });
    }
    /// Always a success towards the host.
    STDMETHODIMP Apply() noexcept override {
        return this->automation([&] {
            page_.use([](vexa::ctlPPE& form) { form.PropertyPage_Apply(); });
            return S_OK;
        });
    }

private:
    PageHost& page_;
};

/// Outlook's interface.
using OutlookPage = PageContract<PropertyPage>;

}  // namespace com
