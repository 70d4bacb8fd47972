// In which order the knowledgebase dialog does its steps, how often it lets events run, and what it does not
// do.
#include "kb/kb_icons.ids.h"
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

class KBOrder : public KBMailAndNews {
public:
    /// The calls that begin with one of these, each as that beginning.
    [[nodiscard]] std::vector<std::string> order(const std::vector<std::string>& beginnings) const {
        std::vector<std::string> found;
        for (const std::string& line : calls.lines())
            for (const std::string& beginning : beginnings)
                if (line.starts_with(beginning)) found.push_back(beginning);
        return found;
    }
    static std::string valueSet(const char* name) {
        return std::string("registry set Software\\Norvane\\Quillmark\\Alice\\") + name;
    }
    /// The log from the dialog's first line on.
    [[nodiscard]] std::vector<std::string> dialogLog() {
        std::vector<std::string> lines = log();
        lines.erase(lines.begin(), std::ranges::find(lines, "frmKBConfiguration, Loading..."));
        return lines;
    }
};

// --- Commands ---------------------------------------------------------------------------------------------

TEST_F(KBOrder, EachLocksLetsEventsRunAndThenTellsTheAddIn) {
    openForEach(LOCKING_COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        bool lockedInCall = false;
        calls.during(command.call, [&] { lockedInCall = form.locked(); });
        bool lockedInEvents = true;
        calls.during("doevents", [&] {
            lockedInEvents = form.locked();
            EXPECT_EQ(buttons(form), "");
            EXPECT_TRUE(anyRowGreyed(form));
        });
        give(form, command);
        std::vector<std::string> expected{valueSet("KBProcessState")};
        expected.insert(expected.end(), command.eventRuns, "doevents");
        expected.insert(expected.end(),
                        {valueSet("ProjectEvent "), valueSet("ProjectEventName"), command.call});
        EXPECT_EQ(order({valueSet("KBProcessState"), "doevents", valueSet("ProjectEvent "),
                         valueSet("ProjectEventName"), command.call}),
                  expected);
        EXPECT_FALSE(lockedInEvents) << "the flag is set last";
        EXPECT_TRUE(lockedInCall);
        expectLocked(form);
        EXPECT_EQ(sent(), std::vector<std::string>{command.call});
        EXPECT_EQ(stored(L"ProjectEvent"), command.event);
        EXPECT_EQ(storedText(L"ProjectEventName"), L"Mail");
        addIn.finish(L"Mail", true);
    });
}

TEST_F(KBOrder, OfARename) {
    application.settings.DefaultProject = L"Mail";
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        calls.clear();
        enter(form, L"Post");
    });
    const std::vector<std::string> steps{"pointer 11",
                                         valueSet("OldProjectname = Mail"),
                                         "pointer 13",
                                         valueSet("ProjectEvent = 3"),
                                         valueSet("ProjectEventName = Post"),
                                         "addin NotifyKbRenamed(Mail, Post)",
                                         valueSet("DefaultProject = Post")};
    EXPECT_EQ(order(steps), steps) << "the auto-update name follows when the add-in knows";
}

TEST_F(KBOrder, OfANewKnowledgebase) {
    openWith({}, [&](frmKBConfiguration& form) {
        stage->answerMessages({MessageAnswer::yes});
        user.click(form.cmdAdd);
        calls.clear();
        enter(form, L"Archive");
    });
    const std::vector<std::string> steps{"addin NotifyKbAdded", "screen message Would you like",
                                         "addin SetDefaultKnowledgebase", "addin IsAutoUpdateRunning",
                                         "message 4711 1139"};
    EXPECT_EQ(order(steps), steps);
}

TEST_F(KBOrder, ARenameSortsAgainOnlyWhereTheListIsSortedByName) {
    for (const int column : {1, 2, 3}) {
        record({{L"Mail", L"43831", 10, 1}, {L"News", L"43832", 20, 2}});
        open([&](frmKBConfiguration& form) {
            user.clickHeader(form.sftKBConfiguration, column);
            user.clickHeader(form.sftKBConfiguration, column);
            ASSERT_EQ(names(form), (Names{L"Mail", L"News"}));
            const auto next = form.nextOrders();
            rename(form, L"Mail", L"Zulu");
            EXPECT_EQ(names(form), (Names{L"Zulu", L"News"})) << "column " << column;
            EXPECT_EQ(current(form), L"Zulu");
            EXPECT_EQ(form.nextOrders(), next);
        });
    }
}

