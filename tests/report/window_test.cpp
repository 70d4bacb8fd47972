// The composer's window: what it shows at first, its fields, sizes and end.
#include "tests/report/report_test_base.h"

namespace tests {
namespace {

const std::vector<int> FORMATTING{4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20};

class ReportWindow : public ReportTest {
protected:
    static void expectFormatting(const frmSendBugReport& form, bool on) {
        EXPECT_EQ(disabled(form), on ? std::vector<int>() : FORMATTING);
        EXPECT_EQ(form.cboFontname.enabled(), on);
        EXPECT_EQ(form.cboFontsize.enabled(), on);
    }
};

// --- Opening ----------------------------------------------------------------------------------------------

TEST_F(ReportWindow, AStoredRecipientIsShownAndEnablesSend) {
    storeRecipient(L"help@tarnwell.example");
    open([&](frmSendBugReport& form) {
        EXPECT_EQ(form.txtTo.text(), L"help@tarnwell.example");
        EXPECT_TRUE(form.tbrBugReport.buttonEnabled(SEND_BUTTON));
        EXPECT_EQ(form.txtCc.text(), L"");
        EXPECT_EQ(form.txtSubject.text(), L"");
        EXPECT_EQ(form.rtfBody.text(), L"");
        form.txtTo.setText(L"");
        EXPECT_FALSE(form.tbrBugReport.buttonEnabled(SEND_BUTTON)) << "without a recipient";
        user.type(form.txtTo, L" ");
        EXPECT_EQ(form.txtTo.text(), L" ");
        EXPECT_TRUE(form.tbrBugReport.buttonEnabled(SEND_BUTTON)) << "a blank is something";
    });
}

TEST_F(ReportWindow, WithoutARecipientOrWithOneOfABrokenTypeSendIsDisabledUntilSomethingIsTyped) {
    for (const bool broken : {false, true}) {
        if (broken) stage->setRawValue(L"Software\\Norvane\\Quillmark", L"SendTo", 3, {1, 2, 3});
        open([&](frmSendBugReport& form) {
            EXPECT_EQ(form.txtTo.text(), L"");
            EXPECT_FALSE(form.tbrBugReport.buttonEnabled(SEND_BUTTON));
            user.type(form.txtTo, L"h");
            EXPECT_TRUE(form.tbrBugReport.buttonEnabled(SEND_BUTTON));
        });
    }
}

TEST_F(ReportWindow, TheRecipientComesFromTheRootKeyAndNotFromTheProfile) {
    stage->setValue(L"Software\\Norvane\\Quillmark\\Work", L"SendTo", L"wrong@tarnwell.example");
    application.ProfileKey = L"Software\\Norvane\\Quillmark\\Work";
    open([&](frmSendBugReport& form) { EXPECT_EQ(form.txtTo.text(), L""); });
}

TEST_F(ReportWindow, AtFirstItShowsItsButtonsTheScreensFontsAndSevenSizesAndFormatsNothing) {
    open([&](frmSendBugReport& form) {
        EXPECT_EQ(form.window().caption(), L"Send report");
        EXPECT_EQ(form.tbrBugReport.count(), 1);
        EXPECT_EQ(form.tbrProperties.count(), 20);
        EXPECT_THAT(pressed(form), IsEmpty());
        expectFormatting(form, false);
        EXPECT_EQ(items(form.cboFontname), application.screen.fonts());
        EXPECT_FALSE(items(form.cboFontname).empty());
        EXPECT_THAT(items(form.cboFontsize), ElementsAre(L" 8", L"10", L"12", L"14", L"18", L"24", L"36"));
        EXPECT_EQ(form.cboFontsize.selectedIndex(), 0) << "the editor begins with 8 points";
    });
}

TEST(ReportButtons, TooltipsStandAtTheirIndices) {
    const auto send = vexa::sendButtons();
    ASSERT_EQ(send.size(), 1U);
    EXPECT_EQ(send[0].caption, L"Send");
    EXPECT_EQ(send[0].tooltip, L"Send");
    std::vector<std::wstring> tooltips;
    for (const ui::ToolbarButton& one : vexa::propertyButtons()) tooltips.push_back(one.tooltip);
    EXPECT_THAT(tooltips,
                ElementsAre(L"High Importance", L"Low Importance", L"", L"", L"", L"", L"", L"Forecolor", L"",
                            L"Bold", L"Italic", L"Underline", L"", L"Left Align", L"Center", L"Right Align",
                            L"Bullet Indent", L"Numeration", L"Decrease Indent", L"Increase Indent"));
}

TEST(ReportButtons, TheColourMenuHasEightEntriesInOrder) {
    const auto buttons = vexa::propertyButtons();
    std::vector<std::wstring> entries;
    for (const ui::ToolbarMenuEntry& entry : buttons[button::forecolor - 1].menu)
        entries.push_back(entry.text + L" " + entry.key);
    EXPECT_THAT(entries,
                ElementsAre(L"Black colBlack", L"Blue colBlue", L"Green colGreen", L"Cyan colCyan",
                            L"Red colRed", L"Magenta colMagenta", L"Yellow colYellow", L"White colWhite"));
}

TEST(ReportButtons, AKeyThatNoMenuEntryHasIsNoColour) {
    EXPECT_EQ(vexa::menuColour(L"colMagenta"), 0xFF00FF);
    EXPECT_EQ(vexa::menuColour(L"colPurple"), std::nullopt);
    EXPECT_EQ(vexa::menuColour(L""), std::nullopt);
    EXPECT_EQ(vexa::menuColour(L"COLBLACK"), std::nullopt);
}

TEST_F(ReportWindow, TheCombosLieOnTheirToolbarButtons) {
    open([&](frmSendBugReport& form) {
        const ui::Rect toolbar = form.tbrProperties.bounds();
        const std::pair<ui::ComboBox*, int> places[] = {{&form.cboFontname, button::fontname},
                                                        {&form.cboFontsize, button::fontsize}};
        for (const auto& [combo, index] : places) {
            const ui::Rect place = form.tbrProperties.buttonBounds(index);
            EXPECT_EQ(combo->bounds().left, toolbar.left + place.left);
            EXPECT_EQ(combo->bounds().top, toolbar.top + place.top);
            EXPECT_EQ(combo->bounds().width, place.width);
        }
        EXPECT_LT(form.cboFontname.bounds().left + form.cboFontname.bounds().width,
                  form.cboFontsize.bounds().left);
    });
}

// --- Focus and the To field -------------------------------------------------------------------------------

TEST_F(ReportWindow, TheBodyWithTheFocusSwitchesTheFormattingControlsOnAndTheCombosLeaveThemSo) {
    open([&](frmSendBugReport& form) {
        user.click(form.rtfBody);
        EXPECT_TRUE(form.rtfBody.hasFocus());
        expectFormatting(form, true);
        user.choose(form.cboFontsize, 3);
        expectFormatting(form, true);
    });
}

TEST_F(ReportWindow, ClickingAFieldGreysTheFormattingButImportanceAndSelectsItsText) {
    open([&](frmSendBugReport& form) {
        for (ui::TextBox* field : {&form.txtTo, &form.txtCc, &form.txtSubject}) {
            field->setText(L"some text");
            user.click(form.rtfBody);
            user.click(*field);
            EXPECT_TRUE(field->hasFocus());
            expectFormatting(form, false);
            EXPECT_EQ(field->selectionStart(), 0);
            EXPECT_EQ(field->selectionLength(), 9);
        }
    });
}

TEST_F(ReportWindow, AFieldThatTheProgramFocusesHasItsTextSelectedTooAndAClickPlacesTheCaret) {
    open([&](frmSendBugReport& form) {
        form.txtSubject.setText(L"text");
        user.click(form.rtfBody);
        form.txtSubject.setFocus();
        EXPECT_EQ(form.txtSubject.selectionStart(), 0);
        EXPECT_EQ(form.txtSubject.selectionLength(), 4);
        user.click(form.rtfBody);
        user.click(form.txtSubject);
        user.click(form.txtSubject);
        EXPECT_EQ(form.txtSubject.selectionLength(), 0);
        EXPECT_EQ(form.txtSubject.selectionStart(), 4) << "the middle of the box lies behind the text";
        user.click(form.rtfBody);
        user.click(form.txtSubject);
        user.type(form.txtSubject, L"new");
        EXPECT_EQ(form.txtSubject.text(), L"new") << "in the place of the text";
    });
}

TEST_F(ReportWindow, TabReachesEveryFieldAndBothToolbars) {
    open([&](frmSendBugReport& form) {
        user.click(form.rtfBody);
        const std::vector<ui::Control*> order{&form.tbrBugReport, &form.txtTo, &form.txtCc, &form.txtSubject};
        for (const ui::Control* next : order) {
            user.press(form.window(), key::tab);
            EXPECT_TRUE(next->hasFocus()) << next - static_cast<ui::Control*>(order.front());
        }
        user.click(form.rtfBody);
        for (const ui::Control* before : {static_cast<const ui::Control*>(&form.tbrProperties),
                                          static_cast<const ui::Control*>(&form.cboFontsize),
                                          static_cast<const ui::Control*>(&form.cboFontname)}) {
            user.press(form.window(), key::tab, ui::modifier::shift);
            EXPECT_TRUE(before->hasFocus());
        }
    });
}

TEST_F(ReportWindow, AccessKeysLeadToTheFields) {
    open([&](frmSendBugReport& form) {
        for (const auto& [letter, field] :
             {std::pair{'S', &form.txtSubject}, {'C', &form.txtCc}, {'T', &form.txtTo}}) {
            user.press(form.window(), letter, ui::modifier::alt);
            EXPECT_TRUE(field->hasFocus()) << letter;
        }
    });
}

TEST_F(ReportWindow, EscAndEnterInTheBodyNeitherCloseNorSend) {
    storeRecipient(L"a@b.example");
    open([&](frmSendBugReport& form) {
        user.type(form.rtfBody, L"one");
        user.press(form.window(), key::enter);
        user.type(form.rtfBody, L"two");
        user.press(form.window(), key::escape);
        user.wait(1);
        EXPECT_TRUE(form.window().isOpen());
        EXPECT_EQ(form.rtfBody.text(), L"one\r\ntwo");
        user.click(form.txtSubject);
        user.press(form.window(), key::escape);
        user.press(form.window(), key::enter);
        EXPECT_TRUE(form.window().isOpen());
        EXPECT_THAT(calls.linesWith("addin"), IsEmpty());
    });
}

// --- Sizes ------------------------------------------------------------------------------------------------

struct Resolution {
    const char* name;
    double horizontal;  ///< twips per pixel
    double vertical;
    int margin;  ///< pixels
};

class ReportSizes : public ReportTest, public testing::WithParamInterface<Resolution> {
protected:
    void expectLayout(const frmSendBugReport& form, const std::vector<ui::Rect>& before) {
        const int margin = GetParam().margin;
        const ui::Size inner = const_cast<frmSendBugReport&>(form).window().innerSize();
        const ui::Control* controls[] = {&form.rtfBody, &form.txtTo, &form.txtCc, &form.txtSubject};
        for (std::size_t index = 0; index < 4; ++index) {
            const ui::Rect now = controls[index]->bounds();
            EXPECT_EQ(now.left, before[index].left);
            EXPECT_EQ(now.top, before[index].top);
            EXPECT_EQ(now.width, inner.width - now.left - margin);
            const int height = index == 0 ? inner.height - now.top - margin : before[index].height;
            EXPECT_EQ(now.height, height);
        }
    }
};

TEST_P(ReportSizes, BodyAndFieldsFollowTheWindowWhichNeverGetsTooSmall) {
    stage->setTwipsPerPixel(GetParam().horizontal, GetParam().vertical);
    open([&](frmSendBugReport& form) {
        const std::vector<ui::Rect> before{form.rtfBody.bounds(), form.txtTo.bounds(), form.txtCc.bounds(),
                                           form.txtSubject.bounds()};
        expectLayout(form, before);
        const ui::Size least{320, form.rtfBody.bounds().top + 3 * form.txtSubject.bounds().height};
        for (const int width : {200, 319, 320, 321, 480, 700})
            for (const int height :
                 {least.height - 80, least.height - 1, least.height, least.height + 1, 500}) {
                SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
                user.resize(form.window(), {width, height});
                const ui::Size expected{std::max(width, 320), std::max(height, least.height)};
                EXPECT_EQ(form.window().outerSize(), expected);
                expectLayout(form, before);
            }
    });
}

INSTANTIATE_TEST_SUITE_P(Resolutions, ReportSizes,
                         testing::Values(Resolution{"At96", 15, 15, 4}, Resolution{"At120", 12, 12, 5},
                                         Resolution{"At144", 10, 10, 6}, Resolution{"At192", 7.5, 7.5, 8},
                                         Resolution{"OfUnequalAxes", 10, 15, 6}),
                         namedRow);

TEST_F(ReportWindow, ShrinkingBelow320PixelsSnapsBackAndLaysTheBodyOut) {
    open([&](frmSendBugReport& form) {
        user.resize(form.window(), {600, 400});
        user.resize(form.window(), {150, 400});
        EXPECT_EQ(form.window().outerSize().width, 320);
        EXPECT_EQ(form.rtfBody.bounds().width,
                  form.window().innerSize().width - form.rtfBody.bounds().left -
                      static_cast<int>(60 / application.screen.twipsPerPixelX()));
    });
}

// --- The hover timer and the end --------------------------------------------------------------------------

TEST_F(ReportWindow, TheHoverTimerRunsFromLoadUntilTheWindowCloses) {
    open([&](frmSendBugReport& form) {
        EXPECT_THAT(calls.linesWith("timer"), ElementsAre("timer set 150"));
        user.wait(500);
        EXPECT_THAT(calls.linesWith("timer kill"), IsEmpty());
        user.closeWindow(form.window());
        EXPECT_EQ(calls.linesWith("timer kill").size(), 1U);
    });
    EXPECT_EQ(calls.linesWith("timer kill").size(), 1U);
    user.wait(500);
}

TEST_F(ReportWindow, TheComposerWritesNothingToTheLogAndAsksNothing) {
    application.settings.LoggingInformation = true;
    open([&](frmSendBugReport& form) {
        user.type(form.rtfBody, L"text");
        user.wait(400);
    });
    EXPECT_THAT(calls.linesWith("files"), IsEmpty());
    EXPECT_TRUE(stage->messages().empty());
}

TEST_F(ReportWindow, OpeningItAgainStartsFresh) {
    open([&](frmSendBugReport& form) {
        user.type(form.txtTo, L"somebody");
        user.type(form.rtfBody, L"text");
    });
    open([&](frmSendBugReport& form) {
        EXPECT_EQ(form.txtTo.text(), L"");
        EXPECT_EQ(form.rtfBody.text(), L"");
    });
}

}  // namespace
}  // namespace tests
