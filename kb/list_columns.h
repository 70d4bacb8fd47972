// The columns of the list of knowledgebases. Each is declared in one place: what its header shows, what it
// shows of a knowledgebase, and what it is sorted by.
#pragma once

#include <cstdint>
#include <vector>

#include "kb/knowledgebase_record.h"
#include "ui/grid.h"

namespace vexa {

/// The column of the names, by which everything else finds its row.
constexpr int NAME_COLUMN = 0;

/// How a column is sorted: by which codes, which are stored as `KBConfigSortType`, and by what of its cells.
struct SortRule {
    std::int32_t ascending;
    std::int32_t descending;
    bool (*before)(const ui::GridCell& first, const ui::GridCell& second);
};

struct ListColumn {
    ui::GridColumn header;
    /// Throws Error where `KBLastUpdate` is no date.
    ui::GridCell (*cell)(const KnowledgebaseRecord& record, Conversions& conversions);
    const SortRule& sortRule;
};

[[nodiscard]] const std::vector<ListColumn>& listColumns();

/// A name's cell: sorted without regard to case.
[[nodiscard]] ui::GridCell nameCell(const std::wstring& name, Conversions& conversions);

/// The cells of all columns. Throws Error where `KBLastUpdate` is no date.
[[nodiscard]] ui::GridRow knowledgebaseRow(const KnowledgebaseRecord& record, Conversions& conversions);

}  // namespace vexa
