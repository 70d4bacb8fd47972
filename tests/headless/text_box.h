// A text box in memory, with a caret and a selection.
#pragma once

#include "tests/headless/plain_controls.h"

namespace headless {

class TextBox : public Typed<ui::TextBox> {
public:
    using Typed::Typed;
    /// The caret goes to the start.
    void setText(const std::wstring& text) override;
    [[nodiscard]] int selectionStart() const override;
    [[nodiscard]] int selectionLength() const override;
    void select(int start, int length) override;

    [[nodiscard]] bool focusable() const override { return true; }
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override;
    [[nodiscard]] bool wantsCharacters() const override { return true; }
    /// Places the caret, but for the click that brings the focus to a box whose handler sees to the
    /// selection.
    void click(const ui::MouseEvent& event) override;
    void handleKey(const ui::KeyEvent& event) override;
    /// Typed at the caret, in place of the selection; a backspace deletes.
    void handleCharacter(wchar_t character) override;
    /// In place of the selection, as one change.
    void paste(const std::wstring& text);
    /// Reached by keyboard, the whole text is selected.
    void focusGained(FocusBy by) override;

private:
    [[nodiscard]] int length() const { return static_cast<int>(state.caption.size()); }
    [[nodiscard]] bool accepts(wchar_t character) const;
    /// The arrow keys step the up/down control that has taken its place in the box.
    void stepBuddy(bool up);
    void moveCaret(int position, bool extend);
    /// Puts `text` in place of the characters from `start`.
    void replace(int start, int count, const std::wstring& text);
    /// Deletes the selection, or else one character before or behind the caret.
    void erase(bool before);

    bool justFocused_ = false;  ///< by the click that is still to be handled
    int anchor_ = 0;
    int caret_ = 0;
};

}  // namespace headless
