// One message on its way to its window, with the keyboard handling of dialogs.
#pragma once

#include <windows.h>

namespace win {

/// Translates and dispatches a message as the loop of a dialog does. Where the window that gets it lies in
/// dialogs, the outermost of them handles Tab, Enter, Esc, the arrows and the access keys.
void dispatchToDialogs(MSG& message);

}  // namespace win
