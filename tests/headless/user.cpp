#include "tests/headless/user.h"

#include "tests/headless/combo_box.h"
#include "tests/headless/dialog_keys.h"

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
    item.click(event);
}

void User::moveMouse(ui::Control& control, int x, int y) {
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

void User::choose(ui::ComboBox& combo, int index) {
    auto& box = dynamic_cast<ComboBox&>(combo);
    if (!takesInput(box)) return;
    box.window().focus(box, FocusBy::mouse);
    box.choose(index);
}

void User::resize(ui::Window& window, const ui::Size& outerSize) { window.setOuterSize(outerSize); }

void User::closeWindow(ui::Window& window) {
    if (dynamic_cast<Window&>(window).acceptsInput()) window.close();
}

}  // namespace headless
