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

Findings sharedAccessKeys(const DialogTemplate& dialog) {
    Findings found;
    for (const Controls& page : pagesOf(dialog)) {
        std::map<wchar_t, std::string> taken;
        for (const TemplateControl* control : page) {
            const wchar_t key = accessKey(*control);
            if (key != 0 && !taken.emplace(key, control->idName).second)
                found.push_back(control->idName + " shares its access key with " + taken[key]);
        }
    }
    return found;
}

/// A label with an access key stands directly before its control.
Findings keysThatLeadNowhere(const DialogTemplate& dialog) {
    Findings found;
    for (std::size_t index = 0; index < dialog.controls.size(); ++index) {
        const TemplateControl& label = dialog.controls[index];
        if (!isLabel(label) || accessKey(label) == 0) continue;
        const bool leads = index + 1 < dialog.controls.size() && !isDecoration(dialog.controls[index + 1]) &&
                           dialog.controls[index + 1].has("WS_TABSTOP");
        if (!leads) found.push_back(label.idName + " stands before nothing that can be reached");
    }
    return found;
}

/// Screen readers take the name of a control from its own text or from the text before it. Picture buttons
/// bear their tooltip, which the program sets.
Findings namelessTabStops(const DialogTemplate& dialog) {
    Findings found;
    for (std::size_t index = 0; index < dialog.controls.size(); ++index) {
        const TemplateControl& control = dialog.controls[index];
        if (!control.has("WS_TABSTOP") || control.has("BS_ICON")) continue;
        const bool labelled =
            index > 0 && isLabel(dialog.controls[index - 1]) && !dialog.controls[index - 1].caption.empty();
        const bool ownText = !control.caption.empty() && control.windowClass != "Edit";
        if (!labelled && !ownText) found.push_back(control.idName + " has no name");
    }
    return found;
}

Findings controlsOutside(const DialogTemplate& dialog) {
    Findings found;
    for (const TemplateControl& control : dialog.controls)
        if (!contains({0, 0, dialog.units.width, dialog.units.height}, placeOf(control)))
            found.push_back(control.idName + " leaves the dialog");
    return found;
}

/// Controls that may lie under or upon others, and those without a size.
bool mayCover(const TemplateControl& control) {
    return isFrame(control) || isTabStrip(control) || isToolbar(control) || isUpDown(control) ||
           isEmpty(placeOf(control));
}

Findings coveredControls(const DialogTemplate& dialog) {
    Findings found;
    for (const Controls& page : pagesOf(dialog))
        for (const TemplateControl* one : page)
            for (const TemplateControl* other : page)
                if (one != other && !mayCover(*one) && !mayCover(*other) &&
                    overlap(placeOf(*one), placeOf(*other)))
                    found.push_back(one->idName + " covers " + other->idName);
    return found;
}

Findings strayUpDowns(const DialogTemplate& dialog) {
    Findings found;
    for (std::size_t index = 0; index < dialog.controls.size(); ++index) {
        if (!isUpDown(dialog.controls[index])) continue;
        const bool inside = index > 0 && dialog.controls[index - 1].windowClass == "Edit" &&
                            contains(dialog.controls[index - 1].units, dialog.controls[index].units);
        if (!inside) found.push_back(dialog.controls[index].idName + " lies in no text box before it");
    }
    return found;
}

/// A frame holds a control wholly or not at all.
Findings brokenFrames(const DialogTemplate& dialog) {
    Findings found;
    for (const Controls& page : pagesOf(dialog))
        for (const TemplateControl* frame : page)
            for (const TemplateControl* control : page) {
                if (!isFrame(*frame) || control == frame || isTabStrip(*control)) continue;
                const ui::Rect place = placeOf(*control);
                if (!contains(frame->units, place) && overlap(frame->units, place))
                    found.push_back(control->idName + " sticks out of " + frame->idName);
            }
    return found;
}

/// Options begin a group and something else ends it.
Findings openGroups(const DialogTemplate& dialog) {
    Findings found;
    const TemplateControl* before = nullptr;
    const auto isOption = [](const TemplateControl* control) {
        return control != nullptr && kindOf(*control) == ui::Kind::optionButton;
    };
    for (const TemplateControl& control : dialog.controls) {
        if (isOption(&control) != isOption(before) && !control.has("WS_GROUP"))
            found.push_back(control.idName + (isOption(&control) ? " begins no group" : " ends no group"));
        before = &control;
    }
    return found;
}

/// It scales with the screen and has one default button at most.
Findings unusualDialogs(const DialogTemplate& dialog) {
    Findings found;
    const auto isDefault = [](const TemplateControl& control) { return control.has("BS_DEFPUSHBUTTON"); };
    if (!dialog.styles.contains("DS_SHELLFONT")) found.push_back(dialog.idName + " has a font of its own");
    if (std::ranges::count_if(dialog.controls, isDefault) > 1)
        found.push_back(dialog.idName + " has two default buttons");
    return found;
}

Findings unknownKinds(const DialogTemplate& dialog) {
    Findings found;
    for (const TemplateControl& control : dialog.controls)
        if (!kindOf(control)) found.push_back(control.idName + " is a " + control.windowClass);
    return found;
}

Findings sharedNumbers(const DialogTemplate& dialog) {
    Findings found;
    std::map<int, std::string> numbers;
    for (const TemplateControl& control : dialog.controls)
        if (!numbers.emplace(control.id, control.idName).second)
            found.push_back(control.idName + " has the number of " + numbers[control.id]);
    return found;
}

