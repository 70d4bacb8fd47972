#include "windows/controls/rich_text.h"

#include <algorithm>
#include <cmath>

#include "common/error.h"
#include "windows/controls/screen.h"
#include "windows/controls/window.h"

namespace win {
namespace {

constexpr int TWIPS_PER_POINT = 20;
/// Without it the editor takes 32,767 characters.
constexpr LPARAM MOST_CHARACTERS = 0x7FFFFFFE;
/// What ends the stream where there is no memory for it.
constexpr DWORD OUT_OF_MEMORY = 1;
constexpr wchar_t FIRST_BEYOND_ASCII = 0x80;
constexpr UINT UTF16 = 1200;  // the code page
/// The editor's own shortcuts change formats, of which it tells nobody.
constexpr UINT SHORTCUT_DONE = WM_APP + 1;

void setFace(CHARFORMAT2W& format, const std::wstring& name) {
    format.dwMask |= CFM_FACE | CFM_CHARSET;
    format.bCharSet = DEFAULT_CHARSET;
    const std::size_t length = std::min<std::size_t>(name.size(), LF_FACESIZE - 1);
    std::copy_n(name.begin(), length, format.szFaceName);
    format.szFaceName[length] = L'\0';
}

void setSize(CHARFORMAT2W& format, double points) {
    format.dwMask |= CFM_SIZE;
    format.yHeight = std::lround(points * TWIPS_PER_POINT);
}

/// A stream as it comes in: a character a byte, and whether all of them are ASCII.
struct Collected {
    std::wstring text;
    unsigned char bits = 0;  ///< of all bytes together

    void add(const unsigned char* bytes, std::size_t count) {
        while (count > 0) {
            // Widened in a place of its own: the text need not be filled twice.
            wchar_t piece[1024];
            const std::size_t length = std::min(count, std::size(piece));
            unsigned seen = bits;
            for (std::size_t index = 0; index < length; ++index) seen |= piece[index] = bytes[index];
            bits = static_cast<unsigned char>(seen);
            text.append(piece, length);
            bytes += length;
            count -= length;
        }
    }
};

/// Takes all bytes that the editor offers: it does not offer any of them again.
DWORD CALLBACK takeBytes(DWORD_PTR collected, LPBYTE bytes, LONG count, LONG* taken) noexcept {
    try {
        reinterpret_cast<Collected*>(collected)->add(bytes, static_cast<std::size_t>(count));
        *taken = count;
        return 0;
    } catch (...) {
        *taken = 0;
        return OUT_OF_MEMORY;
    }
}

/// Room for the stream of most texts: their characters, a quarter more for their formats, and a head.
std::size_t usualLength(HWND editor) {
    constexpr std::size_t HEAD = 1024;
    GETTEXTLENGTHEX asked{GTL_NUMCHARS, UTF16};
    const LRESULT characters = SendMessageW(editor, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&asked), 0);
    const auto length = static_cast<std::size_t>(std::max<LRESULT>(characters, 0));
    return HEAD + length + length / 4;
}

/// The editor's text as RTF in UTF-8. Throws vexa::Error.
Collected streamOut(HWND editor) {
    Collected collected;
    collected.text.reserve(usualLength(editor));
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&collected), 0, takeBytes};
    SendMessageW(editor, EM_STREAMOUT, (CP_UTF8 << 16) | SF_USECODEPAGE | SF_RTF,
                 reinterpret_cast<LPARAM>(&stream));
    if (stream.dwError != 0) throw vexa::Error(vexa::description::outOfMemory);
    // Some editors count the terminator into the stream.
    while (!collected.text.empty() && collected.text.back() == L'\0') collected.text.pop_back();
    return collected;
}

/// The text whose UTF-8 bytes these characters are.
std::wstring fromUtf8(const std::wstring& source) {
    std::string bytes;
    bytes.reserve(source.size());
    for (const wchar_t byte : source) bytes += static_cast<char>(byte);
    std::wstring text(bytes.size(), L'\0');
    text.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), static_cast<int>(bytes.size()),
                                                     text.data(), static_cast<int>(text.size()))));
    return text;
}

/// Characters beyond ASCII as RTF writes them: their UTF-16 units as signed numbers.
std::wstring withNumbers(const std::wstring& source) {
    std::wstring text;
    text.reserve(source.size());
    for (const wchar_t character : source) {
        if (character < FIRST_BEYOND_ASCII)
            text += character;
        else
            text += L"\\u" + std::to_wstring(static_cast<short>(character)) + L"?";
    }
    return text;
}

