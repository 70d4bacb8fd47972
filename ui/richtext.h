// The rich-text editor. Formats belong to the selection; where the selection mixes several values of a format
// there is no value, which compares unequal to everything.
#pragma once

#include <optional>

#include "ui/control.h"

namespace ui {

enum class Alignment { left = 0, right = 1, centre = 2 };
enum class Effect { bold, italic, underline };

/// `text()` is the plain text, its paragraphs ended by CR LF. Without a selection a format that is read is
/// that of the caret, and one that is set belongs to what is typed next.
class RichText : public Control {
public:
    static constexpr Kind kind = Kind::richText;

    /// The font of an empty editor; `points` is its size. Not to be called on a text.
    virtual void setDefaultFont(const std::wstring& name, int points) = 0;

    /// In characters; the end of a paragraph counts as one.
    [[nodiscard]] virtual int selectionStart() const = 0;
    [[nodiscard]] virtual int selectionLength() const = 0;
    virtual void select(int start, int length) = 0;

    [[nodiscard]] virtual std::optional<std::wstring> fontName() const = 0;
    virtual void setFontName(const std::wstring& name) = 0;
    /// Points.
    [[nodiscard]] virtual std::optional<double> fontSize() const = 0;
    virtual void setFontSize(double points) = 0;
    [[nodiscard]] virtual std::optional<bool> effect(Effect effect) const = 0;
    virtual void setEffect(Effect effect, bool on) = 0;
    [[nodiscard]] virtual std::optional<Colour> colour() const = 0;
    virtual void setColour(Colour colour) = 0;

    // Formats of the paragraphs that the selection touches. Indents are pixels, with fractions.
    [[nodiscard]] virtual std::optional<Alignment> alignment() const = 0;
    virtual void setAlignment(Alignment alignment) = 0;
    [[nodiscard]] virtual std::optional<bool> bulleted() const = 0;
    /// Without its bullet a paragraph loses the bullet's indent, too.
    virtual void setBulleted(bool bulleted) = 0;
    /// How far a bulleted paragraph's text stands from its bullet: its hanging indent under another name.
    virtual void setBulletIndent(double pixels) = 0;
    /// Where the first line begins.
    [[nodiscard]] virtual std::optional<double> leftIndent() const = 0;
    virtual void setLeftIndent(double pixels) = 0;
    /// How much further than the first line the others begin; below 0 less far.
    [[nodiscard]] virtual std::optional<double> hangingIndent() const = 0;
    virtual void setHangingIndent(double pixels) = 0;

    /// The whole text as RTF, 7-bit characters only. Throws std::exception where there is no memory for it.
    [[nodiscard]] virtual std::wstring rtf() const = 0;

    /// The caret moved or the selection changed, by the user, by typing or by `select`; or the user pressed a
    /// key with Ctrl, by which editors change formats on their own.
    std::function<void()> onSelectionChange;
};

}  // namespace ui
