// Controls that nobody can press, the push button, and what several of the other kinds share.
#pragma once

#include "tests/headless/window.h"
#include "tests/stage/user.h"
#include "ui/controls.h"

namespace headless {

[[nodiscard]] inline bool isArrow(int key) { return key >= tests::key::left && key <= tests::key::down; }

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

/// A control that has the focus and keeps the arrow keys and typed letters to itself.
template <class Ui>
class KeyTaking : public Typed<Ui> {
public:
    using Typed<Ui>::Typed;
    [[nodiscard]] bool focusable() const override { return true; }
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override { return isArrow(event.key); }
    [[nodiscard]] bool wantsCharacters() const override { return true; }
};

}  // namespace headless
