// Headless windows keep the rules of real ones: focus, the dialog's keys, option groups, modal windows.
#include "tests/headless/window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/headless/user.h"
#include "tests/support/text.h"
#include "ui/controls.h"

namespace headless {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace key = tests::key;

enum Id { LABEL = 10, EDIT, FIRST, SECOND, THIRD, CHECK, COLOUR, LIST, OTHER, OK = 1, CANCEL = 2 };

TemplateControl make(const char* windowClass, int id, const wchar_t* caption, std::set<std::string> styles) {
    styles.insert("WS_VISIBLE");
    return {windowClass, "control", id, caption, {0, id, 10, 10}, std::move(styles)};
}

const DialogTemplate& testTemplate() {
    static const DialogTemplate dialog{
        "IDD_test",
        100,
        "",
        L"Test",
        {200, 100},
        {"WS_CAPTION"},
        {
            make("Static", LABEL, L"&Name:", {"WS_GROUP"}),
            make("Edit", EDIT, L"", {"WS_TABSTOP"}),
            make("Button", FIRST, L"&First", {"BS_AUTORADIOBUTTON", "WS_GROUP", "WS_TABSTOP"}),
            make("Button", SECOND, L"&Second", {"BS_AUTORADIOBUTTON", "WS_TABSTOP"}),
            make("Button", THIRD, L"&Third", {"BS_AUTORADIOBUTTON", "WS_TABSTOP"}),
            make("Button", CHECK, L"&Check", {"BS_AUTOCHECKBOX", "WS_GROUP", "WS_TABSTOP"}),
            make("Button", COLOUR, L"Colour", {"BS_OWNERDRAW", "WS_TABSTOP"}),
            make("ComboBox", LIST, L"", {"WS_TABSTOP"}),
            make("Button", OTHER, L"&Other", {"WS_GROUP", "WS_TABSTOP"}),
            make("Button", OK, L"OK", {"BS_DEFPUSHBUTTON", "WS_GROUP", "WS_TABSTOP"}),
            make("Button", CANCEL, L"Cancel", {"WS_TABSTOP"}),
        }};
    return dialog;
}

class HeadlessWindow : public testing::Test {
protected:
    HeadlessWindow() { window.show({300, 200}); }

    void note(ui::Button& button, const char* name) {
        button.onClick = [this, name] { events.emplace_back(name); };
    }
    void alt(char letter) { user.press(window, letter, ui::modifier::alt); }

