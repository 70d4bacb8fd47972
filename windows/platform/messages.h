// One message on its way to its window, with the keyboard handling of the program's dialogs.
#pragma once

#include <windows.h>

namespace win {

/// The window is a dialog of the program, or its page, until `forgetDialog`, which has to come before its
/// end. On the user-interface thread alone.
void noteDialog(HWND window);
void forgetDialog(HWND window) noexcept;

/// Translates and dispatches a message. In the program's dialogs and in its page Tab, Enter, Esc, the arrows
/// and the access keys do what they do in dialogs; the host's windows, whose keys are the host's business,
/// get the message as it is.
void dispatchToDialogs(MSG& message);

}  // namespace win
