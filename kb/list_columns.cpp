#include "kb/list_columns.h"

#include "kb/date_serial.h"
#include "kb/kb_icons.ids.h"

namespace vexa {
namespace {

// --- What columns are sorted by ---------------------------------------------------------------------------

const std::wstring& sortedText(const ui::GridCell& cell) { return cell.key.empty() ? cell.text : cell.key; }

bool textBefore(const ui::GridCell& first, const ui::GridCell& second) {
    return sortedText(first) < sortedText(second);
}

bool numberBefore(const ui::GridCell& first, const ui::GridCell& second) {
    return first.number < second.number;
}

constexpr SortRule BY_TEXT{0, 1, textBefore};
constexpr SortRule BY_NUMBER{8, 9, numberBefore};
// Dates have one code for both orders.
constexpr SortRule BY_DATE{6, 6, numberBefore};

// --- What columns show ------------------------------------------------------------------------------------

ui::GridCell name(const KnowledgebaseRecord& record, Conversions& conversions) {
    return nameCell(record.name, conversions);
}

/// Its number is the shown date in seconds; a knowledgebase never updated is the oldest.
ui::GridCell date(const KnowledgebaseRecord& record, Conversions& conversions) {
    if (record.KBLastUpdate == NEVER_UPDATED) return {UNKNOWN, static_cast<double>(dateFromText(L"0"))};
    const std::wstring text = dateText(lastUpdate(record, conversions));
    return {text, static_cast<double>(dateFromText(text))};
}

/// Its number is kept also where the size is not shown.
ui::GridCell size(const KnowledgebaseRecord& record, Conversions& conversions) {
    const double bytes = record.KBSize == -1 ? 0 : record.KBSize;
    return {lastUpdate(record, conversions) == -1 ? UNKNOWN : sizeText(record.KBSize), bytes};
}

ui::GridCell documents(const KnowledgebaseRecord& record, Conversions&) {
    return {documentsText(record.KBDocuments)};
}

}  // namespace

const std::vector<ListColumn>& listColumns() {
    static const std::vector<ListColumn> columns{
        {{L"Knowledgebase", 34}, name, BY_TEXT},
        {{L"Last Update", 31}, date, BY_DATE},
        {{L"Size", 14, true}, size, BY_NUMBER},
        {{L"Documents", 21, true}, documents, BY_TEXT},
    };
    return columns;
}

ui::GridCell nameCell(const std::wstring& name, Conversions& conversions) {
    return {name, 0, conversions.lower(name)};
}

ui::GridRow knowledgebaseRow(const KnowledgebaseRecord& record, Conversions& conversions) {
    ui::GridRow row{{}, IDI_kb};
    for (const ListColumn& column : listColumns()) row.cells.push_back(column.cell(record, conversions));
    return row;
}

}  // namespace vexa
