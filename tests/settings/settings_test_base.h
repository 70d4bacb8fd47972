// What the tests of the search and the attachment settings share.
#pragma once

#include <gmock/gmock.h>

#include "settings/frmAttachment.h"
#include "settings/frmSettings.h"
#include "tests/stage/stage.h"
#include "tests/support/text.h"

namespace tests {

/// The key of the settings while no profile is set.
inline constexpr const wchar_t* SETTINGS_KEY = L"Software\\Norvane\\Quillmark\\";

/// A stage for the two dialogs.
class SettingsScene {
public:
    std::unique_ptr<Stage> stage = Stage::create();
    vexa::Application& application = stage->application();
    User& user = stage->user();
    CallLog& calls = stage->calls();
    vexa::Settings& settings = application.settings;
    vexa::frmSettings::ReportOpener openReport = [](ui::Window&) {};

    SettingsScene() {
        application.loadProfileKey();
        application.log.LogPath = stage->folder() + L"Log\\";
        calls.clear();
    }

    /// Opens the dialog and plays `script`, which closes it.
    void openSearch(FunctionRef<void(vexa::frmSettings&)> script) {
        stage->whenShown<vexa::frmSettings>(script);
        vexa::frmSettings(application, stage->owner(), openReport).Show();
    }
    void openAttachments(FunctionRef<void(vexa::frmAttachment&)> script) {
        stage->whenShown<vexa::frmAttachment>(script);
        vexa::frmAttachment(application, stage->owner()).Show();
    }

    void setText(const std::wstring& name, const std::wstring& text) {
        stage->setValue(SETTINGS_KEY, name, text);
    }
    void setInteger(const std::wstring& name, std::int32_t number) {
        stage->setValue(SETTINGS_KEY, name, number);
    }
    /// "(missing)" where there is no such value.
    [[nodiscard]] std::wstring storedText(const std::wstring& name) {
        const auto stored = stage->value(SETTINGS_KEY, name);
        return stored ? std::get<std::wstring>(*stored) : L"(missing)";
    }
    void setKnowledgebases(const std::vector<std::wstring>& names) {
        setInteger(L"ProjectCount", static_cast<std::int32_t>(names.size()));
        for (std::size_t index = 0; index < names.size(); ++index)
            setText(L"Project" + std::to_wstring(index + 1), names[index]);
    }

    /// The size field can be typed into.
    void limitSize() {
        settings.AddAttachments = settings.AddSizelimitedAttachments = true;
        settings.AddAllAttachments = false;
    }
};

class SettingsTest : public testing::Test, public SettingsScene {};

[[nodiscard]] inline std::vector<std::wstring> items(const ui::ComboBox& combo) {
    std::vector<std::wstring> all;
    for (int index = 0; index < combo.count(); ++index) all.push_back(combo.item(index));
    return all;
}

[[nodiscard]] inline std::vector<std::wstring> items(const ui::ListBox& list) {
    std::vector<std::wstring> all;
    for (int index = 0; index < list.count(); ++index) all.push_back(list.item(index));
    return all;
}

[[nodiscard]] inline std::vector<std::wstring> selectedItems(const ui::ListBox& list) {
    std::vector<std::wstring> all;
    for (int index = 0; index < list.count(); ++index)
        if (list.selected(index)) all.push_back(list.item(index));
    return all;
}

}  // namespace tests
