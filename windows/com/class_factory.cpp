#include "windows/com/class_factory.h"

#include "windows/com/boundary.h"
#include "windows/com/control.h"

namespace com {

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept {
    return atBoundary([&] {
        required(out) = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        Control::create(iid, out);
        return S_OK;
    });
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) noexcept {
    if (lock)
        win::ModuleReference::add();
    else
        win::ModuleReference::remove();
    return S_OK;
}

}  // namespace com
