// What the composer's hover timer draws upon the combos, where it can be seen.
#include "report/flat_combo.h"
#include "tests/headless/combo_box.h"
#include "tests/report/report_test_base.h"

namespace tests {
namespace {

using vexa::FlatState;

class HoverDrawing : public ReportTest {
protected:
    static headless::ComboBox& drawing(ui::ComboBox& combo) {
        return dynamic_cast<headless::ComboBox&>(combo);
    }
    /// What is drawn upon the two from now until the next tick has come.
    void tick(frmSendBugReport& form) {
        drawing(form.cboFontname).drawn.clear();
        drawing(form.cboFontsize).drawn.clear();
        user.wait(150);
    }
    [[nodiscard]] bool shows(ui::ComboBox& combo, FlatState state) const {
        const ui::Rect bounds = combo.bounds();
        const ui::Size size{bounds.width, bounds.height};
        return drawing(combo).drawn == vexa::flatCombo(state, size, application.screen.scrollThumbWidth());
    }
};

TEST_F(HoverDrawing, BeginsWithTheFirstTick) {
    open([&](frmSendBugReport& form) {
        user.wait(149);
        EXPECT_TRUE(drawing(form.cboFontname).drawn.empty());
        user.wait(1);
        EXPECT_TRUE(shows(form.cboFontname, FlatState::disabled));
        EXPECT_TRUE(shows(form.cboFontsize, FlatState::disabled));
    });
}

TEST_F(HoverDrawing, DrawsEachComboInItsOwnState) {
    open([&](frmSendBugReport& form) {
        form.rtfBody.setFocus();
        user.moveMouse(form.cboFontname, 5, 5);
        tick(form);
        EXPECT_TRUE(shows(form.cboFontname, FlatState::hot));
        EXPECT_TRUE(shows(form.cboFontsize, FlatState::flat));
        user.moveMouse(form.cboFontsize, 5, 5);
        tick(form);
        EXPECT_TRUE(shows(form.cboFontname, FlatState::flat));
        EXPECT_TRUE(shows(form.cboFontsize, FlatState::hot));
    });
}

TEST_F(HoverDrawing, LeavesAnOpenListAloneAndGoesOnWithTheOther) {
    open([&](frmSendBugReport& form) {
        form.rtfBody.setFocus();
        user.click(form.cboFontname);
        user.moveMouse(form.rtfBody, 5, 5);
        tick(form);
        EXPECT_TRUE(drawing(form.cboFontname).drawn.empty());
        EXPECT_TRUE(shows(form.cboFontsize, FlatState::flat));
    });
}

TEST_F(HoverDrawing, EndsWithTheWindow) {
    open([&](frmSendBugReport& form) {
        user.wait(150);
        user.closeWindow(form.window());
        tick(form);
        EXPECT_TRUE(drawing(form.cboFontname).drawn.empty());
    });
}

}  // namespace
}  // namespace tests
