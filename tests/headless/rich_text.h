// A rich-text editor in memory: formats per character and per paragraph, a caret and a selection.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/headless/plain_controls.h"
#include "ui/richtext.h"

namespace headless {

/// A font's name: each is kept once, however many characters have it.
class FontName {
public:
    FontName(const std::wstring& name) : name_(&*known().insert(name).first) {}
    operator const std::wstring&() const { return *name_; }
    bool operator==(const FontName&) const = default;

private:
    static std::set<std::wstring>& known() {
        static std::set<std::wstring> names;
        return names;
    }
    const std::wstring* name_;
};

struct CharacterFormat {
    FontName fontName{L"System"};
    double fontSize = 10;  ///< points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    ui::Colour colour = 0;
    bool operator==(const CharacterFormat&) const = default;
};

struct ParagraphFormat {
    ui::Alignment alignment = ui::Alignment::left;
    bool bulleted = false;
    double leftIndent = 0;     ///< pixels
    double hangingIndent = 0;  ///< pixels
};

struct RichCharacter {
    wchar_t character;  ///< '\r' ends a paragraph
    CharacterFormat format;
};

class RichText : public Typed<ui::RichText> {
public:
    using Typed::Typed;

    [[nodiscard]] std::wstring text() const override;
    void setText(const std::wstring& text) override;
    void setDefaultFont(const std::wstring& name, int points) override;

    [[nodiscard]] int selectionStart() const override;
    [[nodiscard]] int selectionLength() const override;
    void select(int start, int length) override;

    [[nodiscard]] std::optional<std::wstring> fontName() const override;
    void setFontName(const std::wstring& name) override;
    [[nodiscard]] std::optional<double> fontSize() const override;
    void setFontSize(double points) override;
    [[nodiscard]] std::optional<bool> bold() const override;
    void setBold(bool bold) override;
    [[nodiscard]] std::optional<bool> italic() const override;
    void setItalic(bool italic) override;
    [[nodiscard]] std::optional<bool> underline() const override;
    void setUnderline(bool underline) override;
    [[nodiscard]] std::optional<ui::Colour> colour() const override;
    void setColour(ui::Colour colour) override;

    [[nodiscard]] std::optional<ui::Alignment> alignment() const override;
    void setAlignment(ui::Alignment alignment) override;
    [[nodiscard]] std::optional<bool> bulleted() const override;
    void setBulleted(bool bulleted) override;
    void setBulletIndent(double pixels) override;
    [[nodiscard]] std::optional<double> leftIndent() const override;
    void setLeftIndent(double pixels) override;
    [[nodiscard]] std::optional<double> hangingIndent() const override;
    void setHangingIndent(double pixels) override;

    [[nodiscard]] std::wstring rtf() const override;

    /// The bullet formats that were set, in order: "indent", "on" and "off".
    [[nodiscard]] const std::vector<std::string>& bulletFormats() const { return bulletFormats_; }

    [[nodiscard]] bool focusable() const override { return true; }
    /// Enter starts a paragraph; Esc is nobody's.
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override;
    [[nodiscard]] bool wantsCharacters() const override { return true; }
    void handleKey(const ui::KeyEvent& event) override;
    void handleCharacter(wchar_t character) override;

private:
    [[nodiscard]] int length() const { return static_cast<int>(characters_.size()); }
    /// The index of the paragraph in which this position lies.
    [[nodiscard]] std::size_t paragraphAt(int position) const;
    void moveCaret(int position, bool extend);
    void placeSelection(int anchor, int caret);
    void replaceSelection(const std::wstring& text);
    void joinParagraphs(int start, int end);
    void erase(bool before);
    /// A key with Ctrl.
    void takeShortcut(int key);

    template <class T>
    [[nodiscard]] std::optional<T> characterValue(T CharacterFormat::*member) const;
    template <class T>
    void setCharacterValue(T CharacterFormat::*member, const T& value);
    template <class T>
    [[nodiscard]] std::optional<T> paragraphValue(T ParagraphFormat::*member) const;
    template <class T>
    void setParagraphValue(T ParagraphFormat::*member, const T& value);

    std::vector<RichCharacter> characters_;
    std::vector<ParagraphFormat> paragraphs_{ParagraphFormat{}};
    CharacterFormat default_;
    /// The format of what is typed next.
    CharacterFormat insertion_;
    std::vector<std::string> bulletFormats_;
    int anchor_ = 0;
    int caret_ = 0;
};

/// The text as RTF: fonts, colours and every format, characters beyond ASCII as numbers.
[[nodiscard]] std::wstring toRtf(const std::vector<RichCharacter>& characters,
                                 const std::vector<ParagraphFormat>& paragraphs);

}  // namespace headless
