// Every check box of the settings dialogs, those to come included, stores one setting of its own. Headless
// alone: real windows hand out any button as a check box.
#include <stdexcept>

#include "settings/frmAttachment.ids.h"
#include "settings/frmDispMatches.h"
#include "settings/frmDispMatches.ids.h"
#include "settings/frmSettings.ids.h"
#include "tests/settings/settings_test_base.h"

namespace tests {
namespace {

using vexa::Setting;
using vexa::Settings;

class SettingsBoxes : public SettingsTest {
protected:
    /// The box with this identifier; null where the dialog has none.
    static ui::CheckBox* boxOf(ui::Form& form, int identifier) {
        try {
            return &form.window().control<ui::CheckBox>(identifier);
        } catch (const std::exception&) {
            return nullptr;
        }
    }
    /// The names of the settings that clicking the box and OK have changed; nothing where there is no box.
    template <class Form>
    std::optional<std::vector<std::wstring>> changedBy(int identifier, const std::function<void()>& show) {
        settings = Settings();
        bool found = false;
        stage->whenShown<Form>([&](Form& form) {
            ui::CheckBox* box = boxOf(form, identifier);
            found = box != nullptr;
            if (found) user.click(*box);
            user.click(form.cmdOk);
        });
        show();
        if (!found) return {};
        std::vector<std::wstring> changed;
        for (const Setting& setting : vexa::settingsCatalogue())
            if (vexa::settingValue(settings, setting) != vexa::settingValue(Settings(), setting))
                changed.emplace_back(setting.name);
        return changed;
    }
    /// Tries each identifier of the dialog's block; `besides` changes whatever is clicked.
    template <class Form>
    int tryBoxes(int dialog, const std::vector<std::wstring>& besides, const std::function<void()>& show) {
        constexpr int BLOCK = 100;
        int boxes = 0;
        for (int identifier = dialog + 1; identifier < dialog + BLOCK; ++identifier) {
            auto changed = changedBy<Form>(identifier, show);
            if (!changed) continue;
            ++boxes;
            for (const std::wstring& name : besides) std::erase(*changed, name);
            EXPECT_EQ(changed->size(), 1U) << identifier;
        }
        return boxes;
    }
};

TEST_F(SettingsBoxes, OfTheSearchSettingsStoreTheirs) {
    // OK stores the scope as a whole, and the stored name of no knowledgebase as none.
    EXPECT_GE(tryBoxes<vexa::frmSettings>(
                  IDD_frmSettings, {L"DefaultProject", L"AutoFindUnread"},
                  [&] { vexa::frmSettings(application, stage->owner(), openReport).Show(); }),
              2);
}

TEST_F(SettingsBoxes, OfTheAttachmentSettingsStoreTheirs) {
    EXPECT_GE(tryBoxes<vexa::frmAttachment>(IDD_frmAttachment, {},
                                            [&] { vexa::frmAttachment(application, stage->owner()).Show(); }),
              2);
}

TEST_F(SettingsBoxes, OfTheHighlightSettingsStoreTheirs) {
    EXPECT_GE(tryBoxes<vexa::frmDispMatches>(
                  IDD_frmDispMatches, {}, [&] { vexa::frmDispMatches(application, stage->owner()).Show(); }),
              1);
}

}  // namespace
}  // namespace tests
