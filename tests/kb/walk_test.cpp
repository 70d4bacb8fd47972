// A random walk over the knowledgebase dialog, with an add-in that carries commands out, ends them sooner or
// later, and sometimes raises its events out of turn. After every step the dialog's rules hold.
#include <algorithm>
#include <set>

#include "kb/name_rules.h"
#include "tests/kb/kb_test_base.h"
#include "tests/support/dice.h"
#include "tests/support/restless_world.h"

namespace tests {
namespace {

const int STEPS = walkLength(200'000);
constexpr int STEPS_PER_OPENING = 400;

const Names NAMES{L"Mail",   L"mail",    L"News",   L"Archive", L"Work",   L"",      L" ",
                  L"a/b",    L"x?",      L"New[1]", L"New[2]",  L"new[3]", L"Ärzte", L"ÄRZTE",
                  L"<None>", L"default", L"a b",    L"Z",       L"12",     L"-"};

class KBWalk : public KBTest {
public:
    void SetUp() override {
        KBTest::SetUp();
        application.settings.LoggingInformation = false;
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
    }
    void play() {
        while (steps_ < STEPS && !HasFailure()) {
            startOver();
            open([this](frmKBConfiguration& form) { visit(form); });
        }
        std::printf(
            "%d steps, %d locks, %d ends, %d names refused, %d slow calls, %d waits inside calls, %d "
            "closings\n",
            steps_, locks_, ends_, refused_, world_.slowCalls(), world_.waits(), world_.closings());
        EXPECT_GT(locks_, STEPS / 200);
        EXPECT_GT(ends_, STEPS / 200);
        EXPECT_GT(refused_, STEPS / 500);
        EXPECT_GT(world_.closings(), STEPS / 500);
    }

private:
    // --- The add-in ---------------------------------------------------------------------------------------

    void startOver() {
        records_.clear();
        for (int count = dice_.roll(7); count > 0; --count) add(L"KB" + std::to_wstring(dice_.roll(20)));
        addIn.processing = dice_.oneIn(8);
        application.deleteValue(application.ProfileKey, L"KBProcessState");
        store();
    }
    void add(const std::wstring& name) {
        if (std::find(records_.begin(), records_.end(), name) != records_.end()) return;
        records_.push_back(name);
        describe(name);
    }
    void describe(const std::wstring& name) {
        const std::wstring key = std::wstring(KEY) + L"\\" + name;
        stage->setValue(key, L"KBDocuments", dice_.roll(3));
        stage->setValue(key, L"KBSize", dice_.roll(4) * 700'000 - 1);
        stage->setValue(
            key, L"KBLastUpdate",
            dice_.oneIn(3) ? std::wstring(L"-1") : std::to_wstring(43000 + dice_.roll(9)) + L".5");
    }
    void store() {
        stage->setValue(KEY, L"ProjectCount", static_cast<std::int32_t>(records_.size()));
        for (std::size_t index = 0; index < records_.size(); ++index)
            stage->setValue(KEY, L"Project" + std::to_wstring(index + 1), records_[index]);
    }
    /// What the add-in does at once when a command reaches it.
    void hear() {
        const std::wstring name = storedText(L"ProjectEventName");
        switch (stored(L"ProjectEvent")) {
            case 0: add(name); break;
            case 3: renameRecord(storedText(L"OldProjectname"), name); break;
            default: break;
        }
        store();
        calls.during("addin Notify", [this] { hear(); });
    }
    void renameRecord(const std::wstring& from, const std::wstring& to) {
        std::replace(records_.begin(), records_.end(), from, to);
        describe(to);
    }
    /// The work is done: a removed knowledgebase is gone, another has new values.
    void finishWork() {
        const std::wstring name = storedText(L"ProjectEventName");
        if (stored(L"ProjectEvent") == 1)
            std::erase(records_, name);
        else if (std::find(records_.begin(), records_.end(), name) != records_.end())
            describe(name);
        store();
        addIn.processing = false;
    }
    void raiseEnd(frmKBConfiguration& form) {
        finishWork();
        addIn.finish(dice_.oneIn(5) ? std::wstring(L"Elsewhere") : storedText(L"ProjectEventName"), false);
        ++ends_;
        expectListEqualsRecords(form);
    }
    void endByTimer(frmKBConfiguration& form) {
        if (!form.locked()) return;
        finishWork();
        stage->setValue(KEY, L"EditNoChange", dice_.roll(2));
        stage->setValue(KEY, L"KBProcessState", 3);
        // In a slow world its tick comes late, and the host may have closed the dialog by then.
        for (int turns = 0; turns < 10 && form.locked() && form.window().isOpen(); ++turns) user.wait(500);
        if (!form.window().isOpen()) return;
        ++ends_;
        EXPECT_FALSE(form.locked());
        expectListEqualsRecords(form);
    }

    // --- The user -----------------------------------------------------------------------------------------

    void visit(frmKBConfiguration& form) {
        for (int step = 0; step < STEPS_PER_OPENING && form.window().isOpen(); ++step) {
            ++steps_;
            calls.clear();
            calls.forgetFaults();
            calls.during("addin Notify", [this] { hear(); });
            if (dice_.oneIn(20)) calls.during("doevents", [&] { raiseEnd(form); });
            world_.stir();
            application.settings.DefaultProject = L"Elsewhere";
            stage->setValue(KEY, L"DefaultProject", L"Elsewhere");
            stage->answerMessages({dice_.oneIn(3) ? MessageAnswer::no : MessageAnswer::yes});
            act(form);
            if (!form.window().isOpen()) break;
            expectRules(form);
            if (HasFailure()) return static_cast<void>(std::printf("step %d\n", steps_));
        }
        calls.forgetFaults();
    }

    void act(frmKBConfiguration& form) {
        const int choice = dice_.roll(100);
        last_ = choice;
        if (choice < 6) return raiseEnd(form);
        if (choice < 9) return endByTimer(form);
        const bool wasLocked = form.locked();
        userActs(form, choice);
        if (wasLocked && form.window().isOpen() && form.locked()) {
            EXPECT_TRUE(sent().empty()) << "a command reached the add-in while the dialog was locked";
        }
        if (!wasLocked && form.locked()) ++locks_;
    }

    void userActs(frmKBConfiguration& form, int choice) {
        ui::Grid& list = form.sftKBConfiguration;
        const std::size_t messages = stage->messages().size();
        if (choice < 20) return user.clickRow(list, dice_.roll(8));
        if (choice < 24) return user.doubleClickRow(list, dice_.roll(8));
        if (choice < 30) return user.clickHeader(list, dice_.roll(4));
        if (choice < 40) return user.click(form.cmdAdd);
        if (choice < 46) return user.click(form.cmdEdit);
        if (choice < 52) return user.click(form.cmdRename);
        if (choice < 58) return user.click(form.cmdRemove);
        if (choice < 62) return user.click(form.cmdRebuild);
        if (choice < 66) return user.click(form.cmdUpdate);
        if (choice < 68) return user.press(form.window(), key::f2);
        if (choice < 72) return user.press(form.window(), dice_.oneIn(2) ? key::down : key::up);
        if (choice < 75) return user.wait(dice_.roll(600));
        if (choice < 77) return user.press(form.window(), key::tab);
        if (choice == 77) return closeOrNot(form);
        user.rewrite(list, dice_.pick(NAMES));
        if (choice < 94) user.press(form.window(), list.editedRow() == -1 ? key::f2 : key::enter);
        if (choice >= 96 && list.editedRow() != -1) user.press(form.window(), key::escape);
        if (stage->messages().size() > messages) ++refused_;
    }

    void closeOrNot(frmKBConfiguration& form) {
        if (dice_.oneIn(3)) return user.click(form.cmdCancel);
        if (dice_.oneIn(10)) user.closeWindow(form.window());
    }

    // --- The rules ----------------------------------------------------------------------------------------

    void expectListEqualsRecords(frmKBConfiguration& form) {
        if (!form.window().isOpen()) return;
        const auto shown = names(form);
        EXPECT_EQ(std::multiset<std::wstring>(shown.begin(), shown.end()),
                  std::multiset<std::wstring>(records_.begin(), records_.end()));
    }

    void expectRules(frmKBConfiguration& form) {
        SCOPED_TRACE(testing::Message() << "step " << steps_ << ", choice " << last_);
        expectNoInvalidName(form);
        EXPECT_EQ(form.locked(), buttons(form).empty() && !namesNewRow(form));
        expectGuidance(form);
        if (form.locked()) {
            EXPECT_TRUE(form.sftKBConfiguration.rowCount() == 0 || anyRowGreyed(form));
            EXPECT_EQ(form.sftKBConfiguration.editedRow(), -1) << "nothing is named while locked";
            return;
        }
        EXPECT_FALSE(anyRowGreyed(form));
        if (namesNewRow(form)) return;
        expectListEqualsRecords(form);
        expectButtons(form);
    }

    /// A new row is being named: it is in the list, but not in the records.
    [[nodiscard]] bool namesNewRow(const frmKBConfiguration& form) const {
        return form.sftKBConfiguration.rowCount() > static_cast<int>(records_.size());
    }

    /// What goes on is said, and what commands act on is seen.
    void expectGuidance(const frmKBConfiguration& form) {
        EXPECT_EQ(form.locked(), !form.lblStatus.text().empty());
        EXPECT_EQ(form.locked(), !form.cmdBaseFolder.enabled());
        EXPECT_TRUE(form.locked() || !form.cmdApply.visible());
        EXPECT_EQ(form.sftKBConfiguration.currentRow() == -1, form.sftKBConfiguration.rowCount() == 0);
    }
    void expectNoInvalidName(frmKBConfiguration& form) {
        std::set<std::wstring> lower;
        for (const std::wstring& name : names(form)) {
            EXPECT_FALSE(name.empty());
            EXPECT_FALSE(vexa::holdsForbiddenCharacter(name));
            EXPECT_TRUE(lower.insert(application.platform.conversions.lower(name)).second) << "a twin";
        }
    }

    void expectButtons(const frmKBConfiguration& form) {
        if (records_.empty()) {
            EXPECT_EQ(buttons(form), "A");
            return;
        }
        const bool filled = form.sftKBConfiguration.currentRow() != -1 &&
                            integer(std::wstring(KEY) + L"\\" + current(form), L"KBDocuments") != 0;
        EXPECT_EQ(buttons(form), filled ? ALL : "AENM");
    }

    Dice dice_{"knowledgebases"};
    RestlessWorld world_{dice_, *stage};
    Names records_;
    int steps_ = 0;
    int locks_ = 0;
    int ends_ = 0;
    int refused_ = 0;
    int last_ = 0;
};

TEST_F(KBWalk, TheKnowledgebaseDialogKeepsItsRules) { play(); }

}  // namespace
}  // namespace tests
