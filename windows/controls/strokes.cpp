#include "windows/controls/strokes.h"

namespace win {
namespace {

COLORREF systemColour(ui::ColourRole role) {
    switch (role) {
        case ui::ColourRole::face: return GetSysColor(COLOR_BTNFACE);
        case ui::ColourRole::shadow: return GetSysColor(COLOR_BTNSHADOW);
        case ui::ColourRole::highlight: return GetSysColor(COLOR_BTNHIGHLIGHT);
        default: return GetSysColor(COLOR_WINDOW);
    }
}

/// A solid pen of one pixel in a context, for as long as this lives.
class Pen {
public:
    Pen(HDC context, ui::ColourRole role) noexcept
        : context_(context),
          pen_(CreatePen(PS_SOLID, 1, systemColour(role))),
          before_(pen_ ? SelectObject(context, pen_) : nullptr) {}
    Pen(const Pen&) = delete;
    Pen& operator=(const Pen&) = delete;
    ~Pen() {
        if (pen_ == nullptr) return;
        SelectObject(context_, before_);
        DeleteObject(pen_);
    }
    explicit operator bool() const noexcept { return pen_ != nullptr; }

private:
    HDC context_;
    HPEN pen_;
    HGDIOBJ before_;
};

/// The system's lines leave out their last pixel.
void drawLine(HDC context, const ui::Stroke& stroke) {
    const bool upright = stroke.left == stroke.right;
    MoveToEx(context, stroke.left, stroke.top, nullptr);
    LineTo(context, stroke.right + (upright ? 0 : 1), stroke.bottom + (upright ? 1 : 0));
}

}  // namespace

void drawStrokes(HDC context, const ui::Strokes& strokes) noexcept {
    auto stroke = strokes.begin();
    while (stroke != strokes.end()) {
        // One pen for all that follow in the same colour.
        const ui::ColourRole colour = stroke->colour;
        const Pen pen(context, colour);
        for (; stroke != strokes.end() && stroke->colour == colour; ++stroke)
            if (pen) drawLine(context, *stroke);
    }
}

}  // namespace win
