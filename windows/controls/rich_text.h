// The rich-text editor: the system's RICHEDIT50W, whose library the screen loads.
#pragma once

#include <windows.h>

#include <richedit.h>

#include "ui/richtext.h"
#include "windows/controls/control_base.h"

namespace win {

class RichText : public ControlOf<ui::RichText> {
public:
    RichText(Window& window, HWND handle);
    std::optional<LRESULT> onNotify(NMHDR& notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    void setText(const std::wstring& text) override;
    void setDefaultFont(const std::wstring& name, int points) override;

    [[nodiscard]] int selectionStart() const override;
    [[nodiscard]] int selectionLength() const override;
    void select(int start, int length) override;

    [[nodiscard]] std::optional<std::wstring> fontName() const override;
    void setFontName(const std::wstring& name) override;
    [[nodiscard]] std::optional<double> fontSize() const override;
    void setFontSize(double points) override;
    [[nodiscard]] std::optional<bool> effect(ui::Effect effect) const override;
    void setEffect(ui::Effect effect, bool on) override;
    [[nodiscard]] std::optional<ui::Colour> colour() const override;
    void setColour(ui::Colour colour) override;

    [[nodiscard]] std::optional<ui::Alignment> alignment() const override;
    void setAlignment(ui::Alignment alignment) override;
    [[nodiscard]] std::optional<bool> bulleted() const override;
    void setBulleted(bool bulleted) override;
    void setBulletIndent(double pixels) override { setHangingIndent(pixels); }
    [[nodiscard]] std::optional<double> leftIndent() const override { return indent(LEFT); }
    void setLeftIndent(double pixels) override { setIndent(LEFT, pixels); }
    [[nodiscard]] std::optional<double> hangingIndent() const override { return indent(HANGING); }
    void setHangingIndent(double pixels) override { setIndent(HANGING, pixels); }

    [[nodiscard]] std::wstring rtf() const override;

private:
    /// The selection's format; `dwMask` tells which values are the same all over it.
    [[nodiscard]] CHARFORMAT2W characterFormat() const;
    void setCharacterFormat(CHARFORMAT2W& format, WPARAM range) const;
    [[nodiscard]] PARAFORMAT2 paragraphFormat() const;
    void setParagraphFormat(PARAFORMAT2& format) const;
    struct Indent {
        DWORD mask;
        LONG PARAFORMAT2::*twips;
    };
    static constexpr Indent LEFT{PFM_STARTINDENT, &PARAFORMAT2::dxStartIndent};
    static constexpr Indent HANGING{PFM_OFFSET, &PARAFORMAT2::dxOffset};
    [[nodiscard]] std::optional<double> indent(const Indent& which) const;
    void setIndent(const Indent& which, double pixels) const;
};

}  // namespace win
