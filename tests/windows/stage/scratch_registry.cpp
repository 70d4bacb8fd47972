#include "tests/windows/stage/scratch_registry.h"

#include <cstring>
#include <stdexcept>

#include "common/modRegistry.h"
#include "windows/platform/text.h"

namespace tests {
namespace {

std::wstring nextKey() {
    static int number = 0;
    return L"Software\\VexaPPE tests\\" + std::to_wstring(GetCurrentProcessId()) + L"-" +
           std::to_wstring(++number);
}

void check(LSTATUS status) {
    if (status != ERROR_SUCCESS) throw std::runtime_error("registry error " + std::to_string(status));
}

vexa::Bytes bytesOf(const void* data, std::size_t size) {
    vexa::Bytes bytes(size);
    if (size > 0) std::memcpy(bytes.data(), data, size);
    return bytes;
}

struct Stored {
    std::uint32_t type;
    vexa::Bytes data;
};

struct ToStored {
    Stored operator()(const std::wstring& text) const {
        const std::string ansi = win::toAnsi(text);
        return {REG_SZ, bytesOf(ansi.c_str(), ansi.size() + 1)};
    }
    Stored operator()(std::int32_t number) const { return {REG_DWORD, bytesOf(&number, sizeof number)}; }
    Stored operator()(const vexa::Bytes& bytes) const { return {REG_BINARY, bytes}; }
};

vexa::Value fromStored(const Stored& stored) {
    if (stored.type == REG_SZ) {
        const std::string ansi(stored.data.begin(), stored.data.end());
        return win::fromAnsi(ansi.substr(0, ansi.find('\0')));
    }
    std::int32_t number = 0;
    if (stored.type != REG_DWORD || stored.data.size() != sizeof number) return stored.data;
    std::memcpy(&number, stored.data.data(), sizeof number);
    return number;
}

}  // namespace

ScratchRegistry::ScratchRegistry() : path_(nextKey()) {
    check(RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &hive_,
                          nullptr));
    // A crashed run may have left its key, and its process number may come again.
    check(RegDeleteTreeW(hive_, nullptr));
    check(RegOverridePredefKey(HKEY_CURRENT_USER, hive_));
}

ScratchRegistry::~ScratchRegistry() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegCloseKey(hive_);
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
}

void ScratchRegistry::put(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                          const vexa::Bytes& data) {
    HKEY opened = nullptr;
    check(RegCreateKeyExA(HKEY_CURRENT_USER, win::toAnsi(key).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                          &opened, nullptr));
    const LSTATUS status = RegSetValueExA(opened, win::toAnsi(name).c_str(), 0, type, data.data(),
                                          static_cast<DWORD>(data.size()));
    RegCloseKey(opened);
    check(status);
}

void ScratchRegistry::put(const std::wstring& key, const std::wstring& name, const vexa::Value& value) {
    const Stored stored = std::visit(ToStored{}, value);
    put(key, name, stored.type, stored.data);
}

void ScratchRegistry::remove(const std::wstring& key, const std::wstring& name) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str());
}

std::optional<vexa::Value> ScratchRegistry::get(const std::wstring& key, const std::wstring& name) const {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, win::toAnsi(key).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return std::nullopt;
    const std::string ansiName = win::toAnsi(name);
    DWORD type = 0;
    DWORD size = 0;
    LSTATUS status = RegQueryValueExA(opened, ansiName.c_str(), nullptr, &type, nullptr, &size);
    vexa::Bytes data(size + 1);  // one more, so that there is a place to read nothing into
    if (status == ERROR_SUCCESS)
        status = RegQueryValueExA(opened, ansiName.c_str(), nullptr, &type, data.data(), &size);
    RegCloseKey(opened);
    if (status != ERROR_SUCCESS) return std::nullopt;
    data.resize(size);
    return fromStored({type, data});
}

}  // namespace tests
