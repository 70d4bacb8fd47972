// "Knowledgebases": the list of all knowledgebases and the commands on them. The add-in carries every command
// out; meanwhile the dialog is locked.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/addin_contract.h"
#include "common/application.h"
#include "kb/auto_update.h"
#include "kb/command_gate.h"
#include "kb/frmKBConfiguration.ids.h"
#include "kb/knowledgebase_list.h"
#include "kb/lock_view.h"
#include "kb/naming.h"
#include "kb/process_lock.h"
#include "kb/row_commands.h"
#include "kb/status_line.h"
#include "ui/form.h"

namespace vexa {

class frmKBConfiguration : public ui::Form {
public:
    frmKBConfiguration(Application& application, ui::Window& owner);

    // Events.
    /// A command for the add-in. False where it has not reached the add-in, and will never end.
    std::function<bool(bool& bProcessing, std::wstring& strName, std::int32_t& nAction)> KBClick;
    /// The auto-update knowledgebase in the settings record is another one now.
    std::function<void()> DefaultKBChanged;
    /// The user asks for the base folder of the knowledgebases.
    std::function<void()> BaseFolderRequested;

    ui::Grid& sftKBConfiguration = control<ui::Grid>(IDC_sftKBConfiguration);
    ui::Button& cmdAdd = control<ui::Button>(IDC_KB_cmdAdd);
    ui::Button& cmdEdit = control<ui::Button>(IDC_cmdEdit);
    ui::Button& cmdRename = control<ui::Button>(IDC_cmdRename);
    ui::Button& cmdRemove = control<ui::Button>(IDC_KB_cmdRemove);
    ui::Button& cmdRebuild = control<ui::Button>(IDC_cmdRebuild);
    ui::Button& cmdUpdate = control<ui::Button>(IDC_cmdUpdate);
    ui::Button& cmdBaseFolder = control<ui::Button>(IDC_cmdBaseFolder);
    ui::Button& cmdApply = control<ui::Button>(IDC_cmdApply);
    ui::Button& cmdCancel = control<ui::Button>(IDC_cmdCancel);
    ui::Label& lblDebugInfo = control<ui::Label>(IDC_lblDebugInfo);
    ui::Label& lblStatus = control<ui::Label>(IDC_lblStatus);

    [[nodiscard]] bool locked() const { return lock_.locked(); }
    /// What the next click on each column header sorts by: 1 ascending, 0 descending.
    [[nodiscard]] const std::vector<std::int32_t>& nextOrders() const { return list_.nextOrders(); }

protected:
    void Form_Load() override;
    void Form_QueryUnload() override;

private:
    void connectHandlers();
    void connectAddIn();
    void trace(const std::wstring& text);

    // What the user does.
    void CaretChange();
    void BeginEdit(int row);
    void EndEdit(const ui::GridEdit& edit);
    void guardMouse(ui::MouseEvent& event) noexcept;

    // The commands.
    void addKnowledgebase();
    void editKnowledgebase(int row);
    void renameKnowledgebase();
    void removeKnowledgebase();
    void runOnCurrent(KBEvent event, bool letEventsRun);
    /// Locks the dialog and hands the command over; false where it has not reached the add-in.
    bool process(KBEvent event, const std::wstring& name, bool letEventsRun);
    [[nodiscard]] bool raiseKBClick(std::wstring name, KBEvent event);

    // What follows an accepted name.
    void PostEdit(const ui::GridEdit& edit);
    void finishRename(const Naming::Renaming& renamed);
    void finishNewProject(const Naming::Adding& added);
    /// The add-in has not taken a name: the list shows those that it has.
    void readListAfterRefusal(const std::wstring& current);
    void undoNaming();

    // The list.
    void UpdateListView(bool bFromLoad);
    void selectIgnoringCase(const std::wstring& name);

    // Processing.
    void lockWhileProcessing();
    [[nodiscard]] std::wstring whatRuns();
    void mvarTeskAddIn_ProcessFinished(const std::wstring& strProject, bool bKeepList);
    void tmrLock_Timer();
    void endByTick();
    void RefreshEditedKB();

    Application& application_;
    /// The add-in that this dialog works with, whatever pages come and go meanwhile; null where none ran.
    std::shared_ptr<AddIn> mvarTeskAddIn;
    KnowledgebaseList list_;
    RowCommands commands_;
    AutoUpdate autoUpdate_;
    Naming naming_;
    StatusLine status_;
    LockView lockView_;
    ProcessLock lock_;
    CommandGate gate_;
    std::unique_ptr<EventConnection> connection_;
};

}  // namespace vexa
