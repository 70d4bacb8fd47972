// Loading, closing and the list.
#include "kb/frmKBConfiguration.h"

#include "common/guarded.h"
#include "common/knowledgebase_names.h"
#include "kb/frmKBConfiguration.ids.h"
#include "kb/frmKBConfiguration_names.h"
#include "ui/dialog_ids.h"

namespace vexa {

frmKBConfiguration::frmKBConfiguration(Application& application, ui::Window& owner)
    : Form(application.screen.createDialog(IDD_frmKBConfiguration, &owner)),
      sftKBConfiguration(window().control<ui::Grid>(IDC_sftKBConfiguration)),
      cmdAdd(window().control<ui::Button>(IDC_KB_cmdAdd)),
      cmdEdit(window().control<ui::Button>(IDC_cmdEdit)),
      cmdRename(window().control<ui::Button>(IDC_cmdRename)),
      cmdRemove(window().control<ui::Button>(IDC_KB_cmdRemove)),
      cmdRebuild(window().control<ui::Button>(IDC_cmdRebuild)),
      cmdUpdate(window().control<ui::Button>(IDC_cmdUpdate)),
      cmdBaseFolder(window().control<ui::Button>(IDC_cmdBaseFolder)),
      cmdApply(window().control<ui::Button>(IDC_cmdApply)),
      cmdCancel(window().control<ui::Button>(IDC_cmdCancel)),
      lblDebugInfo(window().control<ui::Label>(IDC_lblDebugInfo)),
      application_(application),
      mvarTeskAddIn(application.addIn),
      tmrLock_(window().createTimer()),
      rowSorter_(sftKBConfiguration),
      rowCommands_{cmdAdd, cmdEdit, cmdRebuild, cmdRemove, cmdRename, cmdUpdate} {
    sftKBConfiguration.setColumns(
        {{L"Knowledgebase", 34}, {L"Last Update", 31}, {L"Size", 14, true}, {L"Documents", 21, true}});
    connectHandlers();
    connectAddIn();
}

void frmKBConfiguration::connectHandlers() {
    sftKBConfiguration.onHeaderClick = [this](int clicked) { attempt([&] { HeaderClick(clicked); }); };
    sftKBConfiguration.onRowClick = [this](int) { attempt([&] { ItemClick(); }); };
    sftKBConfiguration.onCaretChange = [this] { CaretChange(); };
    sftKBConfiguration.onDoubleClick = [this](int row) { DoubleClick(row); };
    sftKBConfiguration.onBeginEdit = [this](int row) { BeginEdit(row); };
    sftKBConfiguration.onEndEdit = [this](const ui::GridEdit& edit) { EndEdit(edit); };
    cmdAdd.onClick = [this] { command([&] { addKnowledgebase(); }); };
    cmdEdit.onClick = [this] { command([&] { editCurrentRow(); }); };
    cmdRename.onClick = [this] { command([&] { renameKnowledgebase(); }); };
    cmdRemove.onClick = [this] { command([&] { removeKnowledgebase(); }); };
    cmdRebuild.onClick = [this] { command([&] { rebuildKnowledgebase(); }); };
    cmdUpdate.onClick = [this] { command([&] { updateKnowledgebase(); }); };
    cmdBaseFolder.onClick = [this] { requestBaseFolder(); };
    cmdCancel.onClick = [this] {
        if (nameIsFinished()) Unload();
    };
    for (ui::Button* button :
         {&cmdAdd, &cmdApply, &cmdBaseFolder, &cmdCancel, &cmdEdit, &cmdRebuild, &cmdRename, &cmdUpdate})
        button->onMouseDown = [this](ui::MouseEvent& event) { guardMouse(event); };
    cmdRemove.onMouseMove = [this](ui::MouseEvent& event) { guardMouse(event); };
    tmrLock_->onTimer = [this] { tmrLock_Timer(); };
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
        nNextOrder = {};
        application_.writeInteger(RootKey, valueName::hWndKBEdit,
                                  static_cast<std::int32_t>(window().handle()));
        for (int header = 0; header < column::count; ++header)
            sftKBConfiguration.setSortArrow(header, ui::SortArrow::none);
        trace(L", updating ListView...");
        UpdateListView(true);
        if (closed_) return;  // the host has closed the page while events ran
        trace(L", ...update finished.");
        restoreSort();
        selectCurrentKnowledgebase();
        lockWhileProcessing();
        trace(L", ...load finished.");
    });
}

