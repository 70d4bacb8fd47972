// Messages to windows that may be of another thread, whose receiver may hang.
#pragma once

#include <windows.h>

namespace win {

enum class Sent { handled, noWindow, hung };

/// Waits until the receiver has handled the message, as SendMessage does and however long it takes, but gives
/// up where the receiver hangs by the system's own measure. `message` takes no pointers that the system would
/// have to copy. (SendMessageTimeout promises the same; Wine gives up on a receiver that lives but takes its
/// time.)
[[nodiscard]] Sent sendAndWait(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace win
