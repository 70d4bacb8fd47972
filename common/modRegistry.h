// The only code that touches the registry: read, write and delete one named value. Nothing is cached and
// no failure is reported.
#pragma once

#include "common/platform.h"
#include "common/value.h"

namespace vexa {

constexpr RegistryApi::Key HKEY_CURRENT_USER_HIVE = 0x80000001;

/// Registry type codes.
enum class ValueType : std::uint32_t { text = 1, binary = 3, integer = 4 };

/// As the system's automation converts. Throws Error where the value is no number.
[[nodiscard]] std::int32_t asInteger(const Value& value, Conversions& conversions);
/// Throws Error where the value is neither text nor number.
[[nodiscard]] std::wstring asText(const Value& value);

class modRegistry {
public:
    modRegistry(RegistryApi& api, AnsiCodec& ansi, Conversions& conversions)
        : api_(api), ansi_(ansi), conversions_(conversions) {}

    /// The value as text, integer or bytes after its stored type; `defaultValue` where it is missing, of
    /// another type or cannot be read.
    [[nodiscard]] Value RegistryRead(RegistryApi::Key hive, const std::wstring& keyPath,
                                     const std::wstring& name, const Value& defaultValue) noexcept;

    /// Creates the key path where it is missing. A value that does not convert to the type is not written.
    void RegistryWrite(RegistryApi::Key hive, const std::wstring& keyPath, const std::wstring& name,
                       ValueType type, const Value& value) noexcept;

    /// A missing key or value is no error.
    void RegistryDelete(RegistryApi::Key hive, const std::wstring& keyPath,
                        const std::wstring& name) noexcept;

private:
    RegistryApi& api_;
    AnsiCodec& ansi_;
    Conversions& conversions_;
};

}  // namespace vexa
