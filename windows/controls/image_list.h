// The icons of toolbar buttons in one size: two lists, for enabled and for disabled buttons, which all
// toolbars of that size share. They are glyphs in the system's colours.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <map>

#include "windows/controls/icon_cache.h"

namespace win {

class ToolbarImages {
public:
    /// Empty until the first icon. `side` is the icons' size in pixels.
    ToolbarImages(IconCache& icons, int side) noexcept : icons_(icons), side_(side) {}
    ToolbarImages(const ToolbarImages&) = delete;
    ToolbarImages& operator=(const ToolbarImages&) = delete;
    ~ToolbarImages();

    /// The place of an icon in both lists, which is loaded when it is asked for first; I_IMAGENONE where the
    /// resource is missing.
    int place(int icon);
    [[nodiscard]] HIMAGELIST enabled() const noexcept { return enabled_; }
    [[nodiscard]] HIMAGELIST disabled() const noexcept { return disabled_; }
    /// Draws the icons anew where the system's colours have changed; their places stay.
    void followColours();

private:
    [[nodiscard]] int draw(int place, int icon);
    void create();

    IconCache& icons_;
    int side_;
    HIMAGELIST enabled_ = nullptr;
    HIMAGELIST disabled_ = nullptr;
    COLORREF ink_ = GetSysColor(COLOR_BTNTEXT);
    COLORREF grey_ = GetSysColor(COLOR_GRAYTEXT);
    std::map<int, int> places_;
};

}  // namespace win
