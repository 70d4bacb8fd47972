// "Settings": the automatic search, the shortcut of the manual one, the limits of the result list, the
// knowledgebase that is updated automatically, and the diagnostic log.
#pragma once

#include <array>
#include <functional>
#include <optional>

#include "settings/NumericEntryField.h"
#include "settings/setting_row.h"
#include "ui/form.h"

namespace vexa {

class frmSettings : public ui::Form {
public:
    /// Shows the problem report modally over its owner. Throws where that fails.
    using ReportOpener = std::function<void(ui::Window& owner)>;

    frmSettings(Application& application, ui::Window& owner, ReportOpener openReport);

    ui::CheckBox& chkAutoInfo;
    std::array<std::reference_wrapper<ui::OptionButton>, 2> optAutoInfo;
    ui::Label& lblDelay;
    ui::TextBox& txtDelay;
    ui::UpDown& updDelay;
    ui::Label& lblDelayInfo;
    ui::Label& lblSearchShortcut;
    ui::ComboBox& cboSearchShortcut;
    ui::TextBox& txtEntryCount;
    ui::UpDown& updEntryCount;
    ui::TextBox& txtMinRel;
    ui::UpDown& updMinRel;
    ui::ComboBox& cboDefaultKB;
    ui::CheckBox& chkLoggingInformation;
    ui::Button& cmdSendLog;
    ui::Button& cmdOk;
    ui::Button& cmdCancel;

protected:
    void Form_Load() override;
    void Form_QueryUnload() override;

private:
    void connectHandlers();
    void chkAutoInfo_Click();
    void chkLoggingInformation_Click();
    void cmdSendLog_Click();
    void cmdOK_Click();

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
