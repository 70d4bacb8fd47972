// What the formatting toolbar and the font combos do to the selection, and how they follow it.
#include <cmath>

#include "tests/report/report_test_base.h"

namespace tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReportFormatting : public ReportTest {
protected:
    /// Opens a composer whose body has this text, without formats, and the focus.
    void openWithText(const std::wstring& text, const std::function<void(frmSendBugReport&)>& script) {
        open([&](frmSendBugReport& form) {
            user.click(form.rtfBody);
            bool first = true;
            for (const std::wstring& line : linesOf(text)) {
                if (!first) user.press(form.window(), key::enter);
                user.type(form.rtfBody, line);
                first = false;
            }
            script(form);
        });
    }
    /// Selects anew, so that the controls follow formats that a test set by itself.
    static void select(frmSendBugReport& form, int start, int length) {
        form.rtfBody.select(form.rtfBody.selectionStart() == 0 ? 1 : 0, 0);
        form.rtfBody.select(start, length);
    }
    [[nodiscard]] long twips(double pixels) const {
        return std::lround(pixels * application.screen.twipsPerPixelX());
    }

private:
    static std::vector<std::wstring> linesOf(const std::wstring& text) {
        std::vector<std::wstring> lines{L""};
        for (const wchar_t character : text)
            if (character == L'\n')
                lines.emplace_back();
            else
                lines.back() += character;
        return lines;
    }
};

// --- Every button in every selection ----------------------------------------------------------------------

enum class Selection {
    plain,
    bold,
    italic,
    underlined,
    mixedCharacters,
    centred,
    rightAligned,
    bulleted,
    indented,
    mixedParagraphs,
};

struct Row {
    Selection selection;
    int clicked;
    const char* expected;
};

class ReportToolbar : public ReportFormatting, public testing::WithParamInterface<Row> {
protected:
    /// Two paragraphs, "ab" and "cd"; all of it is selected.
    void prepare(frmSendBugReport& form, Selection selection) {
        ui::RichText& body = form.rtfBody;
        body.select(0, 5);
        switch (selection) {
            case Selection::plain: break;
            case Selection::bold: body.setBold(true); break;
            case Selection::italic: body.setItalic(true); break;
            case Selection::underlined: body.setUnderline(true); break;
            case Selection::mixedCharacters:
                body.select(0, 1);
                body.setBold(true);
                body.setItalic(true);
                body.setUnderline(true);
                break;
            case Selection::centred: body.setAlignment(ui::Alignment::centre); break;
            case Selection::rightAligned: body.setAlignment(ui::Alignment::right); break;
            case Selection::bulleted: addBullets(body); break;
            case Selection::indented: body.setLeftIndent(step()); break;
            case Selection::mixedParagraphs:
                body.select(0, 1);
                body.setAlignment(ui::Alignment::centre);
                body.setLeftIndent(step());
                addBullets(body);
                break;
        }
        select(form, 0, 5);
    }

    std::string describe(const frmSendBugReport& form) {
        const ui::RichText& body = form.rtfBody;
        std::string text =
            "b" + flag(body.bold()) + " i" + flag(body.italic()) + " u" + flag(body.underline());
        const auto alignment = body.alignment();
        text += " align " + (alignment ? std::to_string(static_cast<int>(*alignment)) : "?");
        text += " bullet " + flag(body.bulleted()) + " left " + distance(body.leftIndent()) + " hanging " +
                distance(body.hangingIndent()) + " |";
        for (const int index : pressed(form)) text += " " + std::to_string(index);
        return text;
    }

private:
    [[nodiscard]] double step() const { return 283 / application.screen.twipsPerPixelX(); }
    void addBullets(ui::RichText& body) {
        body.setBulletIndent(step());
        body.setBulleted(true);
    }
    static std::string flag(const std::optional<bool>& value) { return value ? (*value ? "1" : "0") : "?"; }
    std::string distance(const std::optional<double>& pixels) {
        return pixels ? std::to_string(twips(*pixels)) : "?";
    }
};

