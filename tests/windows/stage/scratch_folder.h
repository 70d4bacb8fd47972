// A folder for the files of one test, removed with everything in it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "windows/platform/files.h"

namespace tests {

class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    /// Without the final backslash.
    [[nodiscard]] const std::wstring& path() const { return path_; }
    static void write(const std::wstring& path, const std::string& content);
    [[nodiscard]] static std::optional<std::string> read(const std::wstring& path);
    /// Also the missing folders above it.
    static void createFolders(const std::wstring& path);

private:
    std::wstring path_;
};

/// The real file system, with the component installed in another folder, and with drives of the test's own.
class InstalledElsewhere : public win::FileSystem {
public:
    explicit InstalledElsewhere(std::wstring folder) : folder_(std::move(folder)) {}
    [[nodiscard]] std::wstring installationFolder() override { return folder_; }
    [[nodiscard]] std::vector<std::wstring> drives() override;
    [[nodiscard]] std::vector<std::wstring> subfolders(const std::wstring& path) override;
    void addDrive(const std::wstring& name, bool ready) { added_[name] = ready; }

private:
    std::wstring folder_;
    std::map<std::wstring, bool> added_;  ///< whether it is ready, by its name
};

}  // namespace tests
