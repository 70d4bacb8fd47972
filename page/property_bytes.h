// The control's stored properties as bytes: a mark, the version, then the values in their order; numbers have
// their own width, lowest byte first. A font is a flag byte and, where there is one, its attributes, the name
// last, led by its length.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vexa {

struct StoredFont {
    std::int64_t size = 0;  ///< ten-thousandths of a point
    std::int16_t weight = 0;
    std::int16_t charset = 0;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;
    std::wstring name;
    bool operator==(const StoredFont&) const = default;
};

using PropertyValue = std::variant<std::int32_t, std::int16_t, bool, std::optional<StoredFont>>;

/// Fills `count` bytes. Throws where there are not so many.
using ByteReader = std::function<void(void* bytes, std::size_t count)>;

[[nodiscard]] std::vector<std::uint8_t> propertiesToBytes(const std::vector<PropertyValue>& values);

/// Reads into each value one of its kind, and no byte behind the last one. Throws Error where the bytes are
/// of another kind or of a newer version.
void readProperties(const ByteReader& read, std::vector<PropertyValue>& values);

}  // namespace vexa
