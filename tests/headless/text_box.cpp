#include "tests/headless/text_box.h"

#include <algorithm>
#include <utility>

#include "tests/headless/letters.h"
#include "tests/headless/up_down.h"
#include "tests/headless/window.h"

namespace headless {
namespace {

constexpr int LETTER_WIDTH = 6;    // pixels
constexpr int MOST_TYPED = 32767;  // characters that a text box takes from the keyboard

}  // namespace

void TextBox::setText(const std::wstring& text) {
    const bool differs = text != state.caption;
    state.caption = text;
    anchor_ = caret_ = 0;
    if (differs) raise(onChange);
}

int TextBox::selectionStart() const { return std::min(anchor_, caret_); }

int TextBox::selectionLength() const { return std::abs(caret_ - anchor_); }

void TextBox::select(int start, int count) {
    anchor_ = std::clamp(start, 0, length());
    caret_ = std::clamp(start + count, 0, length());
}

bool TextBox::wantsKey(const ui::KeyEvent& event) const {
    const bool arrow = event.key >= tests::key::left && event.key <= tests::key::down;
    return arrow || (event.key == tests::key::enter && source().has("ES_WANTRETURN"));
}

void TextBox::handleKey(const ui::KeyEvent& event) {
    const bool extend = (event.modifiers & ui::modifier::shift) != 0;
    switch (event.key) {
        case tests::key::left: return moveCaret(caret_ - 1, extend);
        case tests::key::right: return moveCaret(caret_ + 1, extend);
        case tests::key::up: return stepBuddy(true);
        case tests::key::down: return stepBuddy(false);
        case tests::key::home: return moveCaret(0, extend);
        case tests::key::end: return moveCaret(length(), extend);
        case tests::key::remove: return erase(false);
        case BACKSPACE: return erase(true);
        default: break;
    }
    const bool character = event.key == tests::key::space || (event.key >= '0' && event.key <= 'Z');
    if (!character || (event.modifiers & ui::modifier::control) != 0) return;
    const auto typed = static_cast<wchar_t>(event.key);
    handleCharacter(extend ? typed : lower(typed));
}

void TextBox::handleCharacter(wchar_t character) {
    if (character == BACKSPACE) return erase(true);
    if (!accepts(character)) return;
    replace(selectionStart(), selectionLength(), std::wstring(1, character));
}

bool TextBox::accepts(wchar_t character) const {
    if (source().has("ES_READONLY") || length() - selectionLength() >= MOST_TYPED) return false;
    if (source().has("ES_NUMBER")) return character >= L'0' && character <= L'9';
    return character >= L' ' || source().has("ES_MULTILINE");
}

void TextBox::focusGained(FocusBy by) {
    if (by == FocusBy::keyboard) select(0, length());
    justFocused_ = by == FocusBy::mouse;
}

void TextBox::click(const ui::MouseEvent& event) {
    if (std::exchange(justFocused_, false) && onGotFocus) return;
    moveCaret(event.x / LETTER_WIDTH, false);
}

void TextBox::paste(const std::wstring& text) {
    if (!source().has("ES_READONLY")) replace(selectionStart(), selectionLength(), text);
}

void TextBox::stepBuddy(bool up) {
    const auto& items = window().items();
    const auto place = std::ranges::find(items, static_cast<Item*>(this), &std::unique_ptr<Item>::get);
    if (place + 1 == items.end()) return;
    auto* upDown = dynamic_cast<UpDown*>((place + 1)->get());
    if (upDown != nullptr && upDown->usable() && upDown->source().has("UDS_ARROWKEYS")) upDown->step(up);
}

void TextBox::moveCaret(int position, bool extend) {
    caret_ = std::clamp(position, 0, length());
    if (!extend) anchor_ = caret_;
}

void TextBox::replace(int start, int count, const std::wstring& text) {
    state.caption.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(count), text);
    anchor_ = caret_ = start + static_cast<int>(text.size());
    raise(onChange);
}

void TextBox::erase(bool before) {
    if (source().has("ES_READONLY")) return;
    int start = selectionStart();
    int count = selectionLength();
    if (count == 0) {
        if (before) --start;
        count = 1;
    }
    if (start >= 0 && start + count <= length()) replace(start, count, L"");
}

}  // namespace headless
