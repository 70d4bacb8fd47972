// The type library that the component carries.
#pragma once

#include <oaidl.h>

#include "interfaces/com.h"

namespace com {

/// The description of one of the library's interfaces or classes. Throws Failure.
[[nodiscard]] Ptr<ITypeInfo> typeInfo(REFGUID guid);

}  // namespace com
