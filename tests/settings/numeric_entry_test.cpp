// The number fields of the settings dialogs, and the rule that they share.
#include "settings/frmSettings.ids.h"
#include "tests/settings/numeric_entries.h"
#include "tests/settings/settings_test_base.h"

namespace tests {
namespace {

class NumericEntries : public SettingsTest {
protected:
    NumericEntries() {
        settings.AutoInfo = true;
        limitSize();
        setKnowledgebases({L"Mail"});
        setText(L"DefaultProject", L"Mail");
    }

    /// Selects the text and types over it.
    void replace(ui::TextBox& box, const std::wstring& text) {
        selectAll(box);
        user.type(box, text);
    }
    void empty(ui::TextBox& box, ui::Window& window) {
        selectAll(box);
        user.press(window, key::remove);
    }
    static void selectAll(ui::TextBox& box) {
        box.setFocus();
        box.select(0, static_cast<int>(box.text().size()));
    }

    static std::wstring state(const ui::TextBox& box, const ui::UpDown& upDown) {
        std::wstring text = box.text();
        text.insert(static_cast<std::size_t>(box.selectionStart()), L"|");
        return text + L"=" + std::to_wstring(upDown.value());
    }

    /// Plays a key of the table; returns whether it may change the field.
    bool play(ui::Window& window, ui::TextBox& box, const std::wstring& token) {
        if (token.starts_with(L"{paste:")) {
            user.paste(box, token.substr(7, token.size() - 8));
            return true;
        }
        if (token == L"{all}") return selectAll(box), false;
        if (token == L"{home}") return user.press(window, key::home), false;
        if (token == L"{end}") return user.press(window, key::end), false;
        if (token == L"{right}") return user.press(window, key::right), false;
        if (token == L"{back}") return user.press(window, key::back), true;
        if (token == L"{del}") return user.press(window, key::remove), true;
        return user.type(box, token), true;
    }

    static std::vector<std::wstring> tokens(const std::wstring& keys) {
        std::vector<std::wstring> all;
        for (std::size_t start = 0; start < keys.size();) {
            const std::size_t length = keys[start] == L'{' ? keys.find(L'}', start) + 1 - start : 1;
            all.push_back(keys.substr(start, length));
            start += length;
        }
        return all;
    }

