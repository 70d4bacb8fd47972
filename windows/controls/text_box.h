// A text box: the system's edit control.
#pragma once

#include "ui/controls.h"
#include "windows/controls/control_base.h"

namespace win {

class TextBox : public ControlOf<ui::TextBox> {
public:
    using ControlOf::ControlOf;
    void onCommand(int code) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void setText(const std::wstring& text) override;
    [[nodiscard]] int selectionStart() const override;
    [[nodiscard]] int selectionLength() const override;
    void select(int start, int length) override;

private:
    bool setting_ = false;
};

}  // namespace win
