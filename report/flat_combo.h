// The flat look of the composer's combos, which light up under the mouse: which state a combo is in, and the
// lines that show it.
#pragma once

#include <optional>

#include "ui/controls.h"

namespace vexa {

enum class FlatState {
    flat = 0,
    hot = 1,      ///< under the pointer
    pressed = 2,  ///< part of the look, though hovering alone never leads to it
    disabled = 3
};

/// The state to draw now; nothing while the combo's list is open, which keeps its own look.
[[nodiscard]] std::optional<FlatState> hoverState(const ui::ComboBox& combo);

/// The lines of a combo of this size (pixels). `thumbWidth` is the width of a horizontal scroll bar's thumb,
/// from which the width of the drop-down button is taken.
[[nodiscard]] ui::Strokes flatCombo(FlatState state, const ui::Size& size, int thumbWidth);

}  // namespace vexa
