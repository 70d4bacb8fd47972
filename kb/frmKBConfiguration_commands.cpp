// The commands: each checks that nothing is running and hands the request to the page.
#include "common/guarded.h"
#include "kb/frmKBConfiguration.h"
#include "kb/frmKBConfiguration_names.h"
#include "kb/frmSelectDefaultKB.h"

#include <set>

namespace vexa {
void frmKBConfiguration::command(const std::function<void()>& body) noexcept {
    if (!nameIsFinished() || bLocked || busy_) return;
    const Raised busy(busy_);
    attempt([&] {
        if (addInIsFree()) body();
    });
}

bool frmKBConfiguration::addInIsFree() {
    if (!mvarTeskAddIn) return false;
    if (!mvarTeskAddIn->IsAutoUpdateRunning()) return !bLocked && !closed_;
    application_.screen.showMessage(
        &window(),
        {L"An auto-update is currently running.\r\nPlease wait until it is complete and try again.",
         BOX_TITLE, ui::MessageIcon::exclamation, ui::MessageButtons::ok});
    return false;
}

void frmKBConfiguration::raiseKBClick(std::wstring name, KBEvent event) {
    bool bProcessing = false;  // no automatic update runs, or no command would have come this far
    auto nAction = static_cast<std::int32_t>(event);
    if (KBClick) KBClick(bProcessing, name, nAction);
}

void frmKBConfiguration::raiseDefaultKBChanged() {
    application_.settings.ProjectCount = sftKBConfiguration.rowCount();
    application_.flags.defaultKnowledgebaseChanged = true;
    if (DefaultKBChanged) DefaultKBChanged();
}

// --- Add --------------------------------------------------------------------------------------------------

void frmKBConfiguration::addKnowledgebase() {
    const std::wstring name = sftKBConfiguration.rowCount() == 0 ? L"default" : GetNewKBName();
    const int before = sftKBConfiguration.currentRow();
    strNameBeforeAdd_ = before == -1 ? std::wstring() : nameOf(before);
    bEditCancelled = bRenaming = bRemoving = false;
    bNewProject = true;
    strNewName = strOldName = name;
    try {
        setRowCommands(false);
        sftKBConfiguration.addRow(knowledgebaseRow({name}, application_.platform.conversions));
        if (nSortColumn == column::name) sortList();
        nEditIndex = findRow(name);
        sftKBConfiguration.openEditor(nEditIndex);
    } catch (...) {
        removeNewRow();
        throw;
    }
}

std::wstring frmKBConfiguration::GetNewKBName() {
    int number = sftKBConfiguration.rowCount();
    std::wstring candidate;
    guarded(application_, FORM_NAME, L"GetNewKBName", [&] {
        trace(L", GetNewKBName: " + std::to_wstring(number));
        Conversions& conversions = application_.platform.conversions;
        std::set<std::wstring> taken;
        for (int row = 0; row < sftKBConfiguration.rowCount(); ++row)
            taken.insert(conversions.lower(nameOf(row)));
        do {
            candidate = L"New[" + std::to_wstring(number++) + L"]";
        } while (taken.contains(conversions.lower(candidate)));
    });
    return candidate;
}

// --- Edit and Rename --------------------------------------------------------------------------------------

void frmKBConfiguration::editCurrentRow() { editKnowledgebase(sftKBConfiguration.currentRow()); }

void frmKBConfiguration::editKnowledgebase(int row) {
    bEditCancelled = false;
    nEditIndex = row;
    bNewProject = bRenaming = bRemoving = false;
    if (row == -1) return;
    sftKBConfiguration.setCurrentRow(row);
    const std::wstring name = nameOf(row);
    lockForCommand(false);
    raiseKBClick(name, KBEvent::edited);
}

void frmKBConfiguration::renameKnowledgebase() {
    nEditIndex = sftKBConfiguration.currentRow();
    bNewProject = bEditCancelled = false;
    if (nEditIndex == -1) return;
    strOldName = nameOf(nEditIndex);
    sftKBConfiguration.openEditor(nEditIndex);
    bRenaming = true;
}

// --- Remove -----------------------------------------------------------------------------------------------

void frmKBConfiguration::removeKnowledgebase() {
    bEditCancelled = false;
    nEditIndex = sftKBConfiguration.currentRow();
    const int rows = sftKBConfiguration.rowCount();
    if (nEditIndex == -1) return;
    const std::wstring name = nameOf(nEditIndex);
    if (!confirmRemoval(name)) return;
    bRemoving = true;
    strRemovedName = name;
    trace(L", removing '" + name + L"'");
    lockForCommand(true);
    bRemoving = true;  // the end of something else, met while events ran, is not the end of this
    const bool isDefault = !name.empty() && name == application_.settings.DefaultProject;
    raiseKBClick(name, KBEvent::removed);
    if (isDefault) chooseNextDefault(rows);
}

bool frmKBConfiguration::confirmRemoval(const std::wstring& name) {
    std::wstring question = L"Are you sure you want to remove the knowledgebase '" + name + L"'?";
    if (!name.empty() && name == application_.settings.DefaultProject)
        question = L"You specified '" + name + L"' as the auto-update knowledgebase.\r\r" + question;
    return application_.screen.showMessage(&window(), {question, BOX_TITLE, ui::MessageIcon::question,
                                                       ui::MessageButtons::yesNo}) == ui::MessageAnswer::yes;
}

void frmKBConfiguration::chooseNextDefault(int rowsBefore) {
    application_.settings.DefaultProject.clear();
    if (rowsBefore > 1 && window().isOpen()) frmSelectDefaultKB(application_, window()).Show();
    raiseDefaultKBChanged();
}

// --- Rebuild and Update -----------------------------------------------------------------------------------

void frmKBConfiguration::rebuildKnowledgebase() {
    bEditCancelled = false;
    nEditIndex = sftKBConfiguration.currentRow();
    if (nEditIndex == -1) return;
    const std::wstring name = nameOf(nEditIndex);
    lockForCommand(true);
    raiseKBClick(name, KBEvent::rebuild);
}

void frmKBConfiguration::updateKnowledgebase() {
    bEditCancelled = bNewProject = bRenaming = false;
    nEditIndex = sftKBConfiguration.currentRow();
    if (nEditIndex == -1) return;
    const std::wstring name = nameOf(nEditIndex);
    lockForCommand(false);
    raiseKBClick(name, KBEvent::update);
}

// --- Gestures ---------------------------------------------------------------------------------------------

// The guard may let events run, and what they do may move the rows: the name says which one was meant.

void frmKBConfiguration::DoubleClick(int row) {
    attempt([&] {
        const std::wstring name = nameOf(row);
        command([&] { editKnowledgebase(rowStillNamed(row, name)); });
    });
}

void frmKBConfiguration::BeginEdit(int row) {
    attempt([&] {
        const std::wstring name = nameOf(row);
        command([&] {
            const int meant = rowStillNamed(row, name);
            if (meant == -1 || !sftKBConfiguration.row(meant).enabled) return;
            sftKBConfiguration.setCurrentRow(meant);
            renameKnowledgebase();
        });
    });
}

int frmKBConfiguration::rowStillNamed(int row, const std::wstring& name) const {
    const bool still = row < sftKBConfiguration.rowCount() && nameOf(row) == name;
    return still ? row : findRow(name);
}

void frmKBConfiguration::requestBaseFolder() {
    if (!nameIsFinished() || bLocked || busy_) return;
    const Raised busy(busy_);
    attempt([&] {
        if (BaseFolderRequested) BaseFolderRequested();
    });
}

void frmKBConfiguration::guardMouse(ui::MouseEvent& event) noexcept {
    if (!bLocked) return;
    event.button = 0;
    event.modifiers = 0;
    attempt([&] {
        cmdApply.setFocus();
        application_.DoEvents();
    });
}

}  // namespace vexa
