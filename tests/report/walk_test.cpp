// A random walk over the composer: whatever the user does in whatever order, its rules hold.
#include <algorithm>

#include "tests/report/report_test_base.h"
#include "tests/support/dice.h"
#include "tests/support/restless_world.h"

namespace tests {
namespace {

const int STEPS = walkLength(100'000);
constexpr int MOST_TEXT = 300;  // characters of the body, so that a step stays cheap

const std::vector<int> KEYS{key::left, key::right, key::up,    key::down,   key::home,  key::end,
                            key::tab,  key::enter, key::space, key::remove, key::escape};
const std::wstring CHARACTERS = L"ab \u00e4\u03b1\u0436\u4e2d\\{}&\t\b";

class ReportWalk : public ReportTest {
protected:
    void play() {
        while (steps_ < STEPS && !HasFatalFailure()) {
            prepare();
            open([this](frmSendBugReport& form) { visit(form); });
            ASSERT_EQ(calls.linesWith("timer set").size(), 1U);
            ASSERT_EQ(calls.linesWith("timer kill").size(), 1U);
            user.wait(dice_.roll(300));
        }
        EXPECT_EQ(steps_, STEPS);
    }

private:
    void prepare() {
        calls.forgetFaults();
        calls.clear();
        storeRecipient(dice_.oneIn(2) ? L"" : L"help@tarnwell.example");
        application.addIn = dice_.oneIn(5) ? nullptr : application.platform.addIns.running();
        sendingFails_ = dice_.oneIn(3);
        failed_ = false;
        saidBefore_ = stage->messages().size();
    }

    void visit(frmSendBugReport& form) {
        const int last = std::min(STEPS, steps_ + 1 + dice_.roll(400));
        while (steps_ < last && form.window().isOpen() && !HasFatalFailure()) {
            ++steps_;
            calls.forgetFaults();
            if (sendingFails_) calls.failCallsWith("addin SendMail");
            world_.stir();
            act(form);
            failed_ = stage->messages().size() > saidBefore_;
            check(form);
        }
    }

    void act(frmSendBugReport& form) {
        switch (dice_.roll(12)) {
            case 0: return typeInField(form);
            case 1:
            case 2: return typeInBody(form);
            case 3: return user.press(form.window(), dice_.pick(KEYS), dice_.roll(4));
            case 4: return user.clickButton(form.tbrProperties, 1 + dice_.roll(20));
            case 5: return user.chooseMenu(form.tbrProperties, button::forecolor, dice_.roll(8));
            case 6: return useCombo(dice_.oneIn(2) ? form.cboFontname : form.cboFontsize);
            case 7: return user.resize(form.window(), {dice_.roll(900), dice_.roll(700)});
            case 8: return form.rtfBody.select(dice_.roll(40), dice_.roll(40));
            case 9: return user.wait(dice_.roll(200));
            case 10: return moveMouse(form);
            default: return trySending(form);
        }
    }

    ui::TextBox& anyField(frmSendBugReport& form) {
        ui::TextBox* fields[] = {&form.txtTo, &form.txtCc, &form.txtSubject};
        return *fields[dice_.roll(3)];
    }
    void typeInField(frmSendBugReport& form) {
        ui::TextBox& field = anyField(form);
        if (dice_.oneIn(3)) return field.setText(L"");
        user.type(field, std::wstring(1, dice_.pick(CHARACTERS)));
    }
    void typeInBody(frmSendBugReport& form) {
        if (form.rtfBody.text().size() > MOST_TEXT) form.rtfBody.setText(L"");
        user.type(form.rtfBody, std::wstring(1, dice_.pick(CHARACTERS)));
    }
    void useCombo(ui::ComboBox& combo) {
        if (dice_.oneIn(3)) return user.click(combo);
        user.choose(combo, dice_.roll(combo.count()));
    }
    void moveMouse(frmSendBugReport& form) {
        ui::Control* controls[] = {&form.cboFontname, &form.cboFontsize, &form.rtfBody};
        user.moveMouse(*controls[dice_.roll(3)], dice_.roll(300) - 20, dice_.roll(40) - 5);
    }

    void trySending(frmSendBugReport& form) {
        if (!dice_.oneIn(8)) return;
        const std::wstring body = form.rtfBody.text();
        const std::wstring to = form.txtTo.text();
        const bool enabled = form.tbrBugReport.buttonEnabled(SEND_BUTTON);
        const std::size_t sent = calls.linesWith("addin SendMail").size();
        const int closings = world_.closings();
        user.clickButton(form.tbrBugReport, SEND_BUTTON);
        const bool asked = calls.linesWith("addin SendMail").size() > sent;
        if (!enabled || failed_) {
            ASSERT_FALSE(asked);
        }
        if (form.window().isOpen()) {
            ASSERT_EQ(form.rtfBody.text(), body);
        } else {
            ASSERT_TRUE(asked || world_.closings() > closings);
            if (!asked || sendingFails_) return;  // the host has closed it, and nobody is told of a failure
            ASSERT_EQ(stage->addIn().report.to, to);
            ASSERT_EQ(stage->addIn().report.body, body);
        }
        ASSERT_EQ(form.txtTo.text(), to);
    }

    void check(frmSendBugReport& form) {
        const bool recipient = !form.txtTo.text().empty();
        const bool canSend = form.tbrBugReport.buttonEnabled(SEND_BUTTON);
        ASSERT_TRUE(recipient || !canSend);
        if (!failed_ && form.window().isOpen()) {
            ASSERT_EQ(canSend, recipient);
        }
        ASSERT_FALSE(form.tbrProperties.pressed(button::highImportance) &&
                     form.tbrProperties.pressed(button::lowImportance));
        ASSERT_TRUE(form.tbrProperties.buttonEnabled(button::highImportance));
        ASSERT_EQ(form.cboFontname.enabled(), form.tbrProperties.buttonEnabled(button::bold));
        ASSERT_EQ(form.cboFontsize.enabled(), form.cboFontname.enabled());
        ASSERT_TRUE(!form.rtfBody.hasFocus() || form.cboFontname.enabled());
        ASSERT_GE(form.window().outerSize().width, 320);
        ASSERT_GT(form.rtfBody.bounds().height, 0);
        const std::vector<int> down = pressed(form);
        const auto alignments = std::ranges::count_if(
            down, [](int index) { return index >= button::leftAlign && index <= button::rightAlign; });
        ASSERT_LE(alignments, 1);
    }

    Dice dice_{"report composer"};
    int steps_ = 0;
    RestlessWorld world_{dice_, *stage};
    bool sendingFails_ = false;
    /// A send has failed in the composer that is open: it was said.
    bool failed_ = false;
    std::size_t saidBefore_ = 0;
};

TEST_F(ReportWalk, ItsRulesHoldAfterEveryAction) { play(); }

}  // namespace
}  // namespace tests
