#include "kb/frmKBConfiguration.h"

#include "common/guarded.h"
#include "common/knowledgebase_names.h"
#include "kb/fill_progress.h"
#include "kb/form_name.h"
#include "kb/messages.h"

// Where a call lets events run, a comment says what they may have done by the time it returns: an end of
// processing unlocks the dialog and may have read the list anew, and the host may have closed the dialog.

namespace vexa {

frmKBConfiguration::frmKBConfiguration(Application& application, ui::Window& owner)
    : Form(application.screen.createDialog(IDD_frmKBConfiguration, &owner)),
      application_(application),
      mvarTeskAddIn(application.addIn),
      list_(application, sftKBConfiguration),
      commands_(application, list_, {cmdAdd, cmdEdit, cmdRename, cmdRemove, cmdRebuild, cmdUpdate}),
      autoUpdate_(application, window(), list_,
                  [this] {
                      if (DefaultKBChanged) DefaultKBChanged();
                  }),
      naming_(application, window(), sftKBConfiguration, list_),
      status_(lblStatus, mvarTeskAddIn ? L"" : message::addInIsMissing()),
      lockView_(sftKBConfiguration, commands_, cmdBaseFolder, cmdApply, status_),
      lock_(application, window(), commands_, lockView_),
      gate_(application, window(), list_, naming_, lock_) {
    connectHandlers();
    connectAddIn();
}

void frmKBConfiguration::connectHandlers() {
    sftKBConfiguration.onHeaderClick = [this](int column) { gate_.begin([&] { list_.sortBy(column); }); };
    sftKBConfiguration.onRowClick = [this](int) { CaretChange(); };
    sftKBConfiguration.onCaretChange = [this] { CaretChange(); };
    sftKBConfiguration.onDoubleClick = [this](int row) {
        gate_.commandOn(row, [this](int meant) { editKnowledgebase(meant); });
    };
    sftKBConfiguration.onBeginEdit = [this](int row) {
        gate_.commandOn(row, [this](int meant) { BeginEdit(meant); });
    };
    sftKBConfiguration.onMenu = [this] { return commands_.menu(); };
    sftKBConfiguration.onEndEdit = [this](const ui::GridEdit& edit) { EndEdit(edit); };
    cmdAdd.onClick = [this] { gate_.command([&] { addKnowledgebase(); }); };
    cmdEdit.onClick = [this] { gate_.command([&] { editKnowledgebase(sftKBConfiguration.currentRow()); }); };
    cmdRename.onClick = [this] { gate_.command([&] { renameKnowledgebase(); }); };
    cmdRemove.onClick = [this] { gate_.command([&] { removeKnowledgebase(); }); };
    cmdRebuild.onClick = [this] { gate_.command([&] { runOnCurrent(KBEvent::rebuild, true); }); };
    cmdUpdate.onClick = [this] { gate_.command([&] { runOnCurrent(KBEvent::update, false); }); };
    cmdBaseFolder.onClick = [this] {
        gate_.begin([&] {
            if (BaseFolderRequested) BaseFolderRequested();
        });
    };
    cmdCancel.onClick = [this] {
        if (naming_.finishEdit()) Unload();
    };
    for (ui::Button* button :
         {&cmdAdd, &cmdApply, &cmdBaseFolder, &cmdCancel, &cmdEdit, &cmdRebuild, &cmdRename, &cmdUpdate})
        button->onMouseDown = [this](ui::MouseEvent& event) { guardMouse(event); };
    cmdRemove.onMouseMove = [this](ui::MouseEvent& event) { guardMouse(event); };
    lock_.onTick() = [this] { tmrLock_Timer(); };
}

void frmKBConfiguration::connectAddIn() {
    if (!mvarTeskAddIn) return;
    guarded(application_, FORM_NAME, L"connectAddIn", [&] {
        connection_ = mvarTeskAddIn->connect([this](const std::wstring& project, bool keepList) {
            mvarTeskAddIn_ProcessFinished(project, keepList);
        });
    });
}

void frmKBConfiguration::trace(const std::wstring& text) { application_.WriteLogLine(FORM_NAME + text); }

// --- Load and unload --------------------------------------------------------------------------------------

void frmKBConfiguration::Form_Load() {
    guarded(application_, FORM_NAME, L"Form_Load", [&] {
        trace(L", Loading...");
        status_.sayNothingGoesOn();
        application_.writeInteger(RootKey, valueName::hWndKBEdit,
                                  static_cast<std::int32_t>(window().handle()));
        list_.hideSortArrows();
        trace(L", updating ListView...");
        UpdateListView(true);  // lets events run: the dialog may have closed
        if (!window().isOpen()) return;
        trace(L", ...update finished.");
        list_.restoreSort();
        const std::wstring name =
            application_.readText(application_.ProfileKey, valueName::Projectname, DEFAULT_KNOWLEDGEBASE);
        const int row = list_.findIgnoringCase(name);
        if (row != -1) {
            trace(L", Item " + std::to_wstring(row) + L": " + name);
            sftKBConfiguration.setCurrentRow(row);
        }
        list_.keepOneCurrent();
        lockWhileProcessing();
        trace(L", ...load finished.");
    });
}

void frmKBConfiguration::Form_QueryUnload() {
    guarded(application_, FORM_NAME, L"Form_QueryUnload", [&] {
        naming_.undo();
        trace(L", form unload.");
        // A dialog that is closed while it loads has nothing to say of the list or the sort.
        if (list_.isComplete()) application_.settings.ProjectCount = list_.rowCount();
        list_.storeSort();
    });
    attempt([&] { lock_.stopTimer(); });
}

// --- The list ---------------------------------------------------------------------------------------------

void frmKBConfiguration::UpdateListView(bool bFromLoad) {
    guarded(application_, FORM_NAME, L"UpdateListView", [&] {
        const wchar_t* valueOfName = bFromLoad ? valueName::Projectname : valueName::ProjectEventName;
        const std::wstring name = application_.readText(application_.ProfileKey, valueOfName, L"");
        trace(std::wstring(L", Lookup: ") + valueOfName);
        application_.WriteLogLine(L"Projectname: " + name);
        const Raised closed = gate_.close();
        naming_.forget();
        const std::int32_t count = list_.beginFill();  // lets events run: the dialog may have closed
        if (!window().isOpen()) return;
        application_.WriteLogLine(L"UpdateListView, ProjectCount: " + std::to_wstring(count));
        {
            FillProgress progress(application_, sftKBConfiguration, status_, count);
            list_.fill(count, !bFromLoad, [&] { progress.rowAdded(); });
        }
        if (list_.selectLast(name)) CaretChange();
        if (!bFromLoad) list_.keepOneCurrent();  // a load has more to select
        lblDebugInfo.setText(std::to_wstring(list_.rowCount()));
        commands_.followList();
    });
}

void frmKBConfiguration::CaretChange() {
    if (lock_.locked()) return;
    guarded(application_, FORM_NAME, L"CaretChange", [&] { commands_.applyDocumentsRule(); });
}

// --- What the user does -----------------------------------------------------------------------------------

void frmKBConfiguration::BeginEdit(int row) {
    if (!sftKBConfiguration.row(row).enabled) return;
    sftKBConfiguration.setCurrentRow(row);
    renameKnowledgebase();
}

void frmKBConfiguration::guardMouse(ui::MouseEvent& event) noexcept {
    if (!lock_.locked()) return;
    event.button = 0;
    event.modifiers = 0;
    attempt([&] {
        lockView_.takeFocusAway();
        application_.DoEvents();
    });
}

// --- The commands -----------------------------------------------------------------------------------------

void frmKBConfiguration::addKnowledgebase() {
    commands_.setAll(false);
    attempt([&] { naming_.beginAdding(); });
    if (!naming_.isActive()) commands_.restore();
}

void frmKBConfiguration::renameKnowledgebase() {
    const int row = sftKBConfiguration.currentRow();
    if (row != -1) naming_.beginRenaming(row);
}

void frmKBConfiguration::editKnowledgebase(int row) {
    if (row == -1) return;
    sftKBConfiguration.setCurrentRow(row);
    process(KBEvent::edited, list_.nameOf(row), false);
}

void frmKBConfiguration::runOnCurrent(KBEvent event, bool letEventsRun) {
    if (const auto name = list_.currentName()) process(event, *name, letEventsRun);
}

void frmKBConfiguration::removeKnowledgebase() {
    const auto name = list_.currentName();
    const int rows = list_.rowCount();
    if (!name) return;
    const bool isAutoUpdate = autoUpdate_.isFor(*name);
    // While the question is shown the list may be read anew; where the dialog closes, the answer is No.
    if (application_.screen.showMessage(&window(), message::removeKnowledgebase(*name, isAutoUpdate)) !=
        ui::MessageAnswer::yes)
        return;
    trace(L", removing '" + *name + L"'");
    if (process(KBEvent::removed, *name, true) && isAutoUpdate) autoUpdate_.chooseNext(rows);
}

bool frmKBConfiguration::process(KBEvent event, const std::wstring& name, bool letEventsRun) {
    // Lets events run: the command may even have ended, the dialog closed.
    return lock_.run(event, name, letEventsRun, [&] { return raiseKBClick(name, event); });
}

bool frmKBConfiguration::raiseKBClick(std::wstring name, KBEvent event) {
    bool bProcessing = false;  // no automatic update runs, or no command would have come this far
    auto nAction = static_cast<std::int32_t>(event);
    return KBClick && KBClick(bProcessing, name, nAction);
}

// --- Names ------------------------------------------------------------------------------------------------

void frmKBConfiguration::EndEdit(const ui::GridEdit& edit) {
    if (!naming_.isActive() || !window().isOpen()) return;
    const Raised closed = gate_.close();
    if (edit.cancelled) return attempt([&] { undoNaming(); });
    if (guarded(application_, FORM_NAME, L"PostEdit", [&] { PostEdit(edit); })) return;
    attempt([&] { application_.SetPointerDefault(); });
    attempt([&] { undoNaming(); });
}

void frmKBConfiguration::undoNaming() {
    naming_.undo();
    if (!lock_.locked()) commands_.restore();
}

void frmKBConfiguration::PostEdit(const ui::GridEdit& edit) {
    const Naming::State named = naming_.end(edit);
    if (const auto* renamed = std::get_if<Naming::Renaming>(&named)) finishRename(*renamed);
    if (const auto* added = std::get_if<Naming::Adding>(&named)) finishNewProject(*added);
}

void frmKBConfiguration::finishRename(const Naming::Renaming& renamed) {
    application_.writeText(application_.ProfileKey, valueName::OldProjectname, renamed.oldName);
    // Lets events run: the list may have been read anew, the dialog closed.
    if (raiseKBClick(renamed.name, KBEvent::renamed))
        autoUpdate_.rename(renamed.oldName, renamed.name);
    else
        readListAfterRefusal(renamed.oldName);
    if (!lock_.locked()) commands_.followList();  // the documents are found below the new name by now
    application_.SetPointerDefault();
}

void frmKBConfiguration::finishNewProject(const Naming::Adding& added) {
    application_.WriteLogLine(L"New project: " + added.name);
    // Lets events run: the list may have been read anew, the dialog closed.
    const bool accepted = raiseKBClick(added.name, KBEvent::added);
    application_.SetPointerDefault();
    if (accepted) {
        autoUpdate_.offer(added.name);  // the same
        if (window().isOpen() && !lock_.locked() && gate_.addInIsFree())
            editKnowledgebase(list_.find(added.name));
    } else {
        readListAfterRefusal(added.nameBefore);
    }
    if (!lock_.locked()) commands_.restore();
}

void frmKBConfiguration::readListAfterRefusal(const std::wstring& current) {
    if (!window().isOpen()) return;
    UpdateListView(false);  // lets events run: the dialog may have closed
    if (window().isOpen()) list_.selectLast(current);
}

// --- Processing -------------------------------------------------------------------------------------------

void frmKBConfiguration::lockWhileProcessing() {
    const bool processing = mvarTeskAddIn && mvarTeskAddIn->IsProcessing();  // may let events run
    if (!window().isOpen()) return;
    if (processing) {
        trace(L", locking form...");
        lock_.LockForm(whatRuns(), true, false);
        trace(L", ...locking finished.");
        return;
    }
    // An end that nobody has seen yet: the first tick consumes it.
    if (lock_.storedState() == processState::ended) lock_.startTimer();
}

/// What is stored of a command that an earlier opening has given; an automatic update stores no name.
std::wstring frmKBConfiguration::whatRuns() {
    if (lock_.storedState() != processState::command) return message::somethingRuns();
    const std::wstring& key = application_.ProfileKey;
    return message::commandRuns(
        static_cast<KBEvent>(application_.readInteger(key, valueName::ProjectEvent, -1)),
        application_.readText(key, valueName::ProjectEventName, L""));
}

void frmKBConfiguration::mvarTeskAddIn_ProcessFinished(const std::wstring& strProject, bool bKeepList) {
    if (!window().isOpen()) return;
    guarded(application_, FORM_NAME, L"mvarTeskAddIn_ProcessFinished", [&] {
        commands_.setAll(true);
        trace(L", Status end, " + strProject + (bKeepList ? L", True" : L", False"));
        lock_.clearState();
        application_.settings.ProjectCount = knowledgebaseCount(application_);
        lock_.endRemoval(strProject);
        if (!bKeepList) UpdateListView(false);
    });
    lock_.unlock();
}

void frmKBConfiguration::tmrLock_Timer() {
    if (naming_.isActive()) return;  // the end has to wait: it would take the editor away
    bool ended = false;
    guarded(application_, FORM_NAME, L"tmrLock_Timer", [&] {
        const std::int32_t state = lock_.storedState();
        commands_.setAll(state != processState::autoUpdate && state != processState::command);
        ended = state == processState::ended;
        if (ended) endByTick();
    });
    if (ended) lock_.unlock();
}

void frmKBConfiguration::endByTick() {
    lblDebugInfo.setText(L"Status end.");
    application_.WriteLogLine(L"Status end.");
    lock_.clearState();
    application_.settings.ProjectCount = knowledgebaseCount(application_);
    lock_.forgetRemoval();
    RefreshEditedKB();
    cmdAdd.setEnabled(true);
}

void frmKBConfiguration::RefreshEditedKB() {
    const std::wstring& key = application_.ProfileKey;
    const std::wstring name = application_.readText(key, valueName::ProjectEventName, L"");
    if (application_.readInteger(key, valueName::EditNoChange, 0) != 0) {
        UpdateListView(false);
    } else {
        const int row = list_.findIgnoringCase(name);
        // A knowledgebase that came or went needs the whole list.
        if (row == -1 || knowledgebaseCount(application_) != list_.rowCount())
            UpdateListView(false);
        else
            list_.readAgain(row);
        selectIgnoringCase(name);
    }
    sftKBConfiguration.setAllRowsEnabled(true);
    sftKBConfiguration.refresh();
}

void frmKBConfiguration::selectIgnoringCase(const std::wstring& name) {
    const int row = list_.findIgnoringCase(name);
    if (row == -1) return;
    sftKBConfiguration.setCurrentRow(row);
    commands_.followList();
}

}  // namespace vexa
