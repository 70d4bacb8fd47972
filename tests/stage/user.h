// What a person does to windows. On the headless back end it is plain calls; in real windows each of these
// is mouse and key messages.
#pragma once

#include <string>

#include "ui/form.h"
#include "ui/grid.h"
#include "ui/listbox.h"
#include "ui/tabstrip.h"
#include "ui/toolbar.h"
#include "ui/updown.h"

namespace tests {

namespace key {
constexpr int back = 0x08;
constexpr int tab = 0x09;
constexpr int enter = 0x0D;
constexpr int escape = 0x1B;
constexpr int space = 0x20;
constexpr int pageUp = 0x21;
constexpr int pageDown = 0x22;
constexpr int end = 0x23;
constexpr int home = 0x24;
constexpr int left = 0x25;
constexpr int up = 0x26;
constexpr int right = 0x27;
constexpr int down = 0x28;
constexpr int remove = 0x2E;
constexpr int f2 = 0x71;
}  // namespace key

class User {
public:
    virtual ~User() = default;

    /// Left button down and up in the middle of the control. Nothing happens where it is disabled or hidden.
    virtual void click(ui::Control& control) = 0;
    /// The pointer moves to this pixel of the control, which may lie outside of it.
    virtual void moveMouse(ui::Control& control, int x, int y) = 0;
    /// One key press at the control that has the focus, as the dialog's keyboard handling passes it on: Tab,
    /// Enter, Esc and the arrow keys of option groups included. Letters with alt are access keys.
    virtual void press(ui::Window& window, int key, int modifiers = 0) = 0;
    /// A key press sent straight to the control, whoever has the focus (as another program would).
    virtual void sendKey(ui::Control& control, int key) = 0;
    /// Puts the focus on the control and types the characters at its caret, one by one.
    virtual void type(ui::Control& control, const std::wstring& text) = 0;
    /// Puts the focus on the text box and the text in place of its selection, as one change.
    virtual void paste(ui::TextBox& control, const std::wstring& text) = 0;
    /// A click on the item, with these modifier keys held.
    virtual void pickItem(ui::ListBox& list, int index, int modifiers = 0) = 0;
    /// A click on the tab.
    virtual void pickTab(ui::TabStrip& tabs, int index) = 0;
    /// A click on the upper or the lower arrow.
    virtual void step(ui::UpDown& upDown, bool up) = 0;
    /// Opens the combo's list and picks the entry.
    virtual void choose(ui::ComboBox& combo, int index) = 0;
    /// Left click on a row's first cell; also brings it into view.
    virtual void clickRow(ui::Grid& grid, int row) = 0;
    virtual void doubleClickRow(ui::Grid& grid, int row) = 0;
    /// Left click on a row's first cell, after which the pointer rests for longer than a double click takes.
    /// On the current row of a list that has the focus the user asks so to edit it.
    virtual void clickRowAndRest(ui::Grid& grid, int row) = 0;
    virtual void clickHeader(ui::Grid& grid, int column) = 0;
    /// Types into the grid's open in-place editor, in place of all that is in it.
    virtual void rewrite(ui::Grid& grid, const std::wstring& text) = 0;
    /// Nothing happens where the toolbar's button is disabled. The toolbar does not take the focus.
    virtual void clickButton(ui::Toolbar& toolbar, int index) = 0;
    /// Opens the list's own menu by the context-menu key and picks the entry; the first is 0. The list has
    /// the focus.
    virtual void chooseFromMenu(ui::Grid& grid, int entry) = 0;
    /// Opens the button's menu and picks the entry; the first is 0.
    virtual void chooseMenu(ui::Toolbar& toolbar, int index, int entry) = 0;
    virtual void resize(ui::Window& window, const ui::Size& outerSize) = 0;
    /// The window's close box.
    virtual void closeWindow(ui::Window& window) = 0;
    /// Lets `milliseconds` pass and the timers tick that are due.
    virtual void wait(int milliseconds) = 0;
};

}  // namespace tests
