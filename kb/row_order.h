// The order of the list's rows: by text, by number or by date, in the codes that are kept between openings.
#pragma once

#include <functional>
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

/// Which of two dates (seconds) comes first: below 0 the first, above 0 the second, 0 neither.
using DateCompare = std::function<int(std::int64_t first, std::int64_t second)>;
/// The date that a cell's text stands for, in seconds.
using DateOf = std::function<std::int64_t(const std::wstring& text)>;

/// The present numbers of the rows in their new order. Texts are compared without regard to case. Rows that
/// are equal keep their order. Each row's key is made once.
[[nodiscard]] std::vector<int> rowOrder(const ui::Grid& grid, int column, std::int32_t code,
                                        Conversions& conversions, const DateOf& dateOf,
                                        const DateCompare& compareDates);

}  // namespace vexa
