// "Settings": the automatic search, the shortcut of the manual one, the limits of the result list, the
// knowledgebase that is updated automatically, and the diagnostic log.
#pragma once

#include <array>
#include <functional>
#include <optional>

#include "settings/NumericEntryField.h"
#include "settings/frmSettings.ids.h"
#include "settings/setting_row.h"
#include "ui/form.h"

namespace vexa {

class frmSettings : public ui::OkCancelForm {
public:
    /// Shows the problem report modally over its owner. Throws where that fails.
    using ReportOpener = std::function<void(ui::Window& owner)>;

    frmSettings(Application& application, ui::Window& owner, ReportOpener openReport);

    ui::CheckBox& chkAutoInfo = control<ui::CheckBox>(IDC_chkAutoInfo);
    std::array<std::reference_wrapper<ui::OptionButton>, 2> optAutoInfo{
        control<ui::OptionButton>(IDC_optAutoInfo_0), control<ui::OptionButton>(IDC_optAutoInfo_1)};
    ui::Label& lblDelay = control<ui::Label>(IDC_lblDelay);
    ui::TextBox& txtDelay = control<ui::TextBox>(IDC_txtDelay);
    ui::UpDown& updDelay = control<ui::UpDown>(IDC_updDelay);
    ui::Label& lblDelayInfo = control<ui::Label>(IDC_lblDelayInfo);
    ui::Label& lblSearchShortcut = control<ui::Label>(IDC_lblSearchShortcut);
    ui::ComboBox& cboSearchShortcut = control<ui::ComboBox>(IDC_cboSearchShortcut);
    ui::TextBox& txtEntryCount = control<ui::TextBox>(IDC_txtEntryCount);
    ui::UpDown& updEntryCount = control<ui::UpDown>(IDC_updEntryCount);
    ui::TextBox& txtMinRel = control<ui::TextBox>(IDC_txtMinRel);
    ui::UpDown& updMinRel = control<ui::UpDown>(IDC_updMinRel);
    ui::ComboBox& cboDefaultKB = control<ui::ComboBox>(IDC_cboDefaultKB);
    ui::CheckBox& chkLoggingInformation = control<ui::CheckBox>(IDC_chkLoggingInformation);
    ui::Button& cmdSendLog = control<ui::Button>(IDC_cmdSendLog);

protected:
    void Form_Load() override;
    void cmdOK_Click() override;
    void Form_QueryUnload() override;

private:
    void connectHandlers();
    void chkAutoInfo_Click();
    void chkLoggingInformation_Click();
    void cmdSendLog_Click();

    void readDefaultProject();
    void listKnowledgebases();
    void selectDefaultKnowledgebase();
    void listShortcuts();
    void selectScope();

    void storeDefaultKnowledgebase();
    void storeScope();

    Application& application_;
    ReportOpener openReport_;
    NumericEntryField delay_;
    NumericEntryField entryCount_;
    NumericEntryField minRel_;
    SettingTable table_;
    /// For Cancel; nothing before the form has loaded and after OK.
    std::optional<ChangeFlags> flagsBefore_;
};

}  // namespace vexa
