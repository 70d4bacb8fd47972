// The resolution of one window, which is that of its monitor. What the system tells per window came with
// later versions of it; without them every window has the system's resolution.
#pragma once

#include <windows.h>

namespace win {

/// Pixels per inch.
[[nodiscard]] int systemDpi() noexcept;
[[nodiscard]] int dpiOf(HWND window) noexcept;

/// GetSystemMetrics at a resolution.
[[nodiscard]] int systemMetric(int index, int dpi) noexcept;

/// The dialog manager's own scaling is switched off: the window scales its controls itself.
void keepDialogScaling(HWND dialog) noexcept;

/// Scales places and fonts of a window's controls from one resolution to another. The caller owns `font` and
/// keeps it for as long as the controls use it.
void scaleControls(HWND window, int from, int to, HFONT font) noexcept;

/// A window's font at another resolution. The caller deletes it; null where there is none.
[[nodiscard]] HFONT scaledFont(HWND window, int from, int to) noexcept;

}  // namespace win
