#include "kb/knowledgebase_list.h"

#include <algorithm>

#include "common/guarded.h"
#include "common/knowledgebase_names.h"
#include "kb/form_name.h"

namespace vexa {
namespace {

constexpr std::int32_t ASCENDING = 1;
constexpr std::int32_t DESCENDING = 0;

}  // namespace

KnowledgebaseList::KnowledgebaseList(Application& application, ui::Grid& grid)
    : application_(application), grid_(grid), nNextOrder(listColumns().size(), DESCENDING) {
    std::vector<ui::GridColumn> headers;
    for (const ListColumn& column : listColumns()) headers.push_back(column.header);
    grid_.setColumns(headers);
}

// --- Rows -------------------------------------------------------------------------------------------------

void KnowledgebaseList::clear() {
    complete_ = false;
    grid_.clear();
}

std::int32_t KnowledgebaseList::beginFill() {
    const std::int32_t count = knowledgebaseCount(application_);
    if (const auto name = currentName()) {
        nameBefore_ = *name;
        rowBefore_ = grid_.currentRow();
    }
    clear();
    application_.DoEvents();
    if (!complete_) return count;
    // An event has filled the list meanwhile; this fill starts from what is true now.
    clear();
    return knowledgebaseCount(application_);
}

void KnowledgebaseList::fill(std::int32_t count, bool sorted, const std::function<void()>& rowAdded) {
    const ui::Grid::BulkUpdate bulk(grid_);
    for (std::int32_t index = 1; index <= count; ++index) {
        grid_.addRow(rowOf(knowledgebaseName(application_, index, L"")));
        rowAdded();
    }
    if (sorted) {
        nextOrder() = nSortOrder;
        sort();
        toggleNextOrder();
    }
    complete_ = true;
}

ui::GridRow KnowledgebaseList::rowOf(const std::wstring& name) {
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

int KnowledgebaseList::add(const std::wstring& name) {
    grid_.addRow(knowledgebaseRow({name}, application_.platform.conversions));
    sortWhereByName();
    return find(name);
}

int KnowledgebaseList::rename(int row, const std::wstring& name) {
    grid_.setCell(row, NAME_COLUMN, nameCell(name, application_.platform.conversions));
    sortWhereByName();
    return find(name);
}

void KnowledgebaseList::readAgain(int row) {
    std::vector<ui::GridCell> cells = rowOf(nameOf(row)).cells;
    for (std::size_t column = 0; column < cells.size(); ++column)
        grid_.setCell(row, static_cast<int>(column), std::move(cells[column]));
}

// --- Finding ----------------------------------------------------------------------------------------------

std::optional<std::wstring> KnowledgebaseList::currentName() const {
    if (grid_.currentRow() == -1) return std::nullopt;
    return nameOf(grid_.currentRow());
}

int KnowledgebaseList::find(const std::wstring& name) const {
    for (int row = 0; row < rowCount(); ++row)
        if (grid_.cellText(row, NAME_COLUMN) == name) return row;
    return -1;
}

int KnowledgebaseList::findIgnoringCase(const std::wstring& name, int exceptRow) const {
    Conversions& conversions = application_.platform.conversions;
    const std::wstring wanted = conversions.lower(name);
    for (int row = 0; row < rowCount(); ++row)
        if (row != exceptRow && conversions.lower(nameOf(row)) == wanted) return row;
    return -1;
}

int KnowledgebaseList::stillAt(int row, const std::wstring& name) const {
    const bool still = row < rowCount() && nameOf(row) == name;
    return still ? row : find(name);
}

bool KnowledgebaseList::selectLast(const std::wstring& name) {
    int row = rowCount() - 1;
    while (row >= 0 && grid_.cellText(row, NAME_COLUMN) != name) --row;
    if (row >= 0) grid_.setCurrentRow(row);
    return row >= 0;
}

void KnowledgebaseList::keepOneCurrent() {
    if (isEmpty() || grid_.currentRow() != -1) return;
    const int row = find(nameBefore_);
    grid_.setCurrentRow(row != -1 ? row : std::min(rowBefore_, rowCount() - 1));
}

// --- Order ------------------------------------------------------------------------------------------------

const SortRule& KnowledgebaseList::sortRule() const {
    return listColumns().at(static_cast<std::size_t>(nSortColumn)).sortRule;
}

/// The code tells the direction; a date, whose code is one for both, goes by its column's next order, which
/// is the sort's own while it sorts.
bool KnowledgebaseList::ascends() const {
    const SortRule& rule = sortRule();
    if (rule.ascending != rule.descending) return nSortType == rule.ascending;
    return nNextOrder.at(static_cast<std::size_t>(nSortColumn)) == ASCENDING;
}

void KnowledgebaseList::sort() {
    const auto before = sortRule().before;
    if (ascends()) return grid_.sort(nSortColumn, before);
    grid_.sort(nSortColumn, [before](const ui::GridCell& first, const ui::GridCell& second) {
        return before(second, first);
    });
}

void KnowledgebaseList::sortWhereByName() {
    if (nSortColumn == NAME_COLUMN) sort();
}

void KnowledgebaseList::toggleNextOrder() { nextOrder() = nSortOrder == DESCENDING ? ASCENDING : DESCENDING; }

void KnowledgebaseList::sortBy(int column) {
    if (column != nSortColumn) grid_.setSortArrow(nSortColumn, ui::SortArrow::none);
    nSortColumn = column;
    nSortOrder = nextOrder();
    nSortType = nSortOrder == ASCENDING ? sortRule().ascending : sortRule().descending;
    sort();
    showSortArrow();
    toggleNextOrder();
}

void KnowledgebaseList::restoreSort() {
    const std::wstring& key = application_.ProfileKey;
    const std::int32_t order = application_.readInteger(key, valueName::KBConfigSortOrder, -1);
    const std::int32_t column = application_.readInteger(key, valueName::KBConfigColumn, -1);
    const std::int32_t code = application_.readInteger(key, valueName::KBConfigSortType, -1);
    const bool saved = column >= 0 && column < static_cast<int>(listColumns().size());
    nSortColumn = saved ? column : NAME_COLUMN;
    nSortOrder = saved && order == ASCENDING ? ASCENDING : DESCENDING;
    nSortType = saved ? code : sortRule().ascending;
    if (nSortType != sortRule().ascending && nSortType != sortRule().descending)
        nSortType = nSortOrder == ASCENDING ? sortRule().ascending : sortRule().descending;
    sortRestored_ = true;
    showSortArrow();
    // The order that the first opening begins with is that of the next click: the names themselves ascend.
    if (!saved) grid_.setSortArrow(nSortColumn, ui::SortArrow::up);
    nNextOrder.assign(nNextOrder.size(), DESCENDING);
    nextOrder() = nSortOrder;
    sort();
}

void KnowledgebaseList::storeSort() {
    if (!sortRestored_) return;
    const std::wstring& key = application_.ProfileKey;
    application_.writeInteger(key, valueName::KBConfigSortOrder, nSortOrder);
    application_.writeInteger(key, valueName::KBConfigColumn, nSortColumn);
    application_.writeInteger(key, valueName::KBConfigSortType, nSortType);
}

void KnowledgebaseList::hideSortArrows() {
    for (int column = 0; column < static_cast<int>(listColumns().size()); ++column)
        grid_.setSortArrow(column, ui::SortArrow::none);
}

void KnowledgebaseList::showSortArrow() {
    grid_.setSortArrow(nSortColumn, nSortOrder == ASCENDING ? ui::SortArrow::up : ui::SortArrow::down);
}

}  // namespace vexa
