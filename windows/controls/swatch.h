// A coloured field: a push button that draws itself in its colour.
#pragma once

#include "ui/controls.h"
#include "windows/controls/control_base.h"

namespace win {

class Swatch : public Captioned<ui::Swatch> {
public:
    using Captioned::Captioned;
    void onCommand(int code) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void coloursChanged() override { InvalidateRect(window(), nullptr, FALSE); }
    /// The colour in words.
    [[nodiscard]] std::wstring accessibleValue() const override;
    bool onDrawItem(const DRAWITEMSTRUCT& item) override;

    /// Exactly what was set, also where the top byte means no colour.
    [[nodiscard]] ui::Colour colour() const override { return colour_; }
    void setColour(ui::Colour colour) override;

private:
    void nameWindow() override;
    [[nodiscard]] std::wstring name() const;

    ui::Colour colour_ = 0x00FFFFFF;
};

}  // namespace win
