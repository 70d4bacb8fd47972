// Rules that every dialog template keeps, each seen to be broken where it is.
#include <gmock/gmock.h>

#include <algorithm>
#include <map>

#include "tests/headless/item.h"
#include "tests/headless/kinds.h"
#include "tests/lint/dialog_pages.h"

namespace headless {
namespace {

using Findings = std::vector<std::string>;

wchar_t accessKey(const TemplateControl& control) {
    return control.has("SS_NOPREFIX") ? L'\0' : accessKeyOf(control.caption);
}

// --- The rules --------------------------------------------------------------------------------------------

void sharedAccessKeys(const DialogTemplate& dialog, Findings& found) {
    for (const Controls& page : pagesOf(dialog)) {
        std::map<wchar_t, std::string> taken;
        for (const TemplateControl* control : page) {
            const wchar_t key = accessKey(*control);
            if (key != 0 && !taken.emplace(key, control->idName).second)
                found.push_back(control->idName + " shares its access key with " + taken[key]);
        }
    }
}

/// A label with an access key stands directly before its control.
void keysThatLeadNowhere(const DialogTemplate& dialog, Findings& found) {
    for (std::size_t index = 0; index < dialog.controls.size(); ++index) {
        const TemplateControl& label = dialog.controls[index];
        if (!isLabel(label) || accessKey(label) == 0) continue;
        const bool leads = index + 1 < dialog.controls.size() && !isDecoration(dialog.controls[index + 1]) &&
                           dialog.controls[index + 1].has("WS_TABSTOP");
        if (!leads) found.push_back(label.idName + " stands before nothing that can be reached");
    }
}

/// Screen readers take the name of a control from its own text or from the text before it. Picture buttons
/// bear their tooltip, which the program sets.
void namelessTabStops(const DialogTemplate& dialog, Findings& found) {
    for (std::size_t index = 0; index < dialog.controls.size(); ++index) {
        const TemplateControl& control = dialog.controls[index];
        if (!control.has("WS_TABSTOP") || control.has("BS_ICON")) continue;
        const bool labelled =
            index > 0 && isLabel(dialog.controls[index - 1]) && !dialog.controls[index - 1].caption.empty();
        const bool ownText = !control.caption.empty() && control.windowClass != "Edit";
        if (!labelled && !ownText) found.push_back(control.idName + " has no name");
    }
}

void controlsOutside(const DialogTemplate& dialog, Findings& found) {
    for (const TemplateControl& control : dialog.controls)
        if (!contains({0, 0, dialog.units.width, dialog.units.height}, placeOf(control)))
            found.push_back(control.idName + " leaves the dialog");
}

/// Controls that may lie under or upon others, and those without a size.
bool mayCover(const TemplateControl& control) {
    return isFrame(control) || isTabStrip(control) || isToolbar(control) || isUpDown(control) ||
           isEmpty(placeOf(control));
}

void coveredControls(const DialogTemplate& dialog, Findings& found) {
    for (const Controls& page : pagesOf(dialog))
        for (const TemplateControl* one : page)
            for (const TemplateControl* other : page)
                if (one != other && !mayCover(*one) && !mayCover(*other) &&
                    overlap(placeOf(*one), placeOf(*other)))
                    found.push_back(one->idName + " covers " + other->idName);
}

void strayUpDowns(const DialogTemplate& dialog, Findings& found) {
    for (std::size_t index = 0; index < dialog.controls.size(); ++index) {
        if (!isUpDown(dialog.controls[index])) continue;
        const bool inside = index > 0 && dialog.controls[index - 1].windowClass == "Edit" &&
                            contains(dialog.controls[index - 1].units, dialog.controls[index].units);
        if (!inside) found.push_back(dialog.controls[index].idName + " lies in no text box before it");
    }
}

/// A frame holds a control wholly or not at all.
void brokenFrames(const DialogTemplate& dialog, Findings& found) {
    for (const Controls& page : pagesOf(dialog))
        for (const TemplateControl* frame : page)
            for (const TemplateControl* control : page) {
                if (!isFrame(*frame) || control == frame || isTabStrip(*control)) continue;
                const ui::Rect place = placeOf(*control);
                if (!contains(frame->units, place) && overlap(frame->units, place))
                    found.push_back(control->idName + " sticks out of " + frame->idName);
            }
}

/// Options begin a group and something else ends it.
void openGroups(const DialogTemplate& dialog, Findings& found) {
    const TemplateControl* before = nullptr;
    const auto isOption = [](const TemplateControl* control) {
        return control != nullptr && kindOf(*control) == ui::Kind::optionButton;
    };
    for (const TemplateControl& control : dialog.controls) {
        if (isOption(&control) != isOption(before) && !control.has("WS_GROUP"))
            found.push_back(control.idName + (isOption(&control) ? " begins no group" : " ends no group"));
        before = &control;
    }
}

/// It scales with the screen and has one default button at most.
void unusualDialogs(const DialogTemplate& dialog, Findings& found) {
    const auto isDefault = [](const TemplateControl& control) { return control.has("BS_DEFPUSHBUTTON"); };
    if (!dialog.styles.contains("DS_SHELLFONT")) found.push_back(dialog.idName + " has a font of its own");
    if (std::ranges::count_if(dialog.controls, isDefault) > 1)
        found.push_back(dialog.idName + " has two default buttons");
}

void unknownKinds(const DialogTemplate& dialog, Findings& found) {
    for (const TemplateControl& control : dialog.controls)
        if (!kindOf(control)) found.push_back(control.idName + " is a " + control.windowClass);
}

void sharedNumbers(const DialogTemplate& dialog, Findings& found) {
    std::map<int, std::string> numbers;
    for (const TemplateControl& control : dialog.controls)
        if (!numbers.emplace(control.id, control.idName).second)
            found.push_back(control.idName + " has the number of " + numbers[control.id]);
}

Findings findingsOf(const DialogTemplate& dialog) {
    Findings found;
    for (const auto rule :
         {sharedAccessKeys, keysThatLeadNowhere, namelessTabStops, controlsOutside, coveredControls,
          strayUpDowns, brokenFrames, openGroups, unusualDialogs, unknownKinds, sharedNumbers})
        rule(dialog, found);
    return found;
}

// --- The dialogs ------------------------------------------------------------------------------------------

TEST(DialogLint, NoDialogBreaksARule) {
    EXPECT_GE(allDialogs().size(), 9U);
    for (const DialogTemplate& dialog : allDialogs())
        EXPECT_THAT(findingsOf(dialog), testing::IsEmpty()) << dialog.idName;
}

/// Where a flaw is planted: the dialog, one of its controls and the control behind that.
struct Spot {
    DialogTemplate& dialog;
    TemplateControl& control;
    TemplateControl& next;
};

struct TemplateFlaw {
    const char* control;  ///< of the search settings
    void (*plant)(const Spot& at);
    const char* finding;
};

const TemplateFlaw TEMPLATE_FLAWS[] = {
    {"IDC_chkAutoInfo", [](const Spot& at) { at.control.caption = L"A&ll of it"; },
     "shares its access key with"},
    {"IDC_lblDelay", [](const Spot& at) { at.next.styles.erase("WS_TABSTOP"); },
     "IDC_lblDelay stands before nothing"},
    {"IDC_lblDelay", [](const Spot& at) { at.next.windowClass = "Static"; },
     "IDC_lblDelay stands before nothing"},
    {"IDC_lblDelay", [](const Spot& at) { at.control.caption.clear(); }, "IDC_txtDelay has no name"},
    {"IDC_chkAutoInfo", [](const Spot& at) { at.control.units.left = at.dialog.units.width; },
     "IDC_chkAutoInfo leaves the dialog"},
    {"IDC_cmdOk", [](const Spot& at) { at.next.units.left = at.control.units.left + 1; },
     "IDC_cmdOk covers IDC_cmdCancel"},
    {"IDC_updDelay", [](const Spot& at) { at.control.units.left += 40; }, "IDC_updDelay lies in no text box"},
    {"IDC_fraResultList", [](const Spot& at) { at.control.units.width -= 30; },
     "sticks out of IDC_fraResultList"},
    {"IDC_optAutoInfo_0", [](const Spot& at) { at.control.styles.erase("WS_GROUP"); },
     "IDC_optAutoInfo_0 begins no group"},
    {"IDC_optAutoInfo_1", [](const Spot& at) { at.next.styles.erase("WS_GROUP"); }, "ends no group"},
    {"IDC_cmdSendLog", [](const Spot& at) { at.control.styles.insert("BS_DEFPUSHBUTTON"); },
     "IDD_frmSettings has two default buttons"},
    {"IDC_cmdOk", [](const Spot& at) { at.dialog.styles.erase("DS_SHELLFONT"); },
     "IDD_frmSettings has a font of its own"},
    {"IDC_cmdSendLog", [](const Spot& at) { at.control.windowClass = "Gauge"; }, "IDC_cmdSendLog is a Gauge"},
    {"IDC_updMinRel", [](const Spot& at) { at.control.id = at.dialog.controls.front().id; },
     "has the number of"},
};

class PlantedTemplateFlaw : public testing::TestWithParam<TemplateFlaw> {};

TEST_P(PlantedTemplateFlaw, IsFound) {
    const TemplateFlaw& flaw = GetParam();
    const auto plant = [&](DialogTemplate& copy, std::size_t at) {
        flaw.plant({copy, copy.controls[at], copy.controls[std::min(at + 1, copy.controls.size() - 1)]});
    };
    EXPECT_THAT(findingsOf(flawed("IDD_frmSettings", flaw.control, plant)),
                testing::Contains(testing::HasSubstr(flaw.finding)));
}

INSTANTIATE_TEST_SUITE_P(Flaws, PlantedTemplateFlaw, testing::ValuesIn(TEMPLATE_FLAWS));

}  // namespace
}  // namespace headless
