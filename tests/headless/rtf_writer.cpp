#include <algorithm>
#include <cmath>

#include "tests/headless/rich_text.h"

namespace headless {
namespace {

constexpr double TWIPS_PER_PIXEL = 15;

std::wstring number(double value) { return std::to_wstring(std::lround(value)); }

std::wstring toggle(const wchar_t* word, bool on) { return std::wstring(L"\\") + word + (on ? L" " : L"0 "); }

/// A UTF-16 unit as RTF writes it: signed.
std::wstring unit(unsigned long value) {
    const long number = static_cast<long>(value) - (value > 0x7FFF ? 0x10000 : 0);
    return L"\\u" + std::to_wstring(number) + L"?";
}

std::wstring escaped(wchar_t character) {
    const auto code = static_cast<unsigned long>(character);
    if (character == L'\\' || character == L'{' || character == L'}') return {L'\\', character};
    if (character == L'\t') return L"\\tab ";
    if (code < 0x80) return {character};
    if (code < 0x10000) return unit(code);
    return unit(0xD800 + ((code - 0x10000) >> 10)) + unit(0xDC00 + ((code - 0x10000) & 0x3FF));
}

/// Things that are written once in a table and then by their place in it.
template <class T>
class Table {
public:
    std::wstring place(const T& entry) {
        auto found = std::ranges::find(entries_, entry);
        if (found == entries_.end()) found = entries_.insert(found, entry);
        return std::to_wstring(found - entries_.begin());
    }
    [[nodiscard]] const std::vector<T>& entries() const { return entries_; }

private:
    std::vector<T> entries_;
};

class Writer {
public:
    std::wstring character(const CharacterFormat& format) {
        return L"\\f" + fonts_.place(format.fontName) + L"\\fs" + number(2 * format.fontSize) + L"\\cf" +
               colours_.place(format.colour) + toggle(L"b", format.bold) + toggle(L"i", format.italic) +
               toggle(L"ul", format.underline);
    }

    static std::wstring paragraph(const ParagraphFormat& format) {
        constexpr const wchar_t* alignments[] = {L"\\ql", L"\\qr", L"\\qc"};
        const double hanging = format.hangingIndent * TWIPS_PER_PIXEL;
        const double left = format.leftIndent * TWIPS_PER_PIXEL + hanging;
        return L"\\pard" + std::wstring(alignments[static_cast<int>(format.alignment)]) + L"\\li" +
               number(left) + L"\\fi" + number(-hanging) + L" " +
               (format.bulleted ? L"{\\pntext\\'b7\\tab}{\\*\\pn\\pnlvlblt}" : L"");
    }

    [[nodiscard]] std::wstring head() const {
        std::wstring text = L"{\\rtf1\\ansi\\deff0{\\fonttbl";
        for (std::size_t index = 0; index < fonts_.entries().size(); ++index)
            text += L"{\\f" + std::to_wstring(index) + L" " + fonts_.entries()[index] + L";}";
        text += L"}{\\colortbl";
        for (const ui::Colour colour : colours_.entries())
            text += L"\\red" + std::to_wstring(colour & 0xFF) + L"\\green" +
                    std::to_wstring((colour >> 8) & 0xFF) + L"\\blue" + std::to_wstring(colour >> 16) + L";";
        return text + L"}\\uc1 ";
    }

private:
    Table<std::wstring> fonts_;
    Table<ui::Colour> colours_;
};

}  // namespace

std::wstring toRtf(const std::vector<RichCharacter>& characters,
                   const std::vector<ParagraphFormat>& paragraphs) {
    Writer writer;
    std::size_t paragraph = 0;
    std::wstring body = Writer::paragraph(paragraphs.front());
    const CharacterFormat* last = nullptr;
    for (const RichCharacter& character : characters) {
        if (last == nullptr || *last != character.format) body += writer.character(character.format);
        last = &character.format;
        if (character.character == L'\r')
            body += L"\\par" + Writer::paragraph(paragraphs[++paragraph]);
        else
            body += escaped(character.character);
    }
    return writer.head() + body + L"\\par}";
}

}  // namespace headless
