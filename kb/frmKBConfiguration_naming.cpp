// Naming a knowledgebase in the list: the end of an in-place edit and the rules for names.
#include "common/guarded.h"
#include "kb/frmKBConfiguration.h"
#include "kb/frmKBConfiguration_names.h"
#include "kb/name_rules.h"

namespace vexa {

bool frmKBConfiguration::nameIsFinished() noexcept {
    attempt([&] { sftKBConfiguration.finishEdit(); });
    return sftKBConfiguration.editedRow() == -1;
}

void frmKBConfiguration::EndEdit(const ui::GridEdit& edit) {
    if (bEditCancelled || closed_) return;
    const Raised busy(busy_);
    if (edit.cancelled) {
        attempt([&] { undoEdit(); });
        return;
    }
    const bool finished = guarded(application_, FORM_NAME, L"PostEdit", [&] { PostEdit(edit); });
    if (finished) return;
    attempt([&] { application_.SetPointerDefault(); });
    attempt([&] { undoEdit(); });
    if (!bLocked) attempt([&] { restoreButtons(); });
}

void frmKBConfiguration::undoEdit() {
    bRenaming = false;
    if (bNewProject) removeNewRow();
}

void frmKBConfiguration::removeNewRow() {
    bNewProject = false;
    const int row = findRow(strNewName);
    if (row != -1) sftKBConfiguration.removeRow(row);
    sftKBConfiguration.setCurrentRow(strNameBeforeAdd_.empty() ? -1 : findRow(strNameBeforeAdd_));
    if (!bLocked) restoreButtons();
}

void frmKBConfiguration::endEditForRefill() {
    if (sftKBConfiguration.editedRow() != -1) bEditCancelled = true;
    bNewProject = bRenaming = false;
}

// --- The end of an edit -----------------------------------------------------------------------------------

void frmKBConfiguration::PostEdit(const ui::GridEdit& edit) {
    trace(L", PostEdit Index: " + std::to_wstring(edit.row));
    const std::wstring& name = edit.text;
    if (name == strOldName && !bNewProject) {
        bRenaming = false;
        return;
    }
    if (!nameIsAllowed(edit.row, name)) return;
    sftKBConfiguration.setCell(edit.row, column::name, nameCell(name, application_.platform.conversions));
    if (bNewProject)
        finishNewProject(name);
    else
        finishRename(name);
}

bool frmKBConfiguration::nameIsAllowed(int row, const std::wstring& name) {
    if (name.empty()) {
        refuse(row, L"Please enter a name.");
        return false;
    }
    if (CheckCharacter(name)) {
        refuse(row,
               L"The name may not contain the following characters:\r\n"
               L"                 \\ / : * ? \" < > |");
        return false;
    }
    if (KBNameExists(name, row)) {
        refuse(row, L"The knowledgebase '" + name + L"' already exists.");
        return false;
    }
    return true;
}

void frmKBConfiguration::refuse(int row, const std::wstring& why) {
    sftKBConfiguration.setCell(row, column::name, nameCell(strOldName, application_.platform.conversions));
    const unsigned fill = fills_;
    application_.screen.showMessage(&window(),
                                    {why, BOX_TITLE, ui::MessageIcon::exclamation, ui::MessageButtons::ok});
    // The list may have been read anew, or the dialog closed, while the user read the message.
    if (fill == fills_ && !closed_) sftKBConfiguration.openEditor(row);
}

bool frmKBConfiguration::CheckCharacter(const std::wstring& name) {
    bool forbidden = true;
    guarded(application_, FORM_NAME, L"CheckCharacter", [&] { forbidden = holdsForbiddenCharacter(name); });
    return forbidden;
}

bool frmKBConfiguration::KBNameExists(const std::wstring& name, int exceptRow) {
    bool exists = false;
    guarded(application_, FORM_NAME, L"KBNameExists", [&] {
        Conversions& conversions = application_.platform.conversions;
        const std::wstring wanted = conversions.lower(name);
        for (int row = 0; row < sftKBConfiguration.rowCount() && !exists; ++row)
            exists = row != exceptRow && conversions.lower(nameOf(row)) == wanted;
    });
    return exists;
}

int frmKBConfiguration::placeNamedRow(const std::wstring& name, const wchar_t* what) {
    if (nSortColumn == column::name) sortList();
    const int row = findRow(name);
    trace(std::wstring(L", Postedit (") + what + L") Index after sorting: " + std::to_wstring(row));
    sftKBConfiguration.setCurrentRow(row);
    return row;
}

// --- What follows an accepted name ------------------------------------------------------------------------

void frmKBConfiguration::finishRename(const std::wstring& name) {
    application_.SetPointerHourglass();
    nEditIndex = placeNamedRow(name, L"Rename");
    const std::wstring oldName = strOldName;
    application_.writeText(application_.ProfileKey, valueName::OldProjectname, oldName);
    raiseKBClick(name, KBEvent::renamed);
    if (!bLocked) showButtonsForList();  // the documents are found below the new name by now
    if (!oldName.empty() && oldName == application_.settings.DefaultProject) {
        application_.writeText(application_.ProfileKey, valueName::DefaultProject, name);
        application_.settings.DefaultProject = name;
    }
    application_.SetPointerDefault();
    bRenaming = false;
}

void frmKBConfiguration::finishNewProject(const std::wstring& name) {
    strNewName = name;
    nEditIndex = placeNamedRow(name, L"NewProject");
    application_.WriteLogLine(L"New project: " + name);
    bNewProject = false;  // from here on the row stands for a knowledgebase of the add-in
    raiseKBClick(name, KBEvent::added);
    application_.SetPointerDefault();
    offerAutoUpdate(name);
    if (!closed_ && !bLocked && addInIsFree()) editKnowledgebase(findRow(name));
    bRenaming = false;
    if (!bLocked) restoreButtons();
}

void frmKBConfiguration::offerAutoUpdate(const std::wstring& name) {
    const std::wstring stored =
        application_.readText(application_.ProfileKey, valueName::DefaultProject, L"");
    const int rows = sftKBConfiguration.rowCount();
    trace(L", auto-update kb: '" + application_.settings.DefaultProject + L"'; items: " +
          std::to_wstring(rows));
    if (rows != 1 || !stored.empty() || closed_) return;
    const auto answer = application_.screen.showMessage(
        &window(), {L"Would you like '" + name + L"' to be configured for auto-update?", BOX_TITLE,
                    ui::MessageIcon::question, ui::MessageButtons::yesNo});
    if (answer != ui::MessageAnswer::yes) return;
    application_.settings.DefaultProject = name;
    raiseDefaultKBChanged();
}

}  // namespace vexa
