// A list that shows a folder, the folders above it and those in it, and lets the user walk among them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "common/platform.h"
#include "ui/grid.h"

namespace vexa {

class FolderList {
public:
    /// A double-click opens a folder; so do Enter, Space and the right arrow key. The left arrow key goes one
    /// up.
    FolderList(ui::Grid& list, FileSystem& files);

    /// The folder that is open, in the words in which it was given.
    [[nodiscard]] const std::wstring& path() const { return path_; }
    /// Opens the folder. Throws Error where it cannot be read; the list stays as it was then.
    void setPath(const std::wstring& path) { show(path, files_.subfolders(path)); }
    /// Shows a folder that may not exist, without what is in it.
    void showPath(const std::wstring& path) { show(path, {}); }

    /// Called where a folder that the user wants to open cannot be read, inside the catch block.
    std::function<void()> onFailure;
    /// Another folder is open.
    std::function<void()> onChange;

private:
    void show(const std::wstring& path, std::vector<std::wstring> subfolders);
    void addRow(const std::wstring& path, const std::wstring& name, int indent, int picture);
    void open(int row);
    void keyDown(ui::KeyEvent& event);

    ui::Grid& list_;
    FileSystem& files_;
    std::wstring path_;
    /// The folder of each row.
    std::vector<std::wstring> paths_;
};

/// The path of `name` in the folder.
[[nodiscard]] std::wstring subfolderPath(const std::wstring& folder, const std::wstring& name);

}  // namespace vexa
