#include "kb/folder_list.h"

#include <algorithm>

#include "common/error.h"
#include "kb/kb_icons.ids.h"

namespace vexa {
namespace {

constexpr int KEY_ENTER = 0x0D;
constexpr int KEY_SPACE = 0x20;
constexpr int KEY_LEFT = 0x25;
constexpr int KEY_RIGHT = 0x27;

/// The length of the part that stands for a drive ("C:\") or a share ("\\server\share\").
std::size_t rootLength(const std::wstring& path) {
    if (!path.starts_with(L"\\\\")) return std::min<std::size_t>(path.size(), 3);
    const std::size_t server = path.find(L'\\', 2);
    const std::size_t share = server == std::wstring::npos ? server : path.find(L'\\', server + 1);
    return share == std::wstring::npos ? path.size() : share + 1;
}

/// The root and each folder on the way down to the path.
std::vector<std::wstring> steps(const std::wstring& path) {
    std::vector<std::wstring> parts;
    std::size_t start = rootLength(path);
    if (start > 0) parts.push_back(path.substr(0, start));
    while (start < path.size()) {
        const std::size_t end = std::min(path.find(L'\\', start), path.size());
        if (end > start) parts.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

}  // namespace

std::wstring subfolderPath(const std::wstring& folder, const std::wstring& name) {
    return folder.ends_with(L'\\') ? folder + name : folder + L'\\' + name;
}

FolderList::FolderList(ui::Grid& list, FileSystem& files) : list_(list), files_(files) {
    list_.setColumns({{L"Folder", 100}});
    list_.onDoubleClick = [this](int row) { open(row); };
    list_.wantsEnter = true;
    list_.onKeyDown = [this](ui::KeyEvent& event) { keyDown(event); };
}

void FolderList::show(const std::wstring& path, std::vector<std::wstring> subfolders) {
    const ui::Grid::BulkUpdate bulk(list_);
    list_.clear();
    paths_.clear();
    path_ = path;
    std::wstring folder;
    for (const std::wstring& step : steps(path)) {
        folder = folder.empty() ? step : subfolderPath(folder, step);
        addRow(folder, step, list_.rowCount(), IDI_folderOpen);
    }
    const int depth = list_.rowCount();
    std::ranges::sort(subfolders);
    for (const std::wstring& name : subfolders)
        addRow(subfolderPath(path, name), name, depth, IDI_folderClosed);
    list_.setCurrentRow(depth - 1);
    if (onChange) onChange();
}

void FolderList::addRow(const std::wstring& path, const std::wstring& name, int indent, int picture) {
    paths_.push_back(path);
    list_.addRow({{{name}}, picture, indent});
}

void FolderList::open(int row) {
    if (row < 0 || row >= list_.rowCount()) return;
    try {
        setPath(std::wstring(paths_[static_cast<std::size_t>(row)]));
    } catch (const Error&) {
        if (onFailure) onFailure();
    }
}

void FolderList::keyDown(ui::KeyEvent& event) {
    if (event.modifiers != 0) return;
    if (event.key == KEY_ENTER || event.key == KEY_SPACE || event.key == KEY_RIGHT)
        open(list_.currentRow());
    else if (event.key == KEY_LEFT)
        open(static_cast<int>(steps(path_).size()) - 2);
    else
        return;
    event.key = 0;
}

}  // namespace vexa
