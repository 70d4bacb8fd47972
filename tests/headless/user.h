// The user of headless windows: plain calls on the controls, under the rules of real windows.
#pragma once

#include "tests/headless/event_loop.h"
#include "tests/headless/window.h"
#include "tests/stage/user.h"

namespace headless {

class User : public tests::User {
public:
    explicit User(EventLoop& loop) : loop_(loop) {}

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
    void wait(int milliseconds) override { loop_.pass(milliseconds); }

private:
    EventLoop& loop_;
};

}  // namespace headless