TEST_P(ReportToolbar, AClickFormatsTheSelectionAndTheButtonsShowIt) {
    openWithText(L"ab\ncd", [&](frmSendBugReport& form) {
        prepare(form, GetParam().selection);
        user.clickButton(form.tbrProperties, GetParam().clicked);
        EXPECT_EQ(describe(form), GetParam().expected);
        EXPECT_TRUE(form.rtfBody.hasFocus()) << "typing goes on in the body";
    });
}

// For each selection what the buttons make of it: bold, italic and underline ("?" is mixed), alignment (0
// left, 1 right, 2 centre), bullets, indents in twips; then the pressed buttons.
constexpr Row rows[] = {
    {Selection::plain, 1, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 1 14"},
    {Selection::plain, 2, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 2 14"},
    {Selection::plain, 10, "b1 i0 u0 align 0 bullet 0 left 0 hanging 0 | 10 14"},
    {Selection::plain, 11, "b0 i1 u0 align 0 bullet 0 left 0 hanging 0 | 11 14"},
    {Selection::plain, 12, "b0 i0 u1 align 0 bullet 0 left 0 hanging 0 | 12 14"},
    {Selection::plain, 14, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::plain, 15, "b0 i0 u0 align 2 bullet 0 left 0 hanging 0 | 15"},
    {Selection::plain, 16, "b0 i0 u0 align 1 bullet 0 left 0 hanging 0 | 16"},
    {Selection::plain, 17, "b0 i0 u0 align 0 bullet 1 left 0 hanging 283 | 14 17"},
    {Selection::plain, 18, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::plain, 19, "b0 i0 u0 align 0 bullet 0 left -283 hanging 0 | 14"},
    {Selection::plain, 20, "b0 i0 u0 align 0 bullet 0 left 283 hanging 0 | 14"},
    {Selection::bold, 1, "b1 i0 u0 align 0 bullet 0 left 0 hanging 0 | 1 10 14"},
    {Selection::bold, 2, "b1 i0 u0 align 0 bullet 0 left 0 hanging 0 | 2 10 14"},
    {Selection::bold, 10, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::bold, 11, "b1 i1 u0 align 0 bullet 0 left 0 hanging 0 | 10 11 14"},
    {Selection::bold, 12, "b1 i0 u1 align 0 bullet 0 left 0 hanging 0 | 10 12 14"},
    {Selection::bold, 14, "b1 i0 u0 align 0 bullet 0 left 0 hanging 0 | 10 14"},
    {Selection::bold, 15, "b1 i0 u0 align 2 bullet 0 left 0 hanging 0 | 10 15"},
    {Selection::bold, 16, "b1 i0 u0 align 1 bullet 0 left 0 hanging 0 | 10 16"},
    {Selection::bold, 17, "b1 i0 u0 align 0 bullet 1 left 0 hanging 283 | 10 14 17"},
    {Selection::bold, 18, "b1 i0 u0 align 0 bullet 0 left 0 hanging 0 | 10 14"},
    {Selection::bold, 19, "b1 i0 u0 align 0 bullet 0 left -283 hanging 0 | 10 14"},
    {Selection::bold, 20, "b1 i0 u0 align 0 bullet 0 left 283 hanging 0 | 10 14"},
    {Selection::italic, 1, "b0 i1 u0 align 0 bullet 0 left 0 hanging 0 | 1 11 14"},
    {Selection::italic, 2, "b0 i1 u0 align 0 bullet 0 left 0 hanging 0 | 2 11 14"},
    {Selection::italic, 10, "b1 i1 u0 align 0 bullet 0 left 0 hanging 0 | 10 11 14"},
    {Selection::italic, 11, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::italic, 12, "b0 i1 u1 align 0 bullet 0 left 0 hanging 0 | 11 12 14"},
    {Selection::italic, 14, "b0 i1 u0 align 0 bullet 0 left 0 hanging 0 | 11 14"},
    {Selection::italic, 15, "b0 i1 u0 align 2 bullet 0 left 0 hanging 0 | 11 15"},
    {Selection::italic, 16, "b0 i1 u0 align 1 bullet 0 left 0 hanging 0 | 11 16"},
    {Selection::italic, 17, "b0 i1 u0 align 0 bullet 1 left 0 hanging 283 | 11 14 17"},
    {Selection::italic, 18, "b0 i1 u0 align 0 bullet 0 left 0 hanging 0 | 11 14"},
    {Selection::italic, 19, "b0 i1 u0 align 0 bullet 0 left -283 hanging 0 | 11 14"},
    {Selection::italic, 20, "b0 i1 u0 align 0 bullet 0 left 283 hanging 0 | 11 14"},
    {Selection::underlined, 1, "b0 i0 u1 align 0 bullet 0 left 0 hanging 0 | 1 12 14"},
    {Selection::underlined, 2, "b0 i0 u1 align 0 bullet 0 left 0 hanging 0 | 2 12 14"},
    {Selection::underlined, 10, "b1 i0 u1 align 0 bullet 0 left 0 hanging 0 | 10 12 14"},
    {Selection::underlined, 11, "b0 i1 u1 align 0 bullet 0 left 0 hanging 0 | 11 12 14"},
    {Selection::underlined, 12, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::underlined, 14, "b0 i0 u1 align 0 bullet 0 left 0 hanging 0 | 12 14"},
    {Selection::underlined, 15, "b0 i0 u1 align 2 bullet 0 left 0 hanging 0 | 12 15"},
    {Selection::underlined, 16, "b0 i0 u1 align 1 bullet 0 left 0 hanging 0 | 12 16"},
    {Selection::underlined, 17, "b0 i0 u1 align 0 bullet 1 left 0 hanging 283 | 12 14 17"},
    {Selection::underlined, 18, "b0 i0 u1 align 0 bullet 0 left 0 hanging 0 | 12 14"},
    {Selection::underlined, 19, "b0 i0 u1 align 0 bullet 0 left -283 hanging 0 | 12 14"},
    {Selection::underlined, 20, "b0 i0 u1 align 0 bullet 0 left 283 hanging 0 | 12 14"},
    {Selection::mixedCharacters, 1, "b? i? u? align 0 bullet 0 left 0 hanging 0 | 1 14"},
    {Selection::mixedCharacters, 2, "b? i? u? align 0 bullet 0 left 0 hanging 0 | 2 14"},
    {Selection::mixedCharacters, 10, "b1 i? u? align 0 bullet 0 left 0 hanging 0 | 10 14"},
    {Selection::mixedCharacters, 11, "b? i1 u? align 0 bullet 0 left 0 hanging 0 | 11 14"},
    {Selection::mixedCharacters, 12, "b? i? u1 align 0 bullet 0 left 0 hanging 0 | 12 14"},
    {Selection::mixedCharacters, 14, "b? i? u? align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::mixedCharacters, 15, "b? i? u? align 2 bullet 0 left 0 hanging 0 | 15"},
    {Selection::mixedCharacters, 16, "b? i? u? align 1 bullet 0 left 0 hanging 0 | 16"},
    {Selection::mixedCharacters, 17, "b? i? u? align 0 bullet 1 left 0 hanging 283 | 14 17"},
    {Selection::mixedCharacters, 18, "b? i? u? align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::mixedCharacters, 19, "b? i? u? align 0 bullet 0 left -283 hanging 0 | 14"},
    {Selection::mixedCharacters, 20, "b? i? u? align 0 bullet 0 left 283 hanging 0 | 14"},
    {Selection::centred, 1, "b0 i0 u0 align 2 bullet 0 left 0 hanging 0 | 1 15"},
    {Selection::centred, 2, "b0 i0 u0 align 2 bullet 0 left 0 hanging 0 | 2 15"},
    {Selection::centred, 10, "b1 i0 u0 align 2 bullet 0 left 0 hanging 0 | 10 15"},
    {Selection::centred, 11, "b0 i1 u0 align 2 bullet 0 left 0 hanging 0 | 11 15"},
    {Selection::centred, 12, "b0 i0 u1 align 2 bullet 0 left 0 hanging 0 | 12 15"},
    {Selection::centred, 14, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::centred, 15, "b0 i0 u0 align 2 bullet 0 left 0 hanging 0 | 15"},
    {Selection::centred, 16, "b0 i0 u0 align 1 bullet 0 left 0 hanging 0 | 16"},
    {Selection::centred, 17, "b0 i0 u0 align 2 bullet 1 left 0 hanging 283 | 15 17"},
    {Selection::centred, 18, "b0 i0 u0 align 2 bullet 0 left 0 hanging 0 | 15"},
    {Selection::centred, 19, "b0 i0 u0 align 2 bullet 0 left -283 hanging 0 | 15"},
    {Selection::centred, 20, "b0 i0 u0 align 2 bullet 0 left 283 hanging 0 | 15"},
    {Selection::rightAligned, 1, "b0 i0 u0 align 1 bullet 0 left 0 hanging 0 | 1 16"},
    {Selection::rightAligned, 2, "b0 i0 u0 align 1 bullet 0 left 0 hanging 0 | 2 16"},
    {Selection::rightAligned, 10, "b1 i0 u0 align 1 bullet 0 left 0 hanging 0 | 10 16"},
    {Selection::rightAligned, 11, "b0 i1 u0 align 1 bullet 0 left 0 hanging 0 | 11 16"},
    {Selection::rightAligned, 12, "b0 i0 u1 align 1 bullet 0 left 0 hanging 0 | 12 16"},
    {Selection::rightAligned, 14, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::rightAligned, 15, "b0 i0 u0 align 2 bullet 0 left 0 hanging 0 | 15"},
    {Selection::rightAligned, 16, "b0 i0 u0 align 1 bullet 0 left 0 hanging 0 | 16"},
    {Selection::rightAligned, 17, "b0 i0 u0 align 1 bullet 1 left 0 hanging 283 | 16 17"},
    {Selection::rightAligned, 18, "b0 i0 u0 align 1 bullet 0 left 0 hanging 0 | 16"},
    {Selection::rightAligned, 19, "b0 i0 u0 align 1 bullet 0 left -283 hanging 0 | 16"},
    {Selection::rightAligned, 20, "b0 i0 u0 align 1 bullet 0 left 283 hanging 0 | 16"},
    {Selection::bulleted, 1, "b0 i0 u0 align 0 bullet 1 left 0 hanging 283 | 1 14 17"},
    {Selection::bulleted, 2, "b0 i0 u0 align 0 bullet 1 left 0 hanging 283 | 2 14 17"},
    {Selection::bulleted, 10, "b1 i0 u0 align 0 bullet 1 left 0 hanging 283 | 10 14 17"},
    {Selection::bulleted, 11, "b0 i1 u0 align 0 bullet 1 left 0 hanging 283 | 11 14 17"},
    {Selection::bulleted, 12, "b0 i0 u1 align 0 bullet 1 left 0 hanging 283 | 12 14 17"},
    {Selection::bulleted, 14, "b0 i0 u0 align 0 bullet 1 left 0 hanging 283 | 14 17"},
    {Selection::bulleted, 15, "b0 i0 u0 align 2 bullet 1 left 0 hanging 283 | 15 17"},
    {Selection::bulleted, 16, "b0 i0 u0 align 1 bullet 1 left 0 hanging 283 | 16 17"},
    {Selection::bulleted, 17, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::bulleted, 18, "b0 i0 u0 align 0 bullet 1 left 0 hanging 283 | 14 17"},
    {Selection::bulleted, 19, "b0 i0 u0 align 0 bullet 1 left 0 hanging 0 | 14 17"},
    {Selection::bulleted, 20, "b0 i0 u0 align 0 bullet 1 left 0 hanging 566 | 14 17"},
    {Selection::indented, 1, "b0 i0 u0 align 0 bullet 0 left 283 hanging 0 | 1 14"},
    {Selection::indented, 2, "b0 i0 u0 align 0 bullet 0 left 283 hanging 0 | 2 14"},
    {Selection::indented, 10, "b1 i0 u0 align 0 bullet 0 left 283 hanging 0 | 10 14"},
    {Selection::indented, 11, "b0 i1 u0 align 0 bullet 0 left 283 hanging 0 | 11 14"},
    {Selection::indented, 12, "b0 i0 u1 align 0 bullet 0 left 283 hanging 0 | 12 14"},
    {Selection::indented, 14, "b0 i0 u0 align 0 bullet 0 left 283 hanging 0 | 14"},
    {Selection::indented, 15, "b0 i0 u0 align 2 bullet 0 left 283 hanging 0 | 15"},
    {Selection::indented, 16, "b0 i0 u0 align 1 bullet 0 left 283 hanging 0 | 16"},
    {Selection::indented, 17, "b0 i0 u0 align 0 bullet 1 left 283 hanging 283 | 14 17"},
    {Selection::indented, 18, "b0 i0 u0 align 0 bullet 0 left 283 hanging 0 | 14"},
    {Selection::indented, 19, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::indented, 20, "b0 i0 u0 align 0 bullet 0 left 566 hanging 0 | 14"},
    {Selection::mixedParagraphs, 1, "b0 i0 u0 align ? bullet ? left ? hanging ? | 1"},
    {Selection::mixedParagraphs, 2, "b0 i0 u0 align ? bullet ? left ? hanging ? | 2"},
    {Selection::mixedParagraphs, 10, "b1 i0 u0 align ? bullet ? left ? hanging ? | 10"},
    {Selection::mixedParagraphs, 11, "b0 i1 u0 align ? bullet ? left ? hanging ? | 11"},
    {Selection::mixedParagraphs, 12, "b0 i0 u1 align ? bullet ? left ? hanging ? | 12"},
    {Selection::mixedParagraphs, 14, "b0 i0 u0 align 0 bullet ? left ? hanging ? | 14"},
    {Selection::mixedParagraphs, 15, "b0 i0 u0 align 2 bullet ? left ? hanging ? | 15"},
    {Selection::mixedParagraphs, 16, "b0 i0 u0 align 1 bullet ? left ? hanging ? | 16"},
    {Selection::mixedParagraphs, 17, "b0 i0 u0 align ? bullet 1 left ? hanging 283 | 17"},
    {Selection::mixedParagraphs, 18, "b0 i0 u0 align ? bullet ? left ? hanging ? |"},
    {Selection::mixedParagraphs, 19, "b0 i0 u0 align ? bullet ? left ? hanging ? |"},
    {Selection::mixedParagraphs, 20, "b0 i0 u0 align ? bullet ? left ? hanging ? |"},
};

std::string rowName(const testing::TestParamInfo<Row>& row) {
    constexpr const char* names[] = {"Plain",   "Bold",         "Italic",   "Underlined", "MixedCharacters",
                                     "Centred", "RightAligned", "Bulleted", "Indented",   "MixedParagraphs"};
    return std::string(names[static_cast<int>(row.param.selection)]) + "Button" +
           std::to_string(row.param.clicked);
}

INSTANTIATE_TEST_SUITE_P(Table, ReportToolbar, testing::ValuesIn(rows), rowName);

// --- Buttons ----------------------------------------------------------------------------------------------

TEST_F(ReportFormatting, NumerationCanBePressedAndDoesNothing) {
    openWithText(L"text", [&](frmSendBugReport& form) {
        const std::wstring before = form.rtfBody.rtf();
        user.clickButton(form.tbrProperties, button::numeration);
        EXPECT_EQ(form.rtfBody.rtf(), before);
        EXPECT_FALSE(form.tbrProperties.pressed(button::numeration));
    });
}

TEST_F(ReportFormatting, LowImportanceReleasesHighAndASecondClickLeavesBothUp) {
    openWithText(L"", [&](frmSendBugReport& form) {
        user.clickButton(form.tbrProperties, button::highImportance);
        user.clickButton(form.tbrProperties, button::lowImportance);
        EXPECT_FALSE(form.tbrProperties.pressed(button::highImportance));
        EXPECT_TRUE(form.tbrProperties.pressed(button::lowImportance));
        user.clickButton(form.tbrProperties, button::lowImportance);
        EXPECT_FALSE(form.tbrProperties.pressed(button::highImportance));
        EXPECT_FALSE(form.tbrProperties.pressed(button::lowImportance));
    });
}

TEST_F(ReportFormatting, ImportanceCanBeSetWhileTheFormattingIsOff) {
    openWithText(L"", [&](frmSendBugReport& form) {
        form.txtSubject.setFocus();
        user.clickButton(form.tbrProperties, button::highImportance);
        EXPECT_TRUE(form.tbrProperties.pressed(button::highImportance));
    });
}

TEST_F(ReportFormatting, AGreyedButtonChangesNothing) {
    openWithText(L"text", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 4);
        form.txtSubject.setFocus();
        user.clickButton(form.tbrProperties, button::bold);
        user.chooseMenu(form.tbrProperties, button::forecolor, 4);
        EXPECT_EQ(form.rtfBody.bold(), false);
        EXPECT_EQ(form.rtfBody.colour(), 0);
    });
}

TEST_F(ReportFormatting, BulletingAParagraphFirstSetsItsBulletIndentAndStepsMoveTheHangingIndent) {
    openWithText(L"text", [&](frmSendBugReport& form) {
        user.clickButton(form.tbrProperties, button::bulletIndent);
        EXPECT_EQ(twips(form.rtfBody.hangingIndent().value()), 283);
        user.clickButton(form.tbrProperties, button::increaseIndent);
        EXPECT_EQ(twips(form.rtfBody.hangingIndent().value()), 566);
        EXPECT_EQ(twips(form.rtfBody.leftIndent().value()), 0);
        user.clickButton(form.tbrProperties, button::decreaseIndent);
        user.clickButton(form.tbrProperties, button::decreaseIndent);
        EXPECT_EQ(twips(form.rtfBody.hangingIndent().value()), 0);
    });
}

TEST_F(ReportFormatting, IndentsGoOnWithoutABound) {
    openWithText(L"text", [&](frmSendBugReport& form) {
        for (int step = 0; step < 60; ++step) user.clickButton(form.tbrProperties, button::increaseIndent);
        EXPECT_EQ(twips(form.rtfBody.leftIndent().value()), 60 * 283);
    });
}

TEST_F(ReportFormatting, TypedTextTakesTheFormatOfTheButtons) {
    openWithText(L"ab", [&](frmSendBugReport& form) {
        user.clickButton(form.tbrProperties, button::bold);
        EXPECT_TRUE(form.tbrProperties.pressed(button::bold));
        user.type(form.rtfBody, L"cd");
        form.rtfBody.select(2, 2);
        EXPECT_EQ(form.rtfBody.bold(), true);
        form.rtfBody.select(0, 2);
        EXPECT_EQ(form.rtfBody.bold(), false);
    });
}

// --- Colours and fonts ------------------------------------------------------------------------------------

TEST_F(ReportFormatting, EachEntryOfTheColourMenuSetsItsColour) {
    openWithText(L"text", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 4);
        const ui::Colour colours[] = {0x000000, 0xFF0000, 0x00FF00, 0xFFFF00,
                                      0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
        for (int entry = 7; entry >= 0; --entry) {
            user.chooseMenu(form.tbrProperties, button::forecolor, entry);
            EXPECT_EQ(form.rtfBody.colour(), colours[entry]) << entry;
        }
    });
}

TEST_F(ReportFormatting, AMenuKeyThatNobodyKnowsChangesNothing) {
    openWithText(L"text", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 4);
        user.chooseMenu(form.tbrProperties, button::forecolor, 4);
        form.tbrProperties.onMenuClick(L"colPurple");
        EXPECT_EQ(form.rtfBody.colour(), 0x0000FF);
    });
}