TEST_F(KBOrder, ANewRowLooksLikeTheOthersAndItsSortIsNoClick) {
    open([&](frmKBConfiguration& form) {
        const auto next = form.nextOrders();
        user.click(form.cmdAdd);
        for (int row = 0; row < 3; ++row) EXPECT_EQ(form.sftKBConfiguration.row(row).picture, IDI_kb) << row;
        EXPECT_EQ(form.nextOrders(), next);
        user.press(form.window(), key::escape);
    });
}

// --- Loading ----------------------------------------------------------------------------------------------

TEST_F(KBOrder, LoadingWhileTheAddInWorksLeavesItsLinesAroundTheLocking) {
    addIn.processing = true;
    std::vector<std::string> before;
    calls.during(valueSet("KBProcessState"), [&] { before = log(); });
    open([&](frmKBConfiguration& form) { EXPECT_TRUE(form.locked()); });
    ASSERT_FALSE(before.empty());
    EXPECT_EQ(before.back(), "frmKBConfiguration, locking form...");
    EXPECT_THAT(dialogLog(),
                ElementsAre("frmKBConfiguration, Loading...", "frmKBConfiguration, updating ListView...",
                            "frmKBConfiguration, Lookup: Projectname", "Projectname: ",
                            "UpdateListView, ProjectCount: 2", "frmKBConfiguration, ...update finished.",
                            "frmKBConfiguration, locking form...", "frmKBConfiguration, ...locking finished.",
                            "frmKBConfiguration, ...load finished.", "frmKBConfiguration, form unload."))
        << "the name in the second line is empty where none is stored";
}

TEST_F(KBOrder, LoadingAnIdleAddInsListLocksNothingAndStartsNoTimer) {
    open([&](frmKBConfiguration& form) {
        EXPECT_FALSE(form.locked());
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(2000);
        EXPECT_EQ(stored(L"KBProcessState"), 3) << "no tick has consumed it";
    });
    EXPECT_THAT(dialogLog(), Not(Contains("frmKBConfiguration, locking form...")));
}

// --- While the dialog is locked ---------------------------------------------------------------------------

TEST_F(KBOrder, WhileLockedTheListCanBeReadButNothingElse) {
    record({{L"Mail", L"43831", 10, 1}, {L"News", L"43832", 20, 2}});
    open([&](frmKBConfiguration& form) {
        ui::Grid& list = form.sftKBConfiguration;
        lockByUpdate(form);
        const std::vector<std::int32_t> orders = form.nextOrders();
        EXPECT_THAT(orders, testing::Each(0));
        for (int header = 0; header < static_cast<int>(orders.size()); ++header)
            user.clickHeader(list, header);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
        EXPECT_EQ(list.sortArrow(0), ui::SortArrow::up);
        EXPECT_EQ(form.nextOrders(), orders);
        user.clickRow(list, 1);
        EXPECT_EQ(current(form), L"News");
        EXPECT_EQ(buttons(form), "") << "a row click enables nothing";
        list.setFocus();
        user.press(form.window(), key::up);
        EXPECT_EQ(current(form), L"Mail");
        EXPECT_EQ(buttons(form), "") << "nor does another current row";
        user.doubleClickRow(list, 1);
        user.press(form.window(), key::f2);
        EXPECT_EQ(list.editedRow(), -1);
        EXPECT_THAT(sent(), IsEmpty());
    });
}

