// Rules that every dialog template and its identifiers keep.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "tests/headless/item.h"
#include "tests/headless/kinds.h"
#include "tests/lint/dialog_pages.h"
#include "tests/support/source_folder.h"
#include "tests/support/text.h"

namespace headless {

/// For the messages of failing tests.
void PrintTo(const DialogTemplate& dialog, std::ostream* stream);
void PrintTo(const DialogTemplate& dialog, std::ostream* stream) { *stream << dialog.idName; }

namespace {

namespace fs = std::filesystem;

const std::string SOURCES = tests::sourceFolder();
constexpr const char* ROOMS[] = {"common", "page", "settings", "kb", "report", "ui", "windows"};

std::string readAll(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

/// The product's files whose names end like this, by their paths below the source folder.
std::map<std::string, std::string> filesEndingWith(const std::string& ending) {
    std::map<std::string, std::string> files;
    for (const char* room : ROOMS)
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCES) / room))
            if (entry.is_regular_file() && entry.path().string().ends_with(ending))
                files[fs::relative(entry.path(), SOURCES).string()] = readAll(entry.path());
    return files;
}

bool isWordCharacter(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

bool containsWord(const std::string& text, const std::string& word) {
    for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        const bool begins = at == 0 || !isWordCharacter(text[at - 1]);
        const std::size_t end = at + word.size();
        if (begins && (end == text.size() || !isWordCharacter(text[end]))) return true;
    }
    return false;
}

bool anyContainsWord(const std::map<std::string, std::string>& files, const std::string& word) {
    return std::ranges::any_of(files, [&](const auto& file) { return containsWord(file.second, word); });
}

// --- What a control is to the rules -----------------------------------------------------------------------

wchar_t accessKey(const TemplateControl& control) {
    return control.has("SS_NOPREFIX") ? L'\0' : accessKeyOf(control.caption);
}

// --- Templates --------------------------------------------------------------------------------------------

class DialogLint : public testing::TestWithParam<DialogTemplate> {};

TEST_P(DialogLint, NoAccessKeyMeansTwoControls) {
    for (const Controls& page : pagesOf(GetParam())) {
        std::map<wchar_t, std::string> taken;
        for (const TemplateControl* control : page) {
            const wchar_t key = accessKey(*control);
            if (key == 0) continue;
            EXPECT_TRUE(taken.emplace(key, control->idName).second)
                << control->idName << " and " << taken[key] << " share a key";
        }
    }
}

TEST_P(DialogLint, ALabelWithAnAccessKeyStandsDirectlyBeforeItsControl) {
    const auto& controls = GetParam().controls;
    for (std::size_t index = 0; index < controls.size(); ++index) {
        if (!isLabel(controls[index]) || accessKey(controls[index]) == 0) continue;
        ASSERT_LT(index + 1, controls.size()) << controls[index].idName;
        const TemplateControl& next = controls[index + 1];
        EXPECT_FALSE(isDecoration(next)) << controls[index].idName << " is followed by " << next.idName;
        EXPECT_TRUE(next.has("WS_TABSTOP")) << next.idName << " cannot be reached";
    }
}

/// Screen readers take the name of a control from its own text or from the text before it. Picture buttons
/// bear their tooltip, which the program sets.
TEST_P(DialogLint, EveryTabStopHasAName) {
    const auto& controls = GetParam().controls;
    for (std::size_t index = 0; index < controls.size(); ++index) {
        const TemplateControl& control = controls[index];
        if (!control.has("WS_TABSTOP") || control.has("BS_ICON")) continue;
        const bool labelled =
            index > 0 && isLabel(controls[index - 1]) && !controls[index - 1].caption.empty();
        const bool ownText = !control.caption.empty() && control.windowClass != "Edit";
        EXPECT_TRUE(labelled || ownText) << control.idName;
    }
}

TEST_P(DialogLint, EveryControlLiesInsideTheDialog) {
    const ui::Rect dialog{0, 0, GetParam().units.width, GetParam().units.height};
    for (const TemplateControl& control : GetParam().controls)
        EXPECT_TRUE(contains(dialog, placeOf(control))) << control.idName;
}

/// Controls that may lie under or upon others, and those without a size.
bool mayCover(const TemplateControl& control) {
    return isFrame(control) || isTabStrip(control) || isToolbar(control) || isUpDown(control) ||
           isEmpty(placeOf(control));
}

TEST_P(DialogLint, NoControlCoversAnother) {
    for (const Controls& page : pagesOf(GetParam()))
        for (const TemplateControl* one : page)
            for (const TemplateControl* other : page) {
                if (one == other || mayCover(*one) || mayCover(*other)) continue;
                EXPECT_FALSE(overlap(placeOf(*one), placeOf(*other))) << one->idName << ", " << other->idName;
            }
}

TEST_P(DialogLint, AnUpDownLiesInTheTextBoxBeforeIt) {
    const auto& controls = GetParam().controls;
    for (std::size_t index = 0; index < controls.size(); ++index) {
        if (!isUpDown(controls[index])) continue;
        ASSERT_GT(index, 0U);
        EXPECT_EQ(controls[index - 1].windowClass, "Edit") << controls[index].idName;
        EXPECT_TRUE(contains(controls[index - 1].units, controls[index].units)) << controls[index].idName;
    }
}