TEST_F(ReportFormatting, AChosenFontAndSizeBelongToTheSelection) {
    openWithText(L"abcd", [&](frmSendBugReport& form) {
        const auto before = form.rtfBody.fontName();
        form.rtfBody.select(0, 2);
        const std::wstring font = form.cboFontname.item(0);
        user.choose(form.cboFontname, 0);
        user.choose(form.cboFontsize, 5);
        EXPECT_EQ(form.rtfBody.fontName(), font);
        EXPECT_EQ(form.rtfBody.fontSize(), 24);
        form.rtfBody.select(2, 2);
        EXPECT_EQ(form.rtfBody.fontName(), before);
        EXPECT_EQ(form.rtfBody.fontSize(), 8);
    });
}

TEST_F(ReportFormatting, TheSizeWithABlankIsEight) {
    openWithText(L"abcd", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 4);
        user.choose(form.cboFontsize, 6);
        EXPECT_EQ(form.rtfBody.fontSize(), 36);
        user.choose(form.cboFontsize, 0);
        EXPECT_EQ(form.rtfBody.fontSize(), 8);
    });
}

// --- The controls follow the caret ------------------------------------------------------------------------

TEST_F(ReportFormatting, TheControlsFollowTheCaret) {
    openWithText(L"abcdef", [&](frmSendBugReport& form) {
        form.rtfBody.select(2, 2);
        form.rtfBody.setBold(true);
        form.rtfBody.setItalic(true);
        form.rtfBody.setUnderline(true);
        form.rtfBody.setFontSize(18);
        form.rtfBody.setFontName(form.cboFontname.item(1));
        select(form, 2, 2);
        EXPECT_THAT(pressed(form), ElementsAre(10, 11, 12, 14));
        EXPECT_EQ(selectedText(form.cboFontsize), L"18");
        EXPECT_EQ(form.cboFontname.selectedIndex(), 1);
        form.rtfBody.select(0, 1);
        EXPECT_THAT(pressed(form), ElementsAre(14));
        EXPECT_EQ(selectedText(form.cboFontsize), L" 8");
    });
}

