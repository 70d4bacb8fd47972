// Sending the report: what the add-in gets, and what happens where it fails.
#include "tests/report/report_test_base.h"

namespace tests {
namespace {

class ReportSending : public ReportToHelp {};

TEST_F(ReportSending, TheSevenArgumentsReachTheAddInInTheirOrder) {
    std::wstring rtf;
    open([&](frmSendBugReport& form) {
        user.type(form.txtSubject, L"It stops");
        user.type(form.txtCc, L" boss@tarnwell.example ");
        user.type(form.rtfBody, L"Steps");
        rtf = form.rtfBody.rtf();
        send(form);
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_EQ(sent().subject, L"It stops");
    EXPECT_EQ(sent().body, L"Steps");
    EXPECT_EQ(sent().richBody, rtf);
    EXPECT_TRUE(rtf.starts_with(L"{\\rtf1"));
    EXPECT_EQ(rtf.find(L'\0'), std::wstring::npos);
    EXPECT_EQ(sent().to, L"help@tarnwell.example");
    EXPECT_EQ(sent().cc, L" boss@tarnwell.example ");
    EXPECT_EQ(sent().importance, 0);
    EXPECT_TRUE(sent().flag);
    const auto line = calls.linesWith("addin SendMail").at(0);
    EXPECT_TRUE(line.starts_with("addin SendMail(It stops, Steps, {\\rtf1")) << line;
    EXPECT_TRUE(line.ends_with("}, help@tarnwell.example,  boss@tarnwell.example , 0, 1)") ||
                line.ends_with("}\r\n, help@tarnwell.example,  boss@tarnwell.example , 0, 1)"))
        << line;
}

TEST_F(ReportSending, TheHourglassShowsDuringTheCallAndAFailureIsSaidBeforeThePointerComesBack) {
    for (const bool fails : {false, true}) {
        if (fails) calls.failCallsWith("addin SendMail");
        calls.clear();
        open([&](frmSendBugReport& form) { send(form); });
        std::vector<std::string> order;
        for (const std::string& line : calls.lines())
            if (line.starts_with("pointer") || line.starts_with("addin") || line.starts_with("screen"))
                order.push_back(line.substr(0, 14));
        std::vector<std::string> expected{"pointer 11", "addin SendMail", "pointer 0"};
        if (fails) expected.insert(expected.end() - 1, "screen message");
        EXPECT_EQ(order, expected);
    }
}

struct Importance {
    const char* name;
    std::vector<int> clicks;
    int code;
};

class ReportImportance : public ReportSending, public testing::WithParamInterface<Importance> {};

TEST_P(ReportImportance, TheClicksGiveTheCode) {
    open([&](frmSendBugReport& form) {
        for (const int click : GetParam().clicks) user.clickButton(form.tbrProperties, click);
        EXPECT_LE(pressed(form).size(), 1U) << "never both";
        send(form);
    });
    EXPECT_EQ(sent().importance, GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(Clicks, ReportImportance,
                         testing::Values(Importance{"Neither", {}, 0}, Importance{"High", {1}, 2},
                                         Importance{"Low", {2}, 1}, Importance{"LowAfterHigh", {1, 2}, 1},
                                         Importance{"HighAfterLow", {2, 1}, 2},
                                         Importance{"HighTwice", {1, 1}, 0},
                                         Importance{"LowTwice", {2, 2}, 0}),
                         namedRow);

TEST_F(ReportSending, BothImportanceButtonsPressedCountAsHigh) {
    open([&](frmSendBugReport& form) {
        form.tbrProperties.setPressed(button::highImportance, true);
        form.tbrProperties.setPressed(button::lowImportance, true);
        send(form);
    });
    EXPECT_EQ(sent().importance, 2);
}

TEST_F(ReportSending, EmptyTextsAndASingleBlankArePassedAsTheyAre) {
    open([&](frmSendBugReport& form) {
        form.txtTo.setText(L" ");
        send(form);
    });
    ASSERT_EQ(calls.linesWith("addin SendMail").size(), 1U);
    EXPECT_EQ(sent().to, L" ");
    EXPECT_EQ(sent().subject, L"");
    EXPECT_EQ(sent().cc, L"");
    EXPECT_EQ(sent().body, L"");
}

TEST_F(ReportSending, AnotherButtonSendsNothingAndThePointerComesBack) {
    open([&](frmSendBugReport& form) {
        calls.clear();
        form.tbrBugReport.onButtonClick(SEND_BUTTON + 1);
        EXPECT_EQ(calls.lines(), std::vector<std::string>{"pointer 0"});
        EXPECT_TRUE(form.tbrBugReport.buttonEnabled(SEND_BUTTON));
    });
}

TEST_F(ReportSending, WithoutARecipientTheButtonDoesNothing) {
    open([&](frmSendBugReport& form) {
        form.txtTo.setText(L"");
        send(form);
        EXPECT_TRUE(form.window().isOpen());
    });
    EXPECT_THAT(calls.linesWith("addin SendMail"), IsEmpty());
}

TEST_F(ReportSending, TextsOfEveryScriptSurviveInThePlainForm) {
    const std::wstring text =
        L"Gr\u00fc\u00dfe \u0395\u03bb\u03bb\u03b7\u03bd\u03b9\u03ba\u03ac "
        L"\u0420\u0443\u0441\u0441\u043a\u0438\u0439 \u4e2d\u6587 \U0001F600";
    open([&](frmSendBugReport& form) {
        user.type(form.rtfBody, text);
        user.type(form.txtSubject, L"\u00dcber \u4e2d\u6587");
        send(form);
    });
    EXPECT_EQ(toUtf8(sent().body), toUtf8(text));
    EXPECT_EQ(sent().subject, L"\u00dcber \u4e2d\u6587");
}

TEST_F(ReportSending, ParagraphsOfThePlainBodyEndWithCarriageReturnAndLineFeed) {
    open([&](frmSendBugReport& form) {
        user.type(form.rtfBody, L"one");
        user.press(form.window(), key::enter);
        user.type(form.rtfBody, L"two");
        send(form);
    });
    EXPECT_EQ(sent().body, L"one\r\ntwo");
}

// --- Failures ---------------------------------------------------------------------------------------------

TEST_F(ReportSending, AFailingAddInIsSaidAndLeavesTheWindowOpenWithSendDead) {
    stage->addIn().failure = L"The mail server is gone";
    calls.failCallsWith("addin SendMail");
    open([&](frmSendBugReport& form) {
        user.type(form.rtfBody, L"Steps");
        send(form);
        EXPECT_TRUE(form.window().isOpen());
        EXPECT_FALSE(form.tbrBugReport.buttonEnabled(SEND_BUTTON));
        EXPECT_EQ(form.rtfBody.text(), L"Steps");
        EXPECT_EQ(form.txtTo.text(), L"help@tarnwell.example");
        ASSERT_EQ(stage->messages().size(), 1U);
        EXPECT_EQ(stage->messages()[0],
                  (ui::Message{L"Error sending bug report: The mail server is gone", L"Quillmark",
                               ui::MessageIcon::exclamation, ui::MessageButtons::ok}));
        EXPECT_EQ(calls.linesWith("pointer").back(), "pointer 0");
    });
}

TEST_F(ReportSending, AfterAFailureTypingEnablesTheButtonButClicksDoNothing) {
    calls.failCallsWith("addin SendMail");
    open([&](frmSendBugReport& form) {
        send(form);
        calls.forgetFaults();
        user.type(form.txtTo, L"x");
        EXPECT_TRUE(form.tbrBugReport.buttonEnabled(SEND_BUTTON));
        calls.clear();
        send(form);
        EXPECT_TRUE(form.window().isOpen());
        EXPECT_THAT(calls.lines(), ElementsAre("pointer 0"));
    });
    EXPECT_EQ(stage->messages().size(), 1U);
}

TEST_F(ReportSending, AFreshComposerSendsAgainAfterAFailure) {
    calls.failCallsWith("addin SendMail");
    open([&](frmSendBugReport& form) { send(form); });
    calls.forgetFaults();
    open([&](frmSendBugReport& form) {
        send(form);
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_EQ(sent().to, L"help@tarnwell.example");
}

TEST_F(ReportSending, WithoutAnAddInTheFailureIsSaid) {
    application.addIn.reset();
    open([&](frmSendBugReport& form) {
        send(form);
        EXPECT_TRUE(form.window().isOpen());
        EXPECT_FALSE(form.tbrBugReport.buttonEnabled(SEND_BUTTON));
    });
    ASSERT_EQ(stage->messages().size(), 1U);
    EXPECT_EQ(stage->messages()[0].text, L"Error sending bug report: The add-in is not running.");
}

// --- While the call runs ----------------------------------------------------------------------------------

TEST_F(ReportSending, ASecondClickDuringTheCallDoesNothing) {
    open([&](frmSendBugReport& form) {
        calls.during("addin SendMail", [&] {
            form.txtTo.setText(L"other@tarnwell.example");
            EXPECT_TRUE(form.tbrBugReport.buttonEnabled(SEND_BUTTON)) << "typing enables the button";
            send(form);
        });
        send(form);
    });
    EXPECT_EQ(calls.linesWith("addin SendMail").size(), 1U);
    EXPECT_EQ(sent().to, L"help@tarnwell.example");
}

TEST_F(ReportSending, ClosingDuringTheCallIsNotRefused) {
    open([&](frmSendBugReport& form) {
        calls.during("addin SendMail", [&] {
            user.closeWindow(form.window());
            EXPECT_FALSE(form.window().isOpen());
        });
        send(form);
    });
    EXPECT_EQ(calls.linesWith("addin SendMail").size(), 1U);
    EXPECT_TRUE(stage->messages().empty());
    EXPECT_EQ(calls.linesWith("timer kill").size(), 1U);
}

TEST_F(ReportSending, ClosingDuringACallThatFailsStillSaysSo) {
    calls.failCallsWith("addin SendMail");
    open([&](frmSendBugReport& form) {
        calls.during("addin SendMail", [&] { user.closeWindow(form.window()); });
        send(form);
    });
    EXPECT_EQ(stage->messages().size(), 1U);
    EXPECT_EQ(calls.linesWith("pointer").back(), "pointer 0");
}

TEST_F(ReportSending, AnAddInThatGoesAwayDuringTheCallIsHeldUntilItReturns) {
    open([&](frmSendBugReport& form) {
        calls.during("addin SendMail", [&] { application.addIn.reset(); });
        send(form);
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_TRUE(stage->messages().empty());
}

// --- Faults -----------------------------------------------------------------------------------------------

TEST_F(ReportSending, EachOutsideCallMayFailAndTheComposerGoesOn) {
    const auto play = [&] {
        open([&](frmSendBugReport& form) {
            EXPECT_EQ(form.cboFontsize.count(), 7);
            user.type(form.rtfBody, L"Steps");
            user.clickButton(form.tbrProperties, button::bold);
            form.txtTo.setText(L"a@b.example");
            send(form);
            user.wait(200);
            EXPECT_EQ(form.rtfBody.text(), L"Steps") << "nothing typed is lost";
        });
    };
    calls.clear();
    play();
    const std::vector<std::string> whole = calls.lines();
    ASSERT_GT(whole.size(), 5U);
    for (std::size_t index = 0; index < whole.size(); ++index) {
        SCOPED_TRACE(whole[index]);
        const std::size_t messages = stage->messages().size();
        calls.clear();
        calls.failCall(index);
        play();
        calls.forgetFaults();
        const bool sendingFails = whole[index].starts_with("addin");
        EXPECT_EQ(stage->messages().size() - messages, sendingFails ? 1U : 0U);
    }
}

}  // namespace
}  // namespace tests
