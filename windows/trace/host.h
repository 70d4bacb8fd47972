// The container, as the control calls it.
#pragma once

#include <ole2.h>

#include "interfaces/com.h"

namespace trace {

/// What stands in front of an object of the container and is given to the control in its place; empty for
/// null.
[[nodiscard]] com::Ptr<IUnknown> tracedHost(IUnknown* object);

/// The same, as one of its interfaces.
template <class Interface>
[[nodiscard]] com::Ptr<Interface> tracedHostAs(Interface* object) {
    return tracedHost(object).template as<Interface>();
}

}  // namespace trace
