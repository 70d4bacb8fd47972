// The highlight settings dialog.
#include "tests/settings/settings_test_base.h"
#include "tests/stage/dialog_table.h"

namespace tests {
namespace {

class Highlights : public SettingsTest {
protected:
    void open(FunctionRef<void(frmDispMatches&)> script) { openHighlights(script); }

    static ui::OptionButton& hotspots(frmDispMatches& form) { return form.optDisplayMatches[0]; }
    static ui::OptionButton& textMarks(frmDispMatches& form) { return form.optDisplayMatches[1]; }
    static ui::Swatch& level(frmDispMatches& form, std::size_t index) { return form.lblPenalty[index]; }

    static std::vector<bool> levelStates(frmDispMatches& form) {
        std::vector<bool> states;
        for (const ui::Swatch& swatch : form.lblPenalty) states.push_back(swatch.enabled());
        return states;
    }
    const std::vector<bool> sixOn = std::vector<bool>(6, true);
    const std::vector<bool> sixOff = std::vector<bool>(6, false);
};

TEST_F(Highlights, TheDefaultsPaintTheSwatchesInTheirSevenColours) {
    open([&](frmDispMatches& form) {
        EXPECT_EQ(form.lblSelHotspotColor.colour(), 0x00FFFF) << "yellow";
        const std::vector<ui::Colour> colours{0x00FF00, 0xFFFF00, 0xFF0000, 0x00FFFF, 0xFF00FF, 0x0000FF};
        for (std::size_t index = 0; index < 6; ++index)
            EXPECT_EQ(level(form, index).colour(), colours[index]) << index;
    });
}

TEST_F(Highlights, EnterOnASwatchOpensItsChooserAndNothingElse) {
    stage->answerColours({0x112233});
    open([&](frmDispMatches& form) {
        textMarks(form).setSelected(true);
        level(form, 1).setFocus();
        user.press(form.window(), key::enter);
        EXPECT_THAT(stage->colourQuestions(), ElementsAre(Stage::ColourQuestion{0xFFFF00, L"Level 1"}));
        EXPECT_EQ(level(form, 1).colour(), 0x112233);
        EXPECT_TRUE(form.window().isOpen()) << "OK was not pressed";
    });
}

TEST_F(Highlights, EachSwatchSaysWhatAClickDoes) {
    open([&](frmDispMatches& form) {
        std::vector<ui::Swatch*> swatches{&form.lblSelHotspotColor};
        for (ui::Swatch& swatch : form.lblPenalty) swatches.push_back(&swatch);
        for (const ui::Swatch* swatch : swatches) {
            EXPECT_EQ(swatch->tooltip(), L"Click here to select a color");
            EXPECT_EQ(swatch->description(), L"Click here to select a color") << "for screen readers";
        }
    });
}

TEST_F(Highlights, WithHotspotsSelectedALevelSwatchCannotBeClicked) {
    open([&](frmDispMatches& form) {
        EXPECT_EQ(levelStates(form), sixOff);
        user.click(level(form, 2));
        EXPECT_THAT(stage->colourQuestions(), IsEmpty());
    });
}

TEST_F(Highlights, TextMarksEnableTheSixLevelsAndDisableTheHotspotSwatchAndItsLabel) {
    open([&](frmDispMatches& form) {
        EXPECT_TRUE(form.lblSelHotspotColor.enabled());
        EXPECT_TRUE(form.lblHotspotColor.enabled());
        user.click(textMarks(form));
        EXPECT_EQ(levelStates(form), sixOn);
        EXPECT_FALSE(form.lblSelHotspotColor.enabled());
        EXPECT_FALSE(form.lblHotspotColor.enabled());
        EXPECT_TRUE(form.chkKeepHighlights.enabled());
        user.click(hotspots(form));
        EXPECT_EQ(levelStates(form), sixOff);
        EXPECT_TRUE(form.lblSelHotspotColor.enabled());
    });
}

TEST_F(Highlights, WithNeitherOptionStoredNoneIsSelectedWithBothTheSecondAndOkStoresTextMarks) {
    for (const bool both : {false, true}) {
        settings.DisplayHotSpots = settings.DisplayTextMarks = both;
        open([&](frmDispMatches& form) {
            EXPECT_FALSE(hotspots(form).selected());
            EXPECT_EQ(textMarks(form).selected(), both);
            EXPECT_EQ(levelStates(form), sixOn);
            EXPECT_EQ(form.lblSelHotspotColor.enabled(), !both);
            user.click(form.cmdOk);
        });
        EXPECT_FALSE(settings.DisplayHotSpots);
        EXPECT_TRUE(settings.DisplayTextMarks);
        EXPECT_EQ(application.flags.dialogChanged, both) << "hotspots were off before and after";
    }
}

TEST_F(Highlights, TheChooserStartsOnTheSwatchesColourAndBearsTheLevelsCaption) {
    open([&](frmDispMatches& form) {
        stage->answerColours({0x112233, std::nullopt, std::nullopt});
        user.click(form.lblSelHotspotColor);
        EXPECT_EQ(form.lblSelHotspotColor.colour(), 0x112233);
        user.click(textMarks(form));
        user.click(level(form, 0));
        user.click(level(form, 4));
    });
    EXPECT_THAT(stage->colourQuestions(), ElementsAre(Stage::ColourQuestion{0x00FFFF, L""},
                                                      Stage::ColourQuestion{0x00FF00, L"Best match"},
                                                      Stage::ColourQuestion{0xFF00FF, L"Level 4"}));
}

TEST_F(Highlights, ACancelledChooserAndTheSameColourLeaveTheSwatchAndDoNotMarkThePageChanged) {
    for (const std::optional<ui::Colour> answer : {std::optional<ui::Colour>(), std::optional(0x00FFFF)}) {
        open([&](frmDispMatches& form) {
            stage->answerColours({answer});
            user.click(form.lblSelHotspotColor);
            EXPECT_EQ(form.lblSelHotspotColor.colour(), 0x00FFFF);
            user.click(form.cmdOk);
        });
        EXPECT_FALSE(application.flags.dialogChanged);
    }
}

TEST_F(Highlights, AFailingChooserLeavesTheSwatchAndShowsAndLogsNothing) {
    open([&](frmDispMatches& form) {
        calls.failCallsWith("screen colour");
        user.click(form.lblSelHotspotColor);
        EXPECT_EQ(form.lblSelHotspotColor.colour(), 0x00FFFF);
    });
    EXPECT_THAT(stage->messages(), IsEmpty());
    EXPECT_THAT(calls.linesWith("files"), IsEmpty());
}

TEST_F(Highlights, AColourWithItsTopByteSetIsKeptAsItIs) {
    settings.ColorHotSpots = static_cast<std::int32_t>(0xFF00FF00U);
    open([&](frmDispMatches& form) { user.click(form.cmdOk); });
    EXPECT_EQ(settings.ColorHotSpots, static_cast<std::int32_t>(0xFF00FF00U));
    EXPECT_FALSE(application.flags.dialogChanged);
}

TEST_F(Highlights, TheRegistryIsNotTouched) {
    open([&](frmDispMatches& form) {
        user.click(form.chkKeepHighlights);
        user.click(form.cmdOk);
    });
    EXPECT_THAT(calls.linesWith("registry"), IsEmpty());
}

// --- Keyboard ---------------------------------------------------------------------------------------------

TEST_F(Highlights, EnterReachesOkAndEscAndTheCloseBoxCancel) {
    expectEndings<frmDispMatches>(
        &SettingsScene::openHighlights,
        [](frmDispMatches& form) -> ui::CheckBox& { return form.chkKeepHighlights; },
        &Settings::KeepHighlights);
}

TEST_F(Highlights, ASwatchIsReachedByTabAndPressedByTheSpaceBar) {
    open([&](frmDispMatches& form) {
        stage->answerColours({0x010203});
        hotspots(form).setFocus();
        user.press(form.window(), key::tab);
        EXPECT_TRUE(form.lblSelHotspotColor.hasFocus());
        user.press(form.window(), key::space);
        EXPECT_EQ(form.lblSelHotspotColor.colour(), 0x010203);
    });
}

TEST_F(Highlights, AccessKeysPressTheOptionsAndTheCheckBox) {
    open([&](frmDispMatches& form) {
        pressAlt(form, 'M');
        EXPECT_TRUE(textMarks(form).selected());
        pressAlt(form, 'K');
        EXPECT_TRUE(form.chkKeepHighlights.checked());
        pressAlt(form, 'H');
        EXPECT_TRUE(hotspots(form).selected());
    });
}

// --- Every setting: stored before x what the user does x OK or Cancel -------------------------------------

void showTextMarks(Settings& settings, bool marks) {
    settings.DisplayHotSpots = !marks;
    settings.DisplayTextMarks = marks;
}

std::vector<Before> highlightsBefore() {
    return {
        {"Defaults", [](Settings&) {}},
        {"TextMarks", [](Settings& settings) { showTextMarks(settings, true); }},
        {"KeptHighlights", [](Settings& settings) { settings.KeepHighlights = true; }},
        {"OtherColours",
         [](Settings& settings) {
             settings.ColorHotSpots = 0x123456;
             settings.Penalty0 = settings.Penalty5 = 1;
             settings.Penalty1 = settings.Penalty4 = 2;
         }},
    };
}

/// The colour that the user picks.
constexpr ui::Colour PICKED = 0xABCDEF;

Deed<frmDispMatches> levelPicked(const char* name, std::size_t level, std::int32_t Settings::*setting) {
    return {name,
            [level](User& user, frmDispMatches& form) {
                user.click(form.optDisplayMatches[1]);
                user.click(form.lblPenalty[level]);
            },
            [setting](Settings& settings) {
                showTextMarks(settings, true);
                settings.*setting = PICKED;
            }};
}

std::vector<Deed<frmDispMatches>> highlightDeeds() {
    const auto clickOther = [](User& user, frmDispMatches& form) {
        user.click(form.optDisplayMatches[form.optDisplayMatches[0].get().selected() ? 1 : 0]);
    };
    return {
        {"Nothing", [](User&, frmDispMatches&) {}, [](Settings&) {}},
        {"OtherOption", clickOther,
         [](Settings& settings) { showTextMarks(settings, !settings.DisplayTextMarks); }},
        {"ThereAndBack",
         [clickOther](User& user, frmDispMatches& form) {
             clickOther(user, form);
             clickOther(user, form);
         },
         [](Settings&) {}},
        {"Keep", [](User& user, frmDispMatches& form) { user.click(form.chkKeepHighlights); },
         [](Settings& settings) { settings.KeepHighlights = !settings.KeepHighlights; }},
        {"HotspotColour",
         [](User& user, frmDispMatches& form) {
             user.click(form.optDisplayMatches[0]);
             user.click(form.lblSelHotspotColor);
         },
         [](Settings& settings) {
             showTextMarks(settings, false);
             settings.ColorHotSpots = PICKED;
         }},
        levelPicked("Level0", 0, &Settings::Penalty0),
        levelPicked("Level1", 1, &Settings::Penalty1),
        levelPicked("Level2", 2, &Settings::Penalty2),
        levelPicked("Level3", 3, &Settings::Penalty3),
        levelPicked("Level4", 4, &Settings::Penalty4),
        levelPicked("Level5", 5, &Settings::Penalty5),
    };
}

class HighlightsTable : public Highlights, public testing::WithParamInterface<DialogRow<frmDispMatches>> {};

TEST_P(HighlightsTable, ForgetsOnCancelAndStoresOnOk) {
    const auto& deed = std::get<1>(GetParam());
    std::get<0>(GetParam()).prepare(settings);
    const Settings old = settings;
    stage->answerColours({PICKED});
    open(playRow(user, deed, false));
    EXPECT_EQ(settings, old);
    EXPECT_EQ(application.flags, ChangeFlags());

    Settings expected = old;
    deed.result(expected);
    stage->answerColours({PICKED});
    open([&](frmDispMatches& form) {
        deed.act(user, form);
        EXPECT_EQ(settings, old) << "nothing is stored before OK";
        user.click(form.cmdOk);
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_EQ(settings, expected);
    EXPECT_EQ(application.flags, (ChangeFlags{expected != old, false, false}));
}

INSTANTIATE_TEST_SUITE_P(All, HighlightsTable, everyRow(highlightsBefore(), highlightDeeds()),
                         rowName<frmDispMatches>);

}  // namespace
}  // namespace tests
