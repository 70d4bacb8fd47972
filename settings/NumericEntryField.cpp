#include "settings/NumericEntryField.h"

#include <algorithm>
#include <optional>

#include "common/error.h"
#include "common/guarded.h"

namespace vexa {
namespace {

/// Nothing where the text is no number of 32 bits.
std::optional<std::int32_t> toNumber(Conversions& conversions, const std::wstring& text) {
    try {
        return conversions.toInteger(text);
    } catch (const Error&) {
        return std::nullopt;
    }
}

}  // namespace

NumericEntryField::NumericEntryField(ui::TextBox& textBox, ui::UpDown& upDown, Bounds bounds,
                                     Conversions& conversions)
    : text_(textBox), upDown_(upDown), conversions_(conversions) {
    upDown_.setBounds(bounds.minimum, bounds.maximum);
    text_.onChange = [this] { attempt([this] { textChanged(); }); };
    text_.setDescription(std::to_wstring(bounds.minimum) + L" to " + std::to_wstring(bounds.maximum));
    upDown_.onChange = [this] {
        if (linked_) attempt([this] { showValue(); });
    };
    attempt([this] { showValue(); });
}

void NumericEntryField::textChanged() {
    const std::wstring text = text_.text();
    if (text.empty()) return setUnlinked(upDown_.minimum());
    const std::optional<std::int32_t> number = toNumber(conversions_, text);
    if (!number) return showValue();
    if (*number > upDown_.maximum()) return setToMaximum();
    // A number below the minimum may be the beginning of a longer one.
    if (*number >= upDown_.minimum()) upDown_.setValue(*number);
}

void NumericEntryField::setUnlinked(std::int32_t value) {
    linked_ = false;
    attempt([&] { upDown_.setValue(value); });
    linked_ = true;
}

void NumericEntryField::setToMaximum() {
    upDown_.setValue(upDown_.maximum());
    // A value that stood at the maximum before has not changed, so the link has not corrected the text.
    showValue();
}

void NumericEntryField::showValue() {
    const std::wstring digits = std::to_wstring(upDown_.value());
    if (text_.text() == digits) return;
    const int caret = text_.selectionStart();
    text_.setText(digits);
    text_.select(std::min(caret, static_cast<int>(digits.size())), 0);
}

}  // namespace vexa
