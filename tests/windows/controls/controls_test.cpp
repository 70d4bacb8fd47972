// The real controls against what the vocabulary says of them.
#include <gmock/gmock.h>

#include "tests/stage/user.h"
#include "tests/windows/controls/canvas.h"
#include "tests/windows/controls/test_form.h"
#include "ui/contrast.h"
#include "windows/controls/swatch.h"

namespace tests {
namespace {

using testing::ElementsAre;

// --- Option -----------------------------------------------------------------------------------------------

class OptionTest : public ControlsTest {
protected:
    static ui::OptionButton& option(TestForm& form, int identifier) {
        return form.control<ui::OptionButton>(identifier);
    }
    void note(TestForm& form) {
        for (int identifier : {IDC_testOption_0, IDC_testOption_1, IDC_testOption_2, IDC_testOtherOption_0,
                               IDC_testOtherOption_1})
            option(form, identifier).onClick = [this, identifier] { clicked.push_back(identifier); };
    }
    std::vector<int> clicked;
};

TEST_F(OptionTest, OpeningTheDialogSelectsNoOption) {
    inDialog(IDD_testDialog, [&](TestForm& form) {
        note(form);
        option(form, IDC_testOption_0).setFocus();
        deliverMessages();
        EXPECT_TRUE(option(form, IDC_testOption_0).hasFocus());
        EXPECT_FALSE(option(form, IDC_testOption_0).selected());
        EXPECT_THAT(clicked, ElementsAre());
    });
}

TEST_F(OptionTest, SelectingRaisesTheClickOnceAndDeselectsItsGroupOnly) {
    inDialog(IDD_testDialog, [&](TestForm& form) {
        note(form);
        option(form, IDC_testOtherOption_1).setSelected(true);
        option(form, IDC_testOption_0).setSelected(true);
        option(form, IDC_testOption_0).setSelected(true);
        option(form, IDC_testOption_1).setSelected(true);
        EXPECT_THAT(clicked, ElementsAre(IDC_testOtherOption_1, IDC_testOption_0, IDC_testOption_1));
        EXPECT_FALSE(option(form, IDC_testOption_0).selected());
        EXPECT_TRUE(option(form, IDC_testOption_1).selected());
        EXPECT_TRUE(option(form, IDC_testOtherOption_1).selected());
    });
}

TEST_F(OptionTest, SelectingDeselectsDisabledMembersOfTheGroupToo) {
    inDialog(IDD_testDialog, [&](TestForm& form) {
        option(form, IDC_testOption_2).setSelected(true);
        option(form, IDC_testOption_0).setSelected(true);
        EXPECT_FALSE(option(form, IDC_testOption_2).selected());
    });
}

TEST_F(OptionTest, DeselectingRaisesNothing) {
    inDialog(IDD_testDialog, [&](TestForm& form) {
        option(form, IDC_testOption_0).setSelected(true);
        note(form);
        option(form, IDC_testOption_0).setSelected(false);
        EXPECT_FALSE(option(form, IDC_testOption_0).selected());
        EXPECT_THAT(clicked, ElementsAre());
    });
}

TEST_F(OptionTest, ClickingTheSelectedOptionAgainRaisesNothing) {
    inDialog(IDD_testDialog, [&](TestForm& form) {
        note(form);
        user.click(option(form, IDC_testOption_1));
        user.click(option(form, IDC_testOption_1));
        EXPECT_THAT(clicked, ElementsAre(IDC_testOption_1));
        user.click(option(form, IDC_testOption_0));
        user.click(option(form, IDC_testOption_1));
        EXPECT_THAT(clicked, ElementsAre(IDC_testOption_1, IDC_testOption_0, IDC_testOption_1));
    });
}

TEST_F(OptionTest, ArrowsSelectTheNextEnabledOption) {
    inDialog(IDD_testDialog, [&](TestForm& form) {
        option(form, IDC_testOption_0).setSelected(true);
        note(form);
        option(form, IDC_testOption_0).setFocus();
        user.press(form.window(), key::down, 0);
        EXPECT_TRUE(option(form, IDC_testOption_1).selected());
        user.press(form.window(), key::down, 0);
        EXPECT_TRUE(option(form, IDC_testOption_0).selected());
        EXPECT_THAT(clicked, ElementsAre(IDC_testOption_1, IDC_testOption_0));
    });
}

// --- Check box and button ---------------------------------------------------------------------------------

TEST_F(ControlsTest, ACheckBoxRaisesItsClickWhereItsStateChanges) {
    withControl<ui::CheckBox>(IDC_testCheck, [&](TestForm& form, ui::CheckBox& check) {
        int clicks = 0;
        check.onClick = [&] { ++clicks; };
        check.setChecked(true);
        check.setChecked(true);
        EXPECT_EQ(clicks, 1);
        user.click(check);
        EXPECT_FALSE(check.checked());
        EXPECT_EQ(clicks, 2);
        user.press(form.window(), 'C', ui::modifier::alt);
        EXPECT_TRUE(check.checked());
        EXPECT_EQ(clicks, 3);
        user.press(form.window(), key::space, 0);
        EXPECT_FALSE(check.checked());
        EXPECT_EQ(clicks, 4);
    });
}

TEST_F(ControlsTest, EnterPressesTheDefaultButtonOnlyWhileItIsEnabled) {
    withControl<ui::Button>(IDOK, [&](TestForm& form, ui::Button& ok) {
        int clicks = 0;
        ok.onClick = [&] { ++clicks; };
        form.control<ui::TextBox>(IDC_testText).setFocus();
        user.press(form.window(), key::enter, 0);
        EXPECT_EQ(clicks, 1);
        ok.setEnabled(false);
        user.press(form.window(), key::enter, 0);
        EXPECT_EQ(clicks, 1);
    });
}

TEST_F(ControlsTest, EnterPressesTheButtonThatHasTheFocus) {
    inDialog(IDD_testDialog, [&](TestForm& form) {
        int clicks = 0;
        form.control<ui::Button>(IDC_testButton).onClick = [&] { ++clicks; };
        for (int steps = 0; steps < 20 && !form.control<ui::Button>(IDC_testButton).hasFocus(); ++steps)
            user.press(form.window(), key::tab, 0);
        ASSERT_TRUE(form.control<ui::Button>(IDC_testButton).hasFocus());
        user.press(form.window(), key::enter, 0);
        EXPECT_EQ(clicks, 1);
    });
}

/// The tooltip control of a window; null where it has none.
HWND tooltipsOf(HWND owner) {
    for (HWND tips = nullptr; (tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr;)
        if (GetWindow(tips, GW_OWNER) == owner) return tips;
    return nullptr;
}

std::wstring tipFor(HWND tips, HWND owner, HWND control) {
    wchar_t text[80] = L"";
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = owner;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = text;
    SendMessageW(tips, TTM_GETTEXTW, 80, reinterpret_cast<LPARAM>(&tool));
    return text;
}

TEST_F(ControlsTest, ATipIsThereAsSoonAsTheMouseComesToItsControl) {
    withControl<ui::Button>(IDC_testButton, [&](TestForm& form, ui::Button& button) {
        button.setTooltip(L"First");
        EXPECT_EQ(tooltipsOf(form.handle()), nullptr);
        user.moveMouse(button, 2, 2);
        const HWND tips = tooltipsOf(form.handle());
        ASSERT_NE(tips, nullptr);
        EXPECT_EQ(tipFor(tips, form.handle(), windowOf(button)), L"First");
        button.setTooltip(L"Second");
        EXPECT_EQ(tipFor(tips, form.handle(), windowOf(button)), L"Second");
    });
}

TEST_F(ControlsTest, APictureButtonBearsItsTooltipAsWindowTextAndKeepsItsEmptyCaption) {
    withControl<ui::Button>(IDC_testPictureButton, [&](TestForm&, ui::Button& button) {
        button.setTooltip(L"Removes the line");
        EXPECT_EQ(windowTextOf(windowOf(button)), L"Removes the line");
        EXPECT_EQ(button.text(), L"");
        EXPECT_EQ(button.tooltip(), L"Removes the line");
    });
}

TEST_F(ControlsTest, APageWhoseLastStopIsDisabledGivesTheFocusToItsHost) {
    const HWND ok = makeWindow(L"Button", WS_CHILD | WS_VISIBLE | WS_TABSTOP, {50, 20}, host.window());
    pageText.setEnabled(false);
    pageButton.setFocus();
    ASSERT_TRUE(pageButton.hasFocus());
    pageButton.setEnabled(false);
    EXPECT_EQ(GetFocus(), ok);
}

TEST_F(ControlsTest, ADisabledControlGivesTheFocusAway) {
    withControl<ui::Button>(IDC_testButton, [&](TestForm&, ui::Button& button) {
        button.setFocus();
        ASSERT_TRUE(button.hasFocus());
        button.setEnabled(false);
        EXPECT_FALSE(button.hasFocus());
        EXPECT_NE(GetFocus(), nullptr);
        button.setFocus();
        EXPECT_FALSE(button.hasFocus());
    });
}

TEST_F(ControlsTest, AFocusThatIsSetWhileTheDialogLoadsIsTheFirstOne) {
    TestForm form(screen, IDD_testDialog, page.get());
    auto& button = form.control<ui::Button>(IDC_testButton);
    int gained = 0;
    button.onGotFocus = [&] { ++gained; };
    form.onLoad = [&] { button.setFocus(); };
    screen.onModal = [&](ui::Form&) {
        EXPECT_TRUE(button.hasFocus());
        EXPECT_EQ(gained, 1);
        form.close();
    };
    form.Show();
}

// --- Swatch -----------------------------------------------------------------------------------------------

TEST_F(ControlsTest, ASwatchAnswersExactlyTheColourThatWasSet) {
    withControl<ui::Swatch>(IDC_testSwatch, [&](TestForm&, ui::Swatch& swatch) {
        for (const ui::Colour colour : {0x00FFFF, 0x7F123456, -1, static_cast<ui::Colour>(0x80000005)}) {
            swatch.setColour(colour);
            EXPECT_EQ(swatch.colour(), colour);
        }
    });
}

TEST_F(ControlsTest, ASwatchIsPressedByMouseAndBySpace) {
    withControl<ui::Swatch>(IDC_testSwatch, [&](TestForm& form, ui::Swatch& swatch) {
        int clicks = 0;
        swatch.onClick = [&] { ++clicks; };
        user.click(swatch);
        EXPECT_EQ(clicks, 1);
        EXPECT_TRUE(swatch.hasFocus());
        user.press(form.window(), key::space, 0);
        EXPECT_EQ(clicks, 2);
        swatch.setEnabled(false);
        user.click(swatch);
        EXPECT_EQ(clicks, 2);
    });
}

TEST_F(ControlsTest, ASwatchWithoutCaptionBearsItsTooltipAsWindowText) {
    withControl<ui::Swatch>(IDC_testBareSwatch, [&](TestForm& form, ui::Swatch& swatch) {
        swatch.setTooltip(L"Click here");
        EXPECT_EQ(windowTextOf(windowOf(swatch)), L"Click here");
        EXPECT_EQ(swatch.text(), L"");
        EXPECT_EQ(form.control<ui::Swatch>(IDC_testSwatch).text(), L"Colour");
    });
}

/// What a swatch draws in a canvas of its own size.
class Drawing : public Canvas {
public:
    Drawing(win::Swatch& swatch, UINT state) : Canvas(WIDTH, HEIGHT) {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_BUTTON;
        item.itemState = state;
        item.hwndItem = swatch.ControlBase::window();
        item.hDC = context;
        item.rcItem = {0, 0, WIDTH, HEIGHT};
        swatch.onDrawItem(item);
    }
    [[nodiscard]] COLORREF pixel(int x, int y) const { return GetPixel(context, x, y); }
    [[nodiscard]] int count(COLORREF colour) const {
        int pixels = 0;
        for (int y = 4; y < HEIGHT - 4; ++y)
            for (int x = 4; x < WIDTH - 4; ++x) pixels += pixel(x, y) == colour;
        return pixels;
    }
    static constexpr int WIDTH = 90;
    static constexpr int HEIGHT = 26;
};

class SwatchTest : public ControlsTest {
protected:
    void withSwatch(const std::function<void(win::Swatch&)>& script) {
        withControl<ui::Swatch>(IDC_testSwatch, [&](TestForm&, ui::Swatch& swatch) {
            script(dynamic_cast<win::Swatch&>(swatch));
        });
    }
};

TEST_F(SwatchTest, ASwatchPaintsTheLowerThreeBytesOfItsColourInsideAnEdge) {
    withSwatch([](win::Swatch& swatch) {
        swatch.setColour(0x7F0000FF);
        const Drawing drawing(swatch, 0);
        EXPECT_EQ(drawing.pixel(3, 3), RGB(255, 0, 0));
        EXPECT_EQ(drawing.pixel(0, 0), GetSysColor(COLOR_WINDOWTEXT));
    });
}

TEST_F(SwatchTest, ASwatchWritesItsCaptionInBlackOnBrightAndInWhiteOnDarkColours) {
    withSwatch([](win::Swatch& swatch) {
        for (const ui::Colour bright :
             {0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF00FF, 0x0000FF, 0xFFFFFF, 0x808080}) {
            swatch.setColour(bright);
            EXPECT_GT(Drawing(swatch, 0).count(RGB(0, 0, 0)), 20) << std::hex << bright;
        }
        for (const ui::Colour dark : {0xFF0000, 0x000000, 0x000080, 0x404040}) {
            swatch.setColour(dark);
            EXPECT_GT(Drawing(swatch, 0).count(RGB(255, 255, 255)), 20) << std::hex << dark;
        }
    });
}

TEST_F(SwatchTest, ADisabledSwatchKeepsItsColourAndTellsByFrameAndCaption) {
    withSwatch([](win::Swatch& swatch) {
        for (const ui::Colour colour : {0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000, 0xFF00FF, 0x0000FF, 0xFFFFFF,
                                        0x000000, 0x808080, 0x767676, 0x7F0000FF}) {
            SCOPED_TRACE(colour);
            swatch.setColour(colour);
            const auto ground = static_cast<COLORREF>(colour & 0xFFFFFF);
            const auto caption = static_cast<COLORREF>(ui::disabledCaptionOn(colour));
            const Drawing drawing(swatch, ODS_DISABLED);
            EXPECT_GT(drawing.count(ground), Drawing::WIDTH * Drawing::HEIGHT / 2);
            EXPECT_GT(drawing.count(caption), 20) << "readable";
            EXPECT_EQ(drawing.pixel(3, 3), ground);
            EXPECT_EQ(drawing.pixel(0, 0), GetSysColor(COLOR_GRAYTEXT));
            EXPECT_EQ(Drawing(swatch, 0).count(caption), 0) << "enabled it is another";
        }
    });
}

TEST_F(SwatchTest, ASelectedAndAFocusedSwatchLookDifferent) {
    withSwatch([](win::Swatch& swatch) {
        swatch.setColour(0x00FF00);
        const COLORREF green = RGB(0, 255, 0);
        const int plain = Drawing(swatch, 0).count(green);
        EXPECT_LT(Drawing(swatch, ODS_FOCUS).count(green), plain);
        EXPECT_EQ(Drawing(swatch, ODS_FOCUS | ODS_NOFOCUSRECT).count(green), plain);
        EXPECT_EQ(Drawing(swatch, 0).pixel(1, 1), GetSysColor(COLOR_BTNFACE));
        EXPECT_EQ(Drawing(swatch, ODS_SELECTED).pixel(1, 1), green);
    });
}

// --- Text box ---------------------------------------------------------------------------------------------

TEST_F(ControlsTest, ATextBoxRaisesItsChangeOncePerText) {
    inDialog(IDD_testDialog, [&](TestForm& form) {
        for (const int identifier : {IDC_testText, IDC_testNotes}) {
            auto& box = form.control<ui::TextBox>(identifier);
            std::vector<std::wstring> texts;
            box.onChange = [&] { texts.push_back(box.text()); };
            box.setText(L"one");
            box.setText(L"one");
            box.select(3, 0);
            user.type(box, L"2\u00FC");
            EXPECT_THAT(texts, ElementsAre(L"one", L"one2", L"one2\u00FC"));
            box.onChange = nullptr;
        }
    });
}

TEST_F(ControlsTest, AHandlerMayCorrectTheTextWithinTheChange) {
    withControl<ui::TextBox>(IDC_testText, [&](TestForm&, ui::TextBox& box) {
        int changes = 0;
        box.onChange = [&] {
            ++changes;
            if (box.text() == L"x") box.setText(L"corrected");
        };
        user.type(box, L"x");
        EXPECT_EQ(box.text(), L"corrected");
        EXPECT_EQ(changes, 2);
    });
}

TEST_F(ControlsTest, ATextBoxTellsAndSetsItsSelection) {
    withControl<ui::TextBox>(IDC_testText, [&](TestForm&, ui::TextBox& box) {
        box.setText(L"abcdef");
        box.select(2, 3);
        EXPECT_EQ(box.selectionStart(), 2);
        EXPECT_EQ(box.selectionLength(), 3);
        user.type(box, L"-");
        EXPECT_EQ(box.text(), L"ab-f");
        EXPECT_EQ(box.selectionStart(), 3);
    });
}

// --- Combo box --------------------------------------------------------------------------------------------

TEST_F(ControlsTest, AComboBoxRaisesItsClickForTheUsersChoiceAlone) {
    withControl<ui::ComboBox>(IDC_testCombo, [&](TestForm& form, ui::ComboBox& combo) {
        for (const wchar_t* item : {L"one", L"two", L"three"}) combo.add(item);
        int clicks = 0;
        combo.onClick = [&] { ++clicks; };
        EXPECT_EQ(combo.selectedIndex(), -1);
        combo.select(1);
        EXPECT_EQ(clicks, 0);
        user.choose(combo, 2);
        EXPECT_EQ(combo.selectedIndex(), 2);
        EXPECT_EQ(clicks, 1);
        EXPECT_FALSE(combo.droppedDown());
        user.press(form.window(), key::up, 0);
        EXPECT_EQ(combo.selectedIndex(), 1);
        EXPECT_EQ(clicks, 2);
        EXPECT_EQ(combo.item(1), L"two");
        EXPECT_EQ(combo.item(7), L"");
        combo.select(3);
        EXPECT_EQ(combo.selectedIndex(), -1);
        combo.clear();
        EXPECT_EQ(combo.count(), 0);
    });
}

TEST_F(ControlsTest, AComboBoxThatIsMovedHasItsHeightAndAListThatDrops) {
    withControl<ui::ComboBox>(IDC_testCombo, [&](TestForm&, ui::ComboBox& combo) {
        const ui::Rect before = combo.bounds();
        combo.move({5, 5, before.width + 10, before.height});
        EXPECT_EQ(combo.bounds(), (ui::Rect{5, 5, before.width + 10, before.height}));
    });
}

// --- Input from other programs, and input that a handler takes ---------------------------------------------

TEST_F(ControlsTest, AHiddenButtonHearsKeysAndMouseMovesThatOtherProgramsSend) {
    auto& button = page->control<ui::Button>(IDC_testHiddenButton);
    std::vector<int> heard;
    button.onKeyDown = [&](const ui::KeyEvent& event) { heard.push_back(event.key); };
    button.onMouseMove = [&](const ui::MouseEvent& event) { heard.push_back(1000 + event.x); };
    const auto handle = reinterpret_cast<HWND>(button.handle());
    SendMessageA(handle, WM_KEYDOWN, 20, 0);
    SendMessageA(handle, WM_MOUSEMOVE, 0, MAKELPARAM(21, 3));
    PostMessageA(handle, WM_KEYDOWN, 21, 0);
    PostMessageA(handle, WM_MOUSEMOVE, 0, MAKELPARAM(-2, 3));
    deliverMessages();
    EXPECT_THAT(heard, ElementsAre(20, 1021, 21, 998));
}

TEST_F(ControlsTest, AKeyThatAHandlerTakesDoesNotReachTheControl) {
    withControl<ui::TextBox>(IDC_testText, [&](TestForm& form, ui::TextBox& box) {
        box.setFocus();
        box.onKeyDown = [](ui::KeyEvent& event) {
            if (event.key == 'A') event.key = 0;
        };
        user.press(form.window(), 'A', 0);
        user.press(form.window(), 'B', 0);
        EXPECT_EQ(box.text(), L"b");
    });
}

TEST_F(ControlsTest, APressThatAHandlerTakesDoesNotReachTheControl) {
    withControl<ui::Button>(IDC_testButton, [&](TestForm&, ui::Button& button) {
        int clicks = 0;
        bool take = true;
        button.onClick = [&] { ++clicks; };
        button.onMouseDown = [&](ui::MouseEvent& event) {
            EXPECT_EQ(event.button, 1);
            if (take) event.button = event.modifiers = 0;
        };
        user.click(button);
        EXPECT_EQ(clicks, 0);
        take = false;
        user.click(button);
        EXPECT_EQ(clicks, 1);
    });
}

TEST_F(ControlsTest, ModifierKeysAreToldWithAKey) {
    withControl<ui::TextBox>(IDC_testText, [&](TestForm& form, ui::TextBox& box) {
        int modifiers = -1;
        box.onKeyDown = [&](const ui::KeyEvent& event) { modifiers = event.modifiers; };
        box.setFocus();
        user.press(form.window(), key::home, ui::modifier::shift + ui::modifier::control);
        EXPECT_EQ(modifiers, ui::modifier::shift + ui::modifier::control);
    });
}

TEST_F(ControlsTest, AHandlerThatThrowsHarmsNobody) {
    withControl<ui::Button>(IDC_testButton, [&](TestForm& form, ui::Button& button) {
        button.onMouseDown = [](ui::MouseEvent&) { throw std::runtime_error("fails"); };
        button.onClick = [] { throw 7; };
        user.click(button);
        EXPECT_TRUE(form.window().isOpen());
    });
}

TEST_F(ControlsTest, AHandlerMayReplaceItself) {
    withControl<ui::Button>(IDC_testButton, [&](TestForm&, ui::Button& button) {
        int first = 0;
        int second = 0;
        button.onClick = [&, filler = std::wstring(100, L'x')] {
            button.onClick = [&] { ++second; };
            if (filler.size() == 100) ++first;
        };
        user.click(button);
        user.click(button);
        EXPECT_EQ(first, 1);
        EXPECT_EQ(second, 1);
    });
}

// --- Binding, pictures, timers ----------------------------------------------------------------------------

TEST_F(ControlsTest, AControlIsTheSameObjectAtEachCall) {
    EXPECT_EQ(&page->control<ui::Button>(IDC_testPageButton), &page->control<ui::Button>(IDC_testPageButton));
}

TEST_F(ControlsTest, AControlThatTheTemplateLacksIsALogicError) {
    EXPECT_THROW(static_cast<void>(page->control<ui::Button>(4711)), std::logic_error);
}

TEST_F(ControlsTest, APictureIsLoadedAnewInTheSizeItIsMovedTo) {
    withControl<ui::Picture>(IDC_testPicture, [&](TestForm&, ui::Picture& picture) {
        const auto icon = [&] { return SendMessageW(windowOf(picture), STM_GETICON, 0, 0); };
        picture.move({0, 0, 32, 32});
        const LRESULT small = icon();
        EXPECT_NE(small, 0);
        picture.move({10, 10, 32, 32});
        EXPECT_EQ(icon(), small);
        picture.move({10, 10, 48, 48});
        EXPECT_NE(icon(), small);
        EXPECT_EQ(picture.bounds(), (ui::Rect{10, 10, 48, 48}));
    });
}

TEST_F(ControlsTest, ATimerTicksFromItsStartUntilItStops) {
    const auto timer = page->createTimer();
    int ticks = 0;
    timer->onTimer = [&] { ++ticks; };
    user.wait(60);
    EXPECT_EQ(ticks, 0);
    timer->start(50);
    user.wait(60);
    EXPECT_EQ(ticks, 1);
    timer->stop();
    user.wait(80);
    EXPECT_EQ(ticks, 1);
    timer->start(50);
    user.wait(60);
    EXPECT_EQ(ticks, 2);
}

TEST_F(ControlsTest, ATickThatWasOnItsWayWhenTheTimerStoppedIsNone) {
    const auto timer = page->createTimer();
    int ticks = 0;
    timer->onTimer = [&] { ++ticks; };
    timer->start(50);
    timer->stop();
    SendMessageW(reinterpret_cast<HWND>(page->handle()), WM_TIMER, 1, 0);
    EXPECT_EQ(ticks, 0);
    timer->start(50);
    SendMessageW(reinterpret_cast<HWND>(page->handle()), WM_TIMER, 1, 0);
    EXPECT_EQ(ticks, 1);
}

TEST_F(ControlsTest, ATimerMayEndInItsOwnTickAndMayOutliveItsWindow) {
    auto timer = page->createTimer();
    auto survivor = page->createTimer();
    timer->onTimer = [&] { timer.reset(); };
    timer->start(20);
    user.wait(60);
    EXPECT_EQ(timer, nullptr);
    page.reset();
    survivor->start(20);
    user.wait(30);
}

}  // namespace
}  // namespace tests
