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
    [[nodiscard]] std::optional<bool> bold() const override { return effect(CFM_BOLD); }
    void setBold(bool bold) override { setEffect(CFM_BOLD, bold); }
    [[nodiscard]] std::optional<bool> italic() const override { return effect(CFM_ITALIC); }
    void setItalic(bool italic) override { setEffect(CFM_ITALIC, italic); }
    [[nodiscard]] std::optional<bool> underline() const override { return effect(CFM_UNDERLINE); }
    void setUnderline(bool underline) override { setEffect(CFM_UNDERLINE, underline); }
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
    /// The bits of an effect are those of its mask.
    [[nodiscard]] std::optional<bool> effect(DWORD mask) const;
    void setEffect(DWORD mask, bool on) const;
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
