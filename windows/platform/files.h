// Files, folders and the clock.
#pragma once

#include "common/platform.h"

namespace win {

/// While a question runs, the system shows no boxes of its own (for an empty drive, say): it fails.
class FileSystem : public vexa::FileSystem {
public:
    [[nodiscard]] bool folderExists(const std::wstring& path) override;
    [[nodiscard]] bool fileExists(const std::wstring& path) override;
    [[nodiscard]] std::vector<std::wstring> filesWithContent(const std::wstring& folder,
                                                             const std::wstring& extension) override;
    void createFolder(const std::wstring& path) override;
    void deleteFile(const std::wstring& path) override;
    [[nodiscard]] std::vector<std::wstring> drives() override;
    [[nodiscard]] std::vector<std::wstring> subfolders(const std::wstring& path) override;
    [[nodiscard]] std::unique_ptr<vexa::AppendFile> openForAppending(const std::wstring& path) override;
    [[nodiscard]] std::wstring installationFolder() override;
};

class Clock : public vexa::Clock {
public:
    [[nodiscard]] vexa::LocalTime localTime() override;
    [[nodiscard]] std::int64_t milliseconds() override;
    void sleep(int milliseconds) override;
};

}  // namespace win
