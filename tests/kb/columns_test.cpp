// The columns of the list of knowledgebases as they are declared.
#include "kb/list_columns.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace tests {
namespace {

/// A column's header, its width in per cent of the list's, and the codes of its sort.
struct Declared {
    const wchar_t* caption;
    int share;
    bool rightAligned;
    std::int32_t ascending;
    std::int32_t descending;
};

TEST(KBColumns, AreDeclaredOnceWithHeaderWidthAlignmentAndSort) {
    const Declared expected[] = {{L"Knowledgebase", 34, false, 0, 1},
                                 {L"Last Update", 31, false, 6, 6},
                                 {L"Size", 14, true, 8, 9},
                                 {L"Documents", 21, true, 0, 1}};
    const std::vector<vexa::ListColumn>& columns = vexa::listColumns();
    ASSERT_EQ(columns.size(), std::size(expected));
    int shares = 0;
    for (std::size_t index = 0; index < columns.size(); ++index) {
        SCOPED_TRACE(toUtf8(expected[index].caption));
        EXPECT_EQ(columns[index].header.caption, expected[index].caption);
        EXPECT_EQ(columns[index].header.share, expected[index].share);
        EXPECT_EQ(columns[index].header.rightAligned, expected[index].rightAligned);
        EXPECT_EQ(columns[index].sortRule.ascending, expected[index].ascending);
        EXPECT_EQ(columns[index].sortRule.descending, expected[index].descending);
        shares += columns[index].header.share;
    }
    EXPECT_EQ(shares, 100) << "they fill the list";
}

}  // namespace
}  // namespace tests
