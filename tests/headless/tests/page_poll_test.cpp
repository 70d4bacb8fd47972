// The poll's interval to the millisecond, which real windows cannot keep.
#include "tests/page/page_test_base.h"

namespace tests {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class PagePoll : public PageTest {
protected:
    PagePoll() {
        start();
        calls.clear();
    }
};

TEST_F(PagePoll, ComesEachQuarterSecondAndNotBefore) {
    user.wait(249);
    EXPECT_THAT(calls.linesWith("addin IsSearching"), IsEmpty());
    user.wait(1);
    EXPECT_THAT(calls.linesWith("addin IsSearching"), SizeIs(1));
    user.wait(249);
    EXPECT_THAT(calls.linesWith("addin IsSearching"), SizeIs(1));
    user.wait(1);
    EXPECT_THAT(calls.linesWith("addin IsSearching"), SizeIs(2));
}

TEST_F(PagePoll, LeavesARuleThatTookATwentiethSecondOutForNineTwentieths) {
    calls.takes("addin IsProcessing", 50);
    const auto rules = [&] { return calls.linesWith("addin IsProcessing").size(); };
    user.wait(300);
    EXPECT_EQ(rules(), 1U) << "at 250, until 300; due again at 750";
    user.wait(440);
    EXPECT_EQ(rules(), 1U);
    user.wait(10);
    EXPECT_EQ(rules(), 2U);
}

TEST_F(PagePoll, AsksARuleThatTakesNoTimeEachTime) {
    user.wait(1000);
    EXPECT_THAT(calls.linesWith("addin IsProcessing"), SizeIs(4));
}

}  // namespace
}  // namespace tests
