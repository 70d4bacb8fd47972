#include "tests/headless/rich_text.h"

#include <algorithm>

#include "tests/headless/letters.h"

namespace headless {
namespace {

constexpr wchar_t PARAGRAPH_END = L'\r';

bool endsParagraph(const RichCharacter& character) { return character.character == PARAGRAPH_END; }

/// Paragraph ends of any kind as the one that the editor keeps.
std::wstring withOneEnd(const std::wstring& text) {
    std::wstring result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == L'\r' && index + 1 < text.size() && text[index + 1] == L'\n') ++index;
        result += text[index] == L'\n' ? PARAGRAPH_END : text[index];
    }
    return result;
}

}  // namespace

// --- Text and selection -----------------------------------------------------------------------------------

std::wstring RichText::text() const {
    std::wstring text;
    for (const RichCharacter& character : characters_) {
        text += character.character;
        if (endsParagraph(character)) text += L'\n';
    }
    return text;
}

void RichText::setText(const std::wstring& text) {
    characters_.clear();
    paragraphs_.assign(1, {});
    anchor_ = caret_ = 0;
    insertion_ = default_;
    replaceSelection(withOneEnd(text));
    select(0, 0);
}

void RichText::setDefaultFont(const std::wstring& name, int points) {
    default_.fontName = name;
    default_.fontSize = points;
    insertion_ = default_;
}

int RichText::selectionStart() const { return std::min(anchor_, caret_); }

int RichText::selectionLength() const { return std::abs(caret_ - anchor_); }

void RichText::select(int start, int count) {
    placeSelection(std::clamp(start, 0, length()), std::clamp(start + count, 0, length()));
}

std::size_t RichText::paragraphAt(int position) const {
    return static_cast<std::size_t>(
        std::count_if(characters_.begin(), characters_.begin() + position, endsParagraph));
}

void RichText::placeSelection(int anchor, int caret) {
    if (anchor == anchor_ && caret == caret_) return;
    anchor_ = anchor;
    caret_ = caret;
    // What is typed next looks like what stands before the caret, at the start like what follows it.
    const auto model = static_cast<std::size_t>(std::max(0, selectionStart() - 1));
    insertion_ = characters_.empty() ? default_ : characters_[model].format;
    raise(onSelectionChange);
}

void RichText::moveCaret(int position, bool extend) {
    const int caret = std::clamp(position, 0, length());
    placeSelection(extend ? anchor_ : caret, caret);
}

/// The joined paragraph looks like its first part.
void RichText::joinParagraphs(int start, int end) {
    const auto first = static_cast<std::ptrdiff_t>(paragraphAt(start));
    const auto last = static_cast<std::ptrdiff_t>(paragraphAt(end));
    paragraphs_.erase(paragraphs_.begin() + first + 1, paragraphs_.begin() + last + 1);
}

