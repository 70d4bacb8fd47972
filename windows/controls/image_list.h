// A list of small icons of the module's resources, in the size that the screen's resolution wants.
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace win {

class ImageList {
public:
    /// Empty until the first icon.
    explicit ImageList(HINSTANCE module) noexcept : module_(module) {}
    ImageList(const ImageList&) = delete;
    ImageList& operator=(const ImageList&) = delete;
    ~ImageList();

    /// The place of the icon in the list; -1 where the resource is missing.
    int add(int iconIdentifier);
    [[nodiscard]] HIMAGELIST get() const noexcept { return list_; }

private:
    HINSTANCE module_;
    HIMAGELIST list_ = nullptr;
};

}  // namespace win
