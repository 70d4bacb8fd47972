// Records that no add-in should have left: the list goes on with what can be read and changes nothing of
// them.
#include <gmock/gmock.h>

#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::IsEmpty;

class KBBadInput : public KBTest {
protected:
    /// Values other than those that opening and closing write.
    [[nodiscard]] std::vector<std::string> writtenRecords() const {
        std::vector<std::string> lines;
        for (const std::string& line : calls.linesWith("registry set"))
            if (line.find("KBConfig") == std::string::npos && line.find("hWndKBEdit") == std::string::npos)
                lines.push_back(line);
        return lines;
    }
};

TEST_F(KBBadInput, AProjectCountOfTwoThousandMillionsShowsAHundredThousandRowsAndHangsNothing) {
    recordNames({L"Mail", L"News"});
    stage->setValue(KEY, L"ProjectCount", 2'000'000'000);
    open([&](vexa::frmKBConfiguration& form) {
        EXPECT_EQ(form.sftKBConfiguration.rowCount(), 100'000);
        EXPECT_EQ(names(form).back(), L"News");
        user.click(form.cmdAdd);
        EXPECT_EQ(current(form), L"New[100000]");
        user.press(form.window(), key::escape);
    });
    EXPECT_EQ(stored(L"ProjectCount"), 2'000'000'000);
    EXPECT_THAT(writtenRecords(), IsEmpty());
}

}  // namespace
}  // namespace tests
