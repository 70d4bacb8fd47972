// Makes controls for whoever asks the component for its class.
#pragma once

#include <ole2.h>

#include <atomic>

#include "windows/platform/module_reference.h"

namespace com {

class ClassFactory : public IClassFactory {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;

private:
    virtual ~ClassFactory() = default;

    win::ModuleReference module_;
    std::atomic<ULONG> references_ = 1;
};

}  // namespace com
