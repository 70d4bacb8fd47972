// What the formatting toolbar and the font combos do to the selection, and how they follow it.
#include <cmath>

#include "tests/report/report_test_base.h"

namespace tests {
namespace {

class ReportFormatting : public ReportTest {
protected:
    /// Opens a composer whose body has this text, without formats, and the focus.
    void openWithText(const std::wstring& text, FunctionRef<void(frmSendBugReport&)> script) {
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
    static void makeBoldItalicUnderlined(ui::RichText& body) {
        body.setEffect(ui::Effect::bold, true);
        body.setEffect(ui::Effect::italic, true);
        body.setEffect(ui::Effect::underline, true);
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
            case Selection::bold: body.setEffect(ui::Effect::bold, true); break;
            case Selection::italic: body.setEffect(ui::Effect::italic, true); break;
            case Selection::underlined: body.setEffect(ui::Effect::underline, true); break;
            case Selection::mixedCharacters:
                body.select(0, 1);
                makeBoldItalicUnderlined(body);
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
        std::string text = "b" + flag(body.effect(ui::Effect::bold)) + " i" +
                           flag(body.effect(ui::Effect::italic)) + " u" +
                           flag(body.effect(ui::Effect::underline));
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

// For each selection what the buttons make of it that have to do with it: bold, italic and underline ("?" is
// mixed), alignment (0 left, 1 right, 2 centre), bullets, indents in twips; then the pressed buttons.
constexpr Row rows[] = {
    {Selection::plain, 10, "b1 i0 u0 align 0 bullet 0 left 0 hanging 0 | 10 14"},
    {Selection::plain, 11, "b0 i1 u0 align 0 bullet 0 left 0 hanging 0 | 11 14"},
    {Selection::plain, 12, "b0 i0 u1 align 0 bullet 0 left 0 hanging 0 | 12 14"},
    {Selection::plain, 14, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::plain, 15, "b0 i0 u0 align 2 bullet 0 left 0 hanging 0 | 15"},
    {Selection::plain, 16, "b0 i0 u0 align 1 bullet 0 left 0 hanging 0 | 16"},
    {Selection::plain, 17, "b0 i0 u0 align 0 bullet 1 left 0 hanging 283 | 14 17"},
    {Selection::plain, 19, "b0 i0 u0 align 0 bullet 0 left -283 hanging 0 | 14"},
    {Selection::plain, 20, "b0 i0 u0 align 0 bullet 0 left 283 hanging 0 | 14"},
    {Selection::bold, 10, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::bold, 11, "b1 i1 u0 align 0 bullet 0 left 0 hanging 0 | 10 11 14"},
    {Selection::bold, 12, "b1 i0 u1 align 0 bullet 0 left 0 hanging 0 | 10 12 14"},
    {Selection::italic, 10, "b1 i1 u0 align 0 bullet 0 left 0 hanging 0 | 10 11 14"},
    {Selection::italic, 11, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::italic, 12, "b0 i1 u1 align 0 bullet 0 left 0 hanging 0 | 11 12 14"},
    {Selection::underlined, 10, "b1 i0 u1 align 0 bullet 0 left 0 hanging 0 | 10 12 14"},
    {Selection::underlined, 11, "b0 i1 u1 align 0 bullet 0 left 0 hanging 0 | 11 12 14"},
    {Selection::underlined, 12, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::mixedCharacters, 10, "b1 i? u? align 0 bullet 0 left 0 hanging 0 | 10 14"},
    {Selection::mixedCharacters, 11, "b? i1 u? align 0 bullet 0 left 0 hanging 0 | 11 14"},
    {Selection::mixedCharacters, 12, "b? i? u1 align 0 bullet 0 left 0 hanging 0 | 12 14"},
    {Selection::mixedCharacters, 14, "b? i? u? align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::mixedCharacters, 15, "b? i? u? align 2 bullet 0 left 0 hanging 0 | 15"},
    {Selection::mixedCharacters, 16, "b? i? u? align 1 bullet 0 left 0 hanging 0 | 16"},
    {Selection::mixedCharacters, 17, "b? i? u? align 0 bullet 1 left 0 hanging 283 | 14 17"},
    {Selection::mixedCharacters, 19, "b? i? u? align 0 bullet 0 left -283 hanging 0 | 14"},
    {Selection::mixedCharacters, 20, "b? i? u? align 0 bullet 0 left 283 hanging 0 | 14"},
    {Selection::centred, 14, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::centred, 15, "b0 i0 u0 align 2 bullet 0 left 0 hanging 0 | 15"},
    {Selection::centred, 16, "b0 i0 u0 align 1 bullet 0 left 0 hanging 0 | 16"},
    {Selection::centred, 17, "b0 i0 u0 align 2 bullet 1 left 0 hanging 283 | 15 17"},
    {Selection::centred, 19, "b0 i0 u0 align 2 bullet 0 left -283 hanging 0 | 15"},
    {Selection::centred, 20, "b0 i0 u0 align 2 bullet 0 left 283 hanging 0 | 15"},
    {Selection::rightAligned, 14, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::rightAligned, 15, "b0 i0 u0 align 2 bullet 0 left 0 hanging 0 | 15"},
    {Selection::rightAligned, 16, "b0 i0 u0 align 1 bullet 0 left 0 hanging 0 | 16"},
    {Selection::rightAligned, 17, "b0 i0 u0 align 1 bullet 1 left 0 hanging 283 | 16 17"},
    {Selection::rightAligned, 19, "b0 i0 u0 align 1 bullet 0 left -283 hanging 0 | 16"},
    {Selection::rightAligned, 20, "b0 i0 u0 align 1 bullet 0 left 283 hanging 0 | 16"},
    {Selection::bulleted, 14, "b0 i0 u0 align 0 bullet 1 left 0 hanging 283 | 14 17"},
    {Selection::bulleted, 15, "b0 i0 u0 align 2 bullet 1 left 0 hanging 283 | 15 17"},
    {Selection::bulleted, 16, "b0 i0 u0 align 1 bullet 1 left 0 hanging 283 | 16 17"},
    {Selection::bulleted, 17, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::bulleted, 19, "b0 i0 u0 align 0 bullet 1 left 0 hanging 0 | 14 17"},
    {Selection::bulleted, 20, "b0 i0 u0 align 0 bullet 1 left 0 hanging 566 | 14 17"},
    {Selection::indented, 14, "b0 i0 u0 align 0 bullet 0 left 283 hanging 0 | 14"},
    {Selection::indented, 15, "b0 i0 u0 align 2 bullet 0 left 283 hanging 0 | 15"},
    {Selection::indented, 16, "b0 i0 u0 align 1 bullet 0 left 283 hanging 0 | 16"},
    {Selection::indented, 17, "b0 i0 u0 align 0 bullet 1 left 283 hanging 283 | 14 17"},
    {Selection::indented, 19, "b0 i0 u0 align 0 bullet 0 left 0 hanging 0 | 14"},
    {Selection::indented, 20, "b0 i0 u0 align 0 bullet 0 left 566 hanging 0 | 14"},
    {Selection::mixedParagraphs, 14, "b0 i0 u0 align 0 bullet ? left ? hanging ? | 14"},
    {Selection::mixedParagraphs, 15, "b0 i0 u0 align 2 bullet ? left ? hanging ? | 15"},
    {Selection::mixedParagraphs, 16, "b0 i0 u0 align 1 bullet ? left ? hanging ? | 16"},
    {Selection::mixedParagraphs, 17, "b0 i0 u0 align ? bullet 1 left ? hanging ? | 17"},
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

TEST_F(ReportFormatting, NumerationAndImportanceLeaveEveryFormatAlone) {
    openWithText(L"ab\ncd", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 2);
        form.rtfBody.setEffect(ui::Effect::bold, true);
        form.rtfBody.setBulleted(true);
        form.rtfBody.select(0, 5);
        const std::wstring before = form.rtfBody.rtf();
        for (const int clicked : {button::highImportance, button::lowImportance, button::numeration}) {
            user.clickButton(form.tbrProperties, clicked);
            EXPECT_EQ(form.rtfBody.rtf(), before) << clicked;
            EXPECT_EQ(form.tbrProperties.pressed(clicked), clicked != button::numeration);
        }
    });
}

TEST_F(ReportFormatting, BulletsOnAMixedSelectionLeaveTheIndentOfThoseThatHaveThemAlone) {
    openWithText(L"ab\ncd", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 0);
        user.clickButton(form.tbrProperties, button::bulletIndent);
        user.clickButton(form.tbrProperties, button::increaseIndent);
        form.rtfBody.select(0, 5);
        user.clickButton(form.tbrProperties, button::bulletIndent);
        EXPECT_EQ(form.rtfBody.bulleted(), true);
        form.rtfBody.select(0, 0);
        EXPECT_EQ(twips(form.rtfBody.hangingIndent().value()), 566);
    });
}

TEST_F(ReportFormatting, LowImportanceReleasesHighAndASecondClickLeavesBothUpAlsoWhileTheFormattingIsOff) {
    openWithText(L"", [&](frmSendBugReport& form) {
        user.clickButton(form.tbrProperties, button::highImportance);
        user.clickButton(form.tbrProperties, button::lowImportance);
        EXPECT_FALSE(form.tbrProperties.pressed(button::highImportance));
        EXPECT_TRUE(form.tbrProperties.pressed(button::lowImportance));
        user.clickButton(form.tbrProperties, button::lowImportance);
        EXPECT_FALSE(form.tbrProperties.pressed(button::highImportance));
        EXPECT_FALSE(form.tbrProperties.pressed(button::lowImportance));
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
        EXPECT_EQ(form.rtfBody.effect(ui::Effect::bold), false);
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

TEST_F(ReportFormatting, TheIndentStepFollowsTheHorizontalResolution) {
    stage->setTwipsPerPixel(10, 20);
    openWithText(L"text", [&](frmSendBugReport& form) {
        user.clickButton(form.tbrProperties, button::increaseIndent);
        EXPECT_NEAR(form.rtfBody.leftIndent().value(), 28.3, 0.05) << "pixels";
        user.clickButton(form.tbrProperties, button::bulletIndent);
        EXPECT_NEAR(form.rtfBody.hangingIndent().value(), 28.3, 0.05);
        user.clickButton(form.tbrProperties, button::increaseIndent);
        EXPECT_NEAR(form.rtfBody.hangingIndent().value(), 56.6, 0.1);
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
        EXPECT_EQ(form.rtfBody.effect(ui::Effect::bold), true);
        form.rtfBody.select(0, 2);
        EXPECT_EQ(form.rtfBody.effect(ui::Effect::bold), false);
    });
}

// --- Colours and fonts ------------------------------------------------------------------------------------

TEST_F(ReportFormatting, EachEntryOfTheColourMenuSetsItsColourAndAnUnknownKeyNone) {
    openWithText(L"text", [&](frmSendBugReport& form) {
        form.rtfBody.select(0, 4);
        const ui::Colour colours[] = {0x000000, 0xFF0000, 0x00FF00, 0xFFFF00,
                                      0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
        for (int entry = 7; entry >= 0; --entry) {
            user.chooseMenu(form.tbrProperties, button::forecolor, entry);
            EXPECT_EQ(form.rtfBody.colour(), colours[entry]) << entry;
            form.tbrProperties.onMenuClick(L"colPurple");
            EXPECT_EQ(form.rtfBody.colour(), colours[entry]) << "a key that nobody knows";
        }
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
        user.choose(form.cboFontsize, 6);
        EXPECT_EQ(form.rtfBody.fontSize(), 36);
        user.choose(form.cboFontsize, 0);
        EXPECT_EQ(form.rtfBody.fontSize(), 8) << "the size with a blank";
        user.choose(form.cboFontsize, 5);
        form.rtfBody.select(2, 2);
        EXPECT_EQ(form.rtfBody.fontName(), before);
        EXPECT_EQ(form.rtfBody.fontSize(), 8);
    });
}

// Of "ab" and "cd" in different fonts the combos show what "ab" has.
class ReportShownFont : public ReportFormatting {
protected:
    void openMixed(FunctionRef<void(frmSendBugReport&)> script) {
        openWithText(L"abcd", [&](frmSendBugReport& form) {
            form.rtfBody.select(0, 2);
            form.rtfBody.setFontName(form.cboFontname.item(1));
            form.rtfBody.setFontSize(14);
            select(form, 0, 2);
            form.rtfBody.select(0, 4);
            ASSERT_EQ(form.cboFontname.selectedIndex(), 1);
            ASSERT_EQ(form.rtfBody.fontName(), std::nullopt);
            script(form);
        });
    }
    /// Opens the list of the combo and presses the keys.
    void pressIn(frmSendBugReport& form, ui::ComboBox& combo, const std::vector<int>& keys) {
        user.click(combo);
        ASSERT_TRUE(combo.droppedDown());
        for (const int pressed : keys) user.press(form.window(), pressed);
        EXPECT_FALSE(combo.droppedDown());
    }
};

TEST_F(ReportShownFont, IsAppliedWhereItIsChosenByMouseOrByEnter) {
    for (const bool byMouse : {true, false})
        openMixed([&](frmSendBugReport& form) {
            if (byMouse) {
                user.choose(form.cboFontname, 1);
                user.choose(form.cboFontsize, form.cboFontsize.selectedIndex());
            } else {
                pressIn(form, form.cboFontname, {key::enter});
                pressIn(form, form.cboFontsize, {key::enter});
            }
            EXPECT_EQ(form.rtfBody.fontName(), form.cboFontname.item(1)) << byMouse;
            EXPECT_EQ(form.rtfBody.fontSize(), 14) << byMouse;
            EXPECT_TRUE(form.window().isOpen()) << "Enter was the list's";
        });
}

TEST_F(ReportShownFont, IsNotAppliedWhereTheListIsClosedWithoutAChoice) {
    openMixed([&](frmSendBugReport& form) {
        pressIn(form, form.cboFontname, {key::escape});
        user.click(form.cboFontsize);
        user.click(form.rtfBody);
        form.rtfBody.select(0, 4);
        EXPECT_EQ(form.rtfBody.fontName(), std::nullopt);
        EXPECT_EQ(form.rtfBody.fontSize(), std::nullopt);
    });
}

TEST_F(ReportShownFont, OneChoiceIsHeardOnce) {
    openMixed([&](frmSendBugReport& form) {
        int heard = 0;
        form.cboFontsize.onClick = [&] { ++heard; };
        const auto clicks = [&] { return std::exchange(heard, 0); };
        user.choose(form.cboFontsize, 3);
        EXPECT_EQ(clicks(), 1) << "the one that is shown";
        user.choose(form.cboFontsize, 5);
        EXPECT_EQ(clicks(), 1) << "another one";
        user.press(form.window(), key::up);
        EXPECT_EQ(clicks(), 1) << "by an arrow key in the closed combo";
        pressIn(form, form.cboFontsize, {key::up, key::enter});
        EXPECT_EQ(clicks(), 1) << "by an arrow key in the open list, and Enter";
        pressIn(form, form.cboFontsize, {key::enter});
        EXPECT_EQ(clicks(), 1) << "by Enter alone";
        EXPECT_EQ(form.cboFontsize.selectedIndex(), 3);
    });
}

// --- The controls follow the caret ------------------------------------------------------------------------

TEST_F(ReportFormatting, TheControlsFollowTheCaret) {
    openWithText(L"abcdef", [&](frmSendBugReport& form) {
        form.rtfBody.select(2, 2);
        makeBoldItalicUnderlined(form.rtfBody);
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
        form.rtfBody.setEffect(ui::Effect::bold, true);
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
            form.rtfBody.setEffect(ui::Effect::bold, form.rtfBody.effect(ui::Effect::bold) != true);
            form.rtfBody.setEffect(ui::Effect::italic, form.rtfBody.effect(ui::Effect::italic) != true);
            form.rtfBody.setEffect(ui::Effect::underline, form.rtfBody.effect(ui::Effect::underline) != true);
            form.rtfBody.setAlignment(letter == 'R' ? ui::Alignment::centre : ui::Alignment::right);
            user.press(form.window(), letter, ui::modifier::control);
            std::vector<int> expected;
            if (form.rtfBody.effect(ui::Effect::bold) == true) expected.push_back(button::bold);
            if (form.rtfBody.effect(ui::Effect::italic) == true) expected.push_back(button::italic);
            if (form.rtfBody.effect(ui::Effect::underline) == true) expected.push_back(button::underline);
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
        makeBoldItalicUnderlined(form.rtfBody);
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
        EXPECT_EQ(form.rtfBody.effect(ui::Effect::bold), true);
        user.press(form.window(), key::right);
        user.press(form.window(), key::enter);
        EXPECT_EQ(form.rtfBody.effect(ui::Effect::italic), true);
        user.press(form.window(), key::left);
        user.press(form.window(), key::space);
        EXPECT_EQ(form.rtfBody.effect(ui::Effect::bold), false);
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
