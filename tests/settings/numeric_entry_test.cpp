// The number fields of the settings dialogs: the rule that they share, and which setting each of them edits.
#include "tests/settings/settings_test_base.h"

namespace tests {
namespace {

using vexa::Bounds;
using vexa::NumericEntryField;

class NumericEntries : public SettingsTest {
protected:
    NumericEntries() {
        settings.AutoInfo = true;
        limitSize();
        setText(L"DefaultProject", L"Mail");
        setKnowledgebases({L"Mail"});
    }

    void empty(ui::TextBox& box, ui::Window& window) {
        selectAll(box);
        user.press(window, key::remove);
    }
    static std::wstring state(const ui::TextBox& box, const ui::UpDown& upDown) {
        std::wstring text = box.text();
        text.insert(static_cast<std::size_t>(box.selectionStart()), L"|");
        return text + L"=" + std::to_wstring(upDown.value());
    }
};

// --- The rule, key by key ---------------------------------------------------------------------------------

struct Entry {
    Bounds bounds;
    /// The field holds this number, in its text and its value, with the caret at the end.
    int before;
    /// Characters are typed; {paste:...} is one change. {all} selects the text, {home}, {end} and {right}
    /// move the caret, {back} and {del} delete.
    const wchar_t* keys;
    /// The field after each key that may change it, separated by " / ": the text with "|" at the caret, "=",
    /// the value.
    const wchar_t* states;
};

constexpr Bounds DELAY{0, 60};
constexpr Bounds COUNT{10, 10000};
constexpr Bounds BELOW_ZERO{-20, -5};

constexpr Entry ENTRIES[] = {
    {DELAY, 30, L"{all}5", L"5|=5"},
    {DELAY, 30, L"{all}10", L"1|=1 / 10|=10"},
    {DELAY, 30, L"{all}60", L"6|=6 / 60|=60"},
    {DELAY, 30, L"{all}61", L"6|=6 / 60|=60"},
    {DELAY, 30, L"{all}70000", L"7|=7 / 60|=60 / 60|=60 / 60|=60 / 60|=60"},
    {DELAY, 30, L"{all}99999999999",
     L"9|=9 / 60|=60 / 60|=60 / 60|=60 / 60|=60 / 60|=60 / 60|=60 / 60|=60 / 60|=60 / 60|=60 / 60|=60"},
    {DELAY, 30, L"{all}007", L"0|=0 / 00|=0 / 7|=7"},
    {DELAY, 30, L"{all}00060", L"0|=0 / 00|=0 / 000|=0 / 6|=6 / 60|=60"},
    {DELAY, 30, L"{all}{paste:-1}", L"-1|=30"},
    {DELAY, 30, L"{all}{paste:0}", L"0|=0"},
    {DELAY, 30, L"{all}{paste:60}", L"60|=60"},
    {DELAY, 30, L"{all}{paste:61}", L"60|=60"},
    {DELAY, 30, L"{all}{paste:2147483647}", L"60|=60"},
    {DELAY, 30, L"{all}{paste:2147483648}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:-2147483648}", L"-2147483648|=30"},
    {DELAY, 30, L"{all}{paste:-2147483649}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:9999999999999999999999999999999999999999}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:+12}", L"12|=12"},
    {DELAY, 30, L"{all}{paste:12-}", L"12-|=30"},
    {DELAY, 30, L"{all}{paste:(12)}", L"(12)|=30"},
    {DELAY, 30, L"{all}{paste:(12}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:- 12}", L"- 12|=30"},
    {DELAY, 30, L"{all}{paste:--12}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:-0}", L"0|=0"},
    {DELAY, 30, L"{all}-5", L"3|0=30 / 60|=60"},
    {DELAY, 30, L"{all}5-", L"5|=5 / 5-|=5"},
    {DELAY, 30, L"{all}+", L"3|0=30"},
    {DELAY, 30, L"{home}-", L"-|30=30"},
    {DELAY, 30, L"{home}+", L"+|30=30"},
    {DELAY, 30, L"{end}-", L"30-|=30"},
    {DELAY, 30, L"{all}{paste: 12 }", L"12|=12"},
    {DELAY, 30, L"{all}{paste:1 2}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:12\u00A0}", L"12|=12"},
    {DELAY, 30, L"{all}{paste: }", L"3|0=30"},
    {DELAY, 30, L"{all} 12", L"3|0=30 / 60|=60 / 60|=60"},
    {DELAY, 30, L"{all}12 ", L"1|=1 / 12|=12 / 12 |=12"},
    {DELAY, 30, L"{all}{paste:11.5}", L"12|=12"},
    {DELAY, 30, L"{all}{paste:12.5}", L"12|=12"},
    {DELAY, 30, L"{all}{paste:59.5}", L"60|=60"},
    {DELAY, 30, L"{all}{paste:60.5}", L"60|=60"},
    {DELAY, 30, L"{all}{paste:-0.5}", L"0|=0"},
    {DELAY, 30, L"{all}12.5", L"1|=1 / 12|=12 / 12.|=12 / 12.5|=12"},
    {DELAY, 30, L"{all}13.5", L"1|=1 / 13|=13 / 13.|=13 / 14|=14"},
    {DELAY, 30, L"{all}.5", L"3|0=30 / 60|=60"},
    {DELAY, 30, L"{all}1.2.3", L"1|=1 / 1.|=1 / 1.2|=1 / 1|=1 / 13|=13"},
    {DELAY, 30, L"{all}abc", L"3|0=30 / 30|=30 / 30|=30"},
    {DELAY, 30, L"{all}12x", L"1|=1 / 12|=12 / 12|=12"},
    {DELAY, 30, L"{all}x12", L"3|0=30 / 60|=60 / 60|=60"},
    {DELAY, 30, L"{all}-x", L"3|0=30 / 30|=30"},
    {DELAY, 30, L"{all}{paste:abc}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:0x1F}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:&H1F}", L"31|=31"},
    {DELAY, 30, L"{all}{paste:&O17}", L"15|=15"},
    {DELAY, 30, L"{all}{paste:1e1}", L"10|=10"},
    {DELAY, 30, L"{all}{paste:1e10}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:12 kB}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:NaN}", L"30|=30"},
    {DELAY, 30, L"{all}1e1", L"1|=1 / 1|=1 / 11|=11"},
    {DELAY, 30, L"{home}x", L"3|0=30"},
    {DELAY, 30, L"{home}{right}x", L"30|=30"},
    {DELAY, 30, L"{end}x", L"30|=30"},
    {DELAY, 60, L"{end}x", L"60|=60"},
    {DELAY, 30, L"{all}{paste:1,2}", L"12|=12"},
    {DELAY, 30, L"{all}{paste:1,000.5}", L"60|=60"},
    {DELAY, 30, L"{all}12,", L"1|=1 / 12|=12 / 12,|=12"},
    {DELAY, 30, L"{all}{paste:$12}", L"12|=12"},
    {DELAY, 30, L"{all}{paste:\u20AC12}", L"30|=30"},
    {DELAY, 30, L"{all}{paste:12%}", L"30|=30"},
    {DELAY, 30, L"{all}\uFF15", L"3|0=30"},
    {DELAY, 30, L"{all}\u0663", L"3|0=30"},
    {DELAY, 30, L"{all}{del}", L"|=0"},
    {DELAY, 30, L"{all}{back}", L"|=0"},
    {DELAY, 30, L"{end}{back}{back}", L"3|=3 / |=0"},
    {DELAY, 30, L"{home}{del}{del}", L"|0=0 / |=0"},
    {DELAY, 30, L"{all}{del}12", L"|=0 / 1|=1 / 12|=12"},
    {DELAY, 30, L"{all}{del}x", L"|=0 / 0|=0"},
    {DELAY, 30, L"{home}{back}", L"|30=30"},
    {DELAY, 45, L"{home}{right}{del}", L"4|=4"},
    {DELAY, 45, L"{home}9", L"6|0=60"},
    {DELAY, 45, L"{home}{right}0", L"60|=60"},
    {DELAY, 45, L"{home}{right}{paste:ab}", L"45|=45"},
    {DELAY, 45, L"{all}{paste:45}", L"45|=45"},
    {DELAY, 60, L"{end}5", L"60|=60"},
    // The numbers below the minimum are the beginnings of others.
    {COUNT, 200, L"{all}0", L"0|=200"},
    {COUNT, 200, L"{all}9", L"9|=200"},
    {COUNT, 200, L"{all}10", L"1|=200 / 10|=10"},
    {COUNT, 200, L"{all}59", L"5|=200 / 59|=59"},
    {COUNT, 200, L"{all}605", L"6|=200 / 60|=60 / 605|=605"},
    {COUNT, 200, L"{all}10000", L"1|=200 / 10|=10 / 100|=100 / 1000|=1000 / 10000|=10000"},
    {COUNT, 200, L"{all}10001", L"1|=200 / 10|=10 / 100|=100 / 1000|=1000 / 10000|=10000"},
    {COUNT, 200, L"{all}100000", L"1|=200 / 10|=10 / 100|=100 / 1000|=1000 / 10000|=10000 / 10000|=10000"},
    {COUNT, 200, L"{all}65000", L"6|=200 / 65|=65 / 650|=650 / 6500|=6500 / 10000|=10000"},
    {COUNT, 200, L"{all}007", L"0|=200 / 00|=200 / 007|=200"},
    {COUNT, 200, L"{all}{paste:9}", L"9|=200"},
    {COUNT, 200, L"{all}{paste:9999}", L"9999|=9999"},
    {COUNT, 200, L"{all}{paste:10000}", L"10000|=10000"},
    {COUNT, 200, L"{all}{paste:10001}", L"10000|=10000"},
    {COUNT, 200, L"{all}{paste:-12}", L"-12|=200"},
    {COUNT, 200, L"{all}{paste:9.5}", L"10|=10"},
    {COUNT, 200, L"{all}{paste:9.4}", L"9.4|=200"},
    {COUNT, 200, L"{all}{paste:0.5}", L"0.5|=200"},
    {COUNT, 200, L"{all}{paste:10000.5}", L"10000|=10000"},
    {COUNT, 200, L"{all}12.5", L"1|=200 / 12|=12 / 12.|=12 / 12.5|=12"},
    {COUNT, 200, L"{all}1,000", L"1|=200 / 1,|=200 / 10|=10 / 100|=100 / 1000|=1000"},
    {COUNT, 200, L"{all}12x", L"1|=200 / 12|=12 / 12|=12"},
    {COUNT, 200, L"{all}1e1", L"1|=200 / 20|0=200 / 201|0=2010"},
    {COUNT, 200, L"{end}{back}{back}{back}", L"20|=20 / 2|=20 / |=10"},
    {COUNT, 200, L"{all}{del}x", L"|=10 / 1|0=10"},
    {COUNT, 1234, L"{home}{del}", L"|234=234"},
    {COUNT, 1234, L"{home}{right}0", L"10|000=10000"},
    {COUNT, 10000, L"{home}5", L"1|0000=10000"},
    {COUNT, 1234, L"{end}{back}", L"123|=123"},
    {COUNT, 10, L"{end}{back}", L"1|=10"},
    {COUNT, 1234, L"{home}0", L"0|1234=1234"},
    {BELOW_ZERO, -7, L"{all}{paste:-12}", L"-12|=-12"},
    {BELOW_ZERO, -7, L"{all}{paste:-5}{paste:-}", L"-5|=-5 / -5|=-5"},
    {BELOW_ZERO, -7, L"{all}{paste:-4}", L"-5|=-5"},
    {BELOW_ZERO, -7, L"{all}{paste:-20}", L"-20|=-20"},
    {BELOW_ZERO, -7, L"{all}{paste:-21}", L"-21|=-7"},
    {BELOW_ZERO, -7, L"{all}{del}", L"|=-20"},
};

class NumericRule : public NumericEntries {
protected:
    /// A field with these bounds in place of one of the dialog's own, for the time of `script`.
    void withField(const Bounds& bounds, FunctionRef<void(ui::Window&, ui::TextBox&, ui::UpDown&)> script) {
        openSearch([&](frmSettings& form) {
            const NumericEntryField field(form.txtMinRel, form.updMinRel, bounds,
                                          application.platform.conversions);
            script(form.window(), form.txtMinRel, form.updMinRel);
            form.txtMinRel.onChange = nullptr;
            form.updMinRel.onChange = nullptr;
        });
    }

