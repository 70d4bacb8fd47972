// A rich-text editor in memory: formats per character and per paragraph, a caret and a selection.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/headless/editor.h"
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

/// The text as RTF: fonts, colours and every format, characters beyond ASCII as numbers.
[[nodiscard]] std::wstring toRtf(const std::vector<RichCharacter>& characters,
                                 const std::vector<ParagraphFormat>& paragraphs);

class RichText : public Editor<ui::RichText> {
public:
    using Editor::Editor;

    [[nodiscard]] std::wstring text() const override {
        std::wstring text;
        for (const RichCharacter& character : characters_) {
            text += character.character;
            if (endsParagraph(character)) text += L'\n';
        }
        return text;
    }
    void setText(const std::wstring& text) override {
        characters_.clear();
        paragraphs_.assign(1, {});
        anchor_ = caret_ = 0;
        insertion_ = default_;
        replaceSelection(withOneEnd(text));
        select(0, 0);
    }
    void setDefaultFont(const std::wstring& name, int points) override {
        default_.fontName = name;
        default_.fontSize = points;
        insertion_ = default_;
    }

    using Character = CharacterFormat;
    [[nodiscard]] std::optional<std::wstring> fontName() const override {
        return valueOf(&Character::fontName);
    }
    void setFontName(const std::wstring& name) override { set(&Character::fontName, FontName(name)); }
    [[nodiscard]] std::optional<double> fontSize() const override { return valueOf(&Character::fontSize); }
    void setFontSize(double points) override { set(&Character::fontSize, points); }
    [[nodiscard]] std::optional<bool> effect(ui::Effect effect) const override {
        return valueOf(memberOf(effect));
    }
    void setEffect(ui::Effect effect, bool on) override { set(memberOf(effect), on); }
    [[nodiscard]] std::optional<ui::Colour> colour() const override { return valueOf(&Character::colour); }
    void setColour(ui::Colour colour) override { set(&Character::colour, colour); }

    using Paragraph = ParagraphFormat;
    [[nodiscard]] std::optional<ui::Alignment> alignment() const override {
        return valueOf(&Paragraph::alignment);
    }
    void setAlignment(ui::Alignment alignment) override { set(&Paragraph::alignment, alignment); }
    [[nodiscard]] std::optional<bool> bulleted() const override { return valueOf(&Paragraph::bulleted); }
    void setBulleted(bool bulleted) override {
        bulletFormats_.emplace_back(bulleted ? "on" : "off");
        set(&Paragraph::bulleted, bulleted);
        if (!bulleted) setHangingIndent(0);
    }
    void setBulletIndent(double pixels) override {
        bulletFormats_.emplace_back("indent");
        setHangingIndent(pixels);
    }
    [[nodiscard]] std::optional<double> leftIndent() const override {
        return valueOf(&Paragraph::leftIndent);
    }
    void setLeftIndent(double pixels) override { set(&Paragraph::leftIndent, pixels); }
    [[nodiscard]] std::optional<double> hangingIndent() const override {
        return valueOf(&Paragraph::hangingIndent);
    }
    void setHangingIndent(double pixels) override { set(&Paragraph::hangingIndent, pixels); }

    [[nodiscard]] std::wstring rtf() const override { return toRtf(characters_, paragraphs_); }

    /// The bullet formats that were set, in order: "indent", "on" and "off".
    [[nodiscard]] const std::vector<std::string>& bulletFormats() const { return bulletFormats_; }

