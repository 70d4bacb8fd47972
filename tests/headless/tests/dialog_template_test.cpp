// The reader of resource scripts: what it takes from a template, and that it refuses what it does not know.
#include "tests/headless/dialog_template.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace headless {
namespace {

namespace fs = std::filesystem;

/// A folder with a script and its header that goes with the test.
class DialogTemplateTest : public testing::Test {
protected:
    DialogTemplateTest() {
        fs::create_directories(folder);
        write("test.ids.h",
              "#pragma once\n#define IDD_test 100\n#define IDC_one 101\n#define IDC_two 0x66\n");
    }
    ~DialogTemplateTest() override { fs::remove_all(folder); }

    void write(const std::string& name, const std::string& text) { std::ofstream(folder / name) << text; }

    DialogTemplate readDialog(const std::string& controls) {
        write("test.rc",
              "// A dialog.\n#include <windows.h>\n#include \"test.ids.h\"\n"
              "IDD_test DIALOGEX 0, 0, 100, 80\nSTYLE DS_SHELLFONT | WS_POPUP\nCAPTION \"Test\"\n"
              "FONT 8, \"MS Shell Dlg 2\", 400, 0, 1\nBEGIN\n" +
                  controls + "\nEND\n");
        return readDialogs(folder.string(), "test.rc").at(0);
    }
    std::string refusal(const std::string& controls) {
        try {
            readDialog(controls);
            return "";
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    }

    const fs::path folder = fs::path(testing::TempDir()) / "dialog_template_test";
};

TEST_F(DialogTemplateTest, TakesTheDialogsOwnProperties) {
    const DialogTemplate dialog = readDialog("");
    EXPECT_EQ(dialog.id, 100);
    EXPECT_EQ(dialog.caption, L"Test");
    EXPECT_EQ(dialog.units, (ui::Size{100, 80}));
    EXPECT_TRUE(dialog.styles.contains("DS_SHELLFONT"));
    EXPECT_TRUE(dialog.controls.empty());
}

TEST_F(DialogTemplateTest, TakesControlsInTheirOrder) {
    const DialogTemplate dialog = readDialog(
        "LTEXT \"&Name \"\"x\"\":\", IDC_one, 1, 2, 30, 8\n"
        "EDITTEXT IDC_two, 1, 12, 30, 12, ES_AUTOHSCROLL | NOT WS_TABSTOP // no stop\n"
        "CONTROL \"\", -1, \"Static\", SS_ETCHEDHORZ | NOT WS_VISIBLE, 1, 30, 30, 1");
    ASSERT_EQ(dialog.controls.size(), 3U);
    EXPECT_EQ(dialog.controls[0].caption, L"&Name \"x\":");
    EXPECT_EQ(dialog.controls[0].windowClass, "Static");
    EXPECT_TRUE(dialog.controls[0].has("WS_GROUP")) << "a label begins a group by itself";
    EXPECT_EQ(dialog.controls[1].id, 0x66);
    EXPECT_EQ(dialog.controls[1].units, (ui::Rect{1, 12, 30, 12}));
    EXPECT_FALSE(dialog.controls[1].has("WS_TABSTOP"));
    EXPECT_TRUE(dialog.controls[1].has("WS_VISIBLE"));
    EXPECT_EQ(dialog.controls[2].id, -1);
    EXPECT_FALSE(dialog.controls[2].has("WS_VISIBLE"));
}

TEST_F(DialogTemplateTest, RefusesWhatItDoesNotKnow) {
    EXPECT_THAT(refusal("SCROLLBAR IDC_one, 1, 2, 3, 4"),
                testing::HasSubstr("unknown control statement SCROLLBAR"));
    EXPECT_THAT(refusal("LTEXT \"x\", IDC_none, 1, 2, 3, 4"),
                testing::HasSubstr("unknown identifier IDC_none"));
    EXPECT_THAT(refusal("LTEXT \"x\" IDC_one, 1, 2, 3, 4"), testing::HasSubstr("comma"));
    EXPECT_THAT(refusal("LTEXT \"x\", IDC_one, 1, 2, 3"), testing::HasSubstr("comma"));
    EXPECT_THAT(refusal("LTEXT \"x, IDC_one"), testing::HasSubstr("without end"));
}

TEST_F(DialogTemplateTest, NamesTheFileAndTheLine) {
    EXPECT_THAT(refusal("\nSCROLLBAR IDC_one, 1, 2, 3, 4"), testing::StartsWith("test.rc:10:"));
}

TEST_F(DialogTemplateTest, RefusesUnknownResourcesAndOptions) {
    write("other.rc", "1 MENU\n");
    EXPECT_THROW(static_cast<void>(readDialogs(folder.string(), "other.rc")), std::runtime_error);
    write("other.rc", "1 DIALOGEX 0, 0, 1, 1\nMENU 5\nBEGIN\nEND\n");
    EXPECT_THROW(static_cast<void>(readDialogs(folder.string(), "other.rc")), std::runtime_error);
    EXPECT_THROW(static_cast<void>(readDialogs(folder.string(), "missing.rc")), std::runtime_error);
}

TEST(DialogUnits, BecomePixelsAsOnTheScreen) {
    EXPECT_EQ(toPixels({4, 8, 100, 14}), (ui::Rect{6, 13, 150, 23}));
    EXPECT_EQ(toPixels({1, 1, 3, 3}), (ui::Rect{2, 2, 5, 5}));
}

TEST(DialogTemplates, AnUnknownDialogIsAnError) {
    EXPECT_THROW(static_cast<void>(dialogTemplate(9)), std::logic_error);
}

}  // namespace
}  // namespace headless
