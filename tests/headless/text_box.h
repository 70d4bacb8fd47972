// A text box in memory.
#pragma once

#include <utility>

#include "tests/headless/editor.h"
#include "tests/headless/up_down.h"

namespace headless {

class TextBox : public Editor<ui::TextBox> {
public:
    using Editor::Editor;
    /// The caret goes to the start.
    void setText(const std::wstring& text) override {
        const bool differs = text != state.caption;
        state.caption = text;
        placeSelection(0, 0);
        if (differs) raise(onChange);
    }

    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override {
        return isArrow(event.key) || (event.key == tests::key::enter && source().has("ES_WANTRETURN"));
    }
    /// Places the caret, but for the click that brings the focus to a box whose handler sees to the
    /// selection.
    void click(const ui::MouseEvent& event) override {
        constexpr int LETTER_WIDTH = 6;  // pixels
        if (std::exchange(justFocused_, false) && onGotFocus) return;
        moveCaret(event.x / LETTER_WIDTH, false);
    }
    /// Typed at the caret, in place of the selection; a backspace deletes.
    void handleCharacter(wchar_t character) override {
        if (character == tests::key::back) return erase(true);
        if (accepts(character)) replaceSelection(std::wstring(1, character));
    }
    /// In place of the selection, as one change.
    void paste(const std::wstring& text) {
        if (!source().has("ES_READONLY")) replaceSelection(text);
    }
    /// Reached by keyboard, the whole text is selected.
    void focusGained(FocusBy by) override {
        if (by == FocusBy::keyboard) select(0, length());
        justFocused_ = by == FocusBy::mouse;
    }

protected:
    [[nodiscard]] int length() const override { return static_cast<int>(state.caption.size()); }
    void replaceSelection(const std::wstring& text) override {
        const int start = selectionStart();
        state.caption.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(selectionLength()),
                              text);
        anchor_ = caret_ = start + static_cast<int>(text.size());
        raise(onChange);
    }
    bool takeOwnKey(const ui::KeyEvent& event) override {
        const bool vertical = event.key == tests::key::up || event.key == tests::key::down;
        if (vertical) stepBuddy(event.key == tests::key::up);
        return vertical || (event.modifiers & ui::modifier::control) != 0;
    }

private:
    [[nodiscard]] bool accepts(wchar_t character) const {
        constexpr int MOST_TYPED = 32767;  // characters that a text box takes from the keyboard
        if (source().has("ES_READONLY") || length() - selectionLength() >= MOST_TYPED) return false;
        if (source().has("ES_NUMBER")) return character >= L'0' && character <= L'9';
        return character >= L' ' || source().has("ES_MULTILINE");
    }
    /// The arrow keys step the up/down control that has taken its place in the box.
    void stepBuddy(bool up) {
        const auto& items = window().items();
        const auto place = std::ranges::find(items, static_cast<Item*>(this), &std::unique_ptr<Item>::get);
        if (place + 1 == items.end()) return;
        auto* upDown = dynamic_cast<UpDown*>((place + 1)->get());
        if (upDown != nullptr && upDown->usable() && upDown->source().has("UDS_ARROWKEYS")) upDown->step(up);
    }

    bool justFocused_ = false;  ///< by the click that is still to be handled
};

}  // namespace headless
