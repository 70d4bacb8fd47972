#include "windows/com/registration.h"

#include <olectl.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "windows/com/boundary.h"
#include "windows/com/registration_table.h"
#include "windows/platform/module.h"

namespace com {
namespace {

constexpr wchar_t CLASSES[] = L"Software\\Classes\\";

#ifdef _WIN64
constexpr wchar_t PLATFORM[] = L"win64";
constexpr REGSAM OTHER_VIEW = KEY_WOW64_32KEY;
#else
constexpr wchar_t PLATFORM[] = L"win32";
constexpr REGSAM OTHER_VIEW = KEY_WOW64_64KEY;
#endif

std::wstring filledIn(const wchar_t* text) {
    return com::filledIn(text, PLATFORM, win::modulePath(win::thisModule()));
}

std::wstring pathOf(const wchar_t* key) { return CLASSES + filledIn(key); }

bool write(HKEY hive, const RegistrationRow& row) {
    const std::wstring value = filledIn(row.value);
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(hive, pathOf(row.key).c_str(), row.name, REG_SZ, value.c_str(), bytes) ==
           ERROR_SUCCESS;
}

bool exists(HKEY hive, const std::wstring& path, REGSAM view = 0) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(hive, path.c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS) return false;
    RegCloseKey(opened);
    return true;
}

/// Whether the value there is this text, in whatever case a path was written; a row without a text stands for
/// its key.
bool holds(HKEY hive, const wchar_t* key, const wchar_t* name, const std::wstring& expected) {
    if (expected.empty()) return exists(hive, pathOf(key));
    std::wstring found(expected.size() + 1, L'\0');
    auto bytes = static_cast<DWORD>(found.size() * sizeof(wchar_t));
    const LSTATUS read =
        RegGetValueW(hive, pathOf(key).c_str(), name, RRF_RT_REG_SZ, nullptr, found.data(), &bytes);
    return read == ERROR_SUCCESS && _wcsicmp(expected.c_str(), found.c_str()) == 0;
}

bool remove(HKEY hive, const wchar_t* key) {
    // The tree's content first: the key itself may not be deleted while it has subkeys.
    const std::wstring path = pathOf(key);
    const LSTATUS emptied = RegDeleteTreeW(hive, path.c_str());
    if (emptied == ERROR_FILE_NOT_FOUND) return true;
    const LSTATUS deleted = RegDeleteKeyW(hive, path.c_str());
    return emptied == ERROR_SUCCESS && (deleted == ERROR_SUCCESS || deleted == ERROR_FILE_NOT_FOUND);
}

/// To be asked when this bitness's own class key is gone: a 32-bit Windows shows it in both views.
bool otherBitnessIsRegistered(HKEY hive) { return exists(hive, pathOf(SERVER_KEY), OTHER_VIEW); }

bool typeLibraryIsInUse(HKEY hive) {
    const std::wstring platforms = pathOf(TYPE_LIBRARY_KEY) + filledIn(L"\\%VERSION%\\0\\");
    return exists(hive, platforms + L"win32") || exists(hive, platforms + L"win64");
}

bool removeCommonRows(HKEY hive) {
    if (otherBitnessIsRegistered(hive)) return true;
    // Somebody else may have taken the name over.
    const bool ownName = holds(hive, PROG_ID_CLASS_KEY, nullptr, filledIn(L"%CLSID%"));
    const bool nameIsGone = !ownName || remove(hive, PROG_ID_KEY);
    return (typeLibraryIsInUse(hive) || remove(hive, TYPE_LIBRARY_KEY)) && nameIsGone;
}

bool removeAll(HKEY hive) {
    const bool classKey = remove(hive, CLASS_KEY);
    const bool interfaceKey = remove(hive, INTERFACE_KEY);
    const bool platform = remove(hive, TYPE_LIBRARY_PLATFORM_KEY);
    return removeCommonRows(hive) && classKey && interfaceKey && platform;
}

}  // namespace

HRESULT registerClass(HKEY hive) noexcept {
    return atBoundary([&] {
        for (const RegistrationRow& row : REGISTRATION) {
            if (write(hive, row)) continue;
            removeAll(hive);
            return SELFREG_E_CLASS;
        }
        return S_OK;
    });
}

HRESULT unregisterClass(HKEY hive) noexcept {
    return atBoundary([&] { return removeAll(hive) ? S_OK : SELFREG_E_CLASS; });
}

HRESULT isClassRegistered(HKEY hive) noexcept {
    return atBoundary([&] {
        const auto isThere = [hive](const RegistrationRow& row) {
            return holds(hive, row.key, row.name, filledIn(row.value));
        };
        return std::all_of(std::begin(REGISTRATION), std::end(REGISTRATION), isThere) ? S_OK
                                                                                      : REGDB_E_CLASSNOTREG;
    });
}

}  // namespace com
