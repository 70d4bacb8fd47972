// One run per outside call of a deed in which just that call fails: nothing crashes, the dialog can be
// closed, and the end of processing brings everything back.
#include <algorithm>

#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

/// A stage of its own for each run.
class Scene : public KBMailAndNews {
public:
    Scene() { SetUp(); }
    void TestBody() override {}

    /// After any fault: the add-in's next end unlocks the dialog and shows the records, which are as they
    /// were.
    void expectSound(frmKBConfiguration& form) {
        calls.forgetFaults();
        addIn.finish(L"Mail", false);
        EXPECT_FALSE(form.locked());
        EXPECT_FALSE(anyRowGreyed(form));
        auto shown = names(form);
        std::ranges::sort(shown);
        EXPECT_EQ(shown, (Names{L"Mail", L"News"}));
        EXPECT_EQ(buttons(form).substr(0, 4), "AENM");
        EXPECT_EQ(storedText(L"Project1"), L"Mail");
        EXPECT_EQ(storedText(L"Project2"), L"News");
        EXPECT_EQ(stored(L"ProjectCount"), 2);
        for (const wchar_t* name : {L"News", L"Mail"}) {
            expectEditOf(form, name);
            addIn.finish(name, true);
            EXPECT_FALSE(form.locked());
        }
    }
};

/// What is done, and whether the dialog is locked for it before.
struct FaultCase {
    std::string name;
    bool locked;
    std::function<void(Scene&, frmKBConfiguration&)> deed;
};

std::vector<FaultCase> faultCases() {
    std::vector<FaultCase> cases{
        {"Unlock", true, [](Scene& scene, frmKBConfiguration&) { scene.addIn.finish(L"Mail", false); }},
        {"UnlockKeepingTheList", true,
         [](Scene& scene, frmKBConfiguration&) { scene.addIn.finish(L"Mail", true); }},
        {"UnlockByTheTimer", true, [](Scene& scene, frmKBConfiguration&) { scene.endByTick(); }},
        {"RefusedName", false,
         [](Scene& scene, frmKBConfiguration& form) {
             scene.user.click(form.cmdRename);
             scene.enter(form, L"news");
         }},
    };
    for (const Command& command : COMMANDS)
        cases.push_back({command.name, false, [&command](Scene& scene, frmKBConfiguration& form) {
                             scene.user.click(command.button(form));
                             if (!command.said[0]) scene.enter(form, L"Post");
                         }});
    return cases;
}

class KBFaults : public testing::TestWithParam<FaultCase> {};

TEST_P(KBFaults, EachCallMayFailAndTheNextEndOfProcessingBringsEverythingBack) {
    std::size_t calls = 1;
    for (std::size_t failing = 0; failing <= calls; ++failing) {
        Scene scene;
        scene.open([&](frmKBConfiguration& form) {
            if (GetParam().locked)
                scene.lockByUpdate(form);
            else
                scene.choose(form, L"Mail");
            scene.stage->answerMessages(std::vector<MessageAnswer>(3, MessageAnswer::yes));
            scene.calls.clear();
            if (failing > 0) scene.calls.failCall(failing - 1);
            GetParam().deed(scene, form);
            if (failing == 0) calls = scene.calls.lines().size();
            const auto& lines = scene.calls.lines();
            SCOPED_TRACE(failing == 0 ? "no fault" : lines.at(std::min(failing, lines.size()) - 1));
            scene.expectSound(form);
        });
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(calls, 3u);
}

INSTANTIATE_TEST_SUITE_P(Deeds, KBFaults, testing::ValuesIn(faultCases()), namedRow);

TEST(KBLoadFaults, EachCallOfOpeningAndClosingMayFailAndTheNextOpeningIsWhole) {
    std::size_t calls = 1;
    for (std::size_t failing = 0; failing <= calls; ++failing) {
        Scene scene;
        scene.calls.clear();
        if (failing > 0) scene.calls.failCall(failing - 1);
        scene.open([](frmKBConfiguration&) {});
        if (failing == 0) calls = scene.calls.lines().size();
        scene.calls.forgetFaults();
        scene.open([&](frmKBConfiguration& form) { scene.expectSound(form); });
        EXPECT_EQ(scene.addIn.connections(), 0u);
        if (testing::Test::HasFailure()) FAIL() << "fault " << failing;
    }
    EXPECT_GT(calls, 30u);
}

}  // namespace
}  // namespace tests
