#include "page/ctlPPE.h"

#include <exception>
#include <utility>

#include "common/knowledgebase_names.h"
#include "common/product_names.h"
#include "kb/frmKBConfiguration.h"
#include "kb/frmKnowledgeBase.h"
#include "page/wizard_rule.h"
#include "report/frmSendBugReport.h"
#include "settings/frmAttachment.h"
#include "settings/frmDispMatches.h"
#include "settings/frmSettings.h"

namespace vexa {
namespace {

constexpr int MOST_CONNECTION_ATTEMPTS = 100;
constexpr int CONNECTION_PAUSE = 100;  // milliseconds
constexpr int POLL_INTERVAL = 250;     // milliseconds
// Why buttons are disabled.
constexpr const wchar_t* SEARCHING = L"The add-in is searching. Please wait until it has finished.";
constexpr const wchar_t* NO_WIZARD = L"Offered while no knowledgebase has content and the add-in is idle.";

ui::Message addInMissing() {
    return {L"Failed to get AddIn.", COMPONENT_TITLE, ui::MessageIcon::none, ui::MessageButtons::ok};
}

/// Runs steps one by one and keeps the first error, so that it can be reported when all have run.
class FirstError {
public:
    template <class Step>
    void watch(Step step) {
        try {
            step();
        } catch (...) {
            if (!error_) error_ = std::current_exception();
        }
    }
    void rethrow() const {
        if (error_) std::rethrow_exception(error_);
    }

private:
    std::exception_ptr error_;
};

}  // namespace

ctlPPE::ctlPPE(Application& application, std::unique_ptr<ui::Window> pageWindow, PageSite& site)
    : Form(std::move(pageWindow)),
      application_(application),
      site_(site),
      tmrChkSearching_(window().createTimer()),
      rows_{{
          {control<ui::Line>(IDC_lneKnowledgeBase), control<ui::Label>(IDC_lblKnowledgeBase),
           control<ui::Label>(IDC_lblKnowledgeBaseInfo), control<ui::Picture>(IDC_picKnowledgeBase),
           cmdKnowledgeBase},
          {control<ui::Line>(IDC_lneSettings), control<ui::Label>(IDC_lblSettings),
           control<ui::Label>(IDC_lblSettingsInfo), control<ui::Picture>(IDC_picSettings), cmdSettings},
          {control<ui::Line>(IDC_lneAttachments), control<ui::Label>(IDC_lblAttachments),
           control<ui::Label>(IDC_lblAttachmentsInfo), control<ui::Picture>(IDC_picAttachments),
           cmdAttachments},
          {control<ui::Line>(IDC_lneDispMatches), control<ui::Label>(IDC_lblDispMatches),
           control<ui::Label>(IDC_lblDispMatchesInfo), control<ui::Picture>(IDC_picDispMatches),
           cmdDispMatches},
          {control<ui::Line>(IDC_lneWizard), control<ui::Label>(IDC_lblWizard),
           control<ui::Label>(IDC_lblWizardInfo), control<ui::Picture>(IDC_picWizard), cmdWizard},
      }},
      wizardRule_(application.platform.clock) {
    connectHandlers();
    Form_Resize();
}

void ctlPPE::connectHandlers() {
    for (Row& row : rows_) row.button.setDescription(row.purpose);
    cmdKnowledgeBase.onClick = [this] { cmdKnowledgeBase_Click(); };
    cmdSettings.onClick = [this] {
        showSettingsDialog<frmSettings>(L"cmdSettings_Click",
                                        [this](ui::Window& dialog) { showBugReport(application_, dialog); });
    };
    cmdAttachments.onClick = [this] { showSettingsDialog<frmAttachment>(L"cmdAttachments_Click"); };
    cmdDispMatches.onClick = [this] { showSettingsDialog<frmDispMatches>(L"cmdDispMatches_Click"); };
    cmdWizard.onClick = [this] { cmdWizard_Click(); };
    cmdWizard.onGotFocus = [this] { application_.WriteLogLine(L"ctlPPEcmdWizard got focus."); };
    cmdMsg.onKeyDown = [this](const ui::KeyEvent& event) { cmdMsg_KeyDown(event); };
    cmdMsg.onMouseMove = [this](const ui::MouseEvent& event) { cmdMsg_MouseMove(event); };
    tmrChkSearching_->onTimer = [this] { tmrChkSearching_Timer(); };
}

// --- Life cycle -------------------------------------------------------------------------------------------

void ctlPPE::UserControl_Initialize() noexcept {
    attempt([&] { tmrChkSearching_->stop(); });
    live_.emplace(application_.livePages);
    bool connected = false;
    attempt([&] { application_.SetPointerHourglass(); });
    attempt([&] { connected = connectAddIn(); });
    attempt([&] { application_.SetPointerDefault(); });
    attempt([&] {
        if (connected)
            tmrChkSearching_->start(POLL_INTERVAL);
        else
            application_.screen.showMessage(&window(), addInMissing());
    });
    IsLoading_ = true;
    loadSettings();
    loggingAtLoad_ = application_.settings.LoggingInformation;
    attempt([&] { askWizardRule(); });
    attempt([&] { publishMessageHandle(); });
    attempt([&] { setButtons(); });
    attempt([&] {
        application_.WriteLogLine(L"Trials to get OlAddIn: " + std::to_wstring(connectionAttempts_) + L".");
    });
    attempt([&] { trace(L", initialized."); });
    Changed_ = false;
    IsLoading_ = false;
}

bool ctlPPE::connectAddIn() {
    connectionAttempts_ = 0;
    std::shared_ptr<AddIn> found;
    // Another page that lives goes on with the add-in that it has, should this one find none.
    if (application_.livePages == 1) application_.addIn.reset();
    while (!found && connectionAttempts_ < MOST_CONNECTION_ATTEMPTS) {
        ++connectionAttempts_;
        found = application_.platform.addIns.running();
        application_.platform.clock.sleep(CONNECTION_PAUSE);
    }
    if (found) application_.addIn = found;
    return found != nullptr;
}

void ctlPPE::loadSettings() {
    attempt([&] { application_.loadProfileKey(); });
    attempt([&] { application_.loadLogPath(); });
    for (const Setting& setting : settingsCatalogue()) attempt([&] { application_.load(setting); });
}

void ctlPPE::publishMessageHandle() {
    publishedBelow_ = application_.ProfileKey;
    application_.writeInteger(publishedBelow_, valueName::hWndProperties,
                              static_cast<std::int32_t>(cmdMsg.handle()));
}

void ctlPPE::UserControl_Terminate() noexcept {
    live_.reset();
    attempt([&] { tmrChkSearching_->stop(); });
    // Another page may have set another profile since.
    attempt([&] { application_.deleteValue(publishedBelow_, valueName::hWndProperties); });
    attempt([&] { trace(L", terminated."); });
}

std::wstring ctlPPE::name() noexcept {
    std::wstring displayName;
    // A container that fails to tell the control's name is as good as one that gives none.
    attempt([&] { displayName = site_.displayName(); });
    if (displayName.empty()) displayName = L"ctlPPE";
    return displayName;
}

void ctlPPE::trace(const std::wstring& text) { application_.WriteLogLine(name() + text); }

// --- Property page ----------------------------------------------------------------------------------------

void ctlPPE::PropertyPage_Apply() noexcept {
    runLogged(L"PropertyPage_Apply", [&] { apply(); });
}

void ctlPPE::apply() {
    const Settings& settings = application_.settings;
    FirstError failure;
    failure.watch(
        [&] { trace(L", PropertyPage_Apply: " + std::to_wstring(settings.ProjectCount) + L" projects."); });
    for (const Setting* setting : applyOrder()) failure.watch([&] { application_.store(*setting); });
    // A call may let events run in which another page connects anew.
    const std::shared_ptr<AddIn> addIn = application_.addIn;
    if (addIn && application_.flags.defaultKnowledgebaseChanged)
        failure.watch([&] { addIn->SetDefaultKnowledgebase(settings.DefaultProject); });
    if (addIn && application_.flags.shortcutChanged)
        failure.watch([&] { addIn->SetFindShortcut(settings.FindShortcut); });
    Changed_ = false;
    application_.flags = {};
    if (settings.LoggingInformation != loggingAtLoad_) {
        loggingAtLoad_ = settings.LoggingInformation;
        if (addIn) failure.watch([&] { addIn->SetLogging(loggingAtLoad_); });
    }
    failure.rethrow();
}

void ctlPPE::m_KBForm_DefaultKBChanged() noexcept {
    runLogged(L"m_KBForm_DefaultKBChanged", [&] { apply(); });
}

void ctlPPE::MarkChanged() {
    if (IsLoading_) return;
    Changed_ = true;
    site_.onStatusChange();
}

// --- Commands ---------------------------------------------------------------------------------------------

template <class Dialog, class... More>
void ctlPPE::showSettingsDialog(const wchar_t* procedure, More&&... more) {
    runLogged(procedure, [&] {
        Dialog(application_, window(), std::forward<More>(more)...).Show();
        markChangedByDialog();
    });
}

void ctlPPE::markChangedByDialog() {
    if (application_.flags.dialogChanged) MarkChanged();
}

void ctlPPE::cmdKnowledgeBase_Click() {
    runLogged(L"cmdKnowledgeBase_Click", [&] {
        {
            frmKBConfiguration kbForm(application_, window());
            connectKBForm(kbForm);
            trace(L", showing kb configuration dialog.");
            kbForm.Show();
        }
        markChangedByDialog();
        askWizardRule();
        application_.DoEvents();
    });
}

void ctlPPE::connectKBForm(frmKBConfiguration& form) {
    form.KBClick = [this](bool& bProcessing, std::wstring& strName, std::int32_t& nAction) {
        return m_KBForm_KBClick(bProcessing, strName, nAction);
    };
    form.DefaultKBChanged = [this] { m_KBForm_DefaultKBChanged(); };
    form.BaseFolderRequested = [this, &form] { showBaseFolder(form.window()); };
}

void ctlPPE::showBaseFolder(ui::Window& owner) {
    runLogged(L"showBaseFolder", [&] {
        frmKnowledgeBase(application_, owner).Show();
        if (!application_.bBaseDirChanged) return;
        application_.bBaseDirChanged = false;
        application_.flags.dialogChanged = true;
    });
}

void ctlPPE::cmdWizard_Click() {
    runLogged(L"cmdWizard_Click", [&] {
        const bool anyKnowledgebase =
            application_.readInteger(application_.ProfileKey, valueName::ProjectCount, 0) != 0;
        const std::wstring knowledgebase =
            anyKnowledgebase ? application_.readText(application_.ProfileKey, valueName::Projectname,
                                                     DEFAULT_KNOWLEDGEBASE)
                             : DEFAULT_KNOWLEDGEBASE;
        forwardEvent(false, knowledgebase, static_cast<std::int32_t>(KBEvent::wizard));
    });
}

// --- Button state -----------------------------------------------------------------------------------------

void ctlPPE::setButtons() {
    for (ui::Button* button : {&cmdKnowledgeBase, &cmdSettings, &cmdAttachments, &cmdDispMatches})
        button->setEnabled(true);
    if (wizardRule_.due())
        askWizardRule();
    else
        cmdWizard.setEnabled(wizardOffered_);
    explainRows();
}

void ctlPPE::disableButtons() {
    for (ui::Button* button : {&cmdKnowledgeBase, &cmdWizard, &cmdSettings, &cmdAttachments, &cmdDispMatches})
        button->setEnabled(false);
    explainRows();
}

void ctlPPE::askWizardRule() {
    const Pace::Question question(wizardRule_);
    offerWizard(wizardAllowed(application_));
}

void ctlPPE::offerWizard(bool offered) {
    wizardOffered_ = offered;
    cmdWizard.setEnabled(offered);
    explainRows();
}

void ctlPPE::explainRows() {
    const wchar_t* reason = cmdSettings.enabled() ? NO_WIZARD : SEARCHING;
    for (Row& row : rows_) {
        const wchar_t* const now = row.button.enabled() ? nullptr : reason;
        // Screen readers and the screen are spared what they know.
        if (now == row.reason) continue;
        const std::wstring text = now != nullptr ? now : row.purpose;
        row.description.setText(text);
        row.button.setDescription(text);
        row.reason = now;
    }
}

void ctlPPE::tmrChkSearching_Timer() {
    // An add-in that handles messages while it is asked lets the next tick in.
    if (polling_) return;
    const Raised polling(polling_);
    // An add-in that has gone away does not search: the buttons come back.
    const bool searching = application_.ask(&AddIn::IsSearching);
    attempt([&] { searching ? disableButtons() : setButtons(); });
}

void ctlPPE::cmdMsg_KeyDown(const ui::KeyEvent& event) {
    runLogged(L"cmdMsg_KeyDown", [&] {
        if (event.key == wizardSwitch::on) offerWizard(true);
        if (event.key == wizardSwitch::off) offerWizard(false);
        trace(L", cmdMsg_KeyDown.");
    });
}

void ctlPPE::cmdMsg_MouseMove(const ui::MouseEvent& event) {
    runLogged(L"cmdMsg_MouseMove", [&] {
        if (event.x == wizardSwitch::on) offerWizard(true);
        if (event.x == wizardSwitch::off) offerWizard(false);
        trace(L", cmdMsg_MouseMove.");
        // Moves that wait already are handled by the first one's pending events, not one inside the other.
        if (lettingEventsRun_) return;
        const Raised letting(lettingEventsRun_);
        application_.DoEvents();
    });
}

// --- Layout -----------------------------------------------------------------------------------------------

void ctlPPE::Form_Resize() {
    attempt([&] { layOut(); });
}

}  // namespace vexa
