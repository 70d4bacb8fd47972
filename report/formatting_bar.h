// The composer's formatting toolbar with its two combos: what they do to the body's selection, and how they
// follow it.
#pragma once

#include <optional>
#include <string>

#include "ui/controls.h"
#include "ui/richtext.h"
#include "ui/toolbar.h"
#include "ui/window.h"

namespace vexa {

class FormattingBar {
public:
    FormattingBar(ui::Screen& screen, ui::Toolbar& toolbar, ui::ComboBox& fontnames, ui::ComboBox& fontsizes,
                  ui::RichText& body);

    void fillFontnames();
    void fillFontsizes();
    /// Puts each combo over its placeholder among the buttons.
    void placeCombos();
    /// Switches everything that formats the body; the importance buttons stay as they are.
    void enable(bool on) noexcept;
    void followSelection() noexcept;
    /// 2 is high, 1 is low, 0 is neither.
    [[nodiscard]] std::int32_t importance() const;

private:
    void placeCombo(ui::ComboBox& combo, int button);
    void selectFontname(const std::optional<std::wstring>& name);
    void selectFontsize(const std::optional<double>& points);
    void buttonClicked(int button);
    void toggle(int button, ui::Effect effect);
    void show(int button, ui::Effect effect);
    void releaseOtherImportance(int clicked, int other);
    void align(ui::Alignment alignment);
    void showAlignment(const std::optional<ui::Alignment>& alignment);
    void toggleBullets();
    void indentBy(double pixels);
    /// Pixels.
    [[nodiscard]] double indentStep() const;
    void colourChosen(const std::wstring& key);
    void fontnameChosen();
    void fontsizeChosen();

    ui::Screen& screen_;
    ui::Toolbar& toolbar_;
    ui::ComboBox& fontnames_;
    ui::ComboBox& fontsizes_;
    ui::RichText& body_;
};

}  // namespace vexa
