// The resolution of one window, which is that of its monitor. What the system tells per window came with
// later versions of it; without them every window has the system's resolution.
#pragma once

#include <windows.h>

namespace win {

/// Pixels per inch.
[[nodiscard]] int systemDpi() noexcept;
[[nodiscard]] int dpiOf(HWND window) noexcept;

/// How big the user wants text to be, in percent: 100 to 225. The system itself enlarges only its own.
[[nodiscard]] int wantedTextScale() noexcept;

/// GetSystemMetrics at a resolution.
[[nodiscard]] int systemMetric(int index, int dpi) noexcept;

/// The dialog manager's own scaling is switched off: the window scales its controls itself.
void keepDialogScaling(HWND dialog) noexcept;

/// Windows that are made while it lives may hold windows of another awareness of resolutions. The page is
/// made in the thread's, its frame takes its container's: without this the system would refuse to bring one
/// into the other. Does nothing before Windows 10 1803.
class MixedResolutions {
public:
    MixedResolutions() noexcept;
    MixedResolutions(const MixedResolutions&) = delete;
    MixedResolutions& operator=(const MixedResolutions&) = delete;
    ~MixedResolutions();

private:
    int before_;
};

/// Scales places and fonts of a window's controls from one resolution to another. The caller owns `font` and
/// keeps it for as long as the controls use it.
void scaleControls(HWND window, int from, int to, HFONT font) noexcept;

/// A window's font at another resolution. The caller deletes it; null where there is none.
[[nodiscard]] HFONT scaledFont(HWND window, int from, int to) noexcept;

}  // namespace win