    std::wstring play(const Entry& entry, ui::Window& window, ui::TextBox& box, ui::UpDown& upDown) {
        box.setText(std::to_wstring(entry.before));
        EXPECT_EQ(upDown.value(), entry.before);
        box.setFocus();
        box.select(static_cast<int>(box.text().size()), 0);
        std::wstring states;
        for (const std::wstring& token : tokens(entry.keys))
            if (press(window, box, token)) states += (states.empty() ? L"" : L" / ") + state(box, upDown);
        return states;
    }

private:
    /// Plays a key of the table; returns whether it may change the field.
    bool press(ui::Window& window, ui::TextBox& box, const std::wstring& token) {
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
};

TEST_F(NumericRule, FollowsTheTableOfTypedTexts) {
    for (const Bounds& bounds : {DELAY, COUNT, BELOW_ZERO})
        withField(bounds, [&](ui::Window& window, ui::TextBox& box, ui::UpDown& upDown) {
            for (const Entry& entry : ENTRIES)
                if (entry.bounds.minimum == bounds.minimum) {
                    EXPECT_EQ(play(entry, window, box, upDown), entry.states)
                        << entry.before << ", then " << narrow(entry.keys);
                }
        });
}

TEST_F(NumericRule, BeginsAtTheMinimumInBothControls) {
    withField(COUNT, [](ui::Window&, ui::TextBox& box, ui::UpDown& upDown) {
        EXPECT_EQ(box.text(), L"10");
        EXPECT_EQ(upDown.value(), 10);
        EXPECT_EQ(upDown.minimum(), 10);
        EXPECT_EQ(upDown.maximum(), 10000);
    });
}

TEST_F(NumericRule, TheArrowsGoOnFromTheValueAndStopAtTheBounds) {
    withField(COUNT, [&](ui::Window& window, ui::TextBox& box, ui::UpDown& upDown) {
        upDown.setValue(9999);
        EXPECT_EQ(box.text(), L"9999");
        for (const wchar_t* expected : {L"10000", L"10000"}) {
            user.step(upDown, true);
            EXPECT_EQ(box.text(), expected) << "without separators";
        }
        empty(box, window);
        user.step(upDown, true);
        EXPECT_EQ(box.text(), L"11") << "an empty text stands for the minimum";
        replace(box, L"5");
        user.step(upDown, false);
        EXPECT_EQ(box.text(), L"10") << "a text below the minimum is not the value";
        user.step(upDown, false);
        EXPECT_EQ(box.text(), L"10");
        box.setFocus();
        user.press(window, key::up);
        EXPECT_EQ(state(box, upDown).back(), L'1');
        user.press(window, key::down);
        EXPECT_EQ(box.text(), L"10");
    });
}

TEST_F(NumericRule, AWriteOutsideTheBoundsIsRefusedAndChangesNothing) {
    withField(COUNT, [](ui::Window&, ui::TextBox& box, ui::UpDown& upDown) {
        upDown.setValue(20);
        for (const std::int32_t refused : {9, 10001, -1, 2147483647})
            EXPECT_THROW(upDown.setValue(refused), std::out_of_range);
        EXPECT_EQ(box.text(), L"20");
        EXPECT_EQ(upDown.value(), 20);
    });
}

TEST_F(NumericRule, AStepLeavesTheCaretOrMovesItToTheEndOfAShorterText) {
    withField(COUNT, [&](ui::Window&, ui::TextBox& box, ui::UpDown& upDown) {
        upDown.setValue(1000);
        box.select(1, 0);
        upDown.setValue(1001);
        EXPECT_EQ(state(box, upDown), L"1|001=1001");
        box.select(4, 0);
        upDown.setValue(99);
        EXPECT_EQ(state(box, upDown), L"99|=99");
    });
}

TEST_F(NumericRule, AClickPlacesTheCaretAndSelectsNothing) {
    openSearch([&](frmSettings& form) {
        form.chkAutoInfo.setFocus();
        user.click(form.txtMinRel);
        EXPECT_TRUE(form.txtMinRel.hasFocus());
        EXPECT_EQ(form.txtMinRel.selectionLength(), 0);
        EXPECT_EQ(form.txtMinRel.selectionStart(), 2) << "the middle of the box lies behind the text";
    });
}

TEST_F(NumericEntries, ADisabledFieldTakesNoStep) {
    settings.AutoInfo = false;
    openSearch([&](frmSettings& form) {
        user.step(form.updDelay, true);
        EXPECT_EQ(form.updDelay.value(), 10);
    });
}

// --- The four fields --------------------------------------------------------------------------------------

/// A field of an open dialog.
struct OpenField {
    ui::Window& window;
    ui::TextBox& box;
    ui::UpDown& upDown;
    ui::Button& ok;
};
using FieldScript = std::function<void(const OpenField&)>;

struct Field {
    const char* name;
    void (*open)(SettingsScene&, const FieldScript&);
    std::int32_t Settings::*setting;
    Bounds bounds;
    std::int32_t shown;  ///< where nothing is stored
    bool marksChanged;   ///< OK tells the page of a change
};

void PrintTo(const Field& field, std::ostream* stream) { *stream << field.name; }

void openDelay(SettingsScene& scene, const FieldScript& script) {
    scene.openSearch([&](frmSettings& form) {
        script({form.window(), form.txtDelay, form.updDelay, form.cmdOk});
    });
}
void openCount(SettingsScene& scene, const FieldScript& script) {
    scene.openSearch([&](frmSettings& form) {
        script({form.window(), form.txtEntryCount, form.updEntryCount, form.cmdOk});
    });
}
void openRelevance(SettingsScene& scene, const FieldScript& script) {
    scene.openSearch([&](frmSettings& form) {
        script({form.window(), form.txtMinRel, form.updMinRel, form.cmdOk});
    });
}
void openSize(SettingsScene& scene, const FieldScript& script) {
    scene.openAttachments([&](frmAttachment& form) {
        script({form.window(), form.txtMaxSize, form.updMaxSize, form.cmdOk});
    });
}

class NumericFields : public NumericEntries, public testing::WithParamInterface<Field> {
protected:
    void open(const FieldScript& script) { GetParam().open(*this, script); }
    std::int32_t& setting() { return settings.*GetParam().setting; }
    /// Opens the dialog, plays `script` and presses OK.
    void confirm(const FieldScript& script) {
        application.flags = {};
        open([&](const OpenField& field) {
            script(field);
            user.click(field.ok);
        });
    }
    const Bounds& bounds = GetParam().bounds;
};

TEST_P(NumericFields, ShowsItsSettingBetweenItsBounds) {
    open([&](const OpenField& field) {
        EXPECT_EQ(field.upDown.minimum(), bounds.minimum);
        EXPECT_EQ(field.upDown.maximum(), bounds.maximum);
        EXPECT_EQ(field.box.text(), std::to_wstring(GetParam().shown));
    });
}

TEST_P(NumericFields, ANumberWithinTheBoundsIsShownAndStoredAndNoOtherIs) {
    constexpr std::int32_t LEAST = -2147483647 - 1;
    for (const std::int32_t stored : {bounds.minimum, bounds.minimum + 1, bounds.maximum - 1, bounds.maximum,
                                      bounds.minimum - 1, bounds.maximum + 1, LEAST, 2147483647}) {
        const bool within = stored >= bounds.minimum && stored <= bounds.maximum;
        setting() = stored;
        confirm([&](const OpenField& field) {
            EXPECT_EQ(field.box.text(), std::to_wstring(within ? stored : bounds.minimum));
        });
        EXPECT_EQ(setting(), within ? stored : bounds.minimum);
        EXPECT_EQ(application.flags.dialogChanged, !within && GetParam().marksChanged) << stored;
    }
    EXPECT_THAT(stage->messages(), IsEmpty());
}

TEST_P(NumericFields, AnEmptiedBoxStaysEmptyAndStoresTheMinimum) {
    confirm([&](const OpenField& field) {
        empty(field.box, field.window);
        EXPECT_EQ(field.box.text(), L"");
    });
    EXPECT_EQ(setting(), bounds.minimum);
}

TEST_P(NumericFields, ANumberAboveTheMaximumBecomesItAndOneBelowTheMinimumIsNotStored) {
    confirm([&](const OpenField& field) {
        selectAll(field.box);
        user.paste(field.box, std::to_wstring(bounds.minimum - 1));
        EXPECT_EQ(field.box.text(), std::to_wstring(bounds.minimum - 1));
    });
    EXPECT_EQ(setting(), GetParam().shown) << "the last number within the bounds";
    EXPECT_FALSE(application.flags.dialogChanged);
    confirm([&](const OpenField& field) {
        replace(field.box, std::to_wstring(bounds.maximum + 1));
        EXPECT_EQ(field.box.text(), std::to_wstring(bounds.maximum));
    });
    EXPECT_EQ(setting(), bounds.maximum);
}

TEST_P(NumericFields, TheArrowsChangeWhatOkStores) {
    confirm([&](const OpenField& field) { user.step(field.upDown, true); });
    EXPECT_EQ(setting(), GetParam().shown + 1);
    EXPECT_EQ(application.flags.dialogChanged, GetParam().marksChanged);
}

INSTANTIATE_TEST_SUITE_P(
    All, NumericFields,
    testing::Values(Field{"Delay", openDelay, &Settings::AutoFindDelay, {0, 60}, 10, true},
                    Field{"EntryCount", openCount, &Settings::MaxEntries, {10, 10000}, 20, true},
                    Field{"MinRel", openRelevance, &Settings::MinRel, {0, 100}, 40, true},
                    Field{"MaxSize", openSize, &Settings::AttachmentsMaxSize, {1, 65000}, 1024, false}),
    namedRow);

}  // namespace
}  // namespace tests
