// Random edits and formats of a report: the RTF that the add-in gets is 7-bit, its groups close, and a reader
// of our own finds in it the text that the editor shows.
#include <algorithm>
#include <cwctype>
#include <memory>

#include "report/frmSendBugReport.ids.h"
#include "tests/fuzz/input.h"
#include "tests/headless/event_loop.h"
#include "tests/headless/rich_text.h"
#include "tests/headless/window.h"

namespace {

using fuzz::Input;
using fuzz::require;

constexpr const wchar_t* FONTS[] = {L"Tahoma", L"Arial", L"Times New Roman"};
const std::wstring COMMON = L"\\\\{{}}ab \r\t'*;\x00E4\x20AC\xD83D\xDE00u?-1";

/// Reads RTF: control words, groups, text.
class Reader {
public:
    explicit Reader(const std::wstring& rtf) : rest_(rtf) {}

    /// The text of the group that begins here, without what tables and bullets hold.
    std::wstring text() {
        while (!rest_.empty()) step();
        require(depth_ == 0, "a group is not closed");
        return text_;
    }

private:
    wchar_t next() {
        require(!rest_.empty(), "the RTF ends early");
        const wchar_t character = rest_.front();
        rest_.remove_prefix(1);
        require(character < 0x80, "a character beyond 7 bits");
        return character;
    }
    void step() {
        switch (const wchar_t character = next()) {
            case L'{': ++depth_; return;
            case L'}':
                require(--depth_ >= 0, "a group is closed twice");
                if (depth_ < hidden_) hidden_ = 0;
                return;
            case L'\\': return control();
            default: put(character);
        }
    }
    void put(wchar_t character) {
        if (hidden_ == 0) text_ += character;
    }
    void control() {
        const wchar_t first = next();
        if (first == L'*') return hide();
        if (first == L'\'') return hexadecimal();
        if (!std::iswalpha(static_cast<std::wint_t>(first))) return put(first);
        std::wstring word(1, first);
        while (!rest_.empty() && std::iswalpha(static_cast<std::wint_t>(rest_.front()))) word += next();
        obey(word, number());
    }
    void hexadecimal() {
        next();
        next();
    }
    int number() {
        std::wstring digits;
        while (!rest_.empty() &&
               (rest_.front() == L'-' || std::iswdigit(static_cast<std::wint_t>(rest_.front()))))
            digits += next();
        if (!rest_.empty() && rest_.front() == L' ') next();
        return digits.empty() ? 0 : std::stoi(digits);
    }
    void obey(const std::wstring& word, int value) {
        if (word == L"fonttbl" || word == L"colortbl" || word == L"pntext") return hide();
        if (word == L"par") return put(L'\r');
        if (word == L"tab") return put(L'\t');
        if (word != L"u") return;
        require(next() == L'?', "a numbered character has no plain one beside it");
        put(static_cast<wchar_t>(value & 0xFFFF));
    }
    void hide() {
        if (hidden_ == 0) hidden_ = depth_;
    }

    std::wstring_view rest_;
    std::wstring text_;
    int depth_ = 0;
    int hidden_ = 0;  ///< the depth of the group that is left out
};

class Report {
public:
    void edit(Input& input) {
        switch (input.take(12)) {
            case 0: return body_.setEffect(ui::Effect::bold, input.take(2) == 0);
            case 1: return body_.setEffect(ui::Effect::italic, input.take(2) == 0);
            case 2: return body_.setEffect(ui::Effect::underline, input.take(2) == 0);
            case 3: return body_.setColour(input.takeNumber() & 0xFFFFFF);
            case 4: return body_.setFontName(FONTS[input.take(std::size(FONTS))]);
            case 5: return body_.setFontSize(1 + static_cast<double>(input.take(60)));
            case 6: return body_.setAlignment(static_cast<ui::Alignment>(input.take(3)));
            case 7: return body_.setBulleted(input.take(2) == 0);
            case 8: return body_.setLeftIndent(static_cast<double>(input.take(200)));
            case 9: return body_.setText(input.takeText(40, COMMON));
            case 10: {
                const int start = static_cast<int>(input.take(60));
                return body_.select(start, static_cast<int>(input.take(60)));
            }
            default: body_.handleCharacter(input.takeCharacter(COMMON));
        }
    }

    void check() {
        std::wstring shown = body_.text();
        std::erase(shown, L'\n');
        require(Reader(body_.rtf()).text() == utf16(shown) + L"\r", "the RTF holds another text");
    }

private:
    static std::wstring utf16(const std::wstring& text) {
        std::wstring units;
        for (const wchar_t character : text) {
            const auto code = static_cast<unsigned long>(character);
            if (code >= 0x10000) units += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
            units += code < 0x10000 ? character : static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
        }
        return units;
    }

    headless::EventLoop loop_;
    headless::Screen screen_{loop_};
    std::unique_ptr<ui::Window> window_ = screen_.createDialog(IDD_frmSendBugReport, nullptr);
    headless::RichText& body_ =
        dynamic_cast<headless::RichText&>(window_->control<ui::RichText>(IDC_rtfBody));
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Report report;
    while (!input.atEnd()) report.edit(input);
    report.check();
    return 0;
}
