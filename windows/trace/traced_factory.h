// The class object of the trace build: it makes controls with the trace in front of them.
#pragma once

#include <ole2.h>

#include "interfaces/com.h"
#include "windows/trace/window_trace.h"

namespace trace {

class TracedFactory : public com::Counted<IClassFactory> {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;

    TracedFactory();

private:
    com::Ptr<IClassFactory> factory_;
};

}  // namespace trace
