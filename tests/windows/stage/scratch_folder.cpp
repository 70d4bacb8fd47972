#include "tests/windows/stage/scratch_folder.h"

#include <windows.h>

#include <algorithm>
#include <stdexcept>

#include "common/error.h"
#include "windows/platform/module.h"

namespace tests {
namespace {

std::wstring nextFolder() {
    static int number = 0;
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    return std::wstring(folder) + L"vexa" + std::to_wstring(GetCurrentProcessId()) + L"-" +
           std::to_wstring(++number);
}

void removeAll(const std::wstring& folder) {
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = entry.cFileName;
        const std::wstring path = folder + L"\\" + name;
        if (name == L"." || name == L"..") continue;
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
            removeAll(path);
        else
            DeleteFileW(path.c_str());
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    RemoveDirectoryW(folder.c_str());
}

HANDLE open(const std::wstring& path, DWORD access, DWORD creation) {
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, creation, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

}  // namespace

ScratchFolder::ScratchFolder() : path_(nextFolder()) { createFolders(path_); }

ScratchFolder::~ScratchFolder() { removeAll(path_); }

void ScratchFolder::write(const std::wstring& path, const std::string& content) {
    const HANDLE file = open(path, GENERIC_WRITE, CREATE_ALWAYS);
    if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("a test's file cannot be written");
    DWORD written = 0;
    WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(file);
}

std::optional<std::string> ScratchFolder::read(const std::wstring& path) {
    const HANDLE file = open(path, GENERIC_READ, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE) return std::nullopt;
    std::string content(GetFileSize(file, nullptr), '\0');
    DWORD size = 0;
    ReadFile(file, content.data(), static_cast<DWORD>(content.size()), &size, nullptr);
    CloseHandle(file);
    content.resize(size);
    return content;
}

void ScratchFolder::createFolders(const std::wstring& path) {
    if (path.empty() || CreateDirectoryW(path.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS)
        return;
    createFolders(win::folderOf(path));
    CreateDirectoryW(path.c_str(), nullptr);
}

std::vector<std::wstring> InstalledElsewhere::drives() {
    std::vector<std::wstring> names = FileSystem::drives();
    for (const auto& [name, ready] : added_) names.push_back(name);
    std::ranges::sort(names);
    return names;
}

std::vector<std::wstring> InstalledElsewhere::subfolders(const std::wstring& path) {
    const auto drive = added_.find(path.substr(0, 2));
    if (drive == added_.end()) return FileSystem::subfolders(path);
    if (!drive->second) throw vexa::Error(L"The device is not ready");
    return {};
}

}  // namespace tests
