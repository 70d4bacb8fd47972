// The user of headless windows: plain calls on the controls, under the rules of real windows.
#pragma once

#include "tests/headless/combo_box.h"
#include "tests/headless/dialog_keys.h"
#include "tests/headless/event_loop.h"
#include "tests/headless/grid.h"
#include "tests/headless/list_box.h"
#include "tests/headless/tab_strip.h"
#include "tests/headless/text_box.h"
#include "tests/headless/toolbar.h"
#include "tests/headless/up_down.h"

namespace headless {

class User : public tests::User {
public:
    explicit User(EventLoop& loop) : loop_(loop) {}

    void click(ui::Control& control) override {
        Item* item = taking<Item>(control);
        if (item == nullptr || !item->focusable()) return;
        ui::MouseEvent event{1, 0, item->state.bounds.width / 2, item->state.bounds.height / 2};
        if (!arrives(event, control)) return;
        item->window().focus(*item, FocusBy::mouse);
        // What the focus left may have taken it back, with a question in between: the click goes nowhere.
        if (itemHasFocus(*item)) item->click(event);
    }
    void moveMouse(ui::Control& control, int x, int y) override {
        const Item& item = dynamic_cast<Item&>(control);
        const ui::Rect& area = item.state.bounds;
        const bool inside = x >= 0 && y >= 0 && x < area.width && y < area.height;
        item.window().movePointerTo(inside ? &item : nullptr);
        ui::MouseEvent event{0, 0, x, y};
        if (control.onMouseMove) control.onMouseMove(event);
    }
    void press(ui::Window& window, int key, int modifiers) override {
        pressKey(dynamic_cast<Window&>(window), {key, modifiers});
    }
    void sendKey(ui::Control& control, int key) override { dynamic_cast<Item&>(control).takeKey({key, 0}); }
    void type(ui::Control& control, const std::wstring& text) override {
        Item* item = focused<Item>(control, FocusBy::program);
        if (item == nullptr) return;
        for (const wchar_t character : text) item->handleCharacter(character);
    }
    void paste(ui::TextBox& control, const std::wstring& text) override {
        if (auto* box = focused<TextBox>(control, FocusBy::program)) box->paste(text);
    }
    void pickItem(ui::ListBox& list, int index, int modifiers) override {
        if (auto* box = focused<ListBox>(list, FocusBy::mouse)) box->pick(index, modifiers);
    }
    void pickTab(ui::TabStrip& tabs, int index) override {
        if (auto* strip = taking<TabStrip>(tabs)) strip->setCurrent(index);
    }
    void step(ui::UpDown& upDown, bool up) override {
        if (auto* arrows = taking<UpDown>(upDown)) arrows->step(up);
    }
    void choose(ui::ComboBox& combo, int index) override {
        if (auto* box = focused<ComboBox>(combo, FocusBy::mouse)) box->choose(index);
    }
    void clickRow(ui::Grid& control, int row) override {
        if (Grid* grid = pressed(control)) {
            grid->window().focus(*grid, FocusBy::mouse);
            grid->clickRow(row);
        }
    }
    void doubleClickRow(ui::Grid& control, int row) override {
        clickRow(control, row);
        if (Grid* grid = pressed(control)) grid->doubleClickRow(row);
    }
    void clickRowAndRest(ui::Grid& control, int row) override {
        const bool again = control.currentRow() == row && control.hasFocus() && control.editedRow() == -1;
        clickRow(control, row);
        if (again && control.currentRow() == row && control.editedRow() == -1 && control.onBeginEdit)
            control.onBeginEdit(row);
    }
    void clickHeader(ui::Grid& control, int column) override {
        if (pressed(control) != nullptr && control.onHeaderClick) control.onHeaderClick(column);
    }
    void rewrite(ui::Grid& control, const std::wstring& text) override {
        if (auto* grid = taking<Grid>(control)) grid->rewrite(text);
    }
    void clickButton(ui::Toolbar& toolbar, int index) override {
        if (auto* bar = taking<Toolbar>(toolbar)) bar->pressButton(index);
    }
    void chooseFromMenu(ui::Grid& grid, int entry) override {
        if (grid.hasFocus()) grid.menu().at(static_cast<std::size_t>(entry)).run();
    }
    void chooseMenu(ui::Toolbar& toolbar, int index, int entry) override {
        if (auto* bar = taking<Toolbar>(toolbar)) bar->chooseEntry(index, entry);
    }
    void resize(ui::Window& window, const ui::Size& outerSize) override { window.setOuterSize(outerSize); }
    void closeWindow(ui::Window& window) override {
        if (dynamic_cast<Window&>(window).acceptsInput()) window.close();
    }
    void wait(int milliseconds) override { loop_.pass(milliseconds); }

private:
    /// The control where it takes input; else null.
    template <class T>
    static T* taking(ui::Control& control) {
        auto& item = dynamic_cast<T&>(control);
        return item.usable() && item.window().acceptsInput() ? &item : nullptr;
    }
    /// The same, with the focus if it can have it.
    template <class T>
    static T* focused(ui::Control& control, FocusBy by) {
        T* item = taking<T>(control);
        if (item != nullptr) item->window().focus(*item, by);
        return item;
    }
    /// Whether the control's handler leaves the press of a mouse button.
    static bool arrives(ui::MouseEvent& event, ui::Control& control) {
        if (control.onMouseDown) control.onMouseDown(event);
        return event.button != 0;
    }
    /// The grid, pressed with the left button; null where it takes no press.
    static Grid* pressed(ui::Grid& control) {
        ui::MouseEvent event{1, 0, 0, 0};
        Grid* grid = taking<Grid>(control);
        return grid != nullptr && arrives(event, control) ? grid : nullptr;
    }

    EventLoop& loop_;
};

}  // namespace headless
