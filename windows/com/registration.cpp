#include "windows/com/registration.h"

#include <olectl.h>

#include <string>
#include <utility>

#include "VexaPPE.h"
#include "windows/com/boundary.h"
#include "windows/com/names.h"
#include "windows/platform/module.h"

namespace com {
namespace {

constexpr wchar_t CLASSES[] = L"Software\\Classes\\";

#ifdef _WIN64
constexpr wchar_t PLATFORM[] = L"win64";
#else
constexpr wchar_t PLATFORM[] = L"win32";
#endif

// Places in the table's texts: %CLSID%, %LIBID%, %IID%, %PROGID%, %NAME%, %MISC%, %PLATFORM%, %MODULE%,
// %FOLDER%.
constexpr wchar_t CLASS_KEY[] = L"CLSID\\%CLSID%";
constexpr wchar_t INTERFACE_KEY[] = L"Interface\\%IID%";
constexpr wchar_t TYPE_LIBRARY_KEY[] = L"TypeLib\\%LIBID%";
constexpr wchar_t TYPE_LIBRARY_FILE_KEY[] = L"TypeLib\\%LIBID%\\1.0\\0\\%PLATFORM%";
constexpr wchar_t PROG_ID_KEY[] = L"%PROGID%";

struct Row {
    const wchar_t* key;
    const wchar_t* name;  // null is the key's default value
    const wchar_t* value;
};

constexpr Row ROWS[] = {
    {CLASS_KEY, nullptr, L"%NAME%"},
    {L"CLSID\\%CLSID%\\InprocServer32", nullptr, L"%MODULE%"},
    {L"CLSID\\%CLSID%\\InprocServer32", L"ThreadingModel", L"Apartment"},
    {L"CLSID\\%CLSID%\\ProgID", nullptr, L"%PROGID%"},
    {L"CLSID\\%CLSID%\\VersionIndependentProgID", nullptr, L"%PROGID%"},
    {L"CLSID\\%CLSID%\\TypeLib", nullptr, L"%LIBID%"},
    {L"CLSID\\%CLSID%\\Version", nullptr, L"1.0"},
    {L"CLSID\\%CLSID%\\MiscStatus", nullptr, L"0"},
    {L"CLSID\\%CLSID%\\MiscStatus\\1", nullptr, L"%MISC%"},
    {L"CLSID\\%CLSID%\\ToolboxBitmap32", nullptr, L"%MODULE%, 1"},
    {L"CLSID\\%CLSID%\\Control", nullptr, L""},
    {L"CLSID\\%CLSID%\\Programmable", nullptr, L""},
    // The component category of controls.
    {L"CLSID\\%CLSID%\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}", nullptr, L""},
    {PROG_ID_KEY, nullptr, L"%NAME%"},
    {L"%PROGID%\\CLSID", nullptr, L"%CLSID%"},
    {L"TypeLib\\%LIBID%\\1.0", nullptr, L"%NAME%"},
    {L"TypeLib\\%LIBID%\\1.0\\FLAGS", nullptr, L"0"},
    {TYPE_LIBRARY_FILE_KEY, nullptr, L"%MODULE%"},
    {L"TypeLib\\%LIBID%\\1.0\\HELPDIR", nullptr, L"%FOLDER%"},
    {INTERFACE_KEY, nullptr, L"IctlPPE"},
    // The system's marshaller for interfaces of type libraries.
    {L"Interface\\%IID%\\ProxyStubClsid32", nullptr, L"{00020424-0000-0000-C000-000000000046}"},
    {L"Interface\\%IID%\\TypeLib", nullptr, L"%LIBID%"},
    {L"Interface\\%IID%\\TypeLib", L"Version", L"1.0"},
};

std::wstring text(REFGUID guid) {
    wchar_t buffer[40];
    StringFromGUID2(guid, buffer, 40);
    return buffer;
}

std::wstring expand(std::wstring text_) {
    const std::wstring module = win::modulePath(win::thisModule());
    const std::pair<std::wstring_view, std::wstring> places[] = {
        {L"%CLSID%", text(CLSID_ctlPPE)},
        {L"%LIBID%", text(LIBID_VexaPPE)},
        {L"%IID%", text(IID_IctlPPE)},
        {L"%PROGID%", PROG_ID},
        {L"%NAME%", CLASS_DESCRIPTION},
        {L"%MISC%", MISC_STATUS_TEXT},
        {L"%PLATFORM%", PLATFORM},
        {L"%MODULE%", module},
        {L"%FOLDER%", win::folderOf(module)},
    };
    for (const auto& [place, value] : places)
        if (const std::size_t at = text_.find(place); at != std::wstring::npos)
            text_.replace(at, place.size(), value);
    return text_;
}

std::wstring pathOf(const wchar_t* key) { return CLASSES + expand(key); }

bool write(HKEY hive, const Row& row) {
    const std::wstring value = expand(row.value);
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(hive, pathOf(row.key).c_str(), row.name, REG_SZ, value.c_str(), bytes) ==
           ERROR_SUCCESS;
}

/// The key's default value; empty where there is none.
std::wstring read(HKEY hive, const wchar_t* key) {
    wchar_t value[MAX_PATH] = L"";
    DWORD bytes = sizeof value;
    RegGetValueW(hive, pathOf(key).c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value, &bytes);
    return value;
}

bool exists(HKEY hive, const wchar_t* key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(hive, pathOf(key).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
    RegCloseKey(opened);
    return true;
}

bool remove(HKEY hive, const wchar_t* key) {
    // The tree's content first: the key itself may not be deleted while it has subkeys.
    const std::wstring path = pathOf(key);
    const LSTATUS emptied = RegDeleteTreeW(hive, path.c_str());
    if (emptied == ERROR_FILE_NOT_FOUND) return true;
    const LSTATUS deleted = RegDeleteKeyW(hive, path.c_str());
    return emptied == ERROR_SUCCESS && (deleted == ERROR_SUCCESS || deleted == ERROR_FILE_NOT_FOUND);
}

bool removeTypeLibrary(HKEY hive) {
    if (!remove(hive, TYPE_LIBRARY_FILE_KEY)) return false;
    const bool usedByOtherBitness =
        exists(hive, L"TypeLib\\%LIBID%\\1.0\\0\\win32") || exists(hive, L"TypeLib\\%LIBID%\\1.0\\0\\win64");
    return usedByOtherBitness || remove(hive, TYPE_LIBRARY_KEY);
}

/// Somebody else may have taken the name over.
bool removeProgId(HKEY hive) {
    const bool own = read(hive, L"%PROGID%\\CLSID") == text(CLSID_ctlPPE);
    return !own || remove(hive, PROG_ID_KEY);
}

bool removeAll(HKEY hive) {
    const bool progId = removeProgId(hive);
    const bool classKey = remove(hive, CLASS_KEY);
    const bool interfaceKey = remove(hive, INTERFACE_KEY);
    return removeTypeLibrary(hive) && progId && classKey && interfaceKey;
}

}  // namespace

HRESULT registerClass(HKEY hive) noexcept {
    return atBoundary([&] {
        for (const Row& row : ROWS) {
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

}  // namespace com
