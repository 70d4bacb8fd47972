#include "windows/controls/icon_cache.h"

namespace win {

IconCache::~IconCache() {
    for (const auto& [key, icon] : icons_) DestroyIcon(icon);
}

HICON IconCache::icon(int resource, int width, int height) {
    HICON& icon = icons_[{resource, width, height}];
    if (icon == nullptr)
        icon = static_cast<HICON>(
            LoadImageW(module_, MAKEINTRESOURCEW(resource), IMAGE_ICON, width, height, LR_DEFAULTCOLOR));
    return icon;
}

}  // namespace win
