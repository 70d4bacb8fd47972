// The line in the free place of the knowledgebase dialog: it says what goes on, to screen readers, too.
#pragma once

#include <string>
#include <utility>

#include "ui/controls.h"

namespace vexa {

class StatusLine {
public:
    /// `idleText` is what there is to say while nothing goes on.
    StatusLine(ui::Label& label, std::wstring idleText) : label_(label), idleText_(std::move(idleText)) {}

    /// What goes on from now on.
    void say(const std::wstring& text) {
        if (text == label_.text()) return;
        show(text);
        if (!text.empty()) label_.announce();
    }
    void sayNothingGoesOn() { say(idleText_); }

    /// What changes too often to be read out.
    void show(const std::wstring& text) { label_.setText(text); }
    [[nodiscard]] std::wstring text() const { return label_.text(); }

private:
    ui::Label& label_;
    std::wstring idleText_;
};

}  // namespace vexa
