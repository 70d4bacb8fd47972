// Captions that can be read upon any colour.
#include "ui/contrast.h"

#include <gtest/gtest.h>

#include <vector>

namespace tests {
namespace {

/// Grounds from all over the colours, the corners and the defaults of the highlights among them.
std::vector<ui::Colour> grounds() {
    std::vector<ui::Colour> colours;
    for (int blue = 0; blue <= 255; blue += 17)
        for (int green = 0; green <= 255; green += 17)
            for (int red = 0; red <= 255; red += 17) colours.push_back(blue << 16 | green << 8 | red);
    return colours;
}

TEST(Contrast, IsThatOfTheWeb) {
    EXPECT_NEAR(ui::contrast(0x000000, 0xFFFFFF), 21, 0.001);
    EXPECT_NEAR(ui::contrast(0xFFFFFF, 0x000000), 21, 0.001);
    EXPECT_NEAR(ui::contrast(0x336699, 0x336699), 1, 0.001);
    EXPECT_NEAR(ui::contrast(0xFFFFFF, 0x0000FF), 3.998, 0.001) << "red";
    EXPECT_NEAR(ui::contrast(0xFFFFFF, 0x00FF00), 1.372, 0.001) << "green";
    EXPECT_NEAR(ui::contrast(0xFFFFFF, 0xFF0000), 8.592, 0.001) << "blue";
    EXPECT_NEAR(ui::contrast(0xFFFFFF, 0x767676), 4.542, 0.001) << "grey";
    EXPECT_NEAR(ui::contrast(0xFFFFFF, 0x0A0A0A), 19.798, 0.001) << "nearly black";
    EXPECT_NEAR(ui::contrast(0xFFFFFF, 0x7F000000), 21, 0.001) << "the top byte is none of it";
}

TEST(Contrast, CaptionsAreBlackOrWhiteWhicheverStandsOutMore) {
    for (const ui::Colour ground : grounds()) {
        const ui::Colour caption = ui::captionOn(ground);
        EXPECT_TRUE(caption == 0x000000 || caption == 0xFFFFFF) << std::hex << caption;
        ASSERT_GE(ui::contrast(caption, ground), 4.5) << std::hex << ground;
    }
    EXPECT_EQ(ui::captionOn(0x00FFFF), 0x000000);
    EXPECT_EQ(ui::captionOn(0xFF0000), 0xFFFFFF);
}

TEST(Contrast, DisabledCaptionsArePalerAndStillReadable) {
    for (const ui::Colour ground : grounds()) {
        const ui::Colour caption = ui::disabledCaptionOn(ground);
        const double stands = ui::contrast(caption, ground);
        ASSERT_GE(stands, 3.5) << std::hex << ground;
        ASSERT_LT(stands, ui::contrast(ui::captionOn(ground), ground)) << std::hex << ground;
    }
    EXPECT_EQ(ui::disabledCaptionOn(0xFFFFFF), 0x7F7F7F) << "half way, where that is enough";
}

}  // namespace
}  // namespace tests