void frmKBConfiguration::selectCurrentKnowledgebase() {
    const std::wstring name =
        application_.readText(application_.ProfileKey, valueName::Projectname, L"default");
    const int row = findRowIgnoringCase(name);
    if (row == -1) return;
    trace(L", Item " + std::to_wstring(row) + L": " + name);
    sftKBConfiguration.setCurrentRow(row);
}

void frmKBConfiguration::Form_QueryUnload() {
    guarded(application_, FORM_NAME, L"Form_QueryUnload", [&] {
        if (bNewProject) removeNewRow();
        trace(L", form unload.");
        // A dialog that is closed while it loads has nothing to say of the list or the sort.
        if (filled_) application_.settings.ProjectCount = sftKBConfiguration.rowCount();
        if (!sortRestored_) return;
        const std::wstring& key = application_.ProfileKey;
        application_.writeInteger(key, valueName::KBConfigSortOrder, nSortOrder);
        application_.writeInteger(key, valueName::KBConfigColumn, nSortColumn);
        application_.writeInteger(key, valueName::KBConfigSortType, nSortType);
    });
    closed_ = true;
    attempt([&] { tmrLock_->setEnabled(false); });
}

// --- Filling ----------------------------------------------------------------------------------------------

void frmKBConfiguration::UpdateListView(bool bFromLoad) {
    guarded(application_, FORM_NAME, L"UpdateListView", [&] {
        const wchar_t* valueOfName = bFromLoad ? valueName::Projectname : valueName::ProjectEventName;
        const std::wstring name = application_.readText(application_.ProfileKey, valueOfName, L"");
        trace(std::wstring(L", Lookup: ") + valueOfName);
        application_.WriteLogLine(L"Projectname: " + name);
        const Raised busy(busy_);  // no command begins in a list that is being filled
        const std::int32_t count = clearForFill();
        if (closed_) return;
        application_.WriteLogLine(L"UpdateListView, ProjectCount: " + std::to_wstring(count));
        {
            const ui::Grid::BulkUpdate bulk(sftKBConfiguration);
            fillList(count);
            if (!bFromLoad) {
                std::int32_t& nextOrder = nNextOrder[static_cast<std::size_t>(nSortColumn)];
                nextOrder = nSortOrder;  // dates take their direction from it
                sortList();
                nextOrder = nSortOrder == DESCENDING ? ASCENDING : DESCENDING;
            }
        }
        filled_ = true;
        selectEach(name);
        lblDebugInfo.setText(std::to_wstring(sftKBConfiguration.rowCount()));
        showButtonsForList();
    });
}

std::int32_t frmKBConfiguration::clearForFill() {
    const unsigned fill = ++fills_;
    std::int32_t count = knowledgebaseCount(application_);
    filled_ = false;
    endEditForRefill();
    sftKBConfiguration.clear();
    application_.DoEvents();
    if (fill != fills_ && !closed_) {
        // An event has filled the list meanwhile; this fill starts from what is true now.
        count = knowledgebaseCount(application_);
        sftKBConfiguration.clear();
    }
    return count;
}

void frmKBConfiguration::fillList(std::int32_t count) {
    for (std::int32_t index = 1; index <= count; ++index)
        sftKBConfiguration.addRow(rowOf(knowledgebaseName(application_, index, L"")));
}

ui::GridRow frmKBConfiguration::rowOf(const std::wstring& name) {
    KnowledgebaseRecord record = readKnowledgebase(application_, name);
    try {
        return knowledgebaseRow(record, application_.platform.conversions);
    } catch (const Error&) {
        // One broken date must not hide the knowledgebases after it.
        logCurrentError(application_, FORM_NAME, L"UpdateListView");
        record.KBLastUpdate = NEVER_UPDATED;
        return knowledgebaseRow(record, application_.platform.conversions);
    }
}

void frmKBConfiguration::selectEach(const std::wstring& name) {
    // Each would take the selection from the one before: showing the last one is enough, and a broken count
    // with thousands of nameless rows does not hang the host.
    for (int row = sftKBConfiguration.rowCount() - 1; row >= 0; --row) {
        if (sftKBConfiguration.cellText(row, column::name) != name) continue;
        sftKBConfiguration.setCurrentRow(row);
        return ItemClick();
    }
}

