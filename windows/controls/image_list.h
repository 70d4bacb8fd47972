// The icons of toolbar buttons, in the size that the screen's resolution wants: two lists, for enabled and
// for disabled buttons, which all toolbars share.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <map>

namespace win {

class ToolbarImages {
public:
    /// Empty until the first icon.
    explicit ToolbarImages(HINSTANCE module) noexcept : module_(module) {}
    ToolbarImages(const ToolbarImages&) = delete;
    ToolbarImages& operator=(const ToolbarImages&) = delete;
    ~ToolbarImages();

    /// The place of an icon in both lists, which is loaded when it is asked for first; I_IMAGENONE where a
    /// resource is missing.
    int place(int icon, int disabledIcon);
    [[nodiscard]] HIMAGELIST enabled() const noexcept { return enabled_; }
    [[nodiscard]] HIMAGELIST disabled() const noexcept { return disabled_; }

private:
    int add(HIMAGELIST& list, int icon) const;

    HINSTANCE module_;
    HIMAGELIST enabled_ = nullptr;
    HIMAGELIST disabled_ = nullptr;
    std::map<int, int> places_;
};

}  // namespace win
