#include "workbench/addin/store.h"

#include <vector>

#include "workbench/addin/contract.h"

namespace workbench::store {
namespace {

/// An open key; closes itself.
class Key {
public:
    explicit Key(const std::wstring& path, REGSAM access = KEY_READ) {
        if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, access, &key_) != ERROR_SUCCESS) key_ = nullptr;
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() {
        if (key_ != nullptr) RegCloseKey(key_);
    }
    [[nodiscard]] HKEY get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

private:
    HKEY key_ = nullptr;
};

struct NamedValue {
    std::wstring name;
    DWORD type;
    std::vector<BYTE> data;
};

std::vector<NamedValue> valuesOf(const Key& key) {
    DWORD longestName = 0;
    DWORD longestData = 0;
    RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &longestName,
                     &longestData, nullptr, nullptr);
    std::vector<NamedValue> values;
    for (DWORD index = 0;; ++index) {
        NamedValue value{std::wstring(longestName + 1, L'\0'), 0, std::vector<BYTE>(longestData)};
        DWORD nameLength = longestName + 1;
        DWORD size = longestData;
        if (RegEnumValueW(key.get(), index, value.name.data(), &nameLength, nullptr, &value.type,
                          value.data.data(), &size) != ERROR_SUCCESS)
            return values;
        value.name.resize(nameLength);
        value.data.resize(size);
        values.push_back(std::move(value));
    }
}

std::vector<std::wstring> subkeysOf(const Key& key) {
    constexpr DWORD LONGEST_NAME = 256;  // the system's limit
    std::vector<std::wstring> names;
    wchar_t name[LONGEST_NAME];
    DWORD length = LONGEST_NAME;
    for (DWORD index = 0;
         RegEnumKeyExW(key.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index, length = LONGEST_NAME)
        names.emplace_back(name, length);
    return names;
}

std::wstring shown(const NamedValue& value) {
    if (value.type == REG_DWORD && value.data.size() == sizeof(DWORD)) {
        DWORD number = 0;
        memcpy(&number, value.data.data(), sizeof number);
        return std::to_wstring(static_cast<LONG>(number));
    }
    if (value.type == REG_SZ) {
        std::wstring text(value.data.size() / sizeof(wchar_t), L'\0');
        memcpy(text.data(), value.data.data(), text.size() * sizeof(wchar_t));
        return L"\"" + text.substr(0, text.find(L'\0')) + L"\"";
    }
    return std::to_wstring(value.data.size()) + L" bytes of type " + std::to_wstring(value.type);
}

void dumpBelow(const std::wstring& path, std::wstring& text) {
    const Key key(path);
    if (!key) return;
    for (const NamedValue& value : valuesOf(key))
        text += path + L"\\" + value.name + L" = " + shown(value) + L"\n";
    for (const std::wstring& subkey : subkeysOf(key)) dumpBelow(path + L"\\" + subkey, text);
}

}  // namespace

std::wstring readText(const std::wstring& key, const std::wstring& name, const std::wstring& defaultText) {
    DWORD size = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
        ERROR_SUCCESS)
        return defaultText;
    std::wstring text(size / sizeof(wchar_t), L'\0');
    if (RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(),
                     &size) != ERROR_SUCCESS)
        return defaultText;
    return text.substr(0, text.find(L'\0'));
}

DWORD readNumber(const std::wstring& key, const std::wstring& name, DWORD defaultNumber) {
    DWORD number = 0;
    DWORD size = sizeof number;
    const LSTATUS status =
        RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), RRF_RT_REG_DWORD, nullptr, &number, &size);
    return status == ERROR_SUCCESS ? number : defaultNumber;
}

void writeText(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void writeNumber(const std::wstring& key, const std::wstring& name, DWORD number) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), REG_DWORD, &number, sizeof number);
}

void removeValue(const std::wstring& key, const std::wstring& name) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str());
}

void createKey(const std::wstring& key) {
    HKEY created = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &created,
                        nullptr) == ERROR_SUCCESS)
        RegCloseKey(created);
}

void removeKey(const std::wstring& key) { RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str()); }

void renameKey(const std::wstring& oldKey, const std::wstring& newKey) {
    removeKey(newKey);
    createKey(newKey);
    const Key target(newKey, KEY_WRITE);
    if (target && RegCopyTreeW(HKEY_CURRENT_USER, oldKey.c_str(), target.get()) == ERROR_SUCCESS)
        removeKey(oldKey);
}

std::wstring profileKey() {
    return std::wstring(ROOT_KEY) + L"\\" + readText(ROOT_KEY, value::CurrentProfile);
}

std::wstring dump() {
    std::wstring text;
    dumpBelow(ROOT_KEY, text);
    return text;
}

}  // namespace workbench::store