    void playAll(ui::Window& window, ui::TextBox& box, ui::UpDown& upDown,
                 std::span<const NumericEntry> entries) {
        for (const NumericEntry& entry : entries) {
            SCOPED_TRACE(std::string(entry.what) + ": " + narrow(entry.keys));
            const std::wstring before = std::to_wstring(entry.before);
            box.setText(before);
            ASSERT_EQ(upDown.value(), entry.before);
            box.setFocus();
            box.select(static_cast<int>(before.size()), 0);
            std::wstring states;
            for (const std::wstring& token : tokens(entry.keys))
                if (play(window, box, token)) states += (states.empty() ? L"" : L" / ") + state(box, upDown);
            EXPECT_EQ(states, entry.states);
        }
    }
};

// --- Typed texts ------------------------------------------------------------------------------------------

TEST_F(NumericEntries, EachFieldHasATableOfAtLeast120TypedTexts) {
    for (const auto entries : {delayEntries(), entryCountEntries(), minRelEntries(), maxSizeEntries()})
        EXPECT_GE(entries.size(), 120U);
}

TEST_F(NumericEntries, DelayFollowsTheTableOfTypedTexts) {
    openSearch([&](vexa::frmSettings& form) {
        playAll(form.window(), form.txtDelay, form.updDelay, delayEntries());
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, EntryCountFollowsTheTableOfTypedTexts) {
    openSearch([&](vexa::frmSettings& form) {
        playAll(form.window(), form.txtEntryCount, form.updEntryCount, entryCountEntries());
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, MinRelFollowsTheTableOfTypedTexts) {
    openSearch([&](vexa::frmSettings& form) {
        playAll(form.window(), form.txtMinRel, form.updMinRel, minRelEntries());
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, MaxSizeFollowsTheTableOfTypedTexts) {
    openAttachments([&](vexa::frmAttachment& form) {
        playAll(form.window(), form.txtMaxSize, form.updMaxSize, maxSizeEntries());
        user.click(form.cmdCancel);
    });
}

// --- A decimal comma --------------------------------------------------------------------------------------

constexpr NumericEntry COMMA_ENTRIES[] = {
    {"a fraction above the half", 50, L"{all}{paste:1,6}", L"2|=2"},
    {"the half above an odd number", 50, L"{all}{paste:1,5}", L"2|=2"},
    {"the half above an even number", 50, L"{all}{paste:2,5}", L"2|=2"},
    {"a fraction below the half", 50, L"{all}{paste:12,49}", L"12|=12"},
    {"a fraction, typed", 50, L"{all}1,5", L"1|=1 / 1,|=1 / 2|=2"},
    {"a comma at the end", 50, L"{all}{paste:12,}", L"12|=12"},
    {"a fraction below the minimum", 50, L"{all}{paste:0,4}", L"0,4|=50"},
    {"two commas", 50, L"{all}{paste:1,5,6}", L"50|=50"},
    {"a point between thousands", 50, L"{all}{paste:1.000}", L"1000|=1000"},
    {"a point between thousands, typed", 50, L"{all}1.000", L"1|=1 / 1.|=1 / 10|=10 / 100|=100 / 1000|=1000"},
    {"a point elsewhere", 50, L"{all}{paste:1.5}", L"15|=15"},
    {"point and comma", 50, L"{all}{paste:10.000,4}", L"10000|=10000"},
    {"the maximum with its point", 50, L"{all}{paste:65.000}", L"65000|=65000"},
    {"above the maximum", 50, L"{all}{paste:65.001}", L"65000|=65000"},
    {"a letter behind", 50, L"{all}{paste:1,5x}", L"50|=50"},
};

TEST_F(NumericEntries, WithADecimalCommaACommaBeginsTheFractionAndPointsSeparateThousands) {
    stage->useDecimalComma();
    openAttachments([&](vexa::frmAttachment& form) {
        playAll(form.window(), form.txtMaxSize, form.updMaxSize, COMMA_ENTRIES);
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, WithADecimalCommaLoadingAndArrowsStillShowPlainDigits) {
    stage->useDecimalComma();
    settings.MaxEntries = 9999;
    settings.AttachmentsMaxSize = 65000;
    openSearch([&](vexa::frmSettings& form) {
        EXPECT_EQ(form.txtEntryCount.text(), L"9999");
        user.step(form.updEntryCount, true);
        EXPECT_EQ(form.txtEntryCount.text(), L"10000");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.MaxEntries, 10000);
    openAttachments([&](vexa::frmAttachment& form) {
        EXPECT_EQ(form.txtMaxSize.text(), L"65000");
        user.step(form.updMaxSize, false);
        EXPECT_EQ(form.txtMaxSize.text(), L"64999");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(stage->value(SETTINGS_KEY, L"AttachmentsMaxSize"), vexa::Value(64999));
}

// --- Bounds -----------------------------------------------------------------------------------------------

TEST_F(NumericEntries, BoundsAreThoseThatTheLabelsRepeat) {
    openSearch([&](vexa::frmSettings& form) {
        const auto bounds = [](const ui::UpDown& upDown) {
            return std::pair(upDown.minimum(), upDown.maximum());
        };
        const auto caption = [](vexa::frmSettings& dialog, int label) {
            return dialog.window().control<ui::Label>(label).text();
        };
        EXPECT_EQ(bounds(form.updDelay), std::pair(0, 60));
        EXPECT_EQ(form.lblDelayInfo.text(), L"0 - 60 (sec)");
        EXPECT_EQ(bounds(form.updEntryCount), std::pair(10, 10000));
        EXPECT_EQ(caption(form, IDC_lblResCountInfo), L"10 - 10000");
        EXPECT_EQ(bounds(form.updMinRel), std::pair(0, 100));
        EXPECT_EQ(caption(form, IDC_lblMinRelPercent), L"0 - 100(%)");
        user.click(form.cmdCancel);
    });
    openAttachments([&](vexa::frmAttachment& form) {
        EXPECT_EQ(form.updMaxSize.minimum(), 1);
        EXPECT_EQ(form.updMaxSize.maximum(), 65000);
        EXPECT_EQ(form.lblMaxSize.text(), L"&Size in KB (1 - 65000):");
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, FieldsStartAtTheirMinimumBeforeTheStoredValueIsLoaded) {
    const vexa::frmSettings search(application, stage->owner(), openReport);
    EXPECT_EQ(search.updDelay.value(), 0);
    EXPECT_EQ(search.txtDelay.text(), L"0");
    EXPECT_EQ(search.updEntryCount.value(), 10);
    EXPECT_EQ(search.txtEntryCount.text(), L"10");
    EXPECT_EQ(search.updMinRel.value(), 0);
    EXPECT_EQ(search.txtMinRel.text(), L"0");
    const vexa::frmAttachment attachments(application, stage->owner());
    EXPECT_EQ(attachments.updMaxSize.value(), 1);
    EXPECT_EQ(attachments.txtMaxSize.text(), L"1");
}

TEST_F(NumericEntries, AWriteOutsideTheBoundsIsRefusedAndChangesNothing) {
    openSearch([&](vexa::frmSettings& form) {
        EXPECT_THROW(form.updDelay.setValue(61), std::out_of_range);
        EXPECT_THROW(form.updDelay.setValue(-1), std::out_of_range);
        EXPECT_THROW(form.updEntryCount.setValue(9), std::out_of_range);
        EXPECT_THROW(form.updEntryCount.setValue(2147483647), std::out_of_range);
        EXPECT_EQ(form.updDelay.value(), 10);
        EXPECT_EQ(form.txtDelay.text(), L"10");
        EXPECT_EQ(form.updEntryCount.value(), 20);
        EXPECT_EQ(form.txtEntryCount.text(), L"20");
        user.click(form.cmdCancel);
    });
}

// --- What OK stores ---------------------------------------------------------------------------------------

TEST_F(NumericEntries, AnEmptiedDelayBoxStaysEmptyAndStoresZero) {
    openSearch([&](vexa::frmSettings& form) {
        empty(form.txtDelay, form.window());
        EXPECT_EQ(form.txtDelay.text(), L"");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.AutoFindDelay, 0);
}

TEST_F(NumericEntries, AnEmptiedSizeBoxStaysEmptyAndStoresOne) {
    openAttachments([&](vexa::frmAttachment& form) {
        empty(form.txtMaxSize, form.window());
        EXPECT_EQ(form.txtMaxSize.text(), L"");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.AttachmentsMaxSize, 1);
    EXPECT_EQ(stage->value(SETTINGS_KEY, L"AttachmentsMaxSize"), vexa::Value(1));
}

TEST_F(NumericEntries, AnEmptiedResultCountBoxStoresTen) {
    openSearch([&](vexa::frmSettings& form) {
        empty(form.txtEntryCount, form.window());
        EXPECT_EQ(form.txtEntryCount.text(), L"");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.MaxEntries, 10);
}

TEST_F(NumericEntries, LettersPutThePreviousValueBackWithTheCaretAtItsPlaceOrAtTheEnd) {
    openSearch([&](vexa::frmSettings& form) {
        for (const auto& [box, upDown] : {std::pair<ui::TextBox&, ui::UpDown&>(form.txtDelay, form.updDelay),
                                          {form.txtEntryCount, form.updEntryCount},
                                          {form.txtMinRel, form.updMinRel}}) {
            const int before = upDown.value();
            selectAll(box);
            user.paste(box, L"abc");
            EXPECT_EQ(box.text(), std::to_wstring(before));
            EXPECT_EQ(box.selectionStart(), 2) << "the end of the shorter text";
            selectAll(box);
            user.paste(box, L"12x");
            EXPECT_EQ(box.text(), std::to_wstring(before));
            box.select(0, 0);
            user.type(box, L"x");
            EXPECT_EQ(box.text(), std::to_wstring(before));
            EXPECT_EQ(box.selectionStart(), 1) << "its old position";
            EXPECT_EQ(upDown.value(), before);
        }
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, ANumberAboveTheMaximumBecomesTheMaximum) {
    openSearch([&](vexa::frmSettings& form) {
        replace(form.txtDelay, L"61");
        EXPECT_EQ(state(form.txtDelay, form.updDelay), L"60|=60");
        replace(form.txtMinRel, L"101");
        EXPECT_EQ(state(form.txtMinRel, form.updMinRel), L"100|=100");
        user.click(form.cmdCancel);
    });
    openAttachments([&](vexa::frmAttachment& form) {
        replace(form.txtMaxSize, L"70000");
        EXPECT_EQ(state(form.txtMaxSize, form.updMaxSize), L"65000|=65000");
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, ANumberBelowTheMinimumStaysInTheBoxWhileTheValueStaysWhatItWas) {
    openSearch([&](vexa::frmSettings& form) {
        replace(form.txtEntryCount, L"5");
        EXPECT_EQ(state(form.txtEntryCount, form.updEntryCount), L"5|=20");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.MaxEntries, 20) << "not 5";
    EXPECT_FALSE(application.flags.dialogChanged);
}

TEST_F(NumericEntries, ADigitMoreMakesANumberBelowTheMinimumAValue) {
    openSearch([&](vexa::frmSettings& form) {
        replace(form.txtEntryCount, L"5");
        user.type(form.txtEntryCount, L"0");
        EXPECT_EQ(state(form.txtEntryCount, form.updEntryCount), L"50|=50");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.MaxEntries, 50);
}

TEST_F(NumericEntries, ANumberBeyond32BitsCountsAsNoNumber) {
    openSearch([&](vexa::frmSettings& form) {
        selectAll(form.txtEntryCount);
        user.paste(form.txtEntryCount, L"99999999999");
        EXPECT_EQ(state(form.txtEntryCount, form.updEntryCount), L"20|=20");
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, AClickPlacesTheCaretAndSelectsNothing) {
    openSearch([&](vexa::frmSettings& form) {
        form.chkAutoInfo.setFocus();
        user.click(form.txtMinRel);
        EXPECT_TRUE(form.txtMinRel.hasFocus());
        EXPECT_EQ(form.txtMinRel.selectionLength(), 0);
        EXPECT_EQ(form.txtMinRel.selectionStart(), 2) << "the middle of the box lies behind the text";
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, AValidEditDoesNotMoveTheCaret) {
    openSearch([&](vexa::frmSettings& form) {
        replace(form.txtEntryCount, L"124");
        form.txtEntryCount.select(2, 0);
        user.type(form.txtEntryCount, L"3");
        EXPECT_EQ(state(form.txtEntryCount, form.updEntryCount), L"123|4=1234");
        user.click(form.cmdCancel);
    });
    openAttachments([&](vexa::frmAttachment& form) {
        replace(form.txtMaxSize, L"1234");
        form.txtMaxSize.select(1, 0);
        user.type(form.txtMaxSize, L"9");
        EXPECT_EQ(state(form.txtMaxSize, form.updMaxSize), L"19|234=19234");
        user.click(form.cmdCancel);
    });
}

// --- Arrows -----------------------------------------------------------------------------------------------

TEST_F(NumericEntries, ArrowsStepByOneAndShowTheNumberInTheBox) {
    openSearch([&](vexa::frmSettings& form) {
        user.step(form.updDelay, true);
        EXPECT_EQ(form.updDelay.value(), 11);
        EXPECT_EQ(form.txtDelay.text(), L"11");
        user.step(form.updDelay, false);
        user.step(form.updDelay, false);
        EXPECT_EQ(form.txtDelay.text(), L"9");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.AutoFindDelay, 9);
}

TEST_F(NumericEntries, ArrowsStopAtTheBounds) {
    settings.MinRel = 100;
    settings.MaxEntries = 10;
    openSearch([&](vexa::frmSettings& form) {
        user.step(form.updMinRel, true);
        EXPECT_EQ(form.updMinRel.value(), 100);
        EXPECT_EQ(form.txtMinRel.text(), L"100");
        user.step(form.updEntryCount, false);
        EXPECT_EQ(form.updEntryCount.value(), 10);
        EXPECT_EQ(form.txtEntryCount.text(), L"10");
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, LargeNumbersAreShownWithoutSeparators) {
    settings.MaxEntries = 9999;
    openSearch([&](vexa::frmSettings& form) {
        EXPECT_EQ(form.txtEntryCount.text(), L"9999");
        user.step(form.updEntryCount, true);
        EXPECT_EQ(form.txtEntryCount.text(), L"10000");
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, ArrowKeysInTheBoxStepTheNumber) {
    openSearch([&](vexa::frmSettings& form) {
        form.txtMinRel.setFocus();
        user.press(form.window(), key::up);
        EXPECT_EQ(form.txtMinRel.text(), L"41");
        user.press(form.window(), key::down);
        user.press(form.window(), key::down);
        EXPECT_EQ(form.txtMinRel.text(), L"39");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.MinRel, 39);
}

TEST_F(NumericEntries, AStepAfterATextBelowTheMinimumGoesOnFromTheValue) {
    openSearch([&](vexa::frmSettings& form) {
        replace(form.txtEntryCount, L"5");
        user.step(form.updEntryCount, true);
        EXPECT_EQ(form.txtEntryCount.text(), L"21");
        empty(form.txtEntryCount, form.window());
        user.step(form.updEntryCount, true);
        EXPECT_EQ(form.txtEntryCount.text(), L"11");
        user.click(form.cmdCancel);
    });
}

TEST_F(NumericEntries, ADisabledArrowDoesNothing) {
    settings.AutoInfo = false;
    openSearch([&](vexa::frmSettings& form) {
        user.step(form.updDelay, true);
        EXPECT_EQ(form.updDelay.value(), 10);
        user.click(form.cmdCancel);
    });
}

// --- Stored numbers outside the bounds --------------------------------------------------------------------

class StoredOutside : public NumericEntries, public testing::WithParamInterface<std::int32_t> {};

TEST_P(StoredOutside, TheFieldsShowAndStoreTheirMinimum) {
    settings.MaxEntries = settings.MinRel = settings.AutoFindDelay = GetParam();
    settings.AttachmentsMaxSize = GetParam();
    openSearch([&](vexa::frmSettings& form) {
        EXPECT_EQ(form.txtDelay.text(), L"0");
        EXPECT_EQ(form.txtEntryCount.text(), L"10");
        EXPECT_EQ(form.txtMinRel.text(), L"0");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.AutoFindDelay, 0);
    EXPECT_EQ(settings.MaxEntries, 10);
    EXPECT_EQ(settings.MinRel, 0);
    EXPECT_TRUE(application.flags.dialogChanged);
    openAttachments([&](vexa::frmAttachment& form) {
        EXPECT_EQ(form.txtMaxSize.text(), L"1");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.AttachmentsMaxSize, 1);
    EXPECT_THAT(stage->messages(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, StoredOutside,
                         testing::Values(-2147483647 - 1, -100, -1, 65001, 100000, 2147483647));

}  // namespace
}  // namespace tests
