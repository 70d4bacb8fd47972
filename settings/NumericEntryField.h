// A text box paired with an up/down control that holds a bounded whole number: the rule that all number
// fields of the settings dialogs share.
#pragma once

#include "common/platform.h"
#include "common/settings.h"
#include "ui/controls.h"
#include "ui/updown.h"

namespace vexa {

/// The up/down holds the number; the text is what the user typed. Every change of the number is written into
/// the text as plain digits. No text is ever an error: it is corrected or tolerated silently.
class NumericEntryField {
public:
    /// Hears both controls from now on, so they must not outlive it. The field starts at its minimum, in
    /// both.
    NumericEntryField(ui::TextBox& textBox, ui::UpDown& upDown, Bounds bounds, Conversions& conversions);
    NumericEntryField(const NumericEntryField&) = delete;
    NumericEntryField& operator=(const NumericEntryField&) = delete;

private:
    /// The rule, run after every change of the text. A number within the bounds becomes the value. An empty
    /// text stays and stands for the minimum; a text that is no 32-bit number is replaced by the last value;
    /// a number above the maximum becomes the maximum; one below the minimum stays as typed and leaves the
    /// value alone, so that numbers can be typed digit by digit.
    void textChanged();
    /// The text stays as it is.
    void setUnlinked(std::int32_t value);
    void setToMaximum();
    /// The link: writes the value into the text. The caret stays, or goes to the end of a shorter text.
    void showValue();

    ui::TextBox& text_;
    ui::UpDown& upDown_;
    Conversions& conversions_;
    bool linked_ = true;
};

}  // namespace vexa
