// Check box, option button and swatch in memory.
#pragma once

#include "tests/headless/plain_controls.h"

namespace headless {

class CheckBox : public Pressable<ui::CheckBox> {
public:
    using Pressable::Pressable;
    [[nodiscard]] bool checked() const override { return checked_; }
    void setChecked(bool checked) override {
        if (checked == checked_) return;
        checked_ = checked;
        raise(onClick);
    }
    void press() override { setChecked(!checked_); }

private:
    bool checked_ = false;
};

class OptionButton : public Pressable<ui::OptionButton> {
public:
    using Pressable::Pressable;
    [[nodiscard]] bool selected() const override { return selected_; }
    void setSelected(bool selected) override {
        if (selected == selected_) return;
        mark(selected);
        if (!selected) return;
        for (Item* other : window().groupOf(*this)) {
            auto* option = dynamic_cast<OptionButton*>(other);
            if (option != nullptr && option != this) option->mark(false);
        }
        raise(onClick);
    }
    void press() override { setSelected(true); }

private:
    /// The tab stop of a group is its selected option.
    void mark(bool selected) { selected_ = state.tabStop = selected; }
    bool selected_ = false;
};

class Swatch : public Pressable<ui::Swatch> {
public:
    using Pressable::Pressable;
    [[nodiscard]] bool isPushButton() const override { return true; }
    [[nodiscard]] ui::Colour colour() const override { return colour_; }
    void setColour(ui::Colour colour) override { colour_ = colour; }
    void press() override { raise(onClick); }

private:
    ui::Colour colour_ = 0;
};

}  // namespace headless