TEST_F(KBOrder, TheLockGoesLastWhenProcessingEnds) {
    for (const bool byTick : {false, true}) {
        SCOPED_TRACE(byTick ? "tick" : "event");
        stage->setValue(KEY, L"EditNoChange", 1);
        open([&](frmKBConfiguration& form) {
            lockByUpdate(form);
            bool lockedInEvents = false;
            calls.during("doevents", [&] { lockedInEvents = form.locked(); });
            if (byTick)
                endByTick();
            else
                addIn.finish(L"Mail", false);
            EXPECT_TRUE(lockedInEvents) << "while the list is read anew";
            EXPECT_FALSE(form.locked());
        });
    }
}

TEST_F(KBOrder, TheLockStoresWhatItIsFor) {
    struct Lock {
        bool bAutoUpdate, bNoWrite;
        std::int32_t stored;
    };
    for (const Lock& lock : {Lock{true, true, MISSING}, Lock{false, true, MISSING}, Lock{true, false, 1},
                             Lock{false, false, 2}}) {
        open([&](frmKBConfiguration& form) {
            vexa::KnowledgebaseList list(application, form.sftKBConfiguration);
            vexa::RowCommands commands(
                application, list,
                {form.cmdAdd, form.cmdEdit, form.cmdRename, form.cmdRemove, form.cmdRebuild, form.cmdUpdate});
            vexa::StatusLine status(form.lblStatus, L"");
            vexa::LockView view(form.sftKBConfiguration, commands, form.cmdBaseFolder, form.cmdApply, status);
            vexa::ProcessLock locking(application, form.window(), commands, view);
            locking.LockForm(L"Something runs.", lock.bAutoUpdate, lock.bNoWrite);
            EXPECT_TRUE(locking.locked());
            EXPECT_EQ(form.lblStatus.text(), L"Something runs.");
            EXPECT_EQ(stored(L"KBProcessState"), lock.stored);
            EXPECT_EQ(buttons(form), "");
            EXPECT_TRUE(anyRowGreyed(form));
            locking.clearState();
        });
    }
}

struct Tick {
    std::int32_t state;  ///< MISSING: none is stored
    const char* buttons;
    bool ends;
};

TEST_F(KBOrder, ATickFollowsTheStoredState) {
    const Tick ticks[] = {{1, "", false},       {2, "", false},       {MISSING, "", false},
                          {0, "AENMBU", false}, {4, "AENMBU", false}, {-1, "AENMBU", false},
                          {3, "AENMBU", true}};
    open([&](frmKBConfiguration& form) {
        for (const Tick& tick : ticks) {
            SCOPED_TRACE(tick.state);
            lockByUpdate(form);
            if (tick.state == MISSING)
                application.deleteValue(application.ProfileKey, L"KBProcessState");
            else
                stage->setValue(KEY, L"KBProcessState", tick.state);
            user.wait(TICK / 2);
            EXPECT_EQ(buttons(form), "") << "not due yet";
            user.wait(TICK / 2);
            EXPECT_EQ(buttons(form), tick.buttons);
            EXPECT_EQ(form.locked(), !tick.ends);
            EXPECT_EQ(form.lblDebugInfo.text() == L"Status end.", tick.ends);
            EXPECT_EQ(stored(L"KBProcessState"), tick.ends ? MISSING : tick.state);
            if (!tick.ends) {
                user.click(form.cmdUpdate);
                EXPECT_THAT(sent(), IsEmpty()) << "the lock holds whatever the buttons show";
            }
            addIn.finish(L"Mail", true);
        }
    });
}

TEST_F(KBOrder, ATickWaitsWhileANameIsBeingEntered) {
    stage->setValue(KEY, L"KBProcessState", 3);
    stage->setValue(KEY, L"EditNoChange", 1);
    open([&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        user.wait(1000);
        EXPECT_NE(form.sftKBConfiguration.editedRow(), -1);
        calls.during("screen message", [&] { user.wait(1000); });
        enter(form, L"a*b");
        EXPECT_NE(form.sftKBConfiguration.editedRow(), -1) << "nor while a name is refused";
        EXPECT_EQ(stored(L"KBProcessState"), 3);
        user.press(form.window(), key::escape);
        user.wait(500);
        EXPECT_EQ(stored(L"KBProcessState"), MISSING);
        EXPECT_EQ(buttons(form).substr(0, 4), "AENM");
    });
}

}  // namespace
}  // namespace tests
