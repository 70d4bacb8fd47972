// A registry in memory, behind the narrow functions: one hive, keys and values without regard to case, values
// of any type and content.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "common/modRegistry.h"
#include "common/platform.h"
#include "common/value.h"
#include "tests/headless/letters.h"

namespace headless {

class MemoryRegistry : public vexa::RegistryApi {
public:
    explicit MemoryRegistry(vexa::AnsiCodec& ansi) : ansi_(ansi) {}

    Status openKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override {
        if (hive != vexa::HKEY_CURRENT_USER_HIVE) return INVALID_HANDLE;
        const std::wstring normal = normalPath(ansi_.fromAnsi(path));
        if (!normal.empty() && !keys_.contains(normal)) return FILE_NOT_FOUND;
        key = nextHandle_++;
        handles_[key] = {normal, access};
        return SUCCESS;
    }
    Status createKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override {
        if (hive != vexa::HKEY_CURRENT_USER_HIVE) return INVALID_HANDLE;
        createPath(normalPath(ansi_.fromAnsi(path)));
        return openKey(hive, path, access, key);
    }
    Status queryValue(Key key, const std::string& name, std::uint32_t& type, std::uint8_t* data,
                      std::uint32_t& size) override {
        return withValues(key, QUERY_RIGHT, [&](Values& values) {
            const auto found = values.find(valueName(name));
            if (found == values.end()) return FILE_NOT_FOUND;
            const vexa::Bytes& stored = found->second.data;
            type = found->second.type;
            const std::uint32_t room = std::exchange(size, static_cast<std::uint32_t>(stored.size()));
            if (data == nullptr) return SUCCESS;
            if (room < size) return MORE_DATA;
            std::copy(stored.begin(), stored.end(), data);
            return SUCCESS;
        });
    }
    Status setValue(Key key, const std::string& name, std::uint32_t type, const std::uint8_t* data,
                    std::uint32_t size) override {
        return withValues(key, SET_RIGHT, [&](Values& values) {
            values[valueName(name)] = {type, vexa::Bytes(data, data + countedSize(type, data, size))};
            return SUCCESS;
        });
    }
    Status deleteValue(Key key, const std::string& name) override {
        return withValues(key, SET_RIGHT, [&](Values& values) {
            return values.erase(valueName(name)) > 0 ? SUCCESS : FILE_NOT_FOUND;
        });
    }
    Status closeKey(Key key) override { return handles_.erase(key) > 0 ? SUCCESS : INVALID_HANDLE; }

    // The same registry, seen by a test.
    struct Stored {
        std::uint32_t type = 0;
        vexa::Bytes data;
    };
    /// Creates missing keys.
    void put(const std::wstring& path, const std::wstring& name, Stored value) {
        createPath(normalPath(path));
        keys_[normalPath(path)][lower(name)] = std::move(value);
    }
    [[nodiscard]] std::optional<Stored> get(const std::wstring& path, const std::wstring& name) const {
        const auto key = keys_.find(normalPath(path));
        if (key == keys_.end()) return {};
        const auto value = key->second.find(lower(name));
        if (value == key->second.end()) return {};
        return value->second;
    }

private:
    static constexpr Status SUCCESS = 0;
    static constexpr Status FILE_NOT_FOUND = 2;
    static constexpr Status ACCESS_DENIED = 5;
    static constexpr Status INVALID_HANDLE = 6;
    static constexpr Status MORE_DATA = 234;

    static constexpr std::uint32_t QUERY_RIGHT = 1;
    static constexpr std::uint32_t SET_RIGHT = 2;

    using Values = std::map<std::wstring, Stored>;
    struct Handle {
        std::wstring path;
        std::uint32_t access = 0;
    };

    /// Lower case, without the backslashes at both ends: a trailing one names the key itself.
    static std::wstring normalPath(const std::wstring& path) {
        const auto first = path.find_first_not_of(L'\\');
        if (first == std::wstring::npos) return {};
        return lower(path.substr(first, path.find_last_not_of(L'\\') - first + 1));
    }
    /// A text that is stored without its NUL gets it where the caller's buffer has one behind the counted
    /// bytes.
    static std::uint32_t countedSize(std::uint32_t type, const std::uint8_t* data, std::uint32_t size) {
        const bool text = static_cast<vexa::ValueType>(type) == vexa::ValueType::text;
        return text && size > 0 && data[size - 1] != 0 && data[size] == 0 ? size + 1 : size;
    }
    /// Does something with the key's values where the handle is open with this right.
    template <class Action>
    [[nodiscard]] Status withValues(Key key, std::uint32_t right, Action action) {
        const auto handle = handles_.find(key);
        if (handle == handles_.end()) return INVALID_HANDLE;
        if ((handle->second.access & right) == 0) return ACCESS_DENIED;
        return action(keys_[handle->second.path]);
    }
    [[nodiscard]] std::wstring valueName(const std::string& name) const {
        return lower(ansi_.fromAnsi(name));
    }
    void createPath(const std::wstring& normalPath) {
        for (std::size_t end = normalPath.find(L'\\'); end != std::wstring::npos;
             end = normalPath.find(L'\\', end + 1))
            keys_[normalPath.substr(0, end)];
        keys_[normalPath];
    }

    vexa::AnsiCodec& ansi_;
    std::map<std::wstring, Values> keys_;
    std::map<Key, Handle> handles_;
    Key nextHandle_ = 0x100;
};

}  // namespace headless