void RichText::replaceSelection(const std::wstring& text) {
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

void RichText::erase(bool before) {
    if (selectionLength() > 0) return replaceSelection(L"");
    const int start = before ? caret_ - 1 : caret_;
    if (start < 0 || start >= length()) return;
    anchor_ = start;
    caret_ = start + 1;
    replaceSelection(L"");
}

// --- Keyboard ---------------------------------------------------------------------------------------------

bool RichText::wantsKey(const ui::KeyEvent& event) const {
    const bool arrow = event.key >= tests::key::left && event.key <= tests::key::down;
    return arrow || event.key == tests::key::enter || event.key == tests::key::escape;
}

void RichText::handleKey(const ui::KeyEvent& event) {
    const bool extend = (event.modifiers & ui::modifier::shift) != 0;
    const bool control = (event.modifiers & ui::modifier::control) != 0;
    switch (event.key) {
        case tests::key::left: return moveCaret(caret_ - 1, extend);
        case tests::key::right: return moveCaret(caret_ + 1, extend);
        case tests::key::home: return moveCaret(0, extend);
        case tests::key::end: return moveCaret(length(), extend);
        case tests::key::enter: return replaceSelection(std::wstring(1, PARAGRAPH_END));
        case tests::key::remove: return erase(false);
        case BACKSPACE: return erase(true);
        default: break;
    }
    if (control) return takeShortcut(event.key);
    const bool character = event.key == tests::key::space || (event.key >= '0' && event.key <= 'Z');
    if (!character) return;
    const auto typed = static_cast<wchar_t>(event.key);
    handleCharacter(extend ? typed : lower(typed));
}

void RichText::takeShortcut(int key) {
    switch (key) {
        case 'A': select(0, length()); break;
        case 'B': setBold(bold() != true); break;
        case 'I': setItalic(italic() != true); break;
        case 'U': setUnderline(underline() != true); break;
        case 'L': setAlignment(ui::Alignment::left); break;
        case 'E': setAlignment(ui::Alignment::centre); break;
        case 'R': setAlignment(ui::Alignment::right); break;
        default: break;
    }
    raise(onSelectionChange);
}

void RichText::handleCharacter(wchar_t character) {
    if (character == BACKSPACE) return erase(true);
    if (character == L'\n' || character == PARAGRAPH_END)
        replaceSelection(std::wstring(1, PARAGRAPH_END));
    else if (character >= L' ' || character == L'\t')
        replaceSelection(std::wstring(1, character));
}

// --- Formats ----------------------------------------------------------------------------------------------

template <class T>
std::optional<T> RichText::characterValue(T CharacterFormat::*member) const {
    if (selectionLength() == 0) return insertion_.*member;
    const auto first = characters_.begin() + selectionStart();
    const T& value = first->format.*member;
    const bool mixed = std::any_of(first, first + selectionLength(), [&](const RichCharacter& character) {
        return character.format.*member != value;
    });
    return mixed ? std::nullopt : std::optional<T>(value);
}

template <class T>
void RichText::setCharacterValue(T CharacterFormat::*member, const T& value) {
    insertion_.*member = value;
    const auto first = characters_.begin() + selectionStart();
    std::for_each(first, first + selectionLength(),
                  [&](RichCharacter& character) { character.format.*member = value; });
}

template <class T>
std::optional<T> RichText::paragraphValue(T ParagraphFormat::*member) const {
    const std::size_t first = paragraphAt(selectionStart());
    const std::size_t last = paragraphAt(selectionStart() + selectionLength());
    for (std::size_t index = first; index <= last; ++index)
        if (paragraphs_[index].*member != paragraphs_[first].*member) return std::nullopt;
    return paragraphs_[first].*member;
}

template <class T>
void RichText::setParagraphValue(T ParagraphFormat::*member, const T& value) {
    const std::size_t last = paragraphAt(selectionStart() + selectionLength());
    for (std::size_t index = paragraphAt(selectionStart()); index <= last; ++index)
        paragraphs_[index].*member = value;
}

std::optional<std::wstring> RichText::fontName() const { return characterValue(&CharacterFormat::fontName); }
void RichText::setFontName(const std::wstring& name) {
    setCharacterValue(&CharacterFormat::fontName, FontName(name));
}
std::optional<double> RichText::fontSize() const { return characterValue(&CharacterFormat::fontSize); }
void RichText::setFontSize(double points) { setCharacterValue(&CharacterFormat::fontSize, points); }
std::optional<bool> RichText::bold() const { return characterValue(&CharacterFormat::bold); }
void RichText::setBold(bool bold) { setCharacterValue(&CharacterFormat::bold, bold); }
std::optional<bool> RichText::italic() const { return characterValue(&CharacterFormat::italic); }
void RichText::setItalic(bool italic) { setCharacterValue(&CharacterFormat::italic, italic); }
std::optional<bool> RichText::underline() const { return characterValue(&CharacterFormat::underline); }
void RichText::setUnderline(bool underline) { setCharacterValue(&CharacterFormat::underline, underline); }
std::optional<ui::Colour> RichText::colour() const { return characterValue(&CharacterFormat::colour); }
void RichText::setColour(ui::Colour colour) { setCharacterValue(&CharacterFormat::colour, colour); }

std::optional<ui::Alignment> RichText::alignment() const {
    return paragraphValue(&ParagraphFormat::alignment);
}
void RichText::setAlignment(ui::Alignment alignment) {
    setParagraphValue(&ParagraphFormat::alignment, alignment);
}
std::optional<bool> RichText::bulleted() const { return paragraphValue(&ParagraphFormat::bulleted); }
void RichText::setBulleted(bool bulleted) {
    bulletFormats_.emplace_back(bulleted ? "on" : "off");
    setParagraphValue(&ParagraphFormat::bulleted, bulleted);
    if (!bulleted) setHangingIndent(0);
}
void RichText::setBulletIndent(double pixels) {
    bulletFormats_.emplace_back("indent");
    setHangingIndent(pixels);
}
std::optional<double> RichText::leftIndent() const { return paragraphValue(&ParagraphFormat::leftIndent); }
void RichText::setLeftIndent(double pixels) { setParagraphValue(&ParagraphFormat::leftIndent, pixels); }
std::optional<double> RichText::hangingIndent() const {
    return paragraphValue(&ParagraphFormat::hangingIndent);
}
void RichText::setHangingIndent(double pixels) { setParagraphValue(&ParagraphFormat::hangingIndent, pixels); }

std::wstring RichText::rtf() const { return toRtf(characters_, paragraphs_); }

}  // namespace headless
