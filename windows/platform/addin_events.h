// The connection to the add-in's event ProcessFinished.
#pragma once

#include "common/platform.h"
#include "interfaces/com.h"

namespace win {

/// Connects `handler` to the object's default source interface (by its class information), else to its first
/// connection point. The event is found by its name in the source's type information, else it is the member
/// with the identifier 1. Throws vexa::Error where the object offers no connection.
[[nodiscard]] std::unique_ptr<vexa::EventConnection> connectProcessFinished(
    const com::Ptr<IUnknown>& object, vexa::AddIn::ProcessFinished handler);

}  // namespace win
