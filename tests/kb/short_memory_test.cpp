// The knowledgebase dialogs where memory is short for a moment.
#include "kb/frmSelectDefaultKB.h"
#include "tests/kb/kb_test_base.h"
#include "tests/support/shortage.h"

namespace tests {
namespace {

using testing::Contains;
using vexa::frmSelectDefaultKB;

class KBShortMemory : public KBTest {};

TEST_F(KBShortMemory, TheChoosersFailingOKSaysSoChangesNothingAndStillCloses) {
    recordNames({std::wstring(100, L'm')});
    application.settings.DefaultProject = L"Mail";
    stage->whenShown<frmSelectDefaultKB>([&](frmSelectDefaultKB& form) {
        user.clickRow(form.sftKnowledgebases, 1);
        {
            const MomentOfShortage shortage;
            form.cmdOK.onClick();
        }
        EXPECT_FALSE(form.window().isOpen());
    });
    frmSelectDefaultKB(application, stage->owner()).Show();
    EXPECT_EQ(application.settings.DefaultProject, L"Mail");
    EXPECT_THAT(log(), Contains("frmSelectDefaultKB, Error cmdOK_Click: Out of memory"));
}

}  // namespace
}  // namespace tests
