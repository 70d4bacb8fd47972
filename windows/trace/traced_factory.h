// The class object of the trace build: it makes controls with the trace in front of them.
#pragma once

#include <ole2.h>

#include <atomic>

#include "interfaces/com.h"
#include "windows/trace/window_trace.h"

namespace trace {

class TracedFactory : public IClassFactory {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;

    TracedFactory();

private:
    virtual ~TracedFactory() = default;

    com::Ptr<IClassFactory> factory_;
    std::atomic<ULONG> references_ = 1;
};

}  // namespace trace
