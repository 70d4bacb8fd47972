#include "workbench/world/slow_files.h"

#include <cstring>
#include <string>

#include "workbench/addin/contract.h"
#include "workbench/addin/store.h"

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

struct Replacement {
    const char* name;
    void* function;
};

const Replacement REPLACEMENTS[] = {
    {"GetFileAttributesW", reinterpret_cast<void*>(slowGetFileAttributes)},
    {"FindFirstFileW", reinterpret_cast<void*>(slowFindFirstFile)},
    {"FindFirstFileExW", reinterpret_cast<void*>(slowFindFirstFileEx)},
    {"GetFileAttributesExW", reinterpret_cast<void*>(slowGetFileAttributesEx)},
};

template <class Type>
Type* at(HMODULE library, DWORD offset) {
    return reinterpret_cast<Type*>(reinterpret_cast<BYTE*>(library) + offset);
}

void replace(IMAGE_THUNK_DATA& slot, void* function) {
    DWORD protection = 0;
    if (!VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &protection)) return;
    slot.u1.Function = reinterpret_cast<ULONG_PTR>(function);
    VirtualProtect(&slot, sizeof slot, protection, &protection);
}

void replaceImport(HMODULE library, const IMAGE_THUNK_DATA& name, IMAGE_THUNK_DATA& slot) {
    if (IMAGE_SNAP_BY_ORDINAL(name.u1.Ordinal)) return;
    const auto* import = at<IMAGE_IMPORT_BY_NAME>(library, static_cast<DWORD>(name.u1.AddressOfData));
    for (const Replacement& replacement : REPLACEMENTS)
        if (std::strcmp(reinterpret_cast<const char*>(import->Name), replacement.name) == 0)
            replace(slot, replacement.function);
}

}  // namespace

void setBaseFolderTime(unsigned milliseconds) { baseFolderTime = milliseconds; }

void slowDownFilesOf(HMODULE library) {
    if (library == nullptr) return;
    const auto* headers =
        at<IMAGE_NT_HEADERS>(library, static_cast<DWORD>(at<IMAGE_DOS_HEADER>(library, 0)->e_lfanew));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (directory.VirtualAddress == 0) return;
    for (auto* from = at<IMAGE_IMPORT_DESCRIPTOR>(library, directory.VirtualAddress); from->Name != 0;
         ++from) {
        const auto* name = at<IMAGE_THUNK_DATA>(library, from->OriginalFirstThunk);
        auto* slot = at<IMAGE_THUNK_DATA>(library, from->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++slot) replaceImport(library, *name, *slot);
    }
}

}  // namespace workbench
