#include "tests/headless/letters.h"

#include <algorithm>

namespace headless {
namespace {

/// Letters `first` to `last` whose lower case lies `distance` further on.
struct Block {
    wchar_t first;
    wchar_t last;
    int distance;
    wchar_t except = 0;
};

// In the order of their letters.
constexpr Block BLOCKS[] = {
    {L'A', L'Z', 32},
    {0xC0, 0xDE, 32, 0xD7},        // Latin-1, but the multiplication sign
    {0x178, 0x178, 0xFF - 0x178},  // Y with diaeresis
    {0x386, 0x386, 0x3AC - 0x386},
    {0x388, 0x38A, 37},
    {0x38C, 0x38C, 64},
    {0x38E, 0x38F, 63},
    {0x391, 0x3AB, 32, 0x3A2},  // Greek
    {0x400, 0x40F, 80},         // Cyrillic extensions
    {0x410, 0x42F, 32},         // Cyrillic
};

/// Latin Extended-A: capital and small letter alternate, in runs that begin with an even or an odd number.
bool isExtendedCapital(wchar_t letter) {
    const bool odd = letter % 2 == 1;
    if (letter >= 0x100 && letter <= 0x137) return !odd && letter != 0x130;
    if (letter >= 0x139 && letter <= 0x148) return odd;
    if (letter >= 0x14A && letter <= 0x177) return !odd;
    return letter >= 0x179 && letter <= 0x17D && odd;
}

}  // namespace

wchar_t lower(wchar_t letter) {
    if (isExtendedCapital(letter)) return static_cast<wchar_t>(letter + 1);
    for (const Block& block : BLOCKS) {
        if (letter < block.first) break;
        if (letter <= block.last && letter != block.except)
            return static_cast<wchar_t>(letter + block.distance);
    }
    return letter;
}

std::wstring lower(std::wstring text) {
    std::ranges::transform(text, text.begin(), [](wchar_t letter) { return lower(letter); });
    return text;
}

}  // namespace headless