TEST_F(ReportFormatting, AnArrowKeyMovesTheCaretAndTheButtonsFollow) {
    openWithText(L"abcd", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 2);
        form.rtfBody.setBold(true);
        form.rtfBody.select(4, 0);
        EXPECT_FALSE(form.tbrProperties.pressed(button::bold));
        user.press(form.window(), key::left);
        user.press(form.window(), key::left);
        EXPECT_EQ(form.rtfBody.selectionStart(), 2);
        EXPECT_TRUE(form.tbrProperties.pressed(button::bold)) << "the caret stands behind a bold letter";
    });
}

TEST_F(ReportFormatting, TheButtonsShowWhatTheEditorsOwnShortcutsDo) {
    openWithText(L"text", [&](frmSendBugReport& form) {
        select(form, 0, 4);
        for (const int letter : {'B', 'I', 'U', 'E', 'R', 'L'}) {
            SCOPED_TRACE(static_cast<char>(letter));
            // The editor tells of none of these; some editors know the shortcuts, and others do not.
            form.rtfBody.setBold(form.rtfBody.bold() != true);
            form.rtfBody.setItalic(form.rtfBody.italic() != true);
            form.rtfBody.setUnderline(form.rtfBody.underline() != true);
            form.rtfBody.setAlignment(letter == 'R' ? ui::Alignment::centre : ui::Alignment::right);
            user.press(form.window(), letter, ui::modifier::control);
            std::vector<int> expected;
            if (form.rtfBody.bold() == true) expected.push_back(button::bold);
            if (form.rtfBody.italic() == true) expected.push_back(button::italic);
            if (form.rtfBody.underline() == true) expected.push_back(button::underline);
            if (form.rtfBody.alignment() == ui::Alignment::left) expected.push_back(button::leftAlign);
            if (form.rtfBody.alignment() == ui::Alignment::centre) expected.push_back(button::center);
            if (form.rtfBody.alignment() == ui::Alignment::right) expected.push_back(button::rightAlign);
            EXPECT_EQ(pressed(form), expected);
        }
    });
}

