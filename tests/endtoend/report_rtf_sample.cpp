// Writes a report as a user would, with the composer's own buttons in a real window, and prints it as RTF,
// for a reader of another house to read.
#include <cstdio>

#include "report/frmSendBugReport.h"
#include "report/toolbar_buttons.h"
#include "tests/stage/stage.h"

namespace {

namespace button = vexa::propertyButton;
using vexa::frmSendBugReport;

class Author {
public:
    Author(tests::User& user, frmSendBugReport& form) : user_(user), form_(form) {}

    /// A word in the format of this button.
    void word(const wchar_t* text, int format) {
        click(format);
        user_.type(form_.rtfBody, text);
        click(format);
        user_.type(form_.rtfBody, L" ");
    }
    void paragraph(const wchar_t* text) {
        user_.type(form_.rtfBody, text);
        user_.press(form_.window(), tests::key::enter);
    }
    void click(int index) { user_.clickButton(form_.tbrProperties, index); }
    void colour(int entry) { user_.chooseMenu(form_.tbrProperties, button::forecolor, entry); }
    void font(const std::wstring& name) {
        for (int index = 0; index < form_.cboFontname.count(); ++index)
            if (form_.cboFontname.item(index) == name) user_.choose(form_.cboFontname, index);
    }
    void size(int entry) { user_.choose(form_.cboFontsize, entry); }

private:
    tests::User& user_;
    frmSendBugReport& form_;
};

void write(tests::User& user, frmSendBugReport& form) {
    constexpr int RED = 4;
    constexpr int BLUE = 1;
    constexpr int BLACK = 0;
    constexpr int EIGHT = 0;
    constexpr int TWENTY_FOUR = 5;
    Author author(user, form);
    user.click(form.rtfBody);
    author.word(L"strong", button::bold);
    author.word(L"slanted", button::italic);
    author.word(L"lined", button::underline);
    author.paragraph(L"plain");
    author.colour(RED);
    author.paragraph(L"scarlet");
    author.colour(BLUE);
    author.paragraph(L"azure");
    author.colour(BLACK);
    author.size(TWENTY_FOUR);
    author.paragraph(L"large");
    author.size(EIGHT);
    author.font(L"Tahoma");
    author.paragraph(L"upright");
    author.click(button::center);
    author.paragraph(L"middle");
    author.click(button::rightAlign);
    author.paragraph(L"flushright");
    author.click(button::leftAlign);
    author.click(button::bulletIndent);
    author.paragraph(L"point");
    author.click(button::bulletIndent);
    author.paragraph(L"umlauts \u00e4\u00f6\u00fc\u00df");
    author.paragraph(L"Greek \u03b1\u03b2\u03b3");
    author.paragraph(L"Cyrillic \u0436\u0437\u0438");
    author.paragraph(L"CJK \u4e2d\u6587");
    author.paragraph(L"emoji \U0001F600");
    author.paragraph(L"signs {\\}");
}

}  // namespace

int main() {
    const auto stage = tests::Stage::create();
    std::wstring rtf;
    stage->whenShown<frmSendBugReport>([&](frmSendBugReport& form) {
        write(stage->user(), form);
        rtf = form.rtfBody.rtf();
        stage->user().closeWindow(form.window());
    });
    vexa::showBugReport(stage->application(), stage->owner());
    for (const wchar_t character : rtf) std::putchar(static_cast<char>(character));
    return rtf.empty() ? 1 : 0;
}
