#include "workbench/world/slow_files.h"

#include <string>

#include "workbench/addin/contract.h"
#include "workbench/addin/store.h"
#include "workbench/world/imports.h"

namespace workbench {
namespace {

unsigned baseFolderTime = 0;

void takeTimeFor(const wchar_t* path) {
    if (baseFolderTime == 0 || path == nullptr) return;
    const std::wstring folder = store::readText(store::profileKey(), value::VexaBaseDir);
    if (!folder.empty() && _wcsnicmp(path, folder.c_str(), folder.size()) == 0) Sleep(baseFolderTime);
}

/// The system's own function: this program's import may be one of those that are replaced.
template <class Function>
Function* systems(Function*, const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

DWORD WINAPI slowGetFileAttributes(const wchar_t* path) {
    takeTimeFor(path);
    return systems(&GetFileAttributesW, "GetFileAttributesW")(path);
}

BOOL WINAPI slowGetFileAttributesEx(const wchar_t* path, GET_FILEEX_INFO_LEVELS level, void* information) {
    takeTimeFor(path);
    return systems(&GetFileAttributesExW, "GetFileAttributesExW")(path, level, information);
}

HANDLE WINAPI slowFindFirstFile(const wchar_t* path, WIN32_FIND_DATAW* found) {
    takeTimeFor(path);
    return systems(&FindFirstFileW, "FindFirstFileW")(path, found);
}

HANDLE WINAPI slowFindFirstFileEx(const wchar_t* path, FINDEX_INFO_LEVELS level, void* found,
                                  FINDEX_SEARCH_OPS search, void* filter, DWORD flags) {
    takeTimeFor(path);
    return systems(&FindFirstFileExW, "FindFirstFileExW")(path, level, found, search, filter, flags);
}

}  // namespace

void setBaseFolderTime(unsigned milliseconds) { baseFolderTime = milliseconds; }

void slowDownFilesOf(HMODULE library) {
    replaceImports(library, {{"GetFileAttributesW", reinterpret_cast<void*>(slowGetFileAttributes)},
                             {"FindFirstFileW", reinterpret_cast<void*>(slowFindFirstFile)},
                             {"FindFirstFileExW", reinterpret_cast<void*>(slowFindFirstFileEx)},
                             {"GetFileAttributesExW", reinterpret_cast<void*>(slowGetFileAttributesEx)}});
}

}  // namespace workbench
