// A registry value as the program holds it.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace vexa {

using Bytes = std::vector<std::uint8_t>;

/// A text, a 32-bit integer or an array of bytes.
using Value = std::variant<std::wstring, std::int32_t, Bytes>;

}  // namespace vexa