TEST_P(DialogLint, AFrameHoldsAControlWhollyOrNotAtAll) {
    for (const Controls& page : pagesOf(GetParam()))
        for (const TemplateControl* frame : page)
            for (const TemplateControl* control : page) {
                if (!isFrame(*frame) || control == frame || isTabStrip(*control)) continue;
                const ui::Rect place = placeOf(*control);
                EXPECT_TRUE(contains(frame->units, place) || !overlap(frame->units, place))
                    << control->idName << " sticks out of " << frame->idName;
            }
}

TEST_P(DialogLint, OptionsBeginAGroupAndSomethingElseEndsIt) {
    const auto isOption = [](const TemplateControl& control) {
        return kindOf(control) == ui::Kind::optionButton;
    };
    const auto& controls = GetParam().controls;
    for (std::size_t index = 0; index < controls.size(); ++index) {
        if (!isOption(controls[index])) continue;
        const bool first = index == 0 || !isOption(controls[index - 1]);
        const bool last = index + 1 == controls.size() || !isOption(controls[index + 1]);
        EXPECT_TRUE(!first || controls[index].has("WS_GROUP")) << controls[index].idName;
        if (!last || index + 1 == controls.size()) continue;
        EXPECT_TRUE(controls[index + 1].has("WS_GROUP")) << controls[index + 1].idName << " ends no group";
    }
}

TEST_P(DialogLint, ScalesWithTheScreenAndHasOneDefaultButtonAtMost) {
    const auto isDefault = [](const TemplateControl& control) { return control.has("BS_DEFPUSHBUTTON"); };
    EXPECT_TRUE(GetParam().styles.contains("DS_SHELLFONT"));
    EXPECT_LE(std::ranges::count_if(GetParam().controls, isDefault), 1);
}

TEST_P(DialogLint, EveryControlIsOfAKindThatFormsKnow) {
    for (const TemplateControl& control : GetParam().controls)
        EXPECT_TRUE(kindOf(control).has_value()) << control.idName << " is a " << control.windowClass;
}

TEST_P(DialogLint, EveryControlIsNumberedOnce) {
    std::map<int, std::string> numbers;
    for (const TemplateControl& control : GetParam().controls) {
        EXPECT_TRUE(numbers.emplace(control.id, control.idName).second)
            << control.idName << " and " << numbers[control.id];
    }
}

std::string dialogName(const testing::TestParamInfo<DialogTemplate>& dialog) {
    return dialog.param.idName.substr(dialog.param.idName.find('_') + 1);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogLint, testing::ValuesIn(allDialogs()), dialogName);

// --- Identifiers ------------------------------------------------------------------------------------------

class IdentifierLint : public testing::Test {
protected:
    using Identifiers = std::vector<std::pair<std::string, int>>;

    /// The identifiers of each header, by its path below the source folder.
    const std::map<std::string, Identifiers> headers = [] {
        std::map<std::string, Identifiers> all;
        for (const auto& [path, text] : filesEndingWith("ids.h"))
            all[path] = readIdentifiers(SOURCES + "/" + path);
        return all;
    }();
    const std::map<std::string, std::string> scripts = filesEndingWith(".rc");
    const std::map<std::string, std::string> code = filesEndingWith(".cpp");
};

TEST_F(IdentifierLint, TheHeadersAreFound) {
    EXPECT_GE(headers.size(), 3U);
    EXPECT_TRUE(headers.contains("page/ctlPPE.ids.h"));
}

TEST_F(IdentifierLint, NoNameAndNoNumberIsGivenTwice) {
    std::map<std::string, std::string> names;
    std::map<int, std::string> numbers;
    for (const auto& [path, identifiers] : headers)
        for (const auto& [name, number] : identifiers) {
            EXPECT_TRUE(names.emplace(name, path).second)
                << name << " is in " << path << " and " << names[name];
            EXPECT_TRUE(numbers.emplace(number, name).second) << name << " and " << numbers[number];
        }
}

TEST_F(IdentifierLint, EveryIdentifierStandsInAResourceScript) {
    for (const auto& [path, identifiers] : headers)
        for (const auto& [name, number] : identifiers)
            EXPECT_TRUE(anyContainsWord(scripts, name)) << name << " of " << path << " is stale";
}

TEST_F(IdentifierLint, EveryDialogIsMadeByTheCode) {
    for (const DialogTemplate& dialog : allDialogs())
        EXPECT_TRUE(anyContainsWord(code, dialog.idName)) << dialog.idName << " is never shown";
}

TEST_F(IdentifierLint, EveryControlThatTakesInputIsUsedByTheCode) {
    for (const DialogTemplate& dialog : allDialogs())
        for (const TemplateControl& control : dialog.controls) {
            if (isDecoration(control)) continue;
            EXPECT_TRUE(anyContainsWord(code, control.idName)) << control.idName << " of " << dialog.idName;
        }
}

TEST_F(IdentifierLint, ControlsAreNumberedInTheBlockOfTheirDialog) {
    constexpr int BLOCK = 100;
    constexpr int SHARED = 10;  // the buttons that Enter and Esc press
    for (const DialogTemplate& dialog : allDialogs())
        for (const TemplateControl& control : dialog.controls)
            EXPECT_TRUE(control.id < SHARED || (control.id > dialog.id && control.id < dialog.id + BLOCK))
                << control.idName << " of " << dialog.idName;
}

}  // namespace
}  // namespace headless
