#include "windows/controls/image_list.h"

namespace win {

ToolbarImages::~ToolbarImages() {
    for (const HIMAGELIST list : {enabled_, disabled_})
        if (list != nullptr) ImageList_Destroy(list);
}

int ToolbarImages::place(int icon, int disabledIcon) {
    const auto known = places_.find(icon);
    if (known != places_.end()) return known->second;
    const int place = add(enabled_, icon);
    if (place < 0) return I_IMAGENONE;
    if (add(disabled_, disabledIcon) < 0) {
        ImageList_Remove(enabled_, place);  // a place is the same in both lists
        return I_IMAGENONE;
    }
    places_.emplace(icon, place);
    return place;
}

int ToolbarImages::add(HIMAGELIST& list, int icon) const {
    const int width = GetSystemMetrics(SM_CXSMICON);
    const int height = GetSystemMetrics(SM_CYSMICON);
    const auto image = static_cast<HICON>(
        LoadImageW(module_, MAKEINTRESOURCEW(icon), IMAGE_ICON, width, height, LR_DEFAULTCOLOR));
    if (image == nullptr) return -1;
    if (list == nullptr) list = ImageList_Create(width, height, ILC_COLOR32 | ILC_MASK, 16, 4);
    const int place = ImageList_ReplaceIcon(list, -1, image);
    DestroyIcon(image);
    return place;
}

}  // namespace win
