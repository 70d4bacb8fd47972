// "Attachments": whether and which attached files are indexed, and which file extensions count.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "settings/NumericEntryField.h"
#include "settings/frmAttachment.ids.h"
#include "settings/setting_row.h"
#include "ui/form.h"
#include "ui/listbox.h"
#include "ui/tabstrip.h"

namespace vexa {

/// OK writes straight to the registry, unlike the other settings dialogs, and does not mark the page changed.
class frmAttachment : public ui::OkCancelForm {
public:
    frmAttachment(Application& application, ui::Window& owner);

    ui::TabStrip& sstAttachments = control<ui::TabStrip>(IDC_sstAttachments);
    ui::Frame& fraAttKB = control<ui::Frame>(IDC_fraAttKB);
    ui::CheckBox& chkKBAdd = control<ui::CheckBox>(IDC_chkKBAdd);
    std::array<std::reference_wrapper<ui::OptionButton>, 2> optKBAddAll{
        control<ui::OptionButton>(IDC_optKBAddAll_0), control<ui::OptionButton>(IDC_optKBAddAll_1)};
    ui::Label& lblMaxSize = control<ui::Label>(IDC_lblMaxSize);
    ui::TextBox& txtMaxSize = control<ui::TextBox>(IDC_txtMaxSize);
    ui::UpDown& updMaxSize = control<ui::UpDown>(IDC_updMaxSize);
    ui::CheckBox& chkFindAtt = control<ui::CheckBox>(IDC_chkFindAtt);
    ui::Frame& fraExtensions = control<ui::Frame>(IDC_fraExtensions);
    ui::Label& lblAvailable = control<ui::Label>(IDC_lblAvailable);
    ui::ListBox& lstAvailable = control<ui::ListBox>(IDC_lstAvailable);
    ui::Button& cmdAdd = control<ui::Button>(IDC_cmdAdd);
    ui::Button& cmdRemove = control<ui::Button>(IDC_cmdRemove);
    ui::Label& lblSelected = control<ui::Label>(IDC_lblSelected);
    ui::ListBox& lstSelected = control<ui::ListBox>(IDC_lstSelected);

protected:
    void Form_Load() override;
    void cmdOK_Click() override;

private:
    void describeControls();
    void connectHandlers();
    void sstAttachments_Click();
    void chkKBAdd_Click();
    void optKBAddAll_Click();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void lstAvailable_KeyDown(ui::KeyEvent& event);
    void lstSelected_KeyDown(ui::KeyEvent& event);

    void loadExtensions();
    [[nodiscard]] std::vector<std::wstring> readExtensions(const wchar_t* name);
    void enableSizeField(bool enabled);
    void enableMoveButtons();
    void moveSelected(ui::ListBox& source, ui::ListBox& target);
    static void moveItems(ui::ListBox& source, ui::ListBox& target);
    void showPage(int tab);
    void storeSelectedExtensions();
    /// Writes the value to the registry at once and then copies it into the settings record.
    void store(const SettingRow& row);

    Application& application_;
    NumericEntryField maxSize_;
    SettingTable table_;
    bool allSelectedShown_ = false;
    /// The controls of each tab.
    std::array<std::vector<ui::Control*>, 2> pages_;
};

}  // namespace vexa
