// Makes controls for whoever asks the component for its class.
#pragma once

#include <ole2.h>

#include "interfaces/com.h"
#include "windows/platform/module_reference.h"

namespace com {

class ClassFactory : public Counted<IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;

private:
    win::ModuleReference module_;
};

}  // namespace com
