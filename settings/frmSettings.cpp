#include "settings/frmSettings.h"

#include "common/guarded.h"
#include "common/knowledgebase_names.h"

namespace vexa {
namespace {

/// `FindShortcut` is an index into this table.
constexpr std::array SHORTCUTS{L"Ctrl+S", L"Shift+F3"};

constexpr int NO_KNOWLEDGEBASE_INDEX = 0;

std::wstring selectedText(const ui::ComboBox& combo) {
    return combo.selectedIndex() < 0 ? std::wstring() : combo.item(combo.selectedIndex());
}

/// 0 where no item is equal.
int indexOf(const ui::ComboBox& combo, const std::wstring& text) {
    for (int index = 0; index < combo.count(); ++index)
        if (combo.item(index) == text) return index;
    return 0;
}

}  // namespace

frmSettings::frmSettings(Application& application, ui::Window& owner, ReportOpener openReport)
    : OkCancelForm(application.screen.createDialog(IDD_frmSettings, &owner)),
      application_(application),
      openReport_(std::move(openReport)),
      delay_(txtDelay, updDelay, boundsOf(&Settings::AutoFindDelay), application.platform.conversions),
      entryCount_(txtEntryCount, updEntryCount, boundsOf(&Settings::MaxEntries),
                  application.platform.conversions),
      minRel_(txtMinRel, updMinRel, boundsOf(&Settings::MinRel), application.platform.conversions),
      table_{{updEntryCount, &Settings::MaxEntries},
             {updMinRel, &Settings::MinRel},
             {chkAutoInfo, &Settings::AutoInfo},
             {updDelay, &Settings::AutoFindDelay},
             {cboSearchShortcut, &Settings::FindShortcut},
             {chkLoggingInformation, &Settings::LoggingInformation}} {
    connectHandlers();
}

void frmSettings::connectHandlers() {
    // Range and unit, as they stand behind the fields.
    txtDelay.setDescription(lblDelayInfo.text());
    txtMinRel.setDescription(control<ui::Label>(IDC_lblMinRelPercent).text());
    chkAutoInfo.onClick = [this] { chkAutoInfo_Click(); };
    chkLoggingInformation.onClick = [this] { chkLoggingInformation_Click(); };
    cmdSendLog.onClick = [this] { cmdSendLog_Click(); };
}

// --- Loading ----------------------------------------------------------------------------------------------

void frmSettings::Form_Load() {
    flagsBefore_ = application_.flags;
    application_.flags.defaultKnowledgebaseChanged = false;
    application_.flags.shortcutChanged = false;
    attempt([&] { readDefaultProject(); });
    attempt([&] { listKnowledgebases(); });
    attempt([&] { selectDefaultKnowledgebase(); });
    attempt([&] { listShortcuts(); });
    loadTable(table_, application_.settings);
    attempt([&] { selectScope(); });
    chkAutoInfo_Click();
    chkLoggingInformation_Click();
}

void frmSettings::readDefaultProject() {
    // Unlike the page's own reading, a missing name is none: the dialog starts from what is stored.
    Setting setting = settingOf(&Settings::DefaultProject);
    setting.defaultValue = std::wstring();
    application_.load(setting);
}

void frmSettings::listKnowledgebases() {
    cboDefaultKB.add(NO_KNOWLEDGEBASE);
    const std::int32_t count = knowledgebaseCount(application_);
    for (std::int32_t index = 1; index <= count; ++index) {
        const std::wstring name = knowledgebaseName(application_, index, L"");
        if (!name.empty()) cboDefaultKB.add(name);
    }
}

void frmSettings::selectDefaultKnowledgebase() {
    cboDefaultKB.select(indexOf(cboDefaultKB, application_.settings.DefaultProject));
}

void frmSettings::listShortcuts() {
    for (const wchar_t* shortcut : SHORTCUTS) cboSearchShortcut.add(shortcut);
}

void frmSettings::selectScope() {
    // Of two that are both stored the second wins; where none is stored the first is shown.
    optAutoInfo[application_.settings.AutoFindAll ? 1 : 0].get().setSelected(true);
}

// --- Enabling ---------------------------------------------------------------------------------------------

void frmSettings::chkAutoInfo_Click() {
    attempt([&] {
        const bool automatic = chkAutoInfo.checked();
        for (ui::Control* control : std::initializer_list<ui::Control*>{
                 &optAutoInfo[0].get(), &optAutoInfo[1].get(), &lblDelay, &txtDelay, &updDelay})
            control->setEnabled(automatic);
        lblSearchShortcut.setEnabled(!automatic);
        cboSearchShortcut.setEnabled(!automatic);
    });
}

void frmSettings::chkLoggingInformation_Click() {
    attempt([&] { cmdSendLog.setEnabled(chkLoggingInformation.checked()); });
}

// --- Report -----------------------------------------------------------------------------------------------

void frmSettings::cmdSendLog_Click() {
    guarded(application_, L"frmSettings", L"SendLog", [&] { openReport_(window()); });
}

// --- Storing ----------------------------------------------------------------------------------------------

void frmSettings::cmdOK_Click() {
    attempt([&] { storeDefaultKnowledgebase(); });
    const std::int32_t shortcut = application_.settings.FindShortcut;
    storeTable(table_, application_);
    if (application_.settings.FindShortcut != shortcut) application_.flags.shortcutChanged = true;
    storeScope();
    flagsBefore_.reset();
}

void frmSettings::Form_QueryUnload() {
    // What an earlier OK changed still waits for Apply: the add-in must hear of it.
    if (flagsBefore_) application_.flags = *flagsBefore_;
}

void frmSettings::storeDefaultKnowledgebase() {
    const std::wstring name = selectedText(cboDefaultKB);
    // "<None>" differs from the empty name that stands for it, so that keeping it counts as a change.
    if (name != application_.settings.DefaultProject) {
        application_.flags.dialogChanged = true;
        application_.flags.defaultKnowledgebaseChanged = true;
    }
    const bool none = cboDefaultKB.selectedIndex() == NO_KNOWLEDGEBASE_INDEX;
    application_.settings.DefaultProject = none ? std::wstring() : name;
}

void frmSettings::storeScope() {
    Settings& settings = application_.settings;
    const bool unread = optAutoInfo[0].get().selected();
    const bool all = optAutoInfo[1].get().selected();
    if (unread != settings.AutoFindUnread || all != settings.AutoFindAll)
        application_.flags.dialogChanged = true;
    settings.AutoFindUnread = settings.AutoInfo && unread;
    settings.AutoFindAll = settings.AutoInfo && !unread;
}

}  // namespace vexa
