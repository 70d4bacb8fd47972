#include "windows/platform/module.h"

// The linker's name for the start of the module that it links.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace win {

HMODULE thisModule() { return reinterpret_cast<HMODULE>(&__ImageBase); }

std::wstring modulePath(HMODULE module) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

std::wstring folderOf(const std::wstring& path) {
    const std::size_t end = path.find_last_of(L"\\/");
    return end == std::wstring::npos ? std::wstring() : path.substr(0, end);
}

}  // namespace win