TEST_F(ReportFormatting, AMixedSelectionLeavesTheCombosAloneAndTheButtonsUp) {
    openWithText(L"abcd", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 2);
        form.rtfBody.setFontName(form.cboFontname.item(1));
        form.rtfBody.setFontSize(14);
        form.rtfBody.setBold(true);
        form.rtfBody.setItalic(true);
        form.rtfBody.setUnderline(true);
        select(form, 0, 2);
        ASSERT_EQ(form.cboFontname.selectedIndex(), 1);
        form.rtfBody.select(0, 4);
        EXPECT_EQ(form.rtfBody.fontName(), std::nullopt);
        EXPECT_EQ(form.rtfBody.fontSize(), std::nullopt);
        EXPECT_EQ(form.cboFontname.selectedIndex(), 1);
        EXPECT_EQ(selectedText(form.cboFontsize), L"14");
        EXPECT_THAT(pressed(form), ElementsAre(14));
    });
}

TEST_F(ReportFormatting, AFontOrSizeThatTheCombosLackLeavesThemAlone) {
    openWithText(L"abcd", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 2);
        form.rtfBody.setFontSize(11);
        form.rtfBody.setFontName(L"No Such Face");
        const int font = form.cboFontname.selectedIndex();
        select(form, 0, 2);
        EXPECT_EQ(selectedText(form.cboFontsize), L" 8");
        EXPECT_EQ(form.cboFontname.selectedIndex(), font);
    });
}

