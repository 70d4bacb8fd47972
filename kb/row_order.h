// The order of the list's rows: by text, by number or by date, in the codes that are kept between openings.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "kb/knowledgebase_record.h"

namespace vexa {

/// How the rows are sorted; stored as `KBConfigSortType`.
namespace sortCode {
constexpr std::int32_t textAscending = 0;
constexpr std::int32_t textDescending = 1;
constexpr std::int32_t date = 6;
constexpr std::int32_t numberAscending = 8;
constexpr std::int32_t numberDescending = 9;
}  // namespace sortCode

constexpr std::int32_t ASCENDING = 1;
constexpr std::int32_t DESCENDING = 0;

/// The code for a column sorted in this order.
[[nodiscard]] std::int32_t sortCodeOf(int column, std::int32_t order);

/// Whether a code can be one for this column, in either order.
[[nodiscard]] bool sortCodeFits(int column, std::int32_t code);

/// Which of two dates (seconds) comes first: below 0 the first, above 0 the second, 0 neither. `nextOrder` is
/// what the next click on the dates sorts by; a row never updated is the oldest.
[[nodiscard]] int SortCompare(double first, double second, std::int32_t nextOrder);

/// Sorts one list. What rows go by is gathered once for each column, until a row changes.
class RowSorter {
public:
    explicit RowSorter(ui::Grid& grid) : grid_(grid) {}
    /// By a column, texts without regard to case. Rows that are equal keep their order.
    void sort(int column, std::int32_t code, std::int32_t nextOrder);

private:
    class NumberKeys {
    public:
        void clear() { numbers_.clear(); }
        void add(const ui::GridCell& cell) { numbers_.push_back(cell.number); }
        [[nodiscard]] double operator[](std::size_t index) const { return numbers_[index]; }

    private:
        std::vector<double> numbers_;
    };

    /// The texts lie one behind the other: where the cells have them, comparing walks through all memory.
    class TextKeys {
    public:
        void clear();
        void add(const ui::GridCell& cell);
        [[nodiscard]] std::wstring_view operator[](std::size_t index) const {
            return {texts_.data() + ends_[index], ends_[index + 1] - ends_[index]};
        }

    private:
        std::wstring texts_;
        std::vector<std::size_t> ends_{0};
    };

    template <class Keys>
    struct Gathered {
        Keys keys;
        std::uint64_t revision = 0;  ///< the list's, when they were gathered
    };
    template <class Keys>
    using OfColumns = std::array<Gathered<Keys>, column::count>;

    /// The keys of a column as its rows are now.
    template <class Keys>
    const Keys& keys(OfColumns<Keys>& columns, int column);

    ui::Grid& grid_;
    OfColumns<NumberKeys> numbers_;
    OfColumns<TextKeys> texts_;
};

}  // namespace vexa
