// A user of real windows: every action is mouse and key messages.
#pragma once

#include <windows.h>

#include <memory>

#include "tests/stage/user.h"

namespace tests {

[[nodiscard]] std::unique_ptr<User> windowsUser();

[[nodiscard]] HWND windowOf(const ui::Window& window);
/// The window of a control.
[[nodiscard]] HWND windowOf(const ui::Control& control);
/// Mouse and keys reach a window that is visible and enabled, and lies in such windows only.
[[nodiscard]] bool isReachable(HWND window);
/// The left button goes down and up at a pixel of a window, with modifier keys held, and what that causes
/// runs.
void clickAt(HWND window, int x, int y, int modifiers = 0);

/// Modifier keys that are held while this lives.
class HeldKeys {
public:
    explicit HeldKeys(int modifiers);
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys();

private:
    BYTE before_[256];
};

}  // namespace tests
