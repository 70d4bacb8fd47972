// A toolbar in memory.
#pragma once

#include "tests/headless/plain_controls.h"
#include "ui/toolbar.h"

namespace headless {

class Toolbar : public Typed<ui::Toolbar> {
public:
    using Typed::Typed;

    void setButtons(std::vector<ui::ToolbarButton> buttons) override;
    [[nodiscard]] int count() const override { return static_cast<int>(buttons_.size()); }
    [[nodiscard]] bool pressed(int index) const override { return at(index).pressed; }
    void setPressed(int index, bool pressed) override { at(index).pressed = pressed; }
    [[nodiscard]] bool buttonEnabled(int index) const override { return at(index).enabled; }
    void setButtonEnabled(int index, bool enabled) override { at(index).enabled = enabled; }
    [[nodiscard]] ui::Rect buttonBounds(int index) const override;
    void setButtonWidth(int index, int width) override { at(index).width = width; }

    /// A click, or a key while the toolbar has the focus.
    void pressButton(int index);
    /// The user opens the button's menu and picks the entry.
    void chooseEntry(int index, int entry);

    [[nodiscard]] bool focusable() const override { return true; }
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override;
    void handleKey(const ui::KeyEvent& event) override;
    void focusGained(FocusBy by) override;

private:
    struct Button {
        ui::ToolbarButton source;
        bool enabled = true;
        bool pressed = false;
        int width = 0;
    };
    [[nodiscard]] Button& at(int index) { return buttons_.at(static_cast<std::size_t>(index) - 1); }
    [[nodiscard]] const Button& at(int index) const {
        return buttons_.at(static_cast<std::size_t>(index) - 1);
    }
    [[nodiscard]] bool canBePressed(int index) const;
    /// The keyboard's place goes to the next button that can be pressed, and stays where there is none.
    void moveHot(int step);

    std::vector<Button> buttons_;
    int hot_ = 0;
};

}  // namespace headless
