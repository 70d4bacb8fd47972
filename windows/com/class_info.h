// What the control tells of its class: its description and which interfaces explain their failures.
#pragma once

#include <ocidl.h>

#include "windows/com/part.h"

namespace com {

class ClassInfo : public Part<IProvideClassInfo, ISupportErrorInfo> {
public:
    using Part::Part;

    // The control raises no events of its own, hence no IProvideClassInfo2 that would name their interface.
    STDMETHODIMP GetClassInfo(ITypeInfo** out) noexcept override;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override;
};

}  // namespace com
