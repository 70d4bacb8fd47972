// What a dialog does with the keys before its controls see them.
#pragma once

#include "tests/headless/window.h"

namespace headless {

/// One key press in the window: Tab and Shift+Tab, arrows in groups, Enter, Esc, access keys; all else goes
/// to the control that has the focus. Nothing happens where the window takes no input.
void pressKey(Window& window, const ui::KeyEvent& event);

}  // namespace headless
