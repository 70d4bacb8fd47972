// Controls that nobody can press, and the push button.
#pragma once

#include "tests/headless/window.h"
#include "tests/stage/user.h"
#include "ui/controls.h"

namespace headless {

/// As a key and as a character.
inline constexpr int BACKSPACE = 0x08;

using Frame = Typed<ui::Frame>;
using Line = Typed<ui::Line>;
using Picture = Typed<ui::Picture>;

class Label : public Typed<ui::Label> {
public:
    using Typed::Typed;
    void announce() override { window().announce(state.caption); }
};

/// A control that has the focus and is pressed by click, space bar or access key.
template <class Ui>
class Pressable : public Typed<Ui> {
public:
    using Typed<Ui>::Typed;
    [[nodiscard]] bool focusable() const override { return true; }
    void handleKey(const ui::KeyEvent& event) override {
        if (event.key == tests::key::space && event.modifiers == 0) this->press();
    }
};

class Button : public Pressable<ui::Button> {
public:
    using Pressable::Pressable;
    [[nodiscard]] bool isPushButton() const override { return true; }
    void press() override { raise(onClick); }
};

}  // namespace headless
