#include "kb/row_order.h"

#include <algorithm>
#include <utility>

namespace vexa {
namespace {

/// `keyOf(row)` is what a row is sorted by, `before(first, second)` compares two of them.
template <class KeyOf, class Before>
std::vector<int> ordered(int rows, KeyOf keyOf, Before before) {
    using Key = decltype(keyOf(0));
    std::vector<std::pair<Key, int>> keys;
    keys.reserve(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row) keys.emplace_back(keyOf(row), row);
    std::ranges::stable_sort(
        keys, [&](const auto& first, const auto& second) { return before(first.first, second.first); });
    std::vector<int> order;
    order.reserve(keys.size());
    for (const auto& key : keys) order.push_back(key.second);
    return order;
}

std::vector<int> orderedByNumber(const ui::Grid& grid, int column, bool ascending) {
    return ordered(
        grid.rowCount(), [&](int row) { return grid.cellNumber(row, column); },
        [ascending](double first, double second) { return ascending ? first < second : second < first; });
}

std::vector<int> orderedByText(const ui::Grid& grid, int column, bool ascending) {
    const auto keyOf = [&](int row) {
        const ui::GridCell& cell = grid.cell(row, column);
        return cell.key.empty() ? &cell.text : &cell.key;
    };
    return ordered(grid.rowCount(), keyOf,
                   [ascending](const std::wstring* first, const std::wstring* second) {
                       const int difference = first->compare(*second);
                       return ascending ? difference < 0 : difference > 0;
                   });
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

std::vector<int> rowOrder(const ui::Grid& grid, int column, std::int32_t code,
                          const DateCompare& compareDates) {
    switch (code) {
        case sortCode::date:
            return ordered(
                grid.rowCount(), [&](int row) { return grid.cellNumber(row, column); },
                [&](double first, double second) { return compareDates(first, second) < 0; });
        case sortCode::numberAscending:
        case sortCode::numberDescending:
            return orderedByNumber(grid, column, code == sortCode::numberAscending);
        default: return orderedByText(grid, column, code == sortCode::textAscending);
    }
}

}  // namespace vexa
