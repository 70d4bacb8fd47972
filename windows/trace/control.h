// The control, as its container calls it.
#pragma once

#include <ole2.h>

#include "interfaces/com.h"

namespace trace {

/// What stands in front of a control and is given to the container in its place.
[[nodiscard]] com::Ptr<IUnknown> tracedControl(IUnknown* object);

}  // namespace trace