    /// Enter starts a paragraph; Esc is nobody's.
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override {
        return isArrow(event.key) || event.key == tests::key::enter || event.key == tests::key::escape;
    }
    void handleCharacter(wchar_t character) override {
        if (character == tests::key::back) return erase(true);
        if (character == L'\n' || character == PARAGRAPH_END)
            replaceSelection(std::wstring(1, PARAGRAPH_END));
        else if (character >= L' ' || character == L'\t')
            replaceSelection(std::wstring(1, character));
    }

protected:
    [[nodiscard]] int length() const override { return static_cast<int>(characters_.size()); }
    void replaceSelection(const std::wstring& text) override {
        const int start = selectionStart();
        const int end = start + selectionLength();
        joinParagraphs(start, end);
        characters_.erase(characters_.begin() + start, characters_.begin() + end);
        std::vector<RichCharacter> inserted;
        for (const wchar_t character : text) inserted.push_back({character, insertion_});
        characters_.insert(characters_.begin() + start, inserted.begin(), inserted.end());
        const std::size_t paragraph = paragraphAt(start);
        const auto ends = static_cast<std::size_t>(std::ranges::count(text, PARAGRAPH_END));
        paragraphs_.insert(paragraphs_.begin() + static_cast<std::ptrdiff_t>(paragraph), ends,
                           ParagraphFormat(paragraphs_[paragraph]));
        anchor_ = caret_ = start + static_cast<int>(text.size());
        raise(onSelectionChange);
    }
    void placeSelection(int anchor, int caret) override {
        if (anchor == anchor_ && caret == caret_) return;
        Editor::placeSelection(anchor, caret);
        // What is typed next looks like what stands before the caret, at the start like what follows it.
        const auto model = static_cast<std::size_t>(std::max(0, selectionStart() - 1));
        insertion_ = characters_.empty() ? default_ : characters_[model].format;
        raise(onSelectionChange);
    }
    bool takeOwnKey(const ui::KeyEvent& event) override {
        const bool control = (event.modifiers & ui::modifier::control) != 0;
        if (event.key == tests::key::enter)
            replaceSelection(std::wstring(1, PARAGRAPH_END));
        else if (control)
            takeShortcut(event.key);
        return control || event.key == tests::key::enter;
    }

private:
    static constexpr wchar_t PARAGRAPH_END = L'\r';
    static bool endsParagraph(const RichCharacter& character) { return character.character == PARAGRAPH_END; }
    /// Paragraph ends of any kind as the one that the editor keeps.
    static std::wstring withOneEnd(const std::wstring& text) {
        std::wstring result;
        for (std::size_t index = 0; index < text.size(); ++index) {
            if (text[index] == L'\r' && index + 1 < text.size() && text[index + 1] == L'\n') ++index;
            result += text[index] == L'\n' ? PARAGRAPH_END : text[index];
        }
        return result;
    }

    /// The index of the paragraph in which this position lies.
    [[nodiscard]] std::size_t paragraphAt(int position) const {
        return static_cast<std::size_t>(
            std::count_if(characters_.begin(), characters_.begin() + position, endsParagraph));
    }
    /// The joined paragraph looks like its first part.
    void joinParagraphs(int start, int end) {
        const auto first = static_cast<std::ptrdiff_t>(paragraphAt(start));
        const auto last = static_cast<std::ptrdiff_t>(paragraphAt(end));
        paragraphs_.erase(paragraphs_.begin() + first + 1, paragraphs_.begin() + last + 1);
    }
    /// A key with Ctrl.
    void takeShortcut(int key) {
        switch (key) {
            case 'A': select(0, length()); break;
            case 'B': toggle(ui::Effect::bold); break;
            case 'I': toggle(ui::Effect::italic); break;
            case 'U': toggle(ui::Effect::underline); break;
            case 'L': setAlignment(ui::Alignment::left); break;
            case 'E': setAlignment(ui::Alignment::centre); break;
            case 'R': setAlignment(ui::Alignment::right); break;
            default: break;
        }
        raise(onSelectionChange);
    }

    void toggle(ui::Effect effect) { setEffect(effect, this->effect(effect) != true); }
    static bool Character::*memberOf(ui::Effect effect) {
        constexpr bool Character::*MEMBERS[] = {&Character::bold, &Character::italic, &Character::underline};
        return MEMBERS[static_cast<std::size_t>(effect)];
    }

    // A format of the selection: nothing where it mixes several values.
    template <class T>
    [[nodiscard]] std::optional<T> valueOf(T CharacterFormat::*member) const {
        if (selectionLength() == 0) return insertion_.*member;
        const auto first = characters_.begin() + selectionStart();
        const T& value = first->format.*member;
        const bool mixed = std::any_of(first, first + selectionLength(), [&](const RichCharacter& character) {
            return character.format.*member != value;
        });
        return mixed ? std::nullopt : std::optional<T>(value);
    }
    template <class T>
    void set(T CharacterFormat::*member, const T& value) {
        insertion_.*member = value;
        const auto first = characters_.begin() + selectionStart();
        std::for_each(first, first + selectionLength(),
                      [&](RichCharacter& character) { character.format.*member = value; });
    }
    template <class T>
    [[nodiscard]] std::optional<T> valueOf(T ParagraphFormat::*member) const {
        const std::size_t first = paragraphAt(selectionStart());
        const std::size_t last = paragraphAt(selectionStart() + selectionLength());
        for (std::size_t index = first; index <= last; ++index)
            if (paragraphs_[index].*member != paragraphs_[first].*member) return std::nullopt;
        return paragraphs_[first].*member;
    }
    template <class T>
    void set(T ParagraphFormat::*member, const T& value) {
        const std::size_t last = paragraphAt(selectionStart() + selectionLength());
        for (std::size_t index = paragraphAt(selectionStart()); index <= last; ++index)
            paragraphs_[index].*member = value;
    }

    std::vector<RichCharacter> characters_;
    std::vector<ParagraphFormat> paragraphs_{ParagraphFormat{}};
    CharacterFormat default_;
    /// The format of what is typed next.
    CharacterFormat insertion_;
    std::vector<std::string> bulletFormats_;
};

}  // namespace headless
