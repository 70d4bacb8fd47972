// A registry of a test's own: while it lives, the current user's hive of this process is an empty key.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "common/value.h"

namespace tests {

class ScratchRegistry {
public:
    ScratchRegistry();
    ScratchRegistry(const ScratchRegistry&) = delete;
    ScratchRegistry& operator=(const ScratchRegistry&) = delete;
    ~ScratchRegistry();

    /// Creates the key where it is missing.
    void put(const std::wstring& key, const std::wstring& name, std::uint32_t type, const vexa::Bytes& data);
    void put(const std::wstring& key, const std::wstring& name, const vexa::Value& value);
    void remove(const std::wstring& key, const std::wstring& name);
    /// Texts up to their first NUL; what is neither a text nor a 32-bit number comes as bytes.
    [[nodiscard]] std::optional<vexa::Value> get(const std::wstring& key, const std::wstring& name) const;

private:
    std::wstring path_;
    HKEY hive_ = nullptr;
};

}  // namespace tests
