#include "kb/row_order.h"

#include <algorithm>
#include <numeric>

namespace vexa {
namespace {

/// `keyOf(row)` makes a row's key, `before(first, second)` compares two keys.
template <class KeyOf, class Before>
std::vector<int> ordered(int rows, KeyOf keyOf, Before before) {
    std::vector<int> order(static_cast<std::size_t>(rows));
    std::iota(order.begin(), order.end(), 0);
    std::vector<decltype(keyOf(0))> keys;
    keys.reserve(order.size());
    for (const int row : order) keys.push_back(keyOf(row));
    std::ranges::stable_sort(order, [&](int first, int second) {
        return before(keys[static_cast<std::size_t>(first)], keys[static_cast<std::size_t>(second)]);
    });
    return order;
}

template <class KeyOf>
std::vector<int> orderedBy(int rows, bool ascending, KeyOf keyOf) {
    if (ascending) return ordered(rows, keyOf, std::less<>());
    return ordered(rows, keyOf, std::greater<>());
}

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

std::vector<int> rowOrder(const ui::Grid& grid, int column, std::int32_t code, Conversions& conversions,
                          const DateOf& dateOf, const DateCompare& compareDates) {
    const int rows = grid.rowCount();
    switch (code) {
        case sortCode::date:
            return ordered(
                rows, [&](int row) { return dateOf(grid.cellText(row, column)); },
                [&](std::int64_t first, std::int64_t second) { return compareDates(first, second) < 0; });
        case sortCode::numberAscending:
        case sortCode::numberDescending:
            return orderedBy(rows, code == sortCode::numberAscending,
                             [&](int row) { return grid.cellNumber(row, column); });
        default:
            return orderedBy(rows, code == sortCode::textAscending,
                             [&](int row) { return conversions.lower(grid.cellText(row, column)); });
    }
}

}  // namespace vexa
