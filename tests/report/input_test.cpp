// What the composer makes of large texts and odd characters, and of a host that closes the page meanwhile:
// what was typed is sent as it was typed.
#include "tests/report/report_test_base.h"

namespace tests {
namespace {

constexpr std::size_t FIVE_MEGABYTES = 5 << 20;  // characters

std::wstring largeText() {
    std::wstring text;
    while (text.size() < FIVE_MEGABYTES) {
        for (int sentence = 0; sentence < 20; ++sentence)
            text += L"It stopped while it was looking for mails. ";
        text += L"\r\n";
    }
    return text;
}

class ReportInput : public ReportToHelp {};

// --- Large texts ------------------------------------------------------------------------------------------

TEST_F(ReportInput, FiveMegabytesAndWhatIsTypedAfterThemAreSentWhole) {
    const std::wstring text = largeText();
    open([&](frmSendBugReport& form) {
        form.rtfBody.setText(text);
        form.rtfBody.setFocus();
        user.press(form.window(), key::end, ui::modifier::control);
        user.type(form.rtfBody, L"The end");
        send(form);
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_TRUE(sent().body == text + L"The end") << sent().body.size() << " of " << text.size();
    const std::wstring& rtf = sent().richBody;
    EXPECT_GT(rtf.size(), text.size());
    EXPECT_TRUE(rtf.starts_with(L"{\\rtf1"));
    EXPECT_NE(rtf.find(L"The end", rtf.size() - 100), std::wstring::npos);
    EXPECT_NE(rtf.find(L'}', rtf.size() - 8), std::wstring::npos) << "it has its end";
}

// --- Odd characters ---------------------------------------------------------------------------------------

struct OddText {
    const char* name;
    std::wstring text;
};

class ReportOddCharacters : public ReportInput, public testing::WithParamInterface<OddText> {};

TEST_P(ReportOddCharacters, InAnAddressOrSubjectAreSentAsTheyStandThere) {
    const std::wstring& text = GetParam().text;
    open([&](frmSendBugReport& form) {
        for (ui::TextBox* field : {&form.txtTo, &form.txtCc, &form.txtSubject}) field->setText(text);
        EXPECT_TRUE(form.tbrBugReport.buttonEnabled(SEND_BUTTON));
        send(form);
    });
    EXPECT_EQ(toUtf8(sent().to), toUtf8(text));
    EXPECT_EQ(toUtf8(sent().cc), toUtf8(text));
    EXPECT_EQ(toUtf8(sent().subject), toUtf8(text));
}

TEST_P(ReportOddCharacters, ThatArePastedAreSentAsTheFieldShowsThem) {
    std::wstring shown;
    open([&](frmSendBugReport& form) {
        form.txtTo.setText(L"");
        user.paste(form.txtTo, GetParam().text);
        shown = form.txtTo.text();
        user.type(form.txtTo, L"x");
        EXPECT_EQ(toUtf8(form.txtTo.text()), toUtf8(shown + L"x"));
        send(form);
    });
    EXPECT_EQ(toUtf8(sent().to), toUtf8(shown + L"x"));
}

INSTANTIATE_TEST_SUITE_P(Table, ReportOddCharacters,
                         testing::Values(OddText{"Tab", L"a\tb@c.example"}, OddText{"Bell", L"a\u0007b"},
                                         OddText{"Delete", L"a\u007fb"}, OddText{"Escape", L"\u001b[0m"},
                                         OddText{"UnitSeparator", L"a\u001fb\u0001"},
                                         OddText{"RightToLeftMark", L"a\u200f\u202eb"},
                                         OddText{"ByteOrderMark", L"\ufeffa"},
                                         OddText{"HeaderInjection", L"a@b.example\r\nBcc: c@d.example"},
                                         OddText{"Quotes", L"\"Help; Desk\" <a@b.example>; <>,"}),
                         namedRow);

TEST_F(ReportInput, ControlKeysInAnAddressFieldAddNoCharacters) {
    open([&](frmSendBugReport& form) {
        form.txtTo.setText(L"");
        user.type(form.txtTo, L"a\u0002\u0007\u001fb");
        EXPECT_EQ(form.txtTo.text(), L"ab");
    });
}

TEST_F(ReportInput, BracesBackslashesAndControlCharactersOfTheBodySurvive) {
    open([&](frmSendBugReport& form) {
        form.rtfBody.setText(L"{\\rtf1 {\\b not bold} \\par}\ttab");
        send(form);
    });
    EXPECT_EQ(toUtf8(sent().body), "{\\rtf1 {\\b not bold} \\par}\ttab");
    EXPECT_NE(sent().richBody.find(L"\\{\\\\rtf1 \\{\\\\b not bold\\} \\\\par\\}"), std::wstring::npos)
        << toUtf8(sent().richBody);
}

// --- The host closes the page -----------------------------------------------------------------------------

TEST_F(ReportInput, AHostThatClosesThePageClosesTheComposerAndStopsItsTimer) {
    open([&](frmSendBugReport& form) {
        user.type(form.rtfBody, L"Steps");
        stage->closeDialogs();
        EXPECT_FALSE(form.window().isOpen());
        EXPECT_EQ(calls.linesWith("timer kill").size(), 1U);
        user.wait(400);
    });
    EXPECT_THAT(calls.linesWith("addin"), IsEmpty());
    EXPECT_EQ(calls.linesWith("timer kill").size(), 1U);
}

TEST_F(ReportInput, AHostThatClosesThePageDuringTheCallLetsItFinish) {
    open([&](frmSendBugReport& form) {
        user.type(form.rtfBody, L"Steps");
        calls.during("addin SendMail", [&] { stage->closeDialogs(); });
        send(form);
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_EQ(sent().body, L"Steps");
    EXPECT_EQ(calls.linesWith("addin SendMail").size(), 1U);
    EXPECT_TRUE(stage->messages().empty());
    EXPECT_EQ(calls.linesWith("pointer").back(), "pointer 0");
}

TEST_F(ReportInput, AHostThatClosesThePageDuringACallThatFailsGetsNoError) {
    calls.failCallsWith("addin SendMail");
    open([&](frmSendBugReport& form) {
        calls.during("addin SendMail", [&] { stage->closeDialogs(); });
        send(form);
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
    EXPECT_EQ(calls.linesWith("pointer").back(), "pointer 0");
    // The next page's composer works again.
    calls.forgetFaults();
    open([&](frmSendBugReport& form) { send(form); });
    EXPECT_EQ(sent().to, L"help@tarnwell.example");
}

}  // namespace
}  // namespace tests
