// What the text box and the rich-text editor have in common: a caret, a selection, and the keys that move,
// type and erase.
#pragma once

#include <algorithm>
#include <cstdlib>

#include "tests/headless/letters.h"
#include "tests/headless/plain_controls.h"

namespace headless {

template <class Ui>
class Editor : public KeyTaking<Ui> {
public:
    using KeyTaking<Ui>::KeyTaking;
    [[nodiscard]] int selectionStart() const override { return std::min(anchor_, caret_); }
    [[nodiscard]] int selectionLength() const override { return std::abs(caret_ - anchor_); }
    void select(int start, int count) override { placeSelection(within(start), within(start + count)); }

    void handleKey(const ui::KeyEvent& event) override {
        const bool extend = (event.modifiers & ui::modifier::shift) != 0;
        switch (event.key) {
            case tests::key::left: return moveCaret(caret_ - 1, extend);
            case tests::key::right: return moveCaret(caret_ + 1, extend);
            case tests::key::home: return moveCaret(0, extend);
            case tests::key::end: return moveCaret(length(), extend);
            case tests::key::remove: return erase(false);
            case tests::key::back: return erase(true);
            default: break;
        }
        if (takeOwnKey(event)) return;
        const bool character = event.key == tests::key::space || (event.key >= '0' && event.key <= 'Z');
        const auto typed = static_cast<wchar_t>(event.key);
        if (character) this->handleCharacter(extend ? typed : lower(typed));
    }

protected:
    [[nodiscard]] virtual int length() const = 0;
    /// The caret goes behind the text.
    virtual void replaceSelection(const std::wstring& text) = 0;
    /// Whether the key means something here, or nothing at all; else it types its character.
    virtual bool takeOwnKey(const ui::KeyEvent& event) = 0;
    virtual void placeSelection(int anchor, int caret) {
        anchor_ = anchor;
        caret_ = caret;
    }

    void moveCaret(int position, bool extend) {
        const int caret = within(position);
        placeSelection(extend ? anchor_ : caret, caret);
    }
    /// Deletes the selection, or else one character before or behind the caret.
    void erase(bool before) {
        if (this->source().has("ES_READONLY")) return;
        if (selectionLength() == 0) {
            const int start = before ? caret_ - 1 : caret_;
            if (start < 0 || start >= length()) return;
            anchor_ = start;
            caret_ = start + 1;
        }
        replaceSelection(L"");
    }

    int anchor_ = 0;
    int caret_ = 0;

private:
    [[nodiscard]] int within(int position) const { return std::clamp(position, 0, length()); }
};

}  // namespace headless
