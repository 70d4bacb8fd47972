// A file system in memory with Windows paths: drives that may be unready, folders, files, no regard to case.
#pragma once

#include <cwctype>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "common/error.h"
#include "common/platform.h"
#include "tests/headless/letters.h"

namespace headless {

/// Starts with the ready drive C: and its installation folder.
class MemoryFiles : public vexa::FileSystem {
public:
    MemoryFiles() {
        addDrive(L"C:", true);
        createFolders(INSTALLATION);
    }

    [[nodiscard]] bool folderExists(const std::wstring& path) override { return isFolder(path); }
    [[nodiscard]] bool fileExists(const std::wstring& path) override {
        const Entry* entry = find(path);
        return entry != nullptr && !entry->folder;
    }
    [[nodiscard]] std::vector<std::wstring> filesWithContent(const std::wstring& folder,
                                                             const std::wstring& extension) override {
        return namesIn(folder, [&](const std::wstring& path, const Entry& entry) {
            return path.ends_with(extension) && !entry.content.empty();
        });
    }
    [[nodiscard]] std::vector<std::wstring> subfolders(const std::wstring& path) override {
        return namesIn(path, [](const std::wstring&, const Entry& entry) { return entry.folder; });
    }
    [[nodiscard]] std::vector<std::wstring> drives() override {
        std::vector<std::wstring> names;
        for (const auto& [name, ready] : drives_) names.push_back(name);
        return names;
    }
    [[nodiscard]] std::wstring installationFolder() override { return INSTALLATION; }
    void createFolder(const std::wstring& path) override {
        checkNewPath(path);
        if (find(path) != nullptr) throw vexa::Error(L"File already exists");
        std::wstring spelled = path;
        if (spelled.ends_with(L'\\')) spelled.pop_back();
        entries_[normal(path)] = {spelled, true, {}};
    }
    void deleteFile(const std::wstring& path) override {
        if (!fileExists(path)) throw vexa::Error(L"File not found");
        entries_.erase(normal(path));
    }
    [[nodiscard]] std::unique_ptr<vexa::AppendFile> openForAppending(const std::wstring& path) override {
        if (isFolder(path)) throw vexa::Error(L"Path/File access error");
        if (!fileExists(path)) write(path, {});
        return std::make_unique<MemoryFile>(*this, normal(path));
    }

    // The same files, seen by a test.
    /// `name` as "D:".
    void addDrive(const std::wstring& name, bool ready) { drives_[driveOf(name)] = ready; }
    /// Overwrites. Throws Error where the folder does not exist.
    void write(const std::wstring& path, const std::string& content) {
        checkNewPath(path);
        entries_[normal(path)] = {path, false, content};
    }
    [[nodiscard]] std::optional<std::string> read(const std::wstring& path) {
        if (!fileExists(path)) return {};
        return find(path)->content;
    }
    /// Creates missing parents, too.
    void createFolders(const std::wstring& path) {
        if (isFolder(path)) return;
        if (isRoot(normal(path))) throw vexa::Error(L"Device unavailable");
        createFolders(path.substr(0, path.find_last_of(L'\\', path.size() - 2)));
        createFolder(path);
    }

private:
    static constexpr const wchar_t* INSTALLATION = L"C:\\Programs\\Quillmark";
    static constexpr std::size_t ROOT_LENGTH = 3;  // "c:\"

    struct Entry {
        std::wstring path;  ///< as it was spelled
        bool folder = false;
        std::string content;
    };
    class MemoryFile : public vexa::AppendFile {
    public:
        MemoryFile(MemoryFiles& files, std::wstring path) : files_(files), path_(std::move(path)) {}
        void write(const std::string& bytes) override { files_.entries_.at(path_).content += bytes; }

    private:
        MemoryFiles& files_;
        std::wstring path_;
    };

    /// Lower case, without a final backslash, but for a drive's root, which keeps it.
    static std::wstring normal(std::wstring path) {
        while (path.size() > ROOT_LENGTH && path.back() == L'\\') path.pop_back();
        if (path.size() == 2 && path[1] == L':') path += L'\\';
        return lower(path);
    }
    static std::wstring parentOf(const std::wstring& path) {
        const auto separator = path.find_last_of(L'\\');
        return separator == std::wstring::npos ? std::wstring() : normal(path.substr(0, separator));
    }
    static std::wstring nameOf(const std::wstring& path) { return path.substr(path.find_last_of(L'\\') + 1); }
    static std::wstring driveOf(const std::wstring& path) {
        if (path.empty()) return {};
        return std::wstring(1, static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(path[0])))) +
               path.substr(1, 1);
    }
    static bool isRoot(const std::wstring& normalPath) {
        return normalPath.size() == ROOT_LENGTH && normalPath[1] == L':';
    }
    /// False for an unknown drive, too.
    [[nodiscard]] bool driveReady(const std::wstring& path) const {
        const auto drive = drives_.find(driveOf(path));
        return drive != drives_.end() && drive->second;
    }
    [[nodiscard]] const Entry* find(const std::wstring& path) const {
        const auto found = driveReady(path) ? entries_.find(normal(path)) : entries_.end();
        return found == entries_.end() ? nullptr : &found->second;
    }
    [[nodiscard]] bool isFolder(const std::wstring& path) const {
        if (isRoot(normal(path))) return driveReady(path);
        const Entry* entry = find(path);
        return entry != nullptr && entry->folder;
    }
    /// Throws Error where the name is not allowed or the folder around it does not exist.
    void checkNewPath(const std::wstring& path) const {
        const std::wstring name = nameOf(normal(path));
        if (!isFolder(parentOf(normal(path)))) throw vexa::Error(L"Path not found");
        if (name.empty() || name.find_first_of(L"/:*?\"<>|") != std::wstring::npos)
            throw vexa::Error(L"Bad file name or number");
    }
    /// The names in a folder of what `counts`, told the lower-case path and the entry.
    template <class Counts>
    [[nodiscard]] std::vector<std::wstring> namesIn(const std::wstring& folder, Counts counts) const {
        if (!isFolder(folder)) throw vexa::Error(L"Path not found");
        std::vector<std::wstring> names;
        for (const auto& [path, entry] : entries_)
            if (parentOf(path) == normal(folder) && counts(path, entry)) names.push_back(nameOf(entry.path));
        return names;
    }

    std::map<std::wstring, bool> drives_;  ///< whether it is ready, by its name
    std::map<std::wstring, Entry> entries_;
};

}  // namespace headless