    EventLoop loop;
    Screen screen{loop};
    Window window{screen, testTemplate(), nullptr};
    User user{loop};
    ui::TextBox& edit = window.control<ui::TextBox>(EDIT);
    ui::OptionButton& first = window.control<ui::OptionButton>(FIRST);
    ui::OptionButton& second = window.control<ui::OptionButton>(SECOND);
    ui::OptionButton& third = window.control<ui::OptionButton>(THIRD);
    ui::CheckBox& check = window.control<ui::CheckBox>(CHECK);
    ui::Swatch& colour = window.control<ui::Swatch>(COLOUR);
    ui::ComboBox& list = window.control<ui::ComboBox>(LIST);
    ui::Button& other = window.control<ui::Button>(OTHER);
    ui::Button& ok = window.control<ui::Button>(OK);
    ui::Button& cancel = window.control<ui::Button>(CANCEL);
    std::vector<std::string> events;
};

TEST_F(HeadlessWindow, TabGoesThroughTheStopsAndAroundTheEnd) {
    second.setSelected(true);
    edit.setFocus();
    const std::vector<ui::Control*> order{&second, &check, &colour, &list, &other, &ok, &cancel, &edit};
    for (const ui::Control* control : order) {
        user.press(window, key::tab, 0);
        EXPECT_TRUE(control->hasFocus()) << tests::narrow(control->text());
    }
    user.press(window, key::tab, ui::modifier::shift);
    EXPECT_TRUE(cancel.hasFocus());
}

TEST_F(HeadlessWindow, TabPassesByWhatIsDisabledOrHidden) {
    for (ui::OptionButton* option : {&first, &second, &third}) option->setEnabled(false);
    check.setVisible(false);
    edit.setFocus();
    user.press(window, key::tab, 0);
    EXPECT_TRUE(colour.hasFocus());
}

TEST_F(HeadlessWindow, ArrowsSelectWithinTheGroupOfOptions) {
    first.setSelected(true);
    first.setFocus();
    user.press(window, key::up, 0);
    EXPECT_TRUE(third.selected());
    EXPECT_TRUE(third.hasFocus());
    user.press(window, key::down, 0);
    EXPECT_TRUE(first.selected());
    EXPECT_FALSE(third.selected());
}

TEST_F(HeadlessWindow, SelectingAnOptionDeselectsTheOthersBeforeItsEvent) {
    first.setSelected(true);
    second.onClick = [&] { events.push_back(first.selected() ? "both" : "one"); };
    first.onClick = [&] { events.emplace_back("first"); };
    second.setSelected(true);
    second.setSelected(true);
    second.setSelected(false);
    EXPECT_THAT(events, ElementsAre("one"));
    EXPECT_FALSE(second.selected());
}

TEST_F(HeadlessWindow, EnterPressesTheDefaultButtonOrTheOneWithTheFocus) {
    note(ok, "ok");
    note(other, "other");
    edit.setFocus();
    user.press(window, key::enter, 0);
    check.setFocus();
    user.press(window, key::enter, 0);
    other.setFocus();
    user.press(window, key::enter, 0);
    ok.setEnabled(false);
    edit.setFocus();
    user.press(window, key::enter, 0);
    EXPECT_THAT(events, ElementsAre("ok", "ok", "other"));
    EXPECT_FALSE(check.checked());
}

TEST_F(HeadlessWindow, EscPressesTheCancelButton) {
    note(cancel, "cancel");
    edit.setFocus();
    user.press(window, key::escape, 0);
    EXPECT_THAT(events, ElementsAre("cancel"));
}

TEST_F(HeadlessWindow, SpacePressesWhatHasTheFocus) {
    note(other, "other");
    colour.onClick = [&] { events.emplace_back("colour"); };
    for (ui::Control* control : std::vector<ui::Control*>{&check, &colour, &other}) {
        control->setFocus();
        user.press(window, key::space, 0);
    }
    EXPECT_TRUE(check.checked());
    EXPECT_THAT(events, ElementsAre("colour", "other"));
}

TEST_F(HeadlessWindow, AccessKeysPressButtonsAndALabelsKeyLeadsToItsControl) {
    note(other, "other");
    edit.setText(L"text");
    alt('O');
    EXPECT_THAT(events, ElementsAre("other"));
    EXPECT_TRUE(other.hasFocus());
    alt('N');
    EXPECT_TRUE(edit.hasFocus());
    EXPECT_EQ(edit.selectionLength(), 4) << "reached by keyboard, the text is selected";
    alt('S');
    EXPECT_TRUE(second.selected());
    check.setEnabled(false);
    alt('C');
    EXPECT_FALSE(check.checked());
}

TEST_F(HeadlessWindow, ALetterIsAnAccessKeyWhereNothingIsTyped) {
    other.setFocus();
    user.press(window, 'C', 0);
    EXPECT_TRUE(check.checked());
    edit.setFocus();
    user.press(window, 'C', 0);
    EXPECT_TRUE(check.checked());
    EXPECT_EQ(edit.text(), L"c");
}

TEST_F(HeadlessWindow, TypingGoesToTheCaretInPlaceOfTheSelection) {
    edit.onChange = [&] { events.push_back(tests::narrow(edit.text())); };
    edit.setText(L"12");
    edit.select(1, 1);
    user.type(edit, L"34");
    user.press(window, key::home, 0);
    user.press(window, key::remove, 0);
    user.press(window, key::end, 0);
    user.type(edit, L"\b");
    EXPECT_THAT(events, ElementsAre("12", "13", "134", "34", "3"));
    edit.setText(L"3");
    EXPECT_EQ(events.size(), 5U) << "the same text is no change";
}

TEST_F(HeadlessWindow, WhatIsDisabledOrHiddenTakesNoInputAndNoFocus) {
    note(other, "other");
    other.setEnabled(false);
    edit.setVisible(false);
    user.click(other);
    user.type(edit, L"x");
    other.setFocus();
    edit.setFocus();
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(edit.text(), L"");
    EXPECT_FALSE(other.hasFocus());
    EXPECT_FALSE(edit.hasFocus());
}

TEST_F(HeadlessWindow, AControlLosesTheFocusWhenItIsDisabled) {
    other.setFocus();
    EXPECT_TRUE(other.hasFocus());
    other.setEnabled(false);
    EXPECT_FALSE(other.hasFocus());
}

TEST_F(HeadlessWindow, AMousePressThatItsHandlerTakesAwayDoesNotArrive) {
    note(other, "other");
    other.onMouseDown = [](ui::MouseEvent& event) { event.button = 0; };
    user.click(other);
    EXPECT_TRUE(events.empty());
    EXPECT_FALSE(other.hasFocus());
}

TEST_F(HeadlessWindow, AComboTellsTheUsersChoiceOnly) {
    list.add(L"one");
    list.add(L"two");
    list.onClick = [&] { events.push_back(tests::narrow(list.text())); };
    list.select(0);
    list.select(7);
    EXPECT_EQ(list.selectedIndex(), -1);
    user.choose(list, 1);
    user.press(window, key::up, 0);
    user.type(list, L"t");
    EXPECT_THAT(events, ElementsAre("two", "one", "two"));
}

TEST_F(HeadlessWindow, AControlIsHandedOutAsWhatItsTemplateSays) {
    EXPECT_THROW(static_cast<void>(window.control<ui::CheckBox>(OTHER)), std::logic_error);
    EXPECT_THROW(static_cast<void>(window.control<ui::Button>(99)), std::logic_error);
    EXPECT_EQ(&window.control<ui::Button>(OTHER), &other);
}

TEST_F(HeadlessWindow, HandlesAreOfTheirOwnAndNeverZero) {
    std::set<std::intptr_t> handles{window.handle()};
    for (const auto& item : window.items()) handles.insert(item->state.handle);
    EXPECT_EQ(handles.size(), window.items().size() + 1);
    EXPECT_FALSE(handles.contains(0));
}

TEST_F(HeadlessWindow, AnotherSizeRaisesResizeOnce) {
    window.onResize = [&] { events.emplace_back("resize"); };
    user.resize(window, {400, 300});
    user.resize(window, {400, 300});
    EXPECT_EQ(window.outerSize(), (ui::Size{400, 300}));
    EXPECT_THAT(events, ElementsAre("resize"));
}

TEST_F(HeadlessWindow, ATimerTicksFromItsStartUntilItStops) {
    const auto timer = window.createTimer();
    timer->onTimer = [&] { events.emplace_back("tick"); };
    user.wait(1000);
    EXPECT_TRUE(events.empty()) << "it has not started";
    timer->start(250);
    user.wait(249);
    EXPECT_TRUE(events.empty());
    user.wait(251);
    EXPECT_EQ(events.size(), 2U);
    user.wait(200);
    timer->start(250);
    user.wait(249);
    EXPECT_EQ(events.size(), 2U) << "its interval begins anew";
    timer->stop();
    user.wait(1000);
    EXPECT_EQ(events.size(), 2U);
}

/// A form without contents, to be shown over the window.
class BareForm : public ui::Form {
public:
    BareForm(Screen& screen, Window& owner)
        : Form(std::make_unique<Window>(screen, testTemplate(), &owner)) {}
    void close() { Unload(); }
    std::function<void()> onLoad;

protected:
    void Form_Load() override {
        if (onLoad) onLoad();
    }
};

TEST_F(HeadlessWindow, TheOwnerTakesNoInputWhileAFormLoads) {
    note(other, "other");
    other.setFocus();
    BareForm form(screen, window);
    form.onLoad = [&] {
        user.click(other);
        user.press(window, tests::key::space, 0);
        alt('O');
        EXPECT_THAT(events, IsEmpty());
        form.close();
    };
    screen.whenShown = [](ui::Form&) { FAIL() << "shown"; };
    form.Show();
    alt('O');
    EXPECT_THAT(events, ElementsAre("other"));
}

TEST_F(HeadlessWindow, TheHostThatClosesThePageWhileAFormLoadsEndsIt) {
    BareForm form(screen, window);
    form.onLoad = [&] {
        screen.closeAll();
        BareForm late(screen, window);
        late.onLoad = [] { FAIL() << "loaded"; };
        late.Show();
    };
    screen.whenShown = [](ui::Form&) { FAIL() << "shown"; };
    form.Show();
    EXPECT_FALSE(form.window().isOpen());
}

TEST_F(HeadlessWindow, TheOwnerTakesNoInputWhileADialogIsShown) {
    note(other, "other");
    other.onGotFocus = [&] { events.emplace_back("focus"); };
    other.setFocus();
    BareForm form(screen, window);
    screen.whenShown = [&](ui::Form& shown) {
        EXPECT_FALSE(window.acceptsInput());
        EXPECT_FALSE(other.hasFocus());
        EXPECT_TRUE(shown.window().control<ui::TextBox>(EDIT).hasFocus()) << "the first tab stop";
        user.click(other);
        form.close();
    };
    form.Show();
    EXPECT_THAT(events, ElementsAre("focus", "focus")) << "it comes back when the dialog has closed";
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(HeadlessWindow, ClosingAsksTheFormOnce) {
    BareForm form(screen, window);
    int asked = 0;
    form.window().onQueryUnload = [&] {
        ++asked;
        form.close();
    };
    screen.whenShown = [&](ui::Form&) {
        user.closeWindow(form.window());
        form.close();
    };
    form.Show();
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(form.window().isOpen());
}

TEST_F(HeadlessWindow, TheHostClosesTheInnermostDialogFirstAndNewOnesAreNotShown) {
    BareForm outer(screen, window);
    BareForm inner(screen, window);
    BareForm late(screen, window);
    outer.window().onQueryUnload = [&] { events.emplace_back("outer"); };
    inner.window().onQueryUnload = [&] { events.emplace_back("inner"); };
    late.window().onQueryUnload = [&] { events.emplace_back("late"); };
    bool innermost = false;
    screen.whenShown = [&](ui::Form&) {
        if (!std::exchange(innermost, true)) return inner.Show();
        screen.closeAll();
        late.Show();
    };
    outer.Show();
    EXPECT_THAT(events, ElementsAre("inner", "outer")) << "the late one is never shown";
    EXPECT_TRUE(window.acceptsInput());
}

TEST_F(HeadlessWindow, ADialogClosesWithItsOwner) {
    auto page = std::make_unique<Window>(screen, testTemplate(), nullptr);
    page->show({300, 200});
    BareForm form(screen, *page);
    screen.whenShown = [&](ui::Form&) {
        page.reset();
        EXPECT_FALSE(form.window().isOpen());
    };
    form.Show();
    EXPECT_TRUE(window.acceptsInput());
}

}  // namespace
}  // namespace headless
