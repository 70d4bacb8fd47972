// A toolbar in memory.
#pragma once

#include "tests/headless/plain_controls.h"
#include "ui/toolbar.h"

namespace headless {

class Toolbar : public Typed<ui::Toolbar> {
public:
    using Typed::Typed;

    void setButtons(std::vector<ui::ToolbarButton> buttons) override {
        buttons_.clear();
        for (ui::ToolbarButton& button : buttons) {
            const int width = initialWidth(button);
            buttons_.push_back({std::move(button), true, false, width});
        }
    }
    [[nodiscard]] int count() const override { return static_cast<int>(buttons_.size()); }
    [[nodiscard]] bool pressed(int index) const override { return at(index).pressed; }
    void setPressed(int index, bool pressed) override { at(index).pressed = pressed; }
    [[nodiscard]] bool buttonEnabled(int index) const override { return at(index).enabled; }
    void setButtonEnabled(int index, bool enabled) override { at(index).enabled = enabled; }
    [[nodiscard]] ui::Rect buttonBounds(int index) const override {
        constexpr int HEIGHT = 22;  // pixels
        ui::Rect bounds{0, 0, at(index).width, HEIGHT};
        for (int before = 1; before < index; ++before) bounds.left += at(before).width;
        return bounds;
    }
    void setButtonWidth(int index, int width) override { at(index).width = width; }

    /// A click, or a key while the toolbar has the focus.
    void pressButton(int index) {
        if (!canBePressed(index) || at(index).source.type == Type::dropDown) return;
        if (at(index).source.type == Type::check) at(index).pressed = !at(index).pressed;
        raise(onButtonClick, index);
    }
    /// The user opens the button's menu and picks the entry.
    void chooseEntry(int index, int entry) {
        if (!canBePressed(index) || at(index).source.type != Type::dropDown) return;
        const std::wstring key = at(index).source.menu.at(static_cast<std::size_t>(entry)).key;
        if (onMenuClick) onMenuClick(key);
    }

    [[nodiscard]] bool focusable() const override { return true; }
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override {
        return isArrow(event.key) || event.key == tests::key::enter;
    }
    void handleKey(const ui::KeyEvent& event) override {
        switch (event.key) {
            case tests::key::left: return moveHot(-1);
            case tests::key::right: return moveHot(1);
            case tests::key::enter:
            case tests::key::space: return pressButton(hot_);
            default: return;
        }
    }
    void focusGained(FocusBy) override {
        if (!canBePressed(hot_)) hot_ = 0;
        if (hot_ == 0) moveHot(1);
    }

private:
    using Type = ui::ToolbarButton::Type;
    struct Button {
        ui::ToolbarButton source;
        bool enabled = true;
        bool pressed = false;
        int width = 0;
    };
    /// In pixels.
    [[nodiscard]] static int initialWidth(const ui::ToolbarButton& button) {
        constexpr int WIDTH = 23;
        constexpr int GAP = 8;
        constexpr int ARROW = 12;  // the arrow of a drop-down button
        constexpr int LETTER = 6;
        switch (button.type) {
            case Type::separator:
            case Type::placeholder: return GAP;
            case Type::dropDown: return WIDTH + ARROW;
            default: return WIDTH + LETTER * static_cast<int>(button.caption.size());
        }
    }
    [[nodiscard]] Button& at(int index) { return buttons_.at(static_cast<std::size_t>(index) - 1); }
    [[nodiscard]] const Button& at(int index) const {
        return buttons_.at(static_cast<std::size_t>(index) - 1);
    }
    [[nodiscard]] bool canBePressed(int index) const {
        if (index < 1 || index > count()) return false;
        const Type type = at(index).source.type;
        return at(index).enabled && type != Type::separator && type != Type::placeholder;
    }
    /// The keyboard's place goes to the next button that can be pressed, and stays where there is none.
    void moveHot(int step) {
        for (int index = hot_ + step; index >= 1 && index <= count(); index += step)
            if (canBePressed(index)) {
                hot_ = index;
                return;
            }
    }

    std::vector<Button> buttons_;
    int hot_ = 0;
};

}  // namespace headless
