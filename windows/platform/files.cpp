#include "windows/platform/files.h"

#include <windows.h>

#include "windows/platform/module.h"
#include "windows/platform/text.h"

namespace win {
namespace {

class AppendedFile : public vexa::AppendFile {
public:
    explicit AppendedFile(HANDLE file) : file_(file) {}
    AppendedFile(const AppendedFile&) = delete;
    AppendedFile& operator=(const AppendedFile&) = delete;
    ~AppendedFile() override { CloseHandle(file_); }

    void write(const std::string& bytes) override {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(bytes.size());
        if (!WriteFile(file_, bytes.data(), size, &written, nullptr) || written != size) throwLastError();
    }

private:
    HANDLE file_;
};

/// Windows' answer for a path that does not exist is a set of all attributes.
bool has(const std::wstring& path, DWORD attribute, bool wanted) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && ((attributes & attribute) != 0) == wanted;
}

/// A search through a folder; it ends with the object.
class FoundFiles {
public:
    explicit FoundFiles(HANDLE search) : search_(search) {}
    FoundFiles(const FoundFiles&) = delete;
    FoundFiles& operator=(const FoundFiles&) = delete;
    ~FoundFiles() {
        if (search_ != INVALID_HANDLE_VALUE) FindClose(search_);
    }
    [[nodiscard]] HANDLE get() const { return search_; }

private:
    HANDLE search_;
};

bool isShownFolder(const WIN32_FIND_DATAW& entry) {
    const bool folder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const bool hidden = (entry.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    const std::wstring_view name = entry.cFileName;
    return folder && !hidden && name != L"." && name != L"..";
}

}  // namespace

bool FileSystem::folderExists(const std::wstring& path) { return has(path, FILE_ATTRIBUTE_DIRECTORY, true); }

bool FileSystem::fileExists(const std::wstring& path) { return has(path, FILE_ATTRIBUTE_DIRECTORY, false); }

std::uint64_t FileSystem::fileSize(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) throwLastError();
    return (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
}

void FileSystem::createFolder(const std::wstring& path) {
    if (!CreateDirectoryW(path.c_str(), nullptr)) throwLastError();
}

void FileSystem::deleteFile(const std::wstring& path) {
    if (!DeleteFileW(path.c_str())) throwLastError();
}

std::vector<std::wstring> FileSystem::drives() {
    std::vector<std::wstring> names;
    const DWORD present = GetLogicalDrives();
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter)
        if (present & (1u << (letter - L'A'))) names.push_back({letter, L':'});
    return names;
}

std::vector<std::wstring> FileSystem::subfolders(const std::wstring& path) {
    std::vector<std::wstring> names;
    const std::wstring pattern = path.ends_with(L'\\') ? path + L"*" : path + L"\\*";
    WIN32_FIND_DATAW entry;
    const FoundFiles search(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry,
                                             FindExSearchLimitToDirectories, nullptr, 0));
    if (search.get() == INVALID_HANDLE_VALUE) {
        // The root of an empty drive has no entry at all, not even itself.
        if (GetLastError() == ERROR_FILE_NOT_FOUND && folderExists(path)) return names;
        throwLastError();
    }
    do {
        if (isShownFolder(entry)) names.emplace_back(entry.cFileName);
    } while (FindNextFileW(search.get(), &entry));
    return names;
}

std::unique_ptr<vexa::AppendFile> FileSystem::openForAppending(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) throwLastError();
    return std::make_unique<AppendedFile>(file);
}

std::wstring FileSystem::installationFolder() { return folderOf(modulePath(thisModule())); }

vexa::LocalTime Clock::localTime() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

void Clock::sleep(int milliseconds) { Sleep(milliseconds > 0 ? static_cast<DWORD>(milliseconds) : 0); }

}  // namespace win
