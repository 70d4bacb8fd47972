// The stored properties in a container's stream, in the bytes of page/property_bytes.h.
#pragma once

#include <objidl.h>

#include <cstdint>
#include <vector>

#include "windows/com/stored_properties.h"

namespace com {

[[nodiscard]] std::vector<std::uint8_t> toBytes(const StoredValues& values);

/// Throws where the stream ends early, is of another kind or of a newer version.
[[nodiscard]] StoredValues fromStream(IStream& stream);

}  // namespace com
