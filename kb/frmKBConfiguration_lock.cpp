// Locking while the add-in works on a knowledgebase, and the two ways in which it reports the end.
#include "common/guarded.h"
#include "common/knowledgebase_names.h"
#include "kb/frmKBConfiguration.h"
#include "kb/frmKBConfiguration_names.h"

namespace vexa {
namespace {

constexpr int LOCK_INTERVAL = 500;  // milliseconds

}  // namespace

// --- Locking ----------------------------------------------------------------------------------------------

void frmKBConfiguration::lockWhileProcessing() {
    const bool processing = mvarTeskAddIn && mvarTeskAddIn->IsProcessing();
    if (closed_) return;
    if (processing) {
        trace(L", locking form...");
        LockForm(true, false);
        trace(L", ...locking finished.");
        return;
    }
    // An end that nobody has seen yet: the first tick consumes it.
    const auto state = application_.readInteger(application_.ProfileKey, valueName::KBProcessState, 0);
    if (state == processState::ended) startLockTimer();
}

void frmKBConfiguration::LockForm(bool bAutoUpdate, bool bNoWrite) {
    guarded(application_, FORM_NAME, L"LockForm", [&] {
        const unsigned ends = ends_;
        showLocked(bAutoUpdate, bNoWrite);
        application_.DoEvents();
        if (ends == ends_) return setLocked();
        // What had been running has ended meanwhile, and its end unlocked the dialog. A command is only
        // about to begin.
        if (bAutoUpdate) return;
        showLocked(bAutoUpdate, bNoWrite);
        setLocked();
    });
}

void frmKBConfiguration::showLocked(bool bAutoUpdate, bool bNoWrite) {
    if (!bNoWrite)
        application_.writeInteger(application_.ProfileKey, valueName::KBProcessState,
                                  bAutoUpdate ? processState::autoUpdate : processState::command);
    sftKBConfiguration.setAllRowsEnabled(false);
    setRowCommands(false);
}

void frmKBConfiguration::setLocked() {
    setRowCommands(false);  // another row may have become the current one while events ran
    bLocked = true;
    startLockTimer();
}

void frmKBConfiguration::startLockTimer() {
    if (closed_) return;
    tmrLock_->setInterval(LOCK_INTERVAL);
    tmrLock_->setEnabled(true);
}

void frmKBConfiguration::stopLockTimer() {
    tmrLock_->setInterval(0);
    tmrLock_->setEnabled(false);
}

void frmKBConfiguration::lockForCommand(bool letEventsRun) {
    LockForm(false, false);
    if (!letEventsRun) return;
    application_.DoEvents();
    if (bLocked) return;
    showLocked(false, false);
    setLocked();
}

// --- The add-in's event -----------------------------------------------------------------------------------

void frmKBConfiguration::mvarTeskAddIn_ProcessFinished(const std::wstring& strProject, bool bKeepList) {
    if (closed_) return;
    guarded(application_, FORM_NAME, L"mvarTeskAddIn_ProcessFinished", [&] {
        ++ends_;
        stopLockTimer();
        setRowCommands(true);
        trace(L", Status end, " + strProject + (bKeepList ? L", True" : L", False"));
        application_.deleteValue(application_.ProfileKey, valueName::KBProcessState);
        application_.settings.ProjectCount = knowledgebaseCount(application_);
        endRemoval(strProject);
        if (!bKeepList) UpdateListView(false);
    });
    unlock();
}

void frmKBConfiguration::unlock() noexcept {
    bLocked = false;
    attempt([&] { sftKBConfiguration.setAllRowsEnabled(true); });
}

void frmKBConfiguration::endRemoval(const std::wstring& project) {
    if (!bRemoving || strRemovedName.empty()) return;
    bRemoving = false;
    if (project != strRemovedName) return;
    const std::int32_t searchWindow = application_.readInteger(RootKey, valueName::hWndSearchCtl, 0);
    if (searchWindow != 0)
        application_.platform.desktop.sendMessage(searchWindow, searchMessage::keyDown,
                                                  searchMessage::knowledgebaseGone, 0);
}

// --- The fallback timer -----------------------------------------------------------------------------------

void frmKBConfiguration::tmrLock_Timer() {
    bool ended = false;
    guarded(application_, FORM_NAME, L"tmrLock_Timer", [&] {
        const std::int32_t state = application_.readInteger(
            application_.ProfileKey, valueName::KBProcessState, processState::autoUpdate);
        setRowCommands(state != processState::autoUpdate && state != processState::command);
        ended = state == processState::ended;
        if (ended) endProcessing();
    });
    if (ended) unlock();
}

void frmKBConfiguration::endProcessing() {
    ++ends_;
    lblDebugInfo.setText(L"Status end.");
    application_.WriteLogLine(L"Status end.");
    stopLockTimer();
    application_.deleteValue(application_.ProfileKey, valueName::KBProcessState);
    application_.settings.ProjectCount = knowledgebaseCount(application_);
    bRemoving = false;
    RefreshEditedKB();
    cmdAdd.setEnabled(true);
}

void frmKBConfiguration::RefreshEditedKB() {
    const std::wstring& key = application_.ProfileKey;
    const std::wstring name = application_.readText(key, valueName::ProjectEventName, L"");
    const bool readAll = application_.readInteger(key, valueName::EditNoChange, 0) != 0;
    if (readAll || !refreshRow(name)) UpdateListView(false);
    if (!readAll) selectEdited(name);
    sftKBConfiguration.setAllRowsEnabled(true);
    sftKBConfiguration.refresh();
}

bool frmKBConfiguration::refreshRow(const std::wstring& name) {
    // A knowledgebase that came or went needs the whole list.
    if (knowledgebaseCount(application_) != sftKBConfiguration.rowCount()) return false;
    const int row = findRowIgnoringCase(name);
    if (row == -1) return false;
    const ui::GridRow fresh = rowOf(nameOf(row));
    for (int cell = column::lastUpdate; cell < column::count; ++cell)
        sftKBConfiguration.setCell(row, cell, fresh.cells[static_cast<std::size_t>(cell)]);
    return true;
}

void frmKBConfiguration::selectEdited(const std::wstring& name) {
    const int row = findRowIgnoringCase(name);
    if (row == -1) return;
    sftKBConfiguration.setCurrentRow(row);
    showButtonsForList();
}

}  // namespace vexa
