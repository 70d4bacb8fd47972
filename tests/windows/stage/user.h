// A user of real windows: every action is mouse and key messages.
#pragma once

#include <windows.h>

#include "tests/stage/user.h"

namespace tests {

class WindowsUser : public User {
public:
    void click(ui::Control& control) override;
    void moveMouse(ui::Control& control, int x, int y) override;
    void press(ui::Window& window, int key, int modifiers) override;
    void sendKey(ui::Control& control, int key) override;
    void type(ui::Control& control, const std::wstring& text) override;
    void paste(ui::TextBox& control, const std::wstring& text) override;
    void pickItem(ui::ListBox& list, int index, int modifiers) override;
    void pickTab(ui::TabStrip& tabs, int index) override;
    void step(ui::UpDown& upDown, bool up) override;
    void choose(ui::ComboBox& combo, int index) override;
    void clickRow(ui::Grid& grid, int row) override;
    void doubleClickRow(ui::Grid& grid, int row) override;
    void clickRowAndRest(ui::Grid& grid, int row) override;
    void clickHeader(ui::Grid& grid, int column) override;
    void rewrite(ui::Grid& grid, const std::wstring& text) override;
    void clickButton(ui::Toolbar& toolbar, int index) override;
    void chooseFromMenu(ui::Grid& grid, int entry) override;
    void chooseMenu(ui::Toolbar& toolbar, int index, int entry) override;
    void resize(ui::Window& window, const ui::Size& outerSize) override;
    void closeWindow(ui::Window& window) override;
    void wait(int milliseconds) override;
};

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