/// Some editors end the stream at a picture that they cannot write, in the middle of the text.
bool isWhole(const std::wstring& rtf) {
    const std::size_t last = rtf.find_last_not_of(L"\r\n");
    return last != std::wstring::npos && rtf[last] == L'}';
}

/// A text as RTF without formats. A picture in it becomes a blank.
std::wstring unformatted(const std::wstring& text) {
    constexpr wchar_t PICTURE = 0xFFFC;
    std::wstring rtf = L"{\\rtf1\\ansi ";
    for (const wchar_t character : text) {
        if (character == L'\n') rtf += L"\\par";
        if (character == L'\\' || character == L'{' || character == L'}') rtf += L'\\';
        rtf += character == PICTURE ? L' ' : character;
    }
    return withNumbers(rtf + L"}");
}

/// RTF in UTF-8 as RTF of 7-bit characters.
std::wstring plainRtf(Collected utf8) {
    constexpr std::wstring_view UTF8_HEAD = L"{\\urtf";
    if (utf8.text.starts_with(UTF8_HEAD)) {
        // Some editors leave the version and the character set out.
        const bool complete = utf8.text.compare(UTF8_HEAD.size(), 1, L"1") == 0;
        utf8.text.replace(0, UTF8_HEAD.size(), complete ? L"{\\rtf" : L"{\\rtf1\\ansi");
    }
    if (utf8.bits < FIRST_BEYOND_ASCII) return std::move(utf8.text);
    return withNumbers(fromUtf8(utf8.text));
}

/// An effect's bits are those of its mask.
DWORD maskOf(ui::Effect effect) {
    constexpr DWORD MASKS[] = {CFM_BOLD, CFM_ITALIC, CFM_UNDERLINE};
    return MASKS[static_cast<int>(effect)];
}

/// Whether the dialog asks for this message and it is the Enter key.
bool isEnter(LPARAM lParam) {
    const auto* message = reinterpret_cast<const MSG*>(lParam);
    return message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
}

}  // namespace

RichText::RichText(Window& dialogWindow, HWND handle) : ControlOf(dialogWindow, handle) {
    send(EM_EXLIMITTEXT, 0, MOST_CHARACTERS);
    send(EM_SETEVENTMASK, 0, ENM_SELCHANGE);
    send(EM_SETZOOM, static_cast<WPARAM>(dialog().textScale()), 100);
}

std::optional<LRESULT> RichText::onNotify(NMHDR& notification) {
    if (notification.code == EN_SELCHANGE) raise(onSelectionChange);
    return std::nullopt;
}

std::optional<LRESULT> RichText::onMessage(UINT message, WPARAM, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE:
            // The editor must not learn that it lies in a dialog: it would close the dialog at Esc. Enter is
            // its own, Tab goes on to the next control.
            return DLGC_WANTARROWS | DLGC_WANTCHARS | (isEnter(lParam) ? DLGC_WANTMESSAGE : 0);
        case WM_KEYDOWN:
            // Behind the character that the key may stand for.
            if (GetKeyState(VK_CONTROL) < 0) PostMessageW(window(), SHORTCUT_DONE, 0, 0);
            return std::nullopt;
        case SHORTCUT_DONE: raise(onSelectionChange); return 0;
        default: return std::nullopt;
    }
}

// --- Text and selection -----------------------------------------------------------------------------------

void RichText::setText(const std::wstring& text) {
    // As replacing a selection: a text that is set is read as RTF where it looks like it.
    CHARRANGE all{0, -1};
    send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&all));
    send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
    select(0, 0);
}

void RichText::setDefaultFont(const std::wstring& name, int points) {
    CHARFORMAT2W format{};
    format.dwMask = CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE;
    setFace(format, name);
    setSize(format, points);
    setCharacterFormat(format, SCF_DEFAULT);
    setCharacterFormat(format, SCF_ALL);
}

int RichText::selectionStart() const {
    CHARRANGE range{};
    send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    return range.cpMin;
}

int RichText::selectionLength() const {
    CHARRANGE range{};
    send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    return range.cpMax - range.cpMin;
}

