// The host closes the dialog inside a call that then fails: nothing is read, shown or asked any more.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using vexa::frmKBConfiguration;

class KBClosed : public KBTest {
protected:
    void SetUp() override {
        KBTest::SetUp();
        recordNames({L"Mail", L"News"});
    }
};

TEST_F(KBClosed, ByTheCallThatRefusesANameReadsNoListAnew) {
    for (const bool adding : {true, false}) {
        open([&](frmKBConfiguration& form) {
            choose(form, L"Mail");
            user.click(adding ? form.cmdAdd : form.cmdRename);
            calls.clear();
            calls.failCallsWith("addin Notify");
            calls.during("addin Notify", [&] { stage->closeDialogs(); });
            enter(form, L"Post");
            EXPECT_FALSE(form.window().isOpen());
        });
        calls.forgetFaults();
        EXPECT_THAT(calls.linesWith("addin Notify"), testing::SizeIs(1));
        EXPECT_THAT(log(), Not(Contains("frmKBConfiguration, Lookup: ProjectEventName")));
        EXPECT_THAT(stage->messages(), IsEmpty());
    }
}

}  // namespace
}  // namespace tests