TEST_F(ReportFormatting, TheAlignmentButtonsFollowTheParagraph) {
    openWithText(L"ab\ncd\nef", [&](frmSendBugReport& form) {
        form.rtfBody.select(3, 0);
        user.clickButton(form.tbrProperties, button::center);
        form.rtfBody.select(6, 0);
        user.clickButton(form.tbrProperties, button::rightAlign);
        form.rtfBody.select(0, 0);
        EXPECT_THAT(pressed(form), ElementsAre(14));
        form.rtfBody.select(4, 0);
        EXPECT_THAT(pressed(form), ElementsAre(15));
        form.rtfBody.select(7, 0);
        EXPECT_THAT(pressed(form), ElementsAre(16));
        form.rtfBody.select(0, 8);
        EXPECT_THAT(pressed(form), IsEmpty());
    });
}

TEST_F(ReportFormatting, ButtonsAreReachedAndPressedByKeyboardAlone) {
    openWithText(L"abcd", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 4);
        user.press(form.window(), key::tab, ui::modifier::shift);
        ASSERT_TRUE(form.tbrProperties.hasFocus());
        // From "High Importance" over "Low Importance" and "Forecolor" to "Bold".
        for (int step = 0; step < 3; ++step) user.press(form.window(), key::right);
        user.press(form.window(), key::space);
        EXPECT_EQ(form.rtfBody.bold(), true);
        user.press(form.window(), key::right);
        user.press(form.window(), key::enter);
        EXPECT_EQ(form.rtfBody.italic(), true);
        user.press(form.window(), key::left);
        user.press(form.window(), key::space);
        EXPECT_EQ(form.rtfBody.bold(), false);
    });
}

TEST_F(ReportFormatting, TheCombosAreReachedAndOperatedByKeyboardAlone) {
    openWithText(L"abcd", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 4);
        user.press(form.window(), key::tab, ui::modifier::shift);
        user.press(form.window(), key::tab, ui::modifier::shift);
        ASSERT_TRUE(form.cboFontsize.hasFocus());
        user.press(form.window(), key::down);
        EXPECT_EQ(form.rtfBody.fontSize(), 10);
        user.press(form.window(), key::end);
        EXPECT_EQ(form.rtfBody.fontSize(), 36);
        user.press(form.window(), key::tab, ui::modifier::shift);
        ASSERT_TRUE(form.cboFontname.hasFocus());
        user.press(form.window(), key::home);
        EXPECT_EQ(form.rtfBody.fontName(), form.cboFontname.item(0));
        EXPECT_EQ(form.cboFontname.selectedIndex(), 0);
        // On through the toolbar, back to the text.
        for (int step = 0; step < 3; ++step) user.press(form.window(), key::tab);
        EXPECT_TRUE(form.rtfBody.hasFocus());
        EXPECT_EQ(form.rtfBody.selectionLength(), 4);
    });
}

}  // namespace
}  // namespace tests
