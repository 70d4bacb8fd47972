// A registry in memory, behind the narrow functions: one hive, keys and values without regard to case, values
// of any type and content.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "common/platform.h"
#include "common/value.h"

namespace headless {

class MemoryRegistry : public vexa::RegistryApi {
public:
    explicit MemoryRegistry(vexa::AnsiCodec& ansi) : ansi_(ansi) {}

    Status openKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override;
    Status createKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override;
    Status queryValue(Key key, const std::string& name, std::uint32_t& type, std::uint8_t* data,
                      std::uint32_t& size) override;
    Status setValue(Key key, const std::string& name, std::uint32_t type, const std::uint8_t* data,
                    std::uint32_t size) override;
    Status deleteValue(Key key, const std::string& name) override;
    Status closeKey(Key key) override;

    // The same registry, seen by a test.
    struct Stored {
        std::uint32_t type = 0;
        vexa::Bytes data;
    };
    /// Creates missing keys.
    void put(const std::wstring& path, const std::wstring& name, Stored value);
    [[nodiscard]] std::optional<Stored> get(const std::wstring& path, const std::wstring& name) const;
    [[nodiscard]] bool hasKey(const std::wstring& path) const;

private:
    using Values = std::map<std::wstring, Stored>;
    struct Handle {
        std::wstring path;
        std::uint32_t access = 0;
    };
    /// The handle's values where it is open with this right, else null and `status` says why.
    [[nodiscard]] Values* valuesOf(Key key, std::uint32_t right, Status& status);
    [[nodiscard]] std::wstring valueName(const std::string& name) const;
    void createPath(const std::wstring& normalPath);

    vexa::AnsiCodec& ansi_;
    std::map<std::wstring, Values> keys_;
    std::map<Key, Handle> handles_;
    Key nextHandle_ = 0x100;
};

}  // namespace headless
