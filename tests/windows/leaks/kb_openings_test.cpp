// Three hundred openings of each knowledgebase dialog leave nothing behind.
#include "kb/frmKBConfiguration.ids.h"
#include "kb/frmKnowledgeBase.h"
#include "kb/frmKnowledgeBase.ids.h"
#include "kb/frmSelectDefaultKB.h"
#include "kb/frmSelectDefaultKB.ids.h"
#include "tests/kb/kb_test_base.h"
#include "tests/windows/leaks/leak_test.h"

namespace tests {
namespace {

class KBOpenings : public KBTest {
protected:
    void SetUp() override {
        KBTest::SetUp();
        application.settings.LoggingInformation = false;
        record({{L"Mail", L"43831.5", 1536, 5}, {L"News", {}, {}, {}}});
    }
};

TEST_F(KBOpenings, OfTheListWithAnEditAndALockLeaveNothingBehind) {
    expectNothingLeft(*stage, IDD_frmKBConfiguration, [this] {
        open([this](vexa::frmKBConfiguration& form) {
            user.click(form.cmdAdd);
            user.press(form.window(), key::escape);
            choose(form, L"Mail");
            user.click(form.cmdUpdate);
            addIn.finish(L"Mail", false);
        });
    });
}

TEST_F(KBOpenings, OfTheBaseFolderLeaveNothingBehind) {
    application.settings.VexaBaseDir = stage->folder().substr(0, stage->folder().size() - 1);
    expectNothingLeft(*stage, IDD_frmKnowledgeBase, [this] {
        stage->whenShown<vexa::frmKnowledgeBase>(
            [this](vexa::frmKnowledgeBase& form) { user.click(form.cmdCancel); });
        vexa::frmKnowledgeBase(application, stage->owner()).Show();
    });
}

TEST_F(KBOpenings, OfTheAutoUpdateChooserLeaveNothingBehind) {
    expectNothingLeft(*stage, IDD_frmSelectDefaultKB, [this] {
        stage->whenShown<vexa::frmSelectDefaultKB>(
            [this](vexa::frmSelectDefaultKB& form) { user.click(form.cmdCancel); });
        vexa::frmSelectDefaultKB(application, stage->owner()).Show();
    });
}

}  // namespace
}  // namespace tests
