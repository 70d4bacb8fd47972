// The options page: its life cycle, the property page contract and the commands of its buttons.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include "common/addin_contract.h"
#include "common/application.h"
#include "common/guarded.h"
#include "common/raised.h"
#include "page/ctlPPE.ids.h"
#include "page/pace.h"
#include "page/page_site.h"
#include "ui/form.h"

namespace vexa {

class frmKBConfiguration;

class ctlPPE : public ui::Form {
public:
    /// `window` is made from the template IDD_ctlPPE. `application` and `site` outlive the page.
    ctlPPE(Application& application, std::unique_ptr<ui::Window> window, PageSite& site);

    /// Start: connects to the add-in, loads the settings, publishes the message handle, starts the poll.
    void UserControl_Initialize() noexcept;
    /// End: withdraws the message handle.
    void UserControl_Terminate() noexcept;

    /// Writes every setting to the registry and tells the add-in of changed ones.
    void PropertyPage_Apply() noexcept;
    /// The page holds edits that Apply has not written.
    [[nodiscard]] bool PropertyPage_Dirty() const noexcept { return Changed_; }

    /// Tells the host that there is something to apply; does nothing while the page loads.
    void MarkChanged();

    // Events of the knowledgebase dialog.
    /// Whether the add-in or its search window has the command now; false where nobody will carry it out.
    bool m_KBForm_KBClick(bool& bProcessing, std::wstring& strName, std::int32_t& nAction);
    void m_KBForm_DefaultKBChanged() noexcept;

    ui::Button& cmdMsg = control<ui::Button>(IDC_cmdMsg);
    ui::Button& cmdKnowledgeBase = control<ui::Button>(IDC_cmdKnowledgeBase);
    ui::Button& cmdSettings = control<ui::Button>(IDC_cmdSettings);
    ui::Button& cmdAttachments = control<ui::Button>(IDC_cmdAttachments);
    ui::Button& cmdDispMatches = control<ui::Button>(IDC_cmdDispMatches);
    ui::Button& cmdWizard = control<ui::Button>(IDC_cmdWizard);

protected:
    void Form_Resize() override;

private:
    /// The parts of one row of the page.
    struct Row {
        ui::Line& line;
        ui::Label& caption;
        ui::Label& description;
        ui::Picture& picture;
        ui::Button& button;
        /// What the button is for, as the template says it.
        std::wstring purpose = description.text();
        /// What the description says instead while the button is disabled; else null.
        const wchar_t* reason = nullptr;
    };

    void connectHandlers();
    /// Whether this start has found the add-in.
    bool connectAddIn();
    void loadSettings();
    /// Runs every step and then throws the first error that any of them met.
    void apply();
    void publishMessageHandle();
    void setButtons();
    void disableButtons();
    void askWizardRule();
    /// What the rule or the add-in says of the wizard holds until one of them says something else.
    void offerWizard(bool offered);
    /// Says in the rows what their buttons are for, or why they are disabled.
    void explainRows();
    void layOut();
    void placeRow(Row& row, int top);
    /// The name in front of the page's log lines.
    [[nodiscard]] std::wstring name() noexcept;
    void trace(const std::wstring& text);
    /// Runs a handler's body; its error goes to the log.
    template <class Body>
    void runLogged(const wchar_t* procedure, Body body) noexcept {
        try {
            body();
        } catch (...) {
            logCurrentError(application_, name().c_str(), procedure);
        }
    }

    /// Shows a dialog made from the application, the page's window and `more`.
    template <class Dialog, class... More>
    void showSettingsDialog(const wchar_t* procedure, More&&... more);
    void markChangedByDialog();

    void cmdKnowledgeBase_Click();
    void connectKBForm(frmKBConfiguration& form);
    void showBaseFolder(ui::Window& owner);
    void cmdWizard_Click();
    void cmdMsg_KeyDown(const ui::KeyEvent& event);
    void cmdMsg_MouseMove(const ui::MouseEvent& event);
    void tmrChkSearching_Timer();
    bool forwardEvent(bool flag, const std::wstring& knowledgebase, std::int32_t action);

    Application& application_;
    PageSite& site_;
    std::unique_ptr<ui::Timer> tmrChkSearching_;
    std::array<Row, 5> rows_;
    bool Changed_ = false;
    bool IsLoading_ = false;
    bool loggingAtLoad_ = false;
    int connectionAttempts_ = 0;
    std::optional<Counted> live_;
    std::wstring publishedBelow_;  ///< the key that holds this page's hWndProperties
    Pace wizardRule_;
    bool wizardOffered_ = false;
    bool polling_ = false;
    bool lettingEventsRun_ = false;
};

}  // namespace vexa