void RichText::select(int start, int length) {
    CHARRANGE range{start, start + length};
    send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

std::wstring RichText::rtf() const {
    // Only in UTF-8 do all editors write every character; else some put a similar one in its place.
    Collected utf8 = streamOut(window());
    return isWhole(utf8.text) ? plainRtf(std::move(utf8)) : unformatted(text());
}

// --- Formats of characters --------------------------------------------------------------------------------

CHARFORMAT2W RichText::characterFormat() const {
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    return format;
}

void RichText::setCharacterFormat(CHARFORMAT2W& format, WPARAM range) const {
    format.cbSize = sizeof format;
    send(EM_SETCHARFORMAT, range, reinterpret_cast<LPARAM>(&format));
}

std::optional<bool> RichText::effect(ui::Effect effect) const {
    const CHARFORMAT2W format = characterFormat();
    const DWORD mask = maskOf(effect);
    if ((format.dwMask & mask) == 0) return std::nullopt;
    return (format.dwEffects & mask) != 0;
}

void RichText::setEffect(ui::Effect effect, bool on) {
    CHARFORMAT2W format{};
    format.dwMask = maskOf(effect);
    format.dwEffects = on ? format.dwMask : 0;
    setCharacterFormat(format, SCF_SELECTION);
}

std::optional<std::wstring> RichText::fontName() const {
    const CHARFORMAT2W format = characterFormat();
    if ((format.dwMask & CFM_FACE) == 0) return std::nullopt;
    return format.szFaceName;
}

void RichText::setFontName(const std::wstring& name) {
    CHARFORMAT2W format{};
    setFace(format, name);
    setCharacterFormat(format, SCF_SELECTION);
}

std::optional<double> RichText::fontSize() const {
    const CHARFORMAT2W format = characterFormat();
    if ((format.dwMask & CFM_SIZE) == 0) return std::nullopt;
    return static_cast<double>(format.yHeight) / TWIPS_PER_POINT;
}

void RichText::setFontSize(double points) {
    CHARFORMAT2W format{};
    setSize(format, points);
    setCharacterFormat(format, SCF_SELECTION);
}

std::optional<ui::Colour> RichText::colour() const {
    const CHARFORMAT2W format = characterFormat();
    if ((format.dwMask & CFM_COLOR) == 0) return std::nullopt;
    const bool automatic = (format.dwEffects & CFE_AUTOCOLOR) != 0;
    return static_cast<ui::Colour>(automatic ? GetSysColor(COLOR_WINDOWTEXT) : format.crTextColor);
}

void RichText::setColour(ui::Colour colour) {
    CHARFORMAT2W format{};
    format.dwMask = CFM_COLOR;
    format.crTextColor = static_cast<COLORREF>(colour);
    setCharacterFormat(format, SCF_SELECTION);
}

// --- Formats of paragraphs --------------------------------------------------------------------------------

PARAFORMAT2 RichText::paragraphFormat() const {
    PARAFORMAT2 format{};
    format.cbSize = sizeof format;
    send(EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
    return format;
}

void RichText::setParagraphFormat(PARAFORMAT2& format) const {
    format.cbSize = sizeof format;
    send(EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
}

std::optional<ui::Alignment> RichText::alignment() const {
    const PARAFORMAT2 format = paragraphFormat();
    if ((format.dwMask & PFM_ALIGNMENT) == 0) return std::nullopt;
    switch (format.wAlignment) {
        case PFA_RIGHT: return ui::Alignment::right;
        case PFA_CENTER: return ui::Alignment::centre;
        default: return ui::Alignment::left;  // pasted justified text begins at the left
    }
}

void RichText::setAlignment(ui::Alignment alignment) {
    PARAFORMAT2 format{};
    format.dwMask = PFM_ALIGNMENT;
    format.wAlignment = static_cast<WORD>(static_cast<int>(alignment) + PFA_LEFT);
    setParagraphFormat(format);
}

std::optional<bool> RichText::bulleted() const {
    const PARAFORMAT2 format = paragraphFormat();
    if ((format.dwMask & PFM_NUMBERING) == 0) return std::nullopt;
    return format.wNumbering == PFN_BULLET;
}

void RichText::setBulleted(bool bulleted) {
    PARAFORMAT2 format{};
    format.dwMask = PFM_NUMBERING | (bulleted ? 0 : PFM_OFFSET);
    format.wNumbering = bulleted ? PFN_BULLET : 0;
    setParagraphFormat(format);
}

std::optional<double> RichText::indent(const Indent& which) const {
    const PARAFORMAT2 format = paragraphFormat();
    if ((format.dwMask & which.mask) == 0) return std::nullopt;
    return format.*which.twips / dialog().screen().twipsPerPixelX();
}

void RichText::setIndent(const Indent& which, double pixels) const {
    PARAFORMAT2 format{};
    format.dwMask = which.mask;
    format.*which.twips = std::lround(pixels * dialog().screen().twipsPerPixelX());
    setParagraphFormat(format);
}

}  // namespace win
