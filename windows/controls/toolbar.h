// The toolbar: the system's ToolbarWindow32. A button's command is its index, counted from 1. The keyboard
// works here, since the system's own handling differs between its versions.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "ui/toolbar.h"
#include "windows/controls/control_base.h"
#include "windows/controls/image_list.h"

namespace win {

class Toolbar : public ControlOf<ui::Toolbar> {
public:
    Toolbar(Window& window, HWND handle);
    void onButton(int index) override { raise(onButtonClick, index); }
    std::optional<LRESULT> onNotify(NMHDR& notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    [[nodiscard]] HWND tipWindow() const override { return reinterpret_cast<HWND>(send(TB_GETTOOLTIPS)); }
    void coloursChanged() override;
    void rescaled() override;

    void setButtons(std::vector<ui::ToolbarButton> buttons) override;
    [[nodiscard]] int count() const override { return static_cast<int>(buttons_.size()); }
    [[nodiscard]] bool pressed(int index) const override;
    void setPressed(int index, bool pressed) override;
    [[nodiscard]] bool buttonEnabled(int index) const override;
    void setButtonEnabled(int index, bool enabled) override;
    [[nodiscard]] ui::Rect buttonBounds(int index) const override;
    void setButtonWidth(int index, int width) override;

private:
    [[nodiscard]] const ui::ToolbarButton& button(int index) const;
    [[nodiscard]] ToolbarImages& images() const;
    [[nodiscard]] TBBUTTON rowOf(const ui::ToolbarButton& source, int index) const;
    [[nodiscard]] bool canBePressed(int index) const;
    void tellTip(NMHDR& notification) const;
    /// The text belongs to the button, which outlives the tip.
    void tellTip(NMTTDISPINFOW& tip);
    void openMenu(int index);
    void showHot();
    void moveHot(int step);
    void pressHot();
    /// True where the toolbar has a use for the key.
    bool takeKey(WPARAM key);

    std::vector<ui::ToolbarButton> buttons_;
    /// The button on which the keyboard is; 0 for none.
    int hot_ = 0;
};

}  // namespace win
