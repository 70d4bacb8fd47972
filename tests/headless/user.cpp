#include "tests/headless/user.h"

#include "tests/headless/combo_box.h"
#include "tests/headless/dialog_keys.h"
#include "tests/headless/grid.h"
#include "tests/headless/list_box.h"
#include "tests/headless/tab_strip.h"
#include "tests/headless/text_box.h"
#include "tests/headless/toolbar.h"
#include "tests/headless/up_down.h"

namespace headless {
namespace {

Item& itemOf(ui::Control& control) { return dynamic_cast<Item&>(control); }

bool takesInput(const Item& item) { return item.usable() && item.window().acceptsInput(); }

}  // namespace

void User::click(ui::Control& control) {
    Item& item = itemOf(control);
    if (!takesInput(item) || !item.focusable()) return;
    ui::MouseEvent event{1, 0, item.state.bounds.width / 2, item.state.bounds.height / 2};
    if (control.onMouseDown) control.onMouseDown(event);
    if (event.button == 0) return;
    item.window().focus(item, FocusBy::mouse);
    // What the focus left may have taken it back, with a question in between: the click goes nowhere.
    if (itemHasFocus(item)) item.click(event);
}

void User::moveMouse(ui::Control& control, int x, int y) {
    const Item& item = itemOf(control);
    const ui::Rect& area = item.state.bounds;
    const bool inside = x >= 0 && y >= 0 && x < area.width && y < area.height;
    item.window().movePointerTo(inside ? &item : nullptr);
    ui::MouseEvent event{0, 0, x, y};
    if (control.onMouseMove) control.onMouseMove(event);
}

void User::press(ui::Window& window, int key, int modifiers) {
    pressKey(dynamic_cast<Window&>(window), {key, modifiers});
}

void User::sendKey(ui::Control& control, int key) { itemOf(control).takeKey({key, 0}); }

void User::type(ui::Control& control, const std::wstring& text) {
    Item& item = itemOf(control);
    if (!takesInput(item)) return;
    item.window().focus(item, FocusBy::program);
    for (const wchar_t character : text) item.handleCharacter(character);
}

void User::paste(ui::TextBox& control, const std::wstring& text) {
    auto& box = dynamic_cast<TextBox&>(control);
    if (!takesInput(box)) return;
    box.window().focus(box, FocusBy::program);
    box.paste(text);
}

void User::pickItem(ui::ListBox& list, int index, int modifiers) {
    auto& box = dynamic_cast<ListBox&>(list);
    if (!takesInput(box)) return;
    box.window().focus(box, FocusBy::mouse);
    box.pick(index, modifiers);
}

void User::pickTab(ui::TabStrip& tabs, int index) {
    auto& strip = dynamic_cast<TabStrip&>(tabs);
    if (takesInput(strip)) strip.setCurrent(index);
}

void User::step(ui::UpDown& upDown, bool up) {
    auto& arrows = dynamic_cast<UpDown&>(upDown);
    if (takesInput(arrows)) arrows.step(up);
}

void User::choose(ui::ComboBox& combo, int index) {
    auto& box = dynamic_cast<ComboBox&>(combo);
    if (!takesInput(box)) return;
    box.window().focus(box, FocusBy::mouse);
    box.choose(index);
}

namespace {

/// The grid, pressed with the left button and focused; null where it takes no press.
Grid* pressed(ui::Grid& control) {
    auto& grid = dynamic_cast<Grid&>(control);
    if (!takesInput(grid)) return nullptr;
    ui::MouseEvent event{1, 0, 0, 0};
    if (control.onMouseDown) control.onMouseDown(event);
    if (event.button == 0) return nullptr;
    return &grid;
}

}  // namespace

void User::clickRow(ui::Grid& control, int row) {
    Grid* grid = pressed(control);
    if (grid == nullptr) return;
    grid->window().focus(*grid, FocusBy::mouse);
    grid->clickRow(row);
}

void User::doubleClickRow(ui::Grid& control, int row) {
    clickRow(control, row);
    if (Grid* grid = pressed(control)) grid->doubleClickRow(row);
}

void User::clickRowAndRest(ui::Grid& control, int row) {
    const bool again = control.currentRow() == row && control.hasFocus() && control.editedRow() == -1;
    clickRow(control, row);
    if (again && control.currentRow() == row && control.editedRow() == -1 && control.onBeginEdit)
        control.onBeginEdit(row);
}

void User::clickHeader(ui::Grid& control, int column) {
    if (pressed(control) != nullptr && control.onHeaderClick) control.onHeaderClick(column);
}

void User::rewrite(ui::Grid& control, const std::wstring& text) {
    auto& grid = dynamic_cast<Grid&>(control);
    if (takesInput(grid)) grid.rewrite(text);
}

void User::clickButton(ui::Toolbar& toolbar, int index) {
    auto& bar = dynamic_cast<Toolbar&>(toolbar);
    if (takesInput(bar)) bar.pressButton(index);
}

void User::chooseFromMenu(ui::Grid& grid, int entry) {
    if (grid.hasFocus()) grid.menu().at(static_cast<std::size_t>(entry)).run();
}

void User::chooseMenu(ui::Toolbar& toolbar, int index, int entry) {
    auto& bar = dynamic_cast<Toolbar&>(toolbar);
    if (takesInput(bar)) bar.chooseEntry(index, entry);
}

void User::resize(ui::Window& window, const ui::Size& outerSize) { window.setOuterSize(outerSize); }

void User::closeWindow(ui::Window& window) {
    if (dynamic_cast<Window&>(window).acceptsInput()) window.close();
}

}  // namespace headless
