// The order of the list's rows: by text, by number or by date, in the codes that are kept between openings.
#pragma once

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

/// Sorts the list by a column, texts without regard to case. Rows that are equal keep their order.
void sortRows(ui::Grid& grid, int column, std::int32_t code, std::int32_t nextOrder);

}  // namespace vexa
