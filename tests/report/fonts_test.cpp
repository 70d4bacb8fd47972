// The composer on screens with other fonts than the design's.
#include "tests/report/report_test_base.h"

namespace tests {
namespace {

using Names = std::vector<std::wstring>;

/// The stage's screen, with fonts of its own.
class OtherFonts : public ui::Screen {
public:
    explicit OtherFonts(ui::Screen& screen) : screen_(screen) {}
    Names names;
    bool fails = false;

    [[nodiscard]] std::vector<std::wstring> fonts() const override {
        if (fails) throw vexa::Error(L"No fonts");
        return names;
    }
    [[nodiscard]] std::unique_ptr<ui::Window> createDialog(int identifier, ui::Window* owner) override {
        return screen_.createDialog(identifier, owner);
    }
    ui::MessageAnswer showMessage(ui::Window* owner, const ui::Message& message) override {
        return screen_.showMessage(owner, message);
    }
    std::optional<ui::Colour> chooseColour(ui::Window& owner, ui::Colour initial,
                                           const std::wstring& title) override {
        return screen_.chooseColour(owner, initial, title);
    }
    [[nodiscard]] double twipsPerPixelX() const override { return screen_.twipsPerPixelX(); }
    [[nodiscard]] double twipsPerPixelY() const override { return screen_.twipsPerPixelY(); }
    [[nodiscard]] int scrollThumbWidth() const override { return screen_.scrollThumbWidth(); }

private:
    ui::Screen& screen_;
};

class ReportFonts : public ReportTest {
protected:
    /// Opens a composer on a screen with these fonts.
    void openWith(const Names& names, FunctionRef<void(frmSendBugReport&)> script) {
        screen.names = names;
        openOf(elsewhere, script);
    }
    void expectFont(const Names& names, const std::wstring& font) {
        SCOPED_TRACE(narrow(font));
        openWith(names, [&](frmSendBugReport& form) {
            EXPECT_EQ(form.rtfBody.fontName(), font);
            EXPECT_EQ(selectedText(form.cboFontname), font) << "the combo shows what the editor uses";
            EXPECT_EQ(form.rtfBody.fontSize(), 8.0);
            EXPECT_EQ(form.cboFontname.count(), std::ssize(names));
        });
    }

    OtherFonts screen{application.screen};
    vexa::Application elsewhere{application.platform, screen};
};

TEST_F(ReportFonts, TheEditorBeginsWithTheDesignsFontOrTheNearestOrTheScreensFirst) {
    expectFont({L"Arial", L"Courier New", L"MS Sans Serif", L"Tahoma"}, L"MS Sans Serif");
    expectFont({L"Arial", L"Courier New", L"Tahoma"}, L"Tahoma");
    expectFont({L"Courier New", L"Arial", L"Microsoft Sans Serif"}, L"Microsoft Sans Serif");
    expectFont({L"Courier New", L"Arial"}, L"Arial");
    expectFont({L"Courier New", L"Symbol"}, L"Courier New");
}

TEST_F(ReportFonts, TheFirstOfTwoFontsOfOneNameIsSelected) {
    openWith({L"Courier New", L"Tahoma", L"Tahoma"},
             [&](frmSendBugReport& form) { EXPECT_EQ(form.cboFontname.selectedIndex(), 1); });
}

TEST_F(ReportFonts, AScreenWithoutFontsLeavesTheComboEmptyAndTheReportCanBeWritten) {
    for (const bool fails : {false, true}) {
        screen.fails = fails;
        openWith({}, [&](frmSendBugReport& form) {
            EXPECT_EQ(form.cboFontname.count(), 0);
            EXPECT_EQ(form.cboFontname.selectedIndex(), -1);
            EXPECT_EQ(form.cboFontsize.count(), 7);
            EXPECT_EQ(selectedText(form.cboFontsize), L" 8");
            user.type(form.rtfBody, L"text");
            user.clickButton(form.tbrProperties, button::bold);
            user.type(form.rtfBody, L" and more");
            EXPECT_EQ(form.rtfBody.text(), L"text and more");
            EXPECT_EQ(form.rtfBody.effect(ui::Effect::bold), true);
        });
    }
}

TEST_F(ReportFonts, AFontThatIsChosenWhileTheDesignsIsMissingIsTaken) {
    openWith({L"Courier New", L"Tahoma"}, [&](frmSendBugReport& form) {
        user.type(form.rtfBody, L"text");
        form.rtfBody.select(0, 4);
        user.choose(form.cboFontname, 0);
        EXPECT_EQ(form.rtfBody.fontName(), L"Courier New");
        EXPECT_EQ(selectedText(form.cboFontname), L"Courier New");
    });
}

}  // namespace
}  // namespace tests
