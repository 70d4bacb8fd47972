// "Attachments": whether and which attached files are indexed, and which file extensions count.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "settings/NumericEntryField.h"
#include "settings/setting_row.h"
#include "ui/form.h"
#include "ui/listbox.h"
#include "ui/tabstrip.h"

namespace vexa {

/// OK writes straight to the registry, unlike the other settings dialogs, and does not mark the page changed.
class frmAttachment : public ui::Form {
public:
    frmAttachment(Application& application, ui::Window& owner);

    ui::TabStrip& sstAttachments;
    ui::Frame& fraAttKB;
    ui::CheckBox& chkKBAdd;
    std::array<std::reference_wrapper<ui::OptionButton>, 2> optKBAddAll;
    ui::Label& lblMaxSize;
    ui::TextBox& txtMaxSize;
    ui::UpDown& updMaxSize;
    ui::CheckBox& chkFindAtt;
    ui::Frame& fraExtensions;
    ui::Label& lblAvailable;
    ui::ListBox& lstAvailable;
    ui::Button& cmdAdd;
    ui::Button& cmdRemove;
    ui::Label& lblSelected;
    ui::ListBox& lstSelected;
    ui::Button& cmdOk;
    ui::Button& cmdCancel;

protected:
    void Form_Load() override;

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
    void cmdOK_Click();

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
