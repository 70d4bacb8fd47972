// A drop-down list in memory.
#pragma once

#include <vector>

#include "tests/headless/letters.h"
#include "tests/headless/plain_controls.h"

namespace headless {

class ComboBox : public KeyTaking<ui::ComboBox> {
public:
    using KeyTaking::KeyTaking;
    [[nodiscard]] std::wstring text() const override { return selected_ < 0 ? L"" : item(selected_); }
    void clear() override {
        items_.clear();
        selected_ = -1;
    }
    void add(const std::wstring& item) override { items_.push_back(item); }
    [[nodiscard]] int count() const override { return static_cast<int>(items_.size()); }
    [[nodiscard]] std::wstring item(int index) const override {
        return items_.at(static_cast<std::size_t>(index));
    }
    [[nodiscard]] int selectedIndex() const override { return selected_; }
    void select(int index) override { selected_ = index >= 0 && index < count() ? index : -1; }
    [[nodiscard]] bool droppedDown() const override { return droppedDown_; }
    [[nodiscard]] bool pointerInside() const override { return window().itemUnderPointer() == this; }
    void draw(const ui::Strokes& strokes) override { drawn = strokes; }

    /// What was drawn last.
    ui::Strokes drawn;

    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override {
        const bool closing = event.key == tests::key::enter || event.key == tests::key::escape;
        return isArrow(event.key) || (droppedDown_ && closing);
    }
    /// Opens or closes the list.
    void press() override {
        droppedDown_ = !droppedDown_;
        told_ = -1;
    }
    void handleKey(const ui::KeyEvent& event) override {
        switch (event.key) {
            case tests::key::up:
            case tests::key::left: return moveTo(selected_ - 1);
            case tests::key::down:
            case tests::key::right: return moveTo(selected_ + 1);
            case tests::key::home: return moveTo(0);
            case tests::key::end: return moveTo(count() - 1);
            case tests::key::enter: return confirm();
            case tests::key::escape: droppedDown_ = false; return;
            default:
                if (event.modifiers == 0 && event.key >= '0' && event.key <= 'Z')
                    handleCharacter(static_cast<wchar_t>(event.key));
        }
    }
    /// Selects the next entry that begins with the character.
    void handleCharacter(wchar_t character) override {
        moveTo(nextBeginningWith(*this, character, selected_));
    }
    void focusLost() override { droppedDown_ = false; }

    /// The user's choice; the list closes. An index out of range is no choice.
    void choose(int index) {
        droppedDown_ = false;
        moveTo(index);
    }

private:
    /// By the keyboard; an open list stays open.
    void moveTo(int index) {
        if (index < 0 || index >= count()) return;
        told_ = selected_ = index;
        raise(onClick);
    }
    /// Enter in the open list: what the arrow keys have not told already is a choice, too.
    void confirm() {
        droppedDown_ = false;
        if (told_ != selected_) moveTo(selected_);
    }

    std::vector<std::wstring> items_;
    int selected_ = -1;
    int told_ = -1;  ///< the choice that was raised since the list opened
    bool droppedDown_ = false;
};

}  // namespace headless
