#include "windows/controls/image_list.h"

namespace win {
namespace {

constexpr int APPEND = -1;

}  // namespace

ToolbarImages::~ToolbarImages() {
    for (const HIMAGELIST list : {enabled_, disabled_})
        if (list != nullptr) ImageList_Destroy(list);
}

int ToolbarImages::place(int icon) {
    const auto known = places_.find(icon);
    if (known != places_.end()) return known->second;
    const int place = draw(APPEND, icon);
    if (place >= 0) places_.emplace(icon, place);
    return place >= 0 ? place : I_IMAGENONE;
}

void ToolbarImages::followColours() {
    const COLORREF ink = GetSysColor(COLOR_BTNTEXT);
    const COLORREF grey = GetSysColor(COLOR_GRAYTEXT);
    if (ink == ink_ && grey == grey_) return;
    ink_ = ink;
    grey_ = grey;
    for (const auto& [icon, place] : places_) static_cast<void>(draw(place, icon));
}

/// Into a place, or behind the last one; the place, or a number below 0.
int ToolbarImages::draw(int place, int icon) {
    const HICON normal = icons_.glyph(icon, side_, ink_);
    const HICON disabled = icons_.glyph(icon, side_, grey_);
    if (normal == nullptr || disabled == nullptr) return -1;
    create();
    const int taken = ImageList_ReplaceIcon(enabled_, place, normal);
    return ImageList_ReplaceIcon(disabled_, place, disabled) == taken ? taken : -1;
}

void ToolbarImages::create() {
    for (HIMAGELIST* list : {&enabled_, &disabled_})
        if (*list == nullptr) *list = ImageList_Create(side_, side_, ILC_COLOR32 | ILC_MASK, 16, 4);
}

}  // namespace win
