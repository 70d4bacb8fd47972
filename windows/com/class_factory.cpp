#include "windows/com/class_factory.h"

#include "windows/com/boundary.h"
#include "windows/com/control.h"

namespace com {

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *out = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() noexcept { return ++references_; }

STDMETHODIMP_(ULONG) ClassFactory::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

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
