#include "tests/headless/memory_registry.h"

#include <algorithm>
#include <cstring>

#include "common/modRegistry.h"
#include "tests/headless/letters.h"

namespace headless {
namespace {

constexpr vexa::RegistryApi::Status SUCCESS = 0;
constexpr vexa::RegistryApi::Status FILE_NOT_FOUND = 2;
constexpr vexa::RegistryApi::Status ACCESS_DENIED = 5;
constexpr vexa::RegistryApi::Status INVALID_HANDLE = 6;
constexpr vexa::RegistryApi::Status MORE_DATA = 234;

constexpr std::uint32_t QUERY_RIGHT = 1;
constexpr std::uint32_t SET_RIGHT = 2;

/// Lower case, without the backslashes at both ends: a trailing one names the key itself.
std::wstring normalPath(const std::wstring& path) {
    const auto first = path.find_first_not_of(L'\\');
    if (first == std::wstring::npos) return {};
    return lower(path.substr(first, path.find_last_not_of(L'\\') - first + 1));
}

/// A text that is stored without its NUL gets it where the caller's buffer has one behind the counted bytes.
std::uint32_t countedSize(std::uint32_t type, const std::uint8_t* data, std::uint32_t size) {
    const bool text = static_cast<vexa::ValueType>(type) == vexa::ValueType::text;
    return text && size > 0 && data[size - 1] != 0 && data[size] == 0 ? size + 1 : size;
}

}  // namespace

MemoryRegistry::Status MemoryRegistry::openKey(Key hive, const std::string& path, std::uint32_t access,
                                               Key& key) {
    if (hive != vexa::HKEY_CURRENT_USER_HIVE) return INVALID_HANDLE;
    const std::wstring normal = normalPath(ansi_.fromAnsi(path));
    if (!normal.empty() && !keys_.contains(normal)) return FILE_NOT_FOUND;
    key = nextHandle_++;
    handles_[key] = {normal, access};
    return SUCCESS;
}

MemoryRegistry::Status MemoryRegistry::createKey(Key hive, const std::string& path, std::uint32_t access,
                                                 Key& key) {
    if (hive != vexa::HKEY_CURRENT_USER_HIVE) return INVALID_HANDLE;
    createPath(normalPath(ansi_.fromAnsi(path)));
    return openKey(hive, path, access, key);
}

MemoryRegistry::Status MemoryRegistry::queryValue(Key key, const std::string& name, std::uint32_t& type,
                                                  std::uint8_t* data, std::uint32_t& size) {
    Status status = SUCCESS;
    const Values* values = valuesOf(key, QUERY_RIGHT, status);
    if (values == nullptr) return status;
    const auto found = values->find(valueName(name));
    if (found == values->end()) return FILE_NOT_FOUND;

    const vexa::Bytes& stored = found->second.data;
    const auto storedSize = static_cast<std::uint32_t>(stored.size());
    type = found->second.type;
    const std::uint32_t room = size;
    size = storedSize;
    if (data == nullptr) return SUCCESS;
    if (room < storedSize) return MORE_DATA;
    std::copy(stored.begin(), stored.end(), data);
    return SUCCESS;
}

MemoryRegistry::Status MemoryRegistry::setValue(Key key, const std::string& name, std::uint32_t type,
                                                const std::uint8_t* data, std::uint32_t size) {
    Status status = SUCCESS;
    Values* values = valuesOf(key, SET_RIGHT, status);
    if (values == nullptr) return status;
    (*values)[valueName(name)] = {type, vexa::Bytes(data, data + countedSize(type, data, size))};
    return SUCCESS;
}

MemoryRegistry::Status MemoryRegistry::deleteValue(Key key, const std::string& name) {
    Status status = SUCCESS;
    Values* values = valuesOf(key, SET_RIGHT, status);
    if (values == nullptr) return status;
    return values->erase(valueName(name)) > 0 ? SUCCESS : FILE_NOT_FOUND;
}

MemoryRegistry::Status MemoryRegistry::closeKey(Key key) {
    return handles_.erase(key) > 0 ? SUCCESS : INVALID_HANDLE;
}

void MemoryRegistry::put(const std::wstring& path, const std::wstring& name, Stored value) {
    createPath(normalPath(path));
    keys_[normalPath(path)][lower(name)] = std::move(value);
}

std::optional<MemoryRegistry::Stored> MemoryRegistry::get(const std::wstring& path,
                                                          const std::wstring& name) const {
    const auto key = keys_.find(normalPath(path));
    if (key == keys_.end()) return {};
    const auto value = key->second.find(lower(name));
    if (value == key->second.end()) return {};
    return value->second;
}

bool MemoryRegistry::hasKey(const std::wstring& path) const { return keys_.contains(normalPath(path)); }

MemoryRegistry::Values* MemoryRegistry::valuesOf(Key key, std::uint32_t right, Status& status) {
    const auto handle = handles_.find(key);
    if (handle == handles_.end()) {
        status = INVALID_HANDLE;
        return nullptr;
    }
    if ((handle->second.access & right) == 0) {
        status = ACCESS_DENIED;
        return nullptr;
    }
    return &keys_[handle->second.path];
}

std::wstring MemoryRegistry::valueName(const std::string& name) const { return lower(ansi_.fromAnsi(name)); }

void MemoryRegistry::createPath(const std::wstring& normalPath) {
    for (std::size_t end = normalPath.find(L'\\'); end != std::wstring::npos;
         end = normalPath.find(L'\\', end + 1))
        keys_[normalPath.substr(0, end)];
    keys_[normalPath];
}

}  // namespace headless
