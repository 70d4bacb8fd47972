// The rows of the page, laid out anew at each change of size. Distances are in twips, so that the page scales
// with the screen.
#include <algorithm>
#include <cmath>

#include "page/ctlPPE.h"

namespace vexa {
namespace {

constexpr int MARGIN = 120;  // twips: left edge of the labels, and the gap at the right edge
constexpr int TEXT_HEIGHT = 210;
constexpr int LINE_HEIGHT = 30;
constexpr int PICTURE = 480;
constexpr int BUTTON_WIDTH = 1800;
constexpr int BUTTON_HEIGHT = 375;
constexpr int GAP = 60;

// From a row's top: its caption, its description, then picture and button side by side.
constexpr int CAPTION_TOP = GAP;
constexpr int DESCRIPTION_TOP = CAPTION_TOP + TEXT_HEIGHT + GAP / 4;
constexpr int PICTURE_TOP = DESCRIPTION_TOP + TEXT_HEIGHT + GAP / 2;
// Five of these fit the page of a classic property sheet, 218 dialog units or some 354 pixels at 96 DPI.
constexpr int ROW_HEIGHT = PICTURE_TOP + PICTURE + GAP / 2;
constexpr int MOST_ROW_HEIGHT = ROW_HEIGHT + 300;

/// Twips to pixels, rounded.
struct Scale {
    double twipsPerPixelX;
    double twipsPerPixelY;
    [[nodiscard]] int x(int twips) const { return static_cast<int>(std::lround(twips / twipsPerPixelX)); }
    [[nodiscard]] int y(int twips) const { return static_cast<int>(std::lround(twips / twipsPerPixelY)); }
};

/// At the resolution of the page's own monitor.
Scale scaleOf(const ui::Screen& screen, const ui::Window& page) {
    return {screen.twipsPerPixelX() / page.magnification(), screen.twipsPerPixelY() / page.magnification()};
}

}  // namespace

void ctlPPE::layOut() {
    const Scale scale = scaleOf(application_.screen, window());
    const int height = window().innerSize().height;
    const int rowHeight =
        std::clamp(height / static_cast<int>(rows_.size()), scale.y(ROW_HEIGHT), scale.y(MOST_ROW_HEIGHT));
    int top = 0;
    for (Row& row : rows_) {
        placeRow(row, top);
        top += rowHeight;
    }
}

void ctlPPE::placeRow(Row& row, int top) {
    const Scale scale = scaleOf(application_.screen, window());
    const int left = scale.x(MARGIN);
    const int width = std::max(0, window().innerSize().width - 2 * left);
    const int pictureSide = scale.x(PICTURE);
    const int buttonTop = top + scale.y(PICTURE_TOP) + (scale.y(PICTURE) - scale.y(BUTTON_HEIGHT)) / 2;

    row.line.move({left, top + scale.y(LINE_HEIGHT), width, std::max(1, scale.y(LINE_HEIGHT))});
    row.caption.move({left, top + scale.y(CAPTION_TOP), width, scale.y(TEXT_HEIGHT)});
    row.description.move({left, top + scale.y(DESCRIPTION_TOP), width, scale.y(TEXT_HEIGHT)});
    row.picture.move({left, top + scale.y(PICTURE_TOP), pictureSide, scale.y(PICTURE)});
    row.button.move(
        {left + pictureSide + scale.x(MARGIN), buttonTop, scale.x(BUTTON_WIDTH), scale.y(BUTTON_HEIGHT)});
}

}  // namespace vexa
