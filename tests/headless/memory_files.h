// A file system in memory with Windows paths: drives that may be unready, folders, files, no regard to case.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "common/platform.h"

namespace headless {

class MemoryFiles : public vexa::FileSystem {
public:
    /// Starts with the ready drive C: and its installation folder.
    MemoryFiles();

    [[nodiscard]] bool folderExists(const std::wstring& path) override;
    [[nodiscard]] bool fileExists(const std::wstring& path) override;
    [[nodiscard]] std::vector<std::wstring> filesWithContent(const std::wstring& folder,
                                                             const std::wstring& extension) override;
    void createFolder(const std::wstring& path) override;
    void deleteFile(const std::wstring& path) override;
    [[nodiscard]] std::unique_ptr<vexa::AppendFile> openForAppending(const std::wstring& path) override;
    [[nodiscard]] std::wstring installationFolder() override;
    [[nodiscard]] std::vector<std::wstring> drives() override;
    [[nodiscard]] std::vector<std::wstring> subfolders(const std::wstring& path) override;

    // The same files, seen by a test.
    /// `name` as "D:".
    void addDrive(const std::wstring& name, bool ready);
    /// False for an unknown drive, too.
    [[nodiscard]] bool driveReady(const std::wstring& path) const;
    /// Overwrites. Throws Error where the folder does not exist.
    void write(const std::wstring& path, const std::string& content);
    [[nodiscard]] std::optional<std::string> read(const std::wstring& path) const;
    /// Creates missing parents, too.
    void createFolders(const std::wstring& path);

private:
    class MemoryFile;
    struct Entry {
        std::wstring path;  ///< as it was spelled
        bool folder = false;
        std::string content;
    };
    [[nodiscard]] const Entry* find(const std::wstring& path) const;
    [[nodiscard]] bool isFolder(const std::wstring& path) const;
    /// Throws Error where the name is not allowed or the folder around it does not exist.
    void checkNewPath(const std::wstring& path) const;

    std::map<std::wstring, bool> drives_;  ///< whether it is ready, by its name
    std::map<std::wstring, Entry> entries_;
};

}  // namespace headless
