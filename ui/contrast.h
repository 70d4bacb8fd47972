// How well one colour stands out from another, and captions that can be read upon any colour.
#pragma once

#include "ui/geometry.h"

namespace ui {

/// The contrast of two colours as it is defined for the web: from 1 (the same) to 21 (black and white). The
/// top byte of a colour does not count.
[[nodiscard]] double contrast(Colour one, Colour other);

/// Black or white, whichever stands out more from `ground`: by 4.5 at least.
[[nodiscard]] Colour captionOn(Colour ground);

/// The caption of what is disabled: that of what is enabled, paled as far as it stays readable (by 3.5 at
/// least, as the edges of letters are drawn in between).
[[nodiscard]] Colour disabledCaptionOn(Colour ground);

}  // namespace ui
