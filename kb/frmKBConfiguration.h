// "Knowledgebases": the list of all knowledgebases and the commands on them. The add-in carries every command
// out; meanwhile the dialog is locked.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/addin_contract.h"
#include "common/application.h"
#include "kb/knowledgebase_record.h"
#include "kb/row_order.h"
#include "ui/form.h"

namespace vexa {

class frmKBConfiguration : public ui::Form {
public:
    frmKBConfiguration(Application& application, ui::Window& owner);

    // Events.
    /// A command for the add-in.
    std::function<void(bool& bProcessing, std::wstring& strName, std::int32_t& nAction)> KBClick;
    /// The auto-update knowledgebase in the settings record is another one now.
    std::function<void()> DefaultKBChanged;
    /// The user asks for the base folder of the knowledgebases.
    std::function<void()> BaseFolderRequested;

    ui::Grid& sftKBConfiguration;
    ui::Button& cmdAdd;
    ui::Button& cmdEdit;
    ui::Button& cmdRename;
    ui::Button& cmdRemove;
    ui::Button& cmdRebuild;
    ui::Button& cmdUpdate;
    ui::Button& cmdBaseFolder;
    ui::Button& cmdApply;
    ui::Button& cmdCancel;
    ui::Label& lblDebugInfo;

    [[nodiscard]] bool locked() const { return bLocked; }
    /// What the next click on each column header sorts by: 1 ascending, 0 descending.
    [[nodiscard]] const std::array<std::int32_t, column::count>& nextOrders() const { return nNextOrder; }

protected:
    void Form_Load() override;
    void Form_QueryUnload() override;

private:
    void connectHandlers();
    void connectAddIn();
    void trace(const std::wstring& text);

    // The list (frmKBConfiguration.cpp).
    void UpdateListView(bool bFromLoad);
    /// Empties the list and returns the number of knowledgebases to fill it with.
    [[nodiscard]] std::int32_t clearForFill();
    void fillList(std::int32_t count);
    [[nodiscard]] ui::GridRow rowOf(const std::wstring& name);
    void sortList();
    void restoreSort();
    void showSortArrow();
    void HeaderClick(int column);
    void CaretChange();
    void ItemClick();
    void applyDocumentsRule();
    void showButtonsForList();
    /// All commands as the list allows them, after something that had disabled them.
    void restoreButtons();
    void selectCurrentKnowledgebase();
    void selectEach(const std::wstring& name);
    /// The first row with exactly this name; -1 where there is none.
    [[nodiscard]] int findRow(const std::wstring& name) const;
    [[nodiscard]] int findRowIgnoringCase(const std::wstring& name) const;
    [[nodiscard]] std::wstring nameOf(int row) const {
        return sftKBConfiguration.cellText(row, column::name);
    }
    void setRowCommands(bool enabled);

    // The commands (frmKBConfiguration_commands.cpp).
    /// Runs a command's body where nothing else is running; its errors leave the dialog as it is.
    void command(const std::function<void()>& body) noexcept;
    [[nodiscard]] bool addInIsFree();
    void raiseKBClick(std::wstring name, KBEvent event);
    void raiseDefaultKBChanged();
    void addKnowledgebase();
    [[nodiscard]] std::wstring GetNewKBName();
    void editCurrentRow();
    void editKnowledgebase(int row);
    void renameKnowledgebase();
    void removeKnowledgebase();
    [[nodiscard]] bool confirmRemoval(const std::wstring& name);
    void chooseNextDefault(int rowsBefore);
    void rebuildKnowledgebase();
    void updateKnowledgebase();
    /// `row` where it still has this name, else the first one that has it; -1 where none has.
    [[nodiscard]] int rowStillNamed(int row, const std::wstring& name) const;
    void DoubleClick(int row);
    void BeginEdit(int row);
    void requestBaseFolder();
    void guardMouse(ui::MouseEvent& event) noexcept;

    // Naming in the list (frmKBConfiguration_naming.cpp).
    /// Accepts a name that is still being edited; false where it was refused and is being edited again.
    [[nodiscard]] bool nameIsFinished() noexcept;
    void EndEdit(const ui::GridEdit& edit);
    void PostEdit(const ui::GridEdit& edit);
    void undoEdit();
    /// The list is about to be read anew: what is being edited in it, or waits for another name, is
    /// forgotten.
    void endEditForRefill();
    /// Takes away a row that the add-in has not been told of.
    void removeNewRow();
    [[nodiscard]] bool nameIsAllowed(int row, const std::wstring& name);
    void refuse(int row, const std::wstring& why);
    [[nodiscard]] bool KBNameExists(const std::wstring& name, int exceptRow);
    [[nodiscard]] bool CheckCharacter(const std::wstring& name);
    void finishRename(const std::wstring& name);
    void finishNewProject(const std::wstring& name);
    void offerAutoUpdate(const std::wstring& name);
    [[nodiscard]] int placeNamedRow(const std::wstring& name, const wchar_t* what);

    // Locking (frmKBConfiguration_lock.cpp).
    void lockWhileProcessing();
    void LockForm(bool bAutoUpdate, bool bNoWrite);
    void showLocked(bool bAutoUpdate, bool bNoWrite);
    void setLocked();
    void startLockTimer();
    void stopLockTimer();
    /// Locks the dialog for a command; where events that arrive meanwhile unlock it, locks it again.
    void lockForCommand(bool letEventsRun);
    void mvarTeskAddIn_ProcessFinished(const std::wstring& strProject, bool bKeepList);
    void endRemoval(const std::wstring& project);
    void tmrLock_Timer();
    void endProcessing();
    /// Unlocks the dialog, whatever of an end of processing has failed.
    void unlock() noexcept;
    void RefreshEditedKB();
    [[nodiscard]] bool refreshRow(const std::wstring& name);
    void selectEdited(const std::wstring& name);

    Application& application_;
    /// The add-in that this dialog works with, whatever pages come and go meanwhile; null where none ran.
    std::shared_ptr<AddIn> mvarTeskAddIn;
    std::unique_ptr<ui::Timer> tmrLock_;
    RowSorter rowSorter_;
    std::array<std::reference_wrapper<ui::Button>, 6> rowCommands_;
    std::unique_ptr<EventConnection> connection_;

    bool bLocked = false;
    /// A row is in the list that the add-in has not been told of.
    bool bNewProject = false;
    bool bRenaming = false;
    bool bRemoving = false;
    bool bEditCancelled = false;
    int nEditIndex = -1;
    std::wstring strOldName;
    std::wstring strNewName;
    std::wstring strRemovedName;
    /// The knowledgebase that was current when a new row was added.
    std::wstring strNameBeforeAdd_;

    int nSortColumn = column::name;
    std::int32_t nSortOrder = 0;
    std::int32_t nSortType = 0;
    std::array<std::int32_t, column::count> nNextOrder{};

    /// A command is being started: until it has locked the dialog, no other one begins.
    bool busy_ = false;
    bool closed_ = false;
    /// The list shows all knowledgebases; false from the clearing to the end of a fill.
    bool filled_ = false;
    /// The saved sort has been taken over.
    bool sortRestored_ = false;
    /// Counts fills and ends of processing, so that a step that let events run knows of those in it.
    unsigned fills_ = 0;
    unsigned ends_ = 0;
};

}  // namespace vexa
