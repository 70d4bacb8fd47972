// The stored properties as bytes: a mark, the version, then the values in the order of their rows; numbers
// have their own width, lowest byte first. The font is a flag byte and, where there is one, its attributes,
// the name last, led by its length.
#pragma once

#include <objidl.h>

#include <cstdint>
#include <vector>

#include "windows/com/stored_properties.h"

namespace com {

[[nodiscard]] std::vector<std::uint8_t> toBytes(const StoredValues& values);

/// Throws Failure where the stream ends early, is of another kind or of a newer version.
[[nodiscard]] StoredValues fromStream(IStream& stream);

}  // namespace com
