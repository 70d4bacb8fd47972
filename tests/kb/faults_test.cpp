// One run per outside call of a deed in which just that call fails: nothing crashes, the dialog can be
// closed, and the end of processing brings everything back.
#include <algorithm>

#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using ui::MessageAnswer;
using vexa::frmKBConfiguration;

/// A stage of its own for each run.
class Scene : public KBTest {
public:
    using Deed = std::function<void(Scene&, frmKBConfiguration&)>;

    Scene() {
        SetUp();
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        recordNames({L"Mail", L"News"});
    }
    void TestBody() override {}

    void play(const std::function<void(frmKBConfiguration&)>& script) { open(script); }
    void chooseMail(frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->answerMessages(std::vector<MessageAnswer>(3, MessageAnswer::yes));
    }
    void click(ui::Control& control) { user.click(control); }
    void type(frmKBConfiguration& form, const std::wstring& name) { enter(form, name); }
    void giveRename(frmKBConfiguration& form) { rename(form, L"Mail", L"Post"); }
    void tick() { user.wait(500); }
    void endByTimer() {
        stage->setValue(KEY, L"KBProcessState", 3);
        tick();
    }
    FakeAddIn& theAddIn() { return addIn; }
    CallLog& theCalls() { return calls; }

    /// After any fault: the add-in's next end unlocks the dialog and shows the records, which are as they
    /// were.
    void expectSound(frmKBConfiguration& form) {
        calls.forgetFaults();
        addIn.finish(L"Mail", false);
        EXPECT_FALSE(form.locked());
        EXPECT_FALSE(anyRowGreyed(form));
        auto shown = names(form);
        std::ranges::sort(shown);
        EXPECT_EQ(shown, (std::vector<std::wstring>{L"Mail", L"News"}));
        EXPECT_EQ(buttons(form).substr(0, 4), "AENM");
        EXPECT_EQ(storedText(L"Project1"), L"Mail");
        EXPECT_EQ(storedText(L"Project2"), L"News");
        EXPECT_EQ(stored(L"ProjectCount"), 2);
        expectEditOf(form, L"News");
        expectEditOf(form, L"Mail");
    }
    /// The chosen row is the one that a command is about.
    void expectEditOf(frmKBConfiguration& form, const std::wstring& name) {
        choose(form, name);
        user.click(form.cmdEdit);
        EXPECT_TRUE(form.locked());
        EXPECT_EQ(storedText(L"ProjectEventName"), name);
        addIn.finish(name, true);
        EXPECT_FALSE(form.locked());
    }
};

struct FaultCase {
    const char* name;
    Scene::Deed prepare;
    Scene::Deed deed;
};

void nothing(Scene&, frmKBConfiguration&) {}
void choose(Scene& scene, frmKBConfiguration& form) { scene.chooseMail(form); }
void lock(Scene& scene, frmKBConfiguration& form) {
    scene.chooseMail(form);
    scene.click(form.cmdUpdate);
}

const FaultCase FAULTS[] = {
    {"Add", nothing,
     [](Scene& scene, frmKBConfiguration& form) {
         scene.click(form.cmdAdd);
         scene.type(form, L"Post");
     }},
    {"Edit", choose, [](Scene& scene, frmKBConfiguration& form) { scene.click(form.cmdEdit); }},
    {"Rename", choose, [](Scene& scene, frmKBConfiguration& form) { scene.giveRename(form); }},
    {"Remove", choose, [](Scene& scene, frmKBConfiguration& form) { scene.click(form.cmdRemove); }},
    {"Rebuild", choose, [](Scene& scene, frmKBConfiguration& form) { scene.click(form.cmdRebuild); }},
    {"Update", choose, [](Scene& scene, frmKBConfiguration& form) { scene.click(form.cmdUpdate); }},
    {"Unlock", lock, [](Scene& scene, frmKBConfiguration&) { scene.theAddIn().finish(L"Mail", false); }},
    {"UnlockKeepingTheList", lock,
     [](Scene& scene, frmKBConfiguration&) { scene.theAddIn().finish(L"Mail", true); }},
    {"UnlockByTheTimer", lock, [](Scene& scene, frmKBConfiguration&) { scene.endByTimer(); }},
    {"RefusedName", choose,
     [](Scene& scene, frmKBConfiguration& form) {
         scene.click(form.cmdRename);
         scene.type(form, L"news");
     }},
};

class KBFaults : public testing::TestWithParam<FaultCase> {};

TEST_P(KBFaults, EachCallMayFailAndTheNextEndOfProcessingBringsEverythingBack) {
    std::size_t calls = 1;
    for (std::size_t failing = 0; failing <= calls; ++failing) {
        Scene scene;
        scene.play([&](frmKBConfiguration& form) {
            GetParam().prepare(scene, form);
            scene.theCalls().clear();
            if (failing > 0) scene.theCalls().failCall(failing - 1);
            GetParam().deed(scene, form);
            if (failing == 0) calls = scene.theCalls().lines().size();
            const auto& lines = scene.theCalls().lines();
            SCOPED_TRACE(failing == 0 ? "no fault" : lines.at(std::min(failing, lines.size()) - 1));
            scene.expectSound(form);
        });
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(calls, 3u);
}

INSTANTIATE_TEST_SUITE_P(Deeds, KBFaults, testing::ValuesIn(FAULTS),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(KBLoadFaults, EachCallOfOpeningAndClosingMayFailAndTheNextOpeningIsWhole) {
    std::size_t calls = 1;
    for (std::size_t failing = 0; failing <= calls; ++failing) {
        Scene scene;
        scene.theCalls().clear();
        if (failing > 0) scene.theCalls().failCall(failing - 1);
        scene.play([](frmKBConfiguration&) {});
        if (failing == 0) calls = scene.theCalls().lines().size();
        scene.theCalls().forgetFaults();
        scene.play([&](frmKBConfiguration& form) { scene.expectSound(form); });
        EXPECT_EQ(scene.theAddIn().connections(), 0u);
        if (testing::Test::HasFailure()) FAIL() << "fault " << failing;
    }
    EXPECT_GT(calls, 30u);
}

}  // namespace
}  // namespace tests
