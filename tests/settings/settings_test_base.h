// What the tests of the settings dialogs share.
#pragma once

#include "settings/frmAttachment.h"
#include "settings/frmDispMatches.h"
#include "settings/frmSettings.h"
#include "tests/stage/form_test.h"
#include "tests/support/text.h"

namespace tests {

using vexa::ChangeFlags;
using vexa::frmAttachment;
using vexa::frmDispMatches;
using vexa::frmSettings;
using vexa::Settings;
using Strings = std::vector<std::wstring>;

/// The key of the settings while no profile is set.
inline constexpr const wchar_t* SETTINGS_KEY = L"Software\\Norvane\\Quillmark\\";

/// A stage for the dialogs.
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

    /// Opens the dialog and plays `script`; a dialog that it leaves open is cancelled.
    void openSearch(FunctionRef<void(frmSettings&)> script) {
        frmSettings form(application, stage->owner(), openReport);
        show(form, script);
    }
    void openAttachments(FunctionRef<void(frmAttachment&)> script) {
        frmAttachment form(application, stage->owner());
        show(form, script);
    }
    void openHighlights(FunctionRef<void(frmDispMatches&)> script) {
        frmDispMatches form(application, stage->owner());
        show(form, script);
    }
    template <class Form>
    void show(Form& form, FunctionRef<void(Form&)> script) {
        stage->whenShown<Form>([&](Form& shown) {
            script(shown);
            if (shown.window().isOpen()) user.click(shown.cmdCancel);
        });
        form.Show();
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
    void setKnowledgebases(const Strings& names) {
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

inline void selectAll(ui::TextBox& box) {
    box.setFocus();
    box.select(0, static_cast<int>(box.text().size()));
}
inline void typeOver(User& user, ui::TextBox& box, const std::wstring& text) {
    selectAll(box);
    user.type(box, text);
}

class SettingsTest : public testing::Test, public SettingsScene {
public:
    /// Enter takes what the box shows; Esc and the close box do not.
    template <class Form>
    void expectEndings(void (SettingsScene::*open)(FunctionRef<void(Form&)>), ui::CheckBox& (*box)(Form&),
                       bool Settings::*setting) {
        const std::pair<std::function<void(ui::Window&)>, bool> endings[] = {
            {[&](ui::Window& window) { user.closeWindow(window); }, false},
            {[&](ui::Window& window) { user.press(window, key::escape); }, false},
            {[&](ui::Window& window) { user.press(window, key::enter); }, true},
        };
        for (const auto& [end, takes] : endings) {
            const bool before = settings.*setting;
            (this->*open)([&, end = end](Form& form) {
                user.click(box(form));
                end(form.window());
                EXPECT_FALSE(form.window().isOpen());
            });
            EXPECT_EQ(settings.*setting, takes ? !before : before);
        }
    }
    /// Alt and the letter.
    void pressAlt(ui::Form& form, int letter) { user.press(form.window(), letter, ui::modifier::alt); }
    /// Tab leads from each of the controls to the next one.
    void expectTabOrder(ui::Form& form, const std::vector<ui::Control*>& controls) {
        controls.front()->setFocus();
        for (std::size_t next = 1; next < controls.size(); ++next) {
            user.press(form.window(), key::tab);
            EXPECT_TRUE(controls[next]->hasFocus()) << next;
        }
    }
    /// Selects the text and types over it.
    void replace(ui::TextBox& box, const std::wstring& text) { typeOver(user, box, text); }
};

[[nodiscard]] inline Strings items(const ui::ComboBox& combo) {
    Strings all;
    for (int index = 0; index < combo.count(); ++index) all.push_back(combo.item(index));
    return all;
}

[[nodiscard]] inline Strings items(const ui::ListBox& list) {
    Strings all;
    for (int index = 0; index < list.count(); ++index) all.push_back(list.item(index));
    return all;
}

/// As a text in which each item ends with a semicolon.
[[nodiscard]] inline std::wstring joined(const ui::ListBox& list) {
    std::wstring text;
    for (const std::wstring& item : items(list)) text += item + L";";
    return text;
}

[[nodiscard]] inline Strings selectedItems(const ui::ListBox& list) {
    Strings all;
    for (int index = 0; index < list.count(); ++index)
        if (list.selected(index)) all.push_back(list.item(index));
    return all;
}

}  // namespace tests
