#include "tests/headless/toolbar.h"

namespace headless {
namespace {

using Type = ui::ToolbarButton::Type;

// Pixels.
constexpr int HEIGHT = 22;
constexpr int WIDTH = 23;
constexpr int GAP = 8;
constexpr int ARROW = 12;  // the arrow of a drop-down button
constexpr int LETTER = 6;

int initialWidth(const ui::ToolbarButton& button) {
    switch (button.type) {
        case Type::separator:
        case Type::placeholder: return GAP;
        case Type::dropDown: return WIDTH + ARROW;
        default: return WIDTH + LETTER * static_cast<int>(button.caption.size());
    }
}

}  // namespace

void Toolbar::setButtons(std::vector<ui::ToolbarButton> buttons) {
    buttons_.clear();
    for (ui::ToolbarButton& button : buttons) {
        const int width = initialWidth(button);
        buttons_.push_back({std::move(button), true, false, width});
    }
}

ui::Rect Toolbar::buttonBounds(int index) const {
    ui::Rect bounds{0, 0, at(index).width, HEIGHT};
    for (int before = 1; before < index; ++before) bounds.left += at(before).width;
    return bounds;
}

bool Toolbar::canBePressed(int index) const {
    if (index < 1 || index > count()) return false;
    const Type type = at(index).source.type;
    return at(index).enabled && type != Type::separator && type != Type::placeholder;
}

void Toolbar::pressButton(int index) {
    if (!canBePressed(index) || at(index).source.type == Type::dropDown) return;
    if (at(index).source.type == Type::check) at(index).pressed = !at(index).pressed;
    raise(onButtonClick, index);
}

void Toolbar::chooseEntry(int index, int entry) {
    if (!canBePressed(index) || at(index).source.type != Type::dropDown) return;
    const std::wstring key = at(index).source.menu.at(static_cast<std::size_t>(entry)).key;
    if (onMenuClick) onMenuClick(key);
}

void Toolbar::focusGained(FocusBy) {
    if (!canBePressed(hot_)) hot_ = 0;
    if (hot_ == 0) moveHot(1);
}

bool Toolbar::wantsKey(const ui::KeyEvent& event) const {
    const bool arrow = event.key >= tests::key::left && event.key <= tests::key::down;
    return arrow || event.key == tests::key::enter;
}

void Toolbar::handleKey(const ui::KeyEvent& event) {
    switch (event.key) {
        case tests::key::left: return moveHot(-1);
        case tests::key::right: return moveHot(1);
        case tests::key::enter:
        case tests::key::space: return pressButton(hot_);
        default: return;
    }
}

void Toolbar::moveHot(int step) {
    for (int index = hot_ + step; index >= 1 && index <= count(); index += step)
        if (canBePressed(index)) {
            hot_ = index;
            return;
        }
}

}  // namespace headless
