// The flat look of the composer's combos, pixel by pixel, and which state a combo is in.
#include "report/flat_combo.h"

#include "tests/report/report_test_base.h"

namespace tests {
namespace {

using vexa::flatCombo;
using vexa::FlatState;
using vexa::hoverState;
using Picture = std::vector<std::string>;

constexpr ui::Size SIZE{20, 10};
constexpr int THUMB = 6;

/// Letters: f face, s shadow, h highlight, w window background; a dot is a pixel that stays as it was.
Picture painted(const ui::Strokes& strokes, const ui::Size& size) {
    Picture picture(static_cast<std::size_t>(size.height),
                    std::string(static_cast<std::size_t>(size.width), '.'));
    for (const ui::Stroke& stroke : strokes)
        for (int y = stroke.top; y <= stroke.bottom; ++y)
            for (int x = stroke.left; x <= stroke.right; ++x)
                picture.at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x)) =
                    "fshw"[static_cast<int>(stroke.colour)];
    return picture;
}

struct Look {
    const char* name;
    FlatState state;
    Picture picture;
};

const Look LOOKS[] = {
    {"AFlatComboLosesItsEdgesAndKeepsALightButtonBesideALine",
     FlatState::flat,
     {
         "ffffffffffffffffffff",
         "ffffffffffffffffffff",
         "ff..........ffffffff",
         "ff..........fwhhffff",
         "ff..........fwhhffff",
         "ff..........fwhhffff",
         "ff..........fwhhffff",
         "ff..........ffffffff",
         "ffffffffffffffffffff",
         "ffffffffffffffffffff",
     }},
    {"AHotComboIsSunkenWithARaisedButton",
     FlatState::hot,
     {
         "sssssssssssssssssssh",
         "sffffffffffffffffffh",
         "sf..........fffffffh",
         "sf..........ffhhsffh",
         "sf..........ffh.sffh",
         "sf..........ffh.sffh",
         "sf..........ffsssffh",
         "sf..........fffffffh",
         "sffffffffffffffffffh",
         "hhhhhhhhhhhhhhhhhhhh",
     }},
    {"APressedComboIsSunkenWithASunkenButton",
     FlatState::pressed,
     {
         "sssssssssssssssssssh",
         "sffffffffffffffffffh",
         "sf..........fffffffh",
         "sf..........ffsshffh",
         "sf..........ffs.hffh",
         "sf..........ffs.hffh",
         "sf..........ffhhhffh",
         "sf..........fffffffh",
         "sffffffffffffffffffh",
         "hhhhhhhhhhhhhhhhhhhh",
     }},
    {"ADisabledComboHasALightFrameAndNoButton",
     FlatState::disabled,
     {
         "ffffffffffffffffffff",
         "fhhhhhhhhhhhhhhhhhhf",
         "fh..........ffffffhf",
         "fh..........ffffffhf",
         "fh..........ff..ffhf",
         "fh..........ff..ffhf",
         "fh..........ffffffhf",
         "fh..........ffffffhf",
         "fhhhhhhhhhhhhhhhhhhf",
         "ffffffffffffffffffff",
     }},
};

class FlatComboLooks : public testing::TestWithParam<Look> {};

TEST_P(FlatComboLooks, ArePaintedToThePixel) {
    EXPECT_EQ(painted(flatCombo(GetParam().state, SIZE, THUMB), SIZE), GetParam().picture);
}

INSTANTIATE_TEST_SUITE_P(States, FlatComboLooks, testing::ValuesIn(LOOKS), namedRow);

TEST(FlatCombo, EveryStrokeIsALevelOrUprightLineInsideTheCombo) {
    for (const FlatState state : {FlatState::flat, FlatState::hot, FlatState::pressed, FlatState::disabled})
        for (const ui::Stroke& stroke : flatCombo(state, {150, 21}, 16)) {
            EXPECT_TRUE(stroke.left == stroke.right || stroke.top == stroke.bottom);
            EXPECT_TRUE(0 <= stroke.left && stroke.left <= stroke.right && stroke.right < 150);
            EXPECT_TRUE(0 <= stroke.top && stroke.top <= stroke.bottom && stroke.bottom < 21);
        }
}

class ReportHover : public ReportTest {
protected:
    /// The middle of the combo's text.
    void pointAt(ui::Control& control) { user.moveMouse(control, 8, control.bounds().height / 2); }
};

TEST_F(ReportHover, AComboUnderThePointerIsHotAndTheOtherIsNot) {
    open([&](frmSendBugReport& form) {
        form.rtfBody.setFocus();
        pointAt(form.cboFontname);
        EXPECT_EQ(hoverState(form.cboFontname), FlatState::hot);
        EXPECT_EQ(hoverState(form.cboFontsize), FlatState::flat);
        pointAt(form.cboFontsize);
        EXPECT_EQ(hoverState(form.cboFontname), FlatState::flat);
        EXPECT_EQ(hoverState(form.cboFontsize), FlatState::hot);
    });
}

TEST_F(ReportHover, ThePointerBesideAComboLeavesItFlat) {
    open([&](frmSendBugReport& form) {
        form.rtfBody.setFocus();
        const ui::Rect bounds = form.cboFontname.bounds();
        user.moveMouse(form.cboFontname, 0, 0);
        EXPECT_EQ(hoverState(form.cboFontname), FlatState::hot) << "the first pixel";
        user.moveMouse(form.cboFontname, bounds.width - 1, bounds.height - 1);
        EXPECT_EQ(hoverState(form.cboFontname), FlatState::hot) << "the last pixel";
        user.moveMouse(form.cboFontname, bounds.width, bounds.height / 2);
        EXPECT_EQ(hoverState(form.cboFontname), FlatState::flat) << "right of it";
        user.moveMouse(form.cboFontname, 5, -1);
        EXPECT_EQ(hoverState(form.cboFontname), FlatState::flat) << "above it";
    });
}

TEST_F(ReportHover, ADisabledComboIsDrawnDisabledUnlessThePointerIsOnIt) {
    open([&](frmSendBugReport& form) {
        user.moveMouse(form.rtfBody, 5, 5);
        EXPECT_EQ(hoverState(form.cboFontname), FlatState::disabled);
        EXPECT_EQ(hoverState(form.cboFontsize), FlatState::disabled);
        pointAt(form.cboFontname);
        EXPECT_EQ(hoverState(form.cboFontname), FlatState::hot);
    });
}

TEST_F(ReportHover, AnOpenListKeepsItsLook) {
    open([&](frmSendBugReport& form) {
        form.rtfBody.setFocus();
        user.click(form.cboFontname);
        ASSERT_TRUE(form.cboFontname.droppedDown());
        user.moveMouse(form.rtfBody, 5, 5);
        EXPECT_EQ(hoverState(form.cboFontname), std::nullopt);
        EXPECT_EQ(hoverState(form.cboFontsize), FlatState::flat);
        user.press(form.window(), key::escape);
        EXPECT_EQ(hoverState(form.cboFontname), FlatState::flat);
    });
}

}  // namespace
}  // namespace tests
