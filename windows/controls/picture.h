// An icon of the module, loaded in the size in which it is shown.
#pragma once

#include "ui/controls.h"
#include "windows/controls/control_base.h"

namespace win {

class Picture : public ControlOf<ui::Picture> {
public:
    Picture(Window& window, HWND handle);
    void move(const ui::Rect& bounds) override;
    void rescaled() override { load(); }

private:
    void load();

    /// The icon's number in the module; 0 where the template gives none.
    int resource_;
    ui::Size loaded_;
};

}  // namespace win
