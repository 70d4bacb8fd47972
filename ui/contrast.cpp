#include "ui/contrast.h"

#include <algorithm>
#include <cmath>

namespace ui {
namespace {

constexpr Colour BLACK = 0x000000;
constexpr Colour WHITE = 0xFFFFFF;
constexpr double READABLE = 3.5;

int part(Colour colour, int shift) { return (colour >> shift) & 0xFF; }

/// The light of one part of a colour: a screen's values grow with about its root.
double light(Colour colour, int shift) {
    const double value = part(colour, shift) / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// As bright as the eye sees it, from 0 to 1.
double luminance(Colour colour) {
    return 0.2126 * light(colour, 0) + 0.7152 * light(colour, 8) + 0.0722 * light(colour, 16);
}

/// `percent` of one colour over the other.
Colour mixed(Colour one, Colour other, int percent) {
    Colour result = 0;
    for (int shift = 0; shift <= 16; shift += 8)
        result |= (part(one, shift) * percent + part(other, shift) * (100 - percent)) / 100 << shift;
    return result;
}

}  // namespace

double contrast(Colour one, Colour other) {
    const auto [darker, brighter] = std::minmax({luminance(one), luminance(other)});
    return (brighter + 0.05) / (darker + 0.05);
}

Colour captionOn(Colour ground) { return contrast(BLACK, ground) >= contrast(WHITE, ground) ? BLACK : WHITE; }

Colour disabledCaptionOn(Colour ground) {
    const Colour caption = captionOn(ground);
    int percent = 50;
    while (contrast(mixed(caption, ground, percent), ground) < READABLE) ++percent;
    return mixed(caption, ground, percent);
}

}  // namespace ui
