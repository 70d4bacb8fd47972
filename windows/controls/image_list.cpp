#include "windows/controls/image_list.h"

namespace win {

ImageList::~ImageList() {
    if (list_ != nullptr) ImageList_Destroy(list_);
}

int ImageList::add(int iconIdentifier) {
    const int width = GetSystemMetrics(SM_CXSMICON);
    const int height = GetSystemMetrics(SM_CYSMICON);
    const auto icon = static_cast<HICON>(
        LoadImageW(module_, MAKEINTRESOURCEW(iconIdentifier), IMAGE_ICON, width, height, LR_DEFAULTCOLOR));
    if (icon == nullptr) return -1;
    if (list_ == nullptr) list_ = ImageList_Create(width, height, ILC_COLOR32 | ILC_MASK, 16, 4);
    const int place = ImageList_ReplaceIcon(list_, -1, icon);
    DestroyIcon(icon);
    return place;
}

}  // namespace win
