#include "windows/platform/registry.h"

#include <windows.h>

namespace win {
namespace {

/// Handles of predefined keys are 32-bit numbers that the system sign-extends.
HKEY handleOf(vexa::RegistryApi::Key key) {
    if (key >= 0x80000000 && key <= 0x8FFFFFFF)
        return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(key)));
    return reinterpret_cast<HKEY>(key);
}

}  // namespace

Registry::Status Registry::openKey(Key hive, const std::string& path, std::uint32_t access, Key& key) {
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyExA(handleOf(hive), path.c_str(), 0, access, &opened);
    key = reinterpret_cast<Key>(opened);
    return status;
}

Registry::Status Registry::createKey(Key hive, const std::string& path, std::uint32_t access, Key& key) {
    HKEY opened = nullptr;
    const LSTATUS status = RegCreateKeyExA(handleOf(hive), path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           access, nullptr, &opened, nullptr);
    key = reinterpret_cast<Key>(opened);
    return status;
}

Registry::Status Registry::queryValue(Key key, const std::string& name, std::uint32_t& type,
                                      std::uint8_t* data, std::uint32_t& size) {
    DWORD storedType = 0;
    DWORD storedSize = size;
    const LSTATUS status =
        RegQueryValueExA(handleOf(key), name.c_str(), nullptr, &storedType, data, &storedSize);
    type = storedType;
    size = storedSize;
    return status;
}

Registry::Status Registry::setValue(Key key, const std::string& name, std::uint32_t type,
                                    const std::uint8_t* data, std::uint32_t size) {
    return RegSetValueExA(handleOf(key), name.c_str(), 0, type, data, size);
}

Registry::Status Registry::deleteValue(Key key, const std::string& name) {
    return RegDeleteValueA(handleOf(key), name.c_str());
}

Registry::Status Registry::closeKey(Key key) { return RegCloseKey(handleOf(key)); }

}  // namespace win
