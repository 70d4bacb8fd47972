#include "kb/row_order.h"

#include <functional>
#include <string_view>
#include <vector>

namespace vexa {
namespace {

class NumberKeys {
public:
    void add(const ui::GridCell& cell) { numbers_.push_back(cell.number); }
    [[nodiscard]] double operator[](std::size_t index) const { return numbers_[index]; }

private:
    std::vector<double> numbers_;
};

/// The texts lie one behind the other: where the cells have them, comparing them walks through all memory.
class TextKeys {
public:
    void add(const ui::GridCell& cell) {
        texts_ += cell.key.empty() ? cell.text : cell.key;
        ends_.push_back(texts_.size());
    }
    [[nodiscard]] std::wstring_view operator[](std::size_t index) const {
        return {texts_.data() + ends_[index], ends_[index + 1] - ends_[index]};
    }

private:
    std::wstring texts_;
    std::vector<std::size_t> ends_{0};
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

void sortRows(ui::Grid& grid, int column, std::int32_t code, std::int32_t nextOrder) {
    switch (code) {
        case sortCode::date:
            return grid.sort(column, NumberKeys(), [nextOrder](double first, double second) {
                return SortCompare(first, second, nextOrder) < 0;
            });
        case sortCode::numberAscending: return grid.sort(column, NumberKeys(), std::less());
        case sortCode::numberDescending: return grid.sort(column, NumberKeys(), std::greater());
        case sortCode::textDescending: return grid.sort(column, TextKeys(), std::greater());
        default: return grid.sort(column, TextKeys(), std::less());
    }
}

}  // namespace vexa
