// Lines that a form draws upon a control, as plain data; the colours are the system's, by what they stand
// for.
#pragma once

#include <vector>

namespace ui {

enum class ColourRole { face, shadow, highlight, windowBackground };

/// A line one pixel wide, level or upright, in pixels of the control. Both ends belong to it.
struct Stroke {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    ColourRole colour = ColourRole::face;
    bool operator==(const Stroke&) const = default;
};

/// Drawn one after the other: a later stroke covers an earlier one.
using Strokes = std::vector<Stroke>;

}  // namespace ui
