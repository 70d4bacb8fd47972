#include "tests/headless/memory_files.h"

#include <cwctype>

#include "common/error.h"
#include "tests/headless/letters.h"

namespace headless {
namespace {

constexpr const wchar_t* INSTALLATION = L"C:\\Programs\\Quillmark";
constexpr std::size_t ROOT_LENGTH = 3;  // "c:\"

/// Lower case, without a final backslash, but for a drive's root, which keeps it.
std::wstring normal(std::wstring path) {
    while (path.size() > ROOT_LENGTH && path.back() == L'\\') path.pop_back();
    if (path.size() == 2 && path[1] == L':') path += L'\\';
    return lower(path);
}

std::wstring parentOf(const std::wstring& path) {
    const auto separator = path.find_last_of(L'\\');
    if (separator == std::wstring::npos) return {};
    return normal(path.substr(0, separator));
}

std::wstring nameOf(const std::wstring& path) { return path.substr(path.find_last_of(L'\\') + 1); }

std::wstring driveOf(const std::wstring& path) {
    if (path.empty()) return {};
    return std::wstring(1, static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(path[0])))) +
           path.substr(1, 1);
}

bool isRoot(const std::wstring& normalPath) {
    return normalPath.size() == ROOT_LENGTH && normalPath[1] == L':';
}

bool isValidName(const std::wstring& name) {
    return !name.empty() && name.find_first_of(L"/:*?\"<>|") == std::wstring::npos;
}

}  // namespace

class MemoryFiles::MemoryFile : public vexa::AppendFile {
public:
    MemoryFile(MemoryFiles& files, std::wstring path) : files_(files), path_(std::move(path)) {}
    void write(const std::string& bytes) override { files_.entries_.at(path_).content += bytes; }

private:
    MemoryFiles& files_;
    std::wstring path_;
};

MemoryFiles::MemoryFiles() {
    addDrive(L"C:", true);
    createFolders(INSTALLATION);
}

bool MemoryFiles::folderExists(const std::wstring& path) { return isFolder(path); }

bool MemoryFiles::fileExists(const std::wstring& path) {
    const Entry* entry = find(path);
    return entry != nullptr && !entry->folder;
}

std::vector<std::wstring> MemoryFiles::filesWithContent(const std::wstring& folder,
                                                        const std::wstring& extension) {
    if (!isFolder(folder)) throw vexa::Error(L"Path not found");
    std::vector<std::wstring> names;
    for (const auto& [normalPath, entry] : entries_)
        if (parentOf(normalPath) == normal(folder) && normalPath.ends_with(extension) &&
            !entry.content.empty())
            names.push_back(nameOf(entry.path));
    return names;
}

void MemoryFiles::createFolder(const std::wstring& path) {
    checkNewPath(path);
    if (find(path) != nullptr) throw vexa::Error(L"File already exists");
    std::wstring spelled = path;
    if (spelled.ends_with(L'\\')) spelled.pop_back();
    entries_[normal(path)] = {spelled, true, {}};
}

void MemoryFiles::deleteFile(const std::wstring& path) {
    if (!fileExists(path)) throw vexa::Error(L"File not found");
    entries_.erase(normal(path));
}

std::unique_ptr<vexa::AppendFile> MemoryFiles::openForAppending(const std::wstring& path) {
    if (isFolder(path)) throw vexa::Error(L"Path/File access error");
    if (!fileExists(path)) {
        checkNewPath(path);
        entries_[normal(path)] = {path, false, {}};
    }
    return std::make_unique<MemoryFile>(*this, normal(path));
}

std::wstring MemoryFiles::installationFolder() { return INSTALLATION; }

std::vector<std::wstring> MemoryFiles::drives() {
    std::vector<std::wstring> names;
    for (const auto& [name, ready] : drives_) names.push_back(name);
    return names;
}

std::vector<std::wstring> MemoryFiles::subfolders(const std::wstring& path) {
    if (!isFolder(path)) throw vexa::Error(L"Path not found");
    std::vector<std::wstring> names;
    for (const auto& [normalPath, entry] : entries_)
        if (entry.folder && parentOf(normalPath) == normal(path)) names.push_back(nameOf(entry.path));
    return names;
}

void MemoryFiles::addDrive(const std::wstring& name, bool ready) { drives_[driveOf(name)] = ready; }

bool MemoryFiles::driveReady(const std::wstring& path) const {
    const auto drive = drives_.find(driveOf(path));
    return drive != drives_.end() && drive->second;
}

void MemoryFiles::write(const std::wstring& path, const std::string& content) {
    checkNewPath(path);
    entries_[normal(path)] = {path, false, content};
}

std::optional<std::string> MemoryFiles::read(const std::wstring& path) const {
    const Entry* entry = find(path);
    if (entry == nullptr || entry->folder) return {};
    return entry->content;
}

void MemoryFiles::createFolders(const std::wstring& path) {
    if (isFolder(path)) return;
    if (isRoot(normal(path))) throw vexa::Error(L"Device unavailable");
    const auto separator = path.find_last_of(L'\\', path.size() - 2);
    createFolders(path.substr(0, separator));
    createFolder(path);
}

const MemoryFiles::Entry* MemoryFiles::find(const std::wstring& path) const {
    const auto found = driveReady(path) ? entries_.find(normal(path)) : entries_.end();
    return found == entries_.end() ? nullptr : &found->second;
}

bool MemoryFiles::isFolder(const std::wstring& path) const {
    if (isRoot(normal(path))) return driveReady(path);
    const Entry* entry = find(path);
    return entry != nullptr && entry->folder;
}

void MemoryFiles::checkNewPath(const std::wstring& path) const {
    const std::wstring normalPath = normal(path);
    if (!isFolder(parentOf(normalPath))) throw vexa::Error(L"Path not found");
    if (!isValidName(nameOf(normalPath))) throw vexa::Error(L"Bad file name or number");
}

}  // namespace headless
