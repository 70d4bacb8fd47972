// The controls that need little beside what all have: label, frame, line, buttons, check box, option.
#pragma once

#include <vector>

#include "ui/controls.h"
#include "windows/controls/control_base.h"

namespace win {

using Frame = ControlOf<ui::Frame>;
using Line = ControlOf<ui::Line>;

class Label : public ControlOf<ui::Label> {
public:
    using ControlOf::ControlOf;
    void announce() override;
    [[nodiscard]] bool isLive() const override { return live_; }

private:
    bool live_ = false;  ///< it has announced something
};

/// A button that shows a picture shows the module's icon of its own identifier, and bears its tooltip as
/// window text, which screen readers tell.
class Button : public Captioned<ui::Button> {
public:
    Button(Window& window, HWND handle);
    void onCommand(int code) override {
        if (code == BN_CLICKED) raise(onClick);
    }
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void coloursChanged() override { drawIconAnew(); }
    void rescaled() override { drawIconAnew(); }

private:
    void nameWindow() override;
    void showIcon();
    void drawIconAnew();
};

class CheckBox : public ControlOf<ui::CheckBox> {
public:
    using ControlOf::ControlOf;
    void onCommand(int code) override {
        if (code == BN_CLICKED) raise(onClick);
    }
    [[nodiscard]] bool checked() const override;
    void setChecked(bool checked) override;
};

class OptionButton : public ControlOf<ui::OptionButton> {
public:
    OptionButton(Window& window, HWND handle);
    void onCommand(int code) override;
    [[nodiscard]] bool selected() const override;
    void setSelected(bool selected) override;

private:
    /// Every wrapper of the group takes over the state of its control.
    void note(const std::vector<HWND>& group);

    bool known_;  ///< the state that handlers have been told
};

}  // namespace win
