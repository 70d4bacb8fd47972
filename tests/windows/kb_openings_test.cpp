// Three hundred openings of each knowledgebase dialog leave nothing behind.
#include "kb/frmKnowledgeBase.h"
#include "kb/frmSelectDefaultKB.h"
#include "tests/forms/kb_test_base.h"
#include "tests/windows/resource_count.h"

namespace tests {
namespace {

class KBOpenings : public KBTest {
protected:
    void SetUp() override {
        KBTest::SetUp();
        application.settings.LoggingInformation = false;
        record({{L"Mail", L"43831.5", 1536, 5}, {L"News", {}, {}, {}}});
    }

    /// The same number of everything after the first openings and after the last.
    void expectNothingLeft(const std::function<void()>& openAndClose) {
        repeat(20, openAndClose);
        const ResourceCount before = countResources();
        repeat(300, openAndClose);
        EXPECT_EQ(countResources(), before);
    }

private:
    void repeat(int times, const std::function<void()>& deed) {
        for (; times > 0; --times) {
            deed();
            calls.clear();
        }
    }
};

TEST_F(KBOpenings, OfTheListWithAnEditAndALockLeaveNothingBehind) {
    expectNothingLeft([this] {
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
    expectNothingLeft([this] {
        stage->whenShown<vexa::frmKnowledgeBase>(
            [this](vexa::frmKnowledgeBase& form) { user.click(form.cmdCancel); });
        vexa::frmKnowledgeBase(application, stage->owner()).Show();
    });
}

TEST_F(KBOpenings, OfTheAutoUpdateChooserLeaveNothingBehind) {
    expectNothingLeft([this] {
        stage->whenShown<vexa::frmSelectDefaultKB>(
            [this](vexa::frmSelectDefaultKB& form) { user.click(form.cmdCancel); });
        vexa::frmSelectDefaultKB(application, stage->owner()).Show();
    });
}

}  // namespace
}  // namespace tests
