// The property page contract, as both of the control's dual interfaces offer it.
#pragma once

#include <ole2.h>

#include "OutlookPages.h"
#include "windows/com/dispatch_part.h"
#include "windows/com/page_host.h"

namespace com {

/// No help: the file's name is empty, the context 0. A name that came in is freed.
HRESULT getPageInfo(BSTR* helpFile, long* helpContext);
HRESULT getDirty(PageHost& page, VARIANT_BOOL* dirty);
/// Always a success towards the host.
HRESULT apply(PageHost& page);

/// Outlook's interface.
class OutlookPage : public DispatchPart<PropertyPage> {
public:
    OutlookPage(IUnknown& whole, PageHost& page) : DispatchPart(whole), page_(page) {}

    STDMETHODIMP GetPageInfo(BSTR* helpFile, LONG* helpContext) noexcept override;
    STDMETHODIMP get_Dirty(VARIANT_BOOL* dirty) noexcept override;
    STDMETHODIMP Apply() noexcept override;

private:
    PageHost& page_;
};

}  // namespace com