Findings findingsOf(const DialogTemplate& dialog) {
    Findings all;
    for (const auto rule :
         {sharedAccessKeys, keysThatLeadNowhere, namelessTabStops, controlsOutside, coveredControls,
          strayUpDowns, brokenFrames, openGroups, unusualDialogs, unknownKinds, sharedNumbers})
        for (const std::string& finding : rule(dialog)) all.push_back(finding);
    return all;
}

// --- The dialogs ------------------------------------------------------------------------------------------

TEST(DialogLint, NoDialogBreaksARule) {
    EXPECT_GE(allDialogs().size(), 9U);
    for (const DialogTemplate& dialog : allDialogs())
        EXPECT_THAT(findingsOf(dialog), testing::IsEmpty()) << dialog.idName;
}

struct TemplateFlaw {
    const char* dialog;
    const char* control;
    void (*plant)(DialogTemplate& dialog, TemplateControl& control);
    const char* finding;
};

TemplateControl& next(DialogTemplate& dialog, const TemplateControl& control) {
    return dialog.controls[static_cast<std::size_t>(&control - dialog.controls.data()) + 1];
}

const TemplateFlaw TEMPLATE_FLAWS[] = {
    {"IDD_frmSettings", "IDC_chkAutoInfo",
     [](DialogTemplate&, TemplateControl& control) { control.caption = L"A&ll of it"; },
     "shares its access key with"},
    {"IDD_frmSettings", "IDC_lblDelay",
     [](DialogTemplate& dialog, TemplateControl& control) {
         next(dialog, control).styles.erase("WS_TABSTOP");
     },
     "IDC_lblDelay stands before nothing"},
    {"IDD_frmSettings", "IDC_lblDelay",
     [](DialogTemplate& dialog, TemplateControl& control) { next(dialog, control).windowClass = "Static"; },
     "IDC_lblDelay stands before nothing"},
    {"IDD_frmSettings", "IDC_lblDelay",
     [](DialogTemplate&, TemplateControl& control) { control.caption.clear(); }, "IDC_txtDelay has no name"},
    {"IDD_frmSettings", "IDC_chkAutoInfo",
     [](DialogTemplate& dialog, TemplateControl& control) { control.units.left = dialog.units.width; },
     "IDC_chkAutoInfo leaves the dialog"},
    {"IDD_frmSettings", "IDC_cmdOk",
     [](DialogTemplate& dialog, TemplateControl& control) {
         next(dialog, control).units.left = control.units.left + 1;
     },
     "IDC_cmdOk covers IDC_cmdCancel"},
    {"IDD_frmSettings", "IDC_updDelay",
     [](DialogTemplate&, TemplateControl& control) { control.units.left += 40; },
     "IDC_updDelay lies in no text box"},
    {"IDD_frmSettings", "IDC_fraResultList",
     [](DialogTemplate&, TemplateControl& control) { control.units.width -= 30; },
     "sticks out of IDC_fraResultList"},
    {"IDD_frmSettings", "IDC_optAutoInfo_0",
     [](DialogTemplate&, TemplateControl& control) { control.styles.erase("WS_GROUP"); },
     "IDC_optAutoInfo_0 begins no group"},
    {"IDD_frmSettings", "IDC_optAutoInfo_1",
     [](DialogTemplate& dialog, TemplateControl& control) { next(dialog, control).styles.erase("WS_GROUP"); },
     "ends no group"},
    {"IDD_frmSettings", "IDC_cmdSendLog",
     [](DialogTemplate&, TemplateControl& control) { control.styles.insert("BS_DEFPUSHBUTTON"); },
     "IDD_frmSettings has two default buttons"},
    {"IDD_frmSettings", "IDC_cmdOk",
     [](DialogTemplate& dialog, TemplateControl&) { dialog.styles.erase("DS_SHELLFONT"); },
     "IDD_frmSettings has a font of its own"},
    {"IDD_frmSettings", "IDC_cmdSendLog",
     [](DialogTemplate&, TemplateControl& control) { control.windowClass = "Gauge"; },
     "IDC_cmdSendLog is a Gauge"},
    {"IDD_frmSettings", "IDC_updMinRel",
     [](DialogTemplate& dialog, TemplateControl& control) { control.id = dialog.controls.front().id; },
     "has the number of"},
};

class PlantedTemplateFlaw : public testing::TestWithParam<TemplateFlaw> {};

TEST_P(PlantedTemplateFlaw, IsFound) {
    std::vector<DialogTemplate> dialogs = allDialogs();
    const auto dialog = std::ranges::find(dialogs, GetParam().dialog, &DialogTemplate::idName);
    ASSERT_NE(dialog, dialogs.end());
    const auto control = std::ranges::find(dialog->controls, GetParam().control, &TemplateControl::idName);
    ASSERT_NE(control, dialog->controls.end());
    GetParam().plant(*dialog, *control);
    EXPECT_THAT(findingsOf(*dialog), testing::Contains(testing::HasSubstr(GetParam().finding)));
}

INSTANTIATE_TEST_SUITE_P(Flaws, PlantedTemplateFlaw, testing::ValuesIn(TEMPLATE_FLAWS));

}  // namespace
}  // namespace headless
