// Puts lines that a form drew as plain data onto a device context.
#pragma once

#include <windows.h>

#include "ui/drawing.h"

namespace win {

/// Leaves the context as it was. Does nothing for a colour for which the system has no pen left.
void drawStrokes(HDC context, const ui::Strokes& strokes) noexcept;

}  // namespace win
