// Sizes, rectangles and colours as the forms speak of them.
#pragma once

#include <cstdint>

namespace ui {

/// A colour as 0x00BBGGRR: red in the lowest byte, the top byte 0.
using Colour = std::int32_t;

/// Pixels.
struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

/// Pixels, relative to the upper left corner of the window's inner area.
struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Rect&) const = default;
};

}  // namespace ui
