// The host closes the page while a settings dialog or the report composer is open: they end as by their close
// box, nothing is stored, and nothing goes on in the background.
#include "report/frmSendBugReport.h"
#include "report/toolbar_buttons.h"
#include "tests/settings/settings_test_base.h"

namespace tests {
namespace {

using vexa::frmSendBugReport;

class ClosingPage : public SettingsTest {
protected:
    ClosingPage() {
        setKnowledgebases({L"Mail", L"Work"});
        setText(L"DefaultProject", L"Mail");
        setText(L"AvailableExtensions", L"doc;pdf;");
        setText(L"SelectedExtensions", L"pdf;");
        settings.DefaultProject = L"Mail";
        application.flags = {true, false, true};
        application.addIn = application.platform.addIns.running();
        openReport = [this](ui::Window& owner) { vexa::showBugReport(application, owner); };
        before_ = settings;
        calls.clear();
    }

    /// Nothing has been stored or sent, every timer has ended, and dialogs open again.
    void expectAllOver() {
        EXPECT_EQ(settings, before_);
        EXPECT_EQ(application.flags, (vexa::ChangeFlags{true, false, true}));
        EXPECT_THAT(calls.linesWith("registry set"), IsEmpty());
        EXPECT_EQ(calls.linesWith("timer kill").size(), calls.linesWith("timer set").size());
        calls.clear();
        user.wait(200);
        EXPECT_THAT(calls.lines(), IsEmpty()) << "nothing ticks";
        bool shown = false;
        openAttachments([&](frmAttachment&) { shown = true; });
        EXPECT_TRUE(shown) << "the page may be opened again";
    }

    static void change(User& user, frmSettings& form) {
        user.click(form.chkAutoInfo);
        user.step(form.updMinRel, true);
        user.choose(form.cboDefaultKB, 2);
    }

    /// The composer above the search settings, as far as `script` gets.
    void openComposer(FunctionRef<void(frmSendBugReport&)> script) {
        openSearch([&](frmSettings& form) {
            change(user, form);
            stage->whenShown<frmSendBugReport>(script);
            user.click(form.cmdSendLog);
            EXPECT_FALSE(form.window().isOpen()) << "closed together with the composer";
        });
    }

private:
    vexa::Settings before_;
};

TEST_F(ClosingPage, EndsTheSearchSettings) {
    openSearch([&](frmSettings& form) {
        change(user, form);
        stage->closeDialogs();
        EXPECT_FALSE(form.window().isOpen());
    });
    expectAllOver();
}

TEST_F(ClosingPage, EndsTheSearchSettingsTogetherWithTheComposerAboveThem) {
    openComposer([&](frmSendBugReport& form) {
        user.type(form.txtTo, L"help@tarnwell.example");
        user.type(form.rtfBody, L"Steps");
        stage->closeDialogs();
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_THAT(calls.linesWith("addin"), IsEmpty());
    expectAllOver();
}

TEST_F(ClosingPage, EndsTheAttachmentSettings) {
    openAttachments([&](frmAttachment& form) {
        user.click(form.chkKBAdd);
        user.pickTab(form.sstAttachments, 1);
        user.click(form.cmdAdd);
        stage->closeDialogs();
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"pdf;");
    expectAllOver();
}

TEST_F(ClosingPage, EndsTheComposerThatSaysThatSendingFailed) {
    calls.failCallsWith("addin SendMail");
    openComposer([&](frmSendBugReport& form) {
        user.type(form.txtTo, L"help@tarnwell.example");
        calls.during("screen message", [&] { stage->closeDialogs(); });
        user.clickButton(form.tbrBugReport, vexa::SEND_BUTTON);
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_EQ(stage->messages().size(), 1U);
    EXPECT_EQ(calls.linesWith("pointer").back(), "pointer 0");
    calls.forgetFaults();
    expectAllOver();
}

TEST_F(ClosingPage, DoesNothingWhereNoDialogIsOpen) {
    stage->closeDialogs();
    expectAllOver();
}

}  // namespace
}  // namespace tests
