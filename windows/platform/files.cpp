#include "windows/platform/files.h"

#include <windows.h>

#include <chrono>

#include "windows/platform/module.h"
#include "windows/platform/text.h"

namespace win {
namespace {

/// Keeps the system's own error boxes away while it lives; the thread's other choices stay.
class NoErrorBoxes {
public:
    NoErrorBoxes() { SetThreadErrorMode(GetThreadErrorMode() | SEM_FAILCRITICALERRORS, &before_); }
    ~NoErrorBoxes() { SetThreadErrorMode(before_, nullptr); }
    NoErrorBoxes(const NoErrorBoxes&) = delete;
    NoErrorBoxes& operator=(const NoErrorBoxes&) = delete;

private:
    DWORD before_ = 0;
};

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
    const NoErrorBoxes quiet;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && ((attributes & attribute) != 0) == wanted;
}

using Entry = WIN32_FIND_DATAW;

/// A search through a folder; it ends with the object.
class FoundFiles {
public:
    FoundFiles(const std::wstring& pattern, FINDEX_SEARCH_OPS wanted)
        : search_(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry_, wanted, nullptr,
                                   FIND_FIRST_EX_LARGE_FETCH)) {}
    FoundFiles(const FoundFiles&) = delete;
    FoundFiles& operator=(const FoundFiles&) = delete;
    ~FoundFiles() {
        if (search_ != INVALID_HANDLE_VALUE) FindClose(search_);
    }

    [[nodiscard]] bool failed() const { return search_ == INVALID_HANDLE_VALUE; }

    /// The names of the entries that `keep` takes. Only where the search has not failed.
    template <class Keep>
    [[nodiscard]] std::vector<std::wstring> names(Keep keep) {
        std::vector<std::wstring> kept;
        do {
            if (keep(entry_)) kept.emplace_back(entry_.cFileName);
        } while (FindNextFileW(search_, &entry_));
        return kept;
    }

private:
    Entry entry_{};
    HANDLE search_;
};

std::wstring patternBelow(const std::wstring& folder, const std::wstring& names) {
    return folder + (folder.ends_with(L'\\') ? L"" : L"\\") + names;
}

bool isFolder(const Entry& entry) { return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

bool isShownFolder(const Entry& entry) {
    const bool hidden = (entry.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    const std::wstring_view name = entry.cFileName;
    return isFolder(entry) && !hidden && name != L"." && name != L"..";
}

bool isFileWithContent(const Entry& entry) {
    return !isFolder(entry) && (entry.nFileSizeLow != 0 || entry.nFileSizeHigh != 0);
}

}  // namespace

bool FileSystem::folderExists(const std::wstring& path) { return has(path, FILE_ATTRIBUTE_DIRECTORY, true); }

bool FileSystem::fileExists(const std::wstring& path) { return has(path, FILE_ATTRIBUTE_DIRECTORY, false); }

void FileSystem::createFolder(const std::wstring& path) {
    const NoErrorBoxes quiet;
    if (!CreateDirectoryW(path.c_str(), nullptr)) throwLastError();
}

void FileSystem::deleteFile(const std::wstring& path) {
    const NoErrorBoxes quiet;
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
    const NoErrorBoxes quiet;
    FoundFiles found(patternBelow(path, L"*"), FindExSearchLimitToDirectories);
    if (!found.failed()) return found.names(isShownFolder);
    // The root of an empty drive has no entry at all, not even itself.
    if (GetLastError() != ERROR_FILE_NOT_FOUND || !folderExists(path)) throwLastError();
    return {};
}

std::vector<std::wstring> FileSystem::filesWithContent(const std::wstring& folder,
                                                       const std::wstring& extension) {
    const NoErrorBoxes quiet;
    FoundFiles found(patternBelow(folder, L"*" + extension), FindExSearchNameMatch);
    if (!found.failed()) return found.names(isFileWithContent);
    if (GetLastError() != ERROR_FILE_NOT_FOUND) throwLastError();
    return {};
}

std::unique_ptr<vexa::AppendFile> FileSystem::openForAppending(const std::wstring& path) {
    const NoErrorBoxes quiet;
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

std::int64_t Clock::milliseconds() {
    using namespace std::chrono;
    return duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void Clock::sleep(int milliseconds) { Sleep(milliseconds > 0 ? static_cast<DWORD>(milliseconds) : 0); }

}  // namespace win
