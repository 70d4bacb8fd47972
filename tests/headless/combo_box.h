// A drop-down list in memory.
#pragma once

#include <vector>

#include "tests/headless/plain_controls.h"
#include "tests/headless/window.h"

namespace headless {

class ComboBox : public Typed<ui::ComboBox> {
public:
    using Typed::Typed;
    [[nodiscard]] std::wstring text() const override { return selected_ < 0 ? L"" : item(selected_); }
    void clear() override;
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

    [[nodiscard]] bool focusable() const override { return true; }
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override;
    [[nodiscard]] bool wantsCharacters() const override { return true; }
    /// Opens or closes the list.
    void press() override;
    void handleKey(const ui::KeyEvent& event) override;
    /// Selects the next entry that begins with the character.
    void handleCharacter(wchar_t character) override;
    void focusLost() override { droppedDown_ = false; }

    /// The user's choice; the list closes. An index out of range is no choice.
    void choose(int index);

private:
    /// By the keyboard; an open list stays open.
    void moveTo(int index);
    /// Enter in the open list: what the arrow keys have not told already is a choice, too.
    void confirm();

    std::vector<std::wstring> items_;
    int selected_ = -1;
    int told_ = -1;  ///< the choice that was raised since the list opened
    bool droppedDown_ = false;
};

}  // namespace headless