int frmKBConfiguration::findRow(const std::wstring& name) const {
    for (int row = 0; row < sftKBConfiguration.rowCount(); ++row)
        if (sftKBConfiguration.cellText(row, column::name) == name) return row;
    return -1;
}

int frmKBConfiguration::findRowIgnoringCase(const std::wstring& name) const {
    Conversions& conversions = application_.platform.conversions;
    const std::wstring wanted = conversions.lower(name);
    for (int row = 0; row < sftKBConfiguration.rowCount(); ++row)
        if (conversions.lower(sftKBConfiguration.cellText(row, column::name)) == wanted) return row;
    return -1;
}

// --- Sorting ----------------------------------------------------------------------------------------------

void frmKBConfiguration::sortList() {
    rowSorter_.sort(nSortColumn, nSortType, nNextOrder[column::lastUpdate]);
}

void frmKBConfiguration::restoreSort() {
    const std::wstring& key = application_.ProfileKey;
    const std::int32_t order = application_.readInteger(key, valueName::KBConfigSortOrder, -1);
    const std::int32_t sorted = application_.readInteger(key, valueName::KBConfigColumn, -1);
    const std::int32_t code = application_.readInteger(key, valueName::KBConfigSortType, -1);
    nNextOrder = {};
    const bool saved = sorted >= 0 && sorted < column::count;
    nSortColumn = saved ? sorted : column::name;
    nSortOrder = saved && order == ASCENDING ? ASCENDING : DESCENDING;
    nSortType = saved ? code : sortCode::textAscending;
    if (!sortCodeFits(nSortColumn, nSortType)) nSortType = sortCodeOf(nSortColumn, nSortOrder);
    sortRestored_ = true;
    showSortArrow();
    nNextOrder[static_cast<std::size_t>(nSortColumn)] = nSortOrder;  // dates take their direction from it
    sortList();
}

void frmKBConfiguration::showSortArrow() {
    sftKBConfiguration.setSortArrow(nSortColumn,
                                    nSortOrder == ASCENDING ? ui::SortArrow::up : ui::SortArrow::down);
}

void frmKBConfiguration::HeaderClick(int clicked) {
    if (!nameIsFinished() || bLocked || busy_) return;
    if (clicked != nSortColumn) sftKBConfiguration.setSortArrow(nSortColumn, ui::SortArrow::none);
    std::int32_t& nextOrder = nNextOrder.at(static_cast<std::size_t>(clicked));
    nSortColumn = clicked;
    nSortOrder = nextOrder;
    nSortType = sortCodeOf(clicked, nSortOrder);
    sortList();  // the current knowledgebase stays the current one
    showSortArrow();
    nextOrder = nSortOrder == DESCENDING ? ASCENDING : DESCENDING;
}

// --- Current row and buttons ------------------------------------------------------------------------------

void frmKBConfiguration::CaretChange() {
    if (bLocked) return;
    guarded(application_, FORM_NAME, L"CaretChange", [&] { applyDocumentsRule(); });
}

void frmKBConfiguration::ItemClick() {
    if (bLocked) return;
    applyDocumentsRule();
}

void frmKBConfiguration::applyDocumentsRule() {
    const int row = sftKBConfiguration.currentRow();
    const bool filled = row != -1 && documentCount(application_, nameOf(row)) != 0;
    cmdRebuild.setEnabled(filled);
    cmdUpdate.setEnabled(filled);
}

void frmKBConfiguration::showButtonsForList() {
    if (sftKBConfiguration.rowCount() > 0) {
        cmdEdit.setEnabled(true);
        applyDocumentsRule();
        return;
    }
    for (ui::Button* button : {&cmdEdit, &cmdRebuild, &cmdRemove, &cmdRename, &cmdUpdate})
        button->setEnabled(false);
}

void frmKBConfiguration::restoreButtons() {
    setRowCommands(true);
    showButtonsForList();
}

void frmKBConfiguration::setRowCommands(bool enabled) {
    for (ui::Button& button : rowCommands_) button.setEnabled(enabled);
}

}  // namespace vexa
