// A removal is pending as long as its command is being processed: whatever ends that ends it, too, and a
// later command has none left.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::IsEmpty;
using testing::SizeIs;
using vexa::frmKBConfiguration;

/// How the command of the removal comes to its end.
struct EndOfRemoval {
    const char* name;
    void (*end)(FakeAddIn& addIn, Stage& stage);
    std::size_t messages;  ///< that the search window gets
};

class KBPendingRemoval : public KBTest, public testing::WithParamInterface<EndOfRemoval> {};

TEST_P(KBPendingRemoval, IsOverForALaterEdit) {
    stage->setValue(ROOT, L"hWndSearchCtl", 4711);
    recordNames({L"Mail", L"News"});
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->answerMessages({ui::MessageAnswer::yes});
        user.click(form.cmdRemove);
        GetParam().end(addIn, *stage);
        user.wait(500);
        ASSERT_FALSE(form.locked());
        EXPECT_THAT(calls.linesWith("message 4711 256"), SizeIs(GetParam().messages));
        calls.clear();
        choose(form, L"Mail");
        user.click(form.cmdEdit);
        EXPECT_TRUE(form.locked());
        addIn.finish(L"Mail", false);
        EXPECT_THAT(calls.linesWith("message 4711 256"), IsEmpty());
    });
}

INSTANTIATE_TEST_SUITE_P(
    Ends, KBPendingRemoval,
    testing::Values(
        EndOfRemoval{"ByItsEvent", [](FakeAddIn& addIn, Stage&) { addIn.finish(L"Mail", true); }, 1},
        EndOfRemoval{"ByAnothersEvent", [](FakeAddIn& addIn, Stage&) { addIn.finish(L"News", true); }, 0},
        EndOfRemoval{"ByATick",
                     [](FakeAddIn&, Stage& stage) {
                         stage.setValue(L"Software\\Norvane\\Quillmark\\Alice", L"KBProcessState", 3);
                     },
                     0}),
    [](const auto& one) { return std::string(one.param.name); });

class KBRemovalWithoutASearchWindow : public KBTest {};

TEST_F(KBRemovalWithoutASearchWindow, SendsNothingAtItsEnd) {
    recordNames({L"Mail", L"News"});
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->answerMessages({ui::MessageAnswer::yes});
        user.click(form.cmdRemove);
        addIn.finish(L"Mail", false);
        EXPECT_FALSE(form.locked());
    });
    EXPECT_THAT(calls.linesWith("message"), IsEmpty());
}

}  // namespace
}  // namespace tests
