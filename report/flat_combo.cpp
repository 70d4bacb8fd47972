#include "report/flat_combo.h"

namespace vexa {
namespace {

using ui::ColourRole;

/// Edges of a rectangle; `right` and `bottom` lie just outside of it.
struct Edges {
    int left;
    int top;
    int right;
    int bottom;
    void shrink() {
        ++left;
        ++top;
        --right;
        --bottom;
    }
};

/// Top and left edge in one colour, then right and bottom edge in the other.
void addFrame(ui::Strokes& strokes, const Edges& edges, ColourRole topLeft, ColourRole bottomRight) {
    const int right = edges.right - 1;
    const int bottom = edges.bottom - 1;
    strokes.push_back({edges.left, edges.top, right, edges.top, topLeft});
    strokes.push_back({edges.left, edges.top, edges.left, bottom, topLeft});
    strokes.push_back({right, edges.top, right, bottom, bottomRight});
    strokes.push_back({edges.left, bottom, right, bottom, bottomRight});
}

void addShrinkingFrame(ui::Strokes& strokes, Edges& edges, ColourRole topLeft, ColourRole bottomRight) {
    addFrame(strokes, edges, topLeft, bottomRight);
    edges.shrink();
}

void addOuterFrames(ui::Strokes& strokes, Edges& edges, FlatState state) {
    const bool raised = state == FlatState::hot || state == FlatState::pressed;
    const ColourRole inner = state == FlatState::disabled ? ColourRole::highlight : ColourRole::face;
    addShrinkingFrame(strokes, edges, raised ? ColourRole::shadow : ColourRole::face,
                      raised ? ColourRole::highlight : ColourRole::face);
    addShrinkingFrame(strokes, edges, inner, inner);
}

void addFlatButton(ui::Strokes& strokes, Edges button) {
    --button.top;
    ++button.bottom;
    addFrame(strokes, button, ColourRole::highlight, ColourRole::highlight);
    strokes.push_back(
        {button.left - 1, button.top, button.left - 1, button.bottom - 1, ColourRole::windowBackground});
}

void addHotButton(ui::Strokes& strokes, Edges button) {
    --button.top;
    ++button.bottom;
    ++button.right;
    addFrame(strokes, button, ColourRole::highlight, ColourRole::shadow);
}

void addPressedButton(ui::Strokes& strokes, const Edges& button) {
    // One pixel more to the left and two more at the top, then moved right and down by one.
    const Edges moved{button.left, button.top - 1, button.right + 1, button.bottom + 1};
    addFrame(strokes, moved, ColourRole::shadow, ColourRole::highlight);
}

}  // namespace

std::optional<FlatState> hoverState(const ui::ComboBox& combo) {
    if (combo.pointerInside()) return FlatState::hot;
    if (!combo.enabled()) return FlatState::disabled;
    if (combo.droppedDown()) return std::nullopt;
    return FlatState::flat;
}

ui::Strokes flatCombo(FlatState state, const ui::Size& size, int thumbWidth) {
    ui::Strokes strokes;
    Edges edges{0, 0, size.width, size.height};
    addOuterFrames(strokes, edges, state);
    edges.left = edges.right - thumbWidth;
    addShrinkingFrame(strokes, edges, ColourRole::face, ColourRole::face);
    addShrinkingFrame(strokes, edges, ColourRole::face, ColourRole::face);
    switch (state) {
        case FlatState::flat: addFlatButton(strokes, edges); break;
        case FlatState::hot: addHotButton(strokes, edges); break;
        case FlatState::pressed: addPressedButton(strokes, edges); break;
        case FlatState::disabled: break;
    }
    return strokes;
}

}  // namespace vexa
