// One run per outside call of a deed in which just that call fails: nothing crashes, the dialog can be
// closed, and the end of processing brings everything back.
#include <algorithm>

#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

class KBFaultTest : public KBMailAndNews {
public:
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
    std::function<void(KBFaultTest&, frmKBConfiguration&)> deed;
};

std::vector<FaultCase> faultCases() {
    std::vector<FaultCase> cases{
        {"Unlock", true, [](KBFaultTest& test, frmKBConfiguration&) { test.addIn.finish(L"Mail", false); }},
        {"UnlockKeepingTheList", true,
         [](KBFaultTest& test, frmKBConfiguration&) { test.addIn.finish(L"Mail", true); }},
        {"UnlockByTheTimer", true, [](KBFaultTest& test, frmKBConfiguration&) { test.endByTick(); }},
        {"RefusedName", false,
         [](KBFaultTest& test, frmKBConfiguration& form) {
             test.user.click(form.cmdRename);
             test.enter(form, L"news");
         }},
    };
    for (const Command& command : COMMANDS)
        cases.push_back({command.name, false, [&command](KBFaultTest& test, frmKBConfiguration& form) {
                             test.user.click(command.button(form));
                             if (!command.said[0]) test.enter(form, L"Post");
                         }});
    return cases;
}

class KBFaults : public KBFaultTest, public testing::WithParamInterface<FaultCase> {};

TEST_P(KBFaults, EachCallMayFailAndTheNextEndOfProcessingBringsEverythingBack) {
    open([&](frmKBConfiguration& form) {
        std::size_t count = 1;
        for (std::size_t failing = 0; failing <= count; ++failing) {
            if (GetParam().locked)
                lockByUpdate(form);
            else
                choose(form, L"Mail");
            stage->answerMessages(std::vector<MessageAnswer>(3, MessageAnswer::yes));
            calls.clear();
            if (failing > 0) calls.failCall(failing - 1);
            GetParam().deed(*this, form);
            if (failing == 0) count = calls.lines().size();
            const auto& lines = calls.lines();
            SCOPED_TRACE(failing == 0 ? "no fault" : lines.at(std::min(failing, lines.size()) - 1));
            expectSound(form);
            if (testing::Test::HasFailure()) return;
        }
        EXPECT_GT(count, 3u);
    });
}

INSTANTIATE_TEST_SUITE_P(Deeds, KBFaults, testing::ValuesIn(faultCases()), namedRow);

using KBLoadFaults = KBFaultTest;

TEST_F(KBLoadFaults, EachCallOfOpeningAndClosingMayFailAndTheNextOpeningIsWhole) {
    std::size_t count = 1;
    for (std::size_t failing = 0; failing <= count; ++failing) {
        calls.clear();
        if (failing > 0) calls.failCall(failing - 1);
        open([](frmKBConfiguration&) {});
        if (failing == 0) count = calls.lines().size();
        calls.forgetFaults();
        open([&](frmKBConfiguration& form) { expectSound(form); });
        EXPECT_EQ(addIn.connections(), 0u);
        if (testing::Test::HasFailure()) FAIL() << "fault " << failing;
    }
    EXPECT_GT(count, 30u);
}

}  // namespace
}  // namespace tests
