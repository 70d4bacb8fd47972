#include "kb/row_order.h"

#include <functional>

namespace vexa {
namespace {

/// The next order is no variable, so that the compiler leaves one comparison of it.
template <std::int32_t nextOrder>
struct ByDate {
    bool operator()(double first, double second) const { return SortCompare(first, second, nextOrder) < 0; }
};

}  // namespace

std::int32_t sortCodeOf(int column, std::int32_t order) {
    const bool ascending = order == ASCENDING;
    if (column == column::lastUpdate) return sortCode::date;
    if (column == column::size) return ascending ? sortCode::numberAscending : sortCode::numberDescending;
    return ascending ? sortCode::textAscending : sortCode::textDescending;
}

bool sortCodeFits(int column, std::int32_t code) {
    return code == sortCodeOf(column, ASCENDING) || code == sortCodeOf(column, DESCENDING);
}

int SortCompare(double first, double second, std::int32_t nextOrder) {
    const bool ascending = nextOrder > 0;
    if (second < first) return ascending ? 1 : -1;
    if (second > first) return ascending ? -1 : 1;
    return 0;
}

void RowSorter::TextKeys::clear() {
    texts_.clear();
    ends_.resize(1);
}

void RowSorter::TextKeys::add(const ui::GridCell& cell) {
    texts_ += cell.key.empty() ? cell.text : cell.key;
    ends_.push_back(texts_.size());
}

template <class Keys>
const Keys& RowSorter::keys(OfColumns<Keys>& columns, int column) {
    Gathered<Keys>& gathered = columns.at(static_cast<std::size_t>(column));
    if (gathered.revision == grid_.revision()) return gathered.keys;
    gathered.keys.clear();
    gathered.revision = 0;
    grid_.visitColumn(column, [&](const ui::GridCell& cell) { gathered.keys.add(cell); });
    gathered.revision = grid_.revision();
    return gathered.keys;
}

void RowSorter::sort(int column, std::int32_t code, std::int32_t nextOrder) {
    switch (code) {
        case sortCode::date:
            if (nextOrder > 0) return grid_.sort(keys(numbers_, column), ByDate<ASCENDING>());
            return grid_.sort(keys(numbers_, column), ByDate<DESCENDING>());
        case sortCode::numberAscending: return grid_.sort(keys(numbers_, column), std::less());
        case sortCode::numberDescending: return grid_.sort(keys(numbers_, column), std::greater());
        case sortCode::textDescending: return grid_.sort(keys(texts_, column), std::greater());
        default: return grid_.sort(keys(texts_, column), std::less());
    }
}

}  // namespace vexa
