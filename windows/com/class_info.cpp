#include "windows/com/class_info.h"

#include "VexaPPE.h"
#include "windows/com/boundary.h"
#include "windows/com/type_library.h"

namespace com {

STDMETHODIMP ClassInfo::GetClassInfo(ITypeInfo** out) noexcept {
    return atBoundary([&] {
        required(out) = nullptr;
        *out = typeInfo(CLSID_ctlPPE).detach();
        return S_OK;
    });
}

STDMETHODIMP ClassInfo::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
    return iid == IID_IctlPPE || iid == IID_PropertyPage ? S_OK : S_FALSE;
}

}  // namespace com
