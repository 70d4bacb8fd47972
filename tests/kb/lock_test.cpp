// Locking, the end of processing, the fallback timer, and events that arrive in the middle of a command.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

class KBLock : public KBMailAndNews {};

// --- The event --------------------------------------------------------------------------------------------

TEST_F(KBLock, TheEndOfProcessingUnlocksAndReadsTheListAnew) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        recordNames({L"Mail", L"News", L"Post"});
        addIn.finish(L"Mail", false);
        expectUnlocked(form);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News", L"Post"}));
        EXPECT_EQ(current(form), L"Mail");
        EXPECT_EQ(buttons(form), ALL);
        EXPECT_EQ(application.settings.ProjectCount, 3);
    });
    EXPECT_THAT(log(), Contains("frmKBConfiguration, Status end, Mail, False"));
}

TEST_F(KBLock, TheListIsKeptWhereTheEventAsksForIt) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        recordNames({L"Mail", L"News", L"Post"});
        addIn.finish(L"Mail", true);
        expectUnlocked(form);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
    });
    EXPECT_THAT(log(), Contains("frmKBConfiguration, Status end, Mail, True"));
}

TEST_F(KBLock, AnEndThatKeepsTheListEnablesAllSixCommandsWhateverTheListHolds) {
    for (const std::vector<Record>& records : {std::vector<Record>{}, {{L"Empty", {}, {}, 0}}}) {
        record(records);
        open([&](frmKBConfiguration& form) {
            if (!records.empty()) choose(form, L"Empty");
            addIn.finish(L"Mail", true);
            EXPECT_EQ(buttons(form), ALL);
        });
    }
}

TEST_F(KBLock, WithAnEmptyListOnlyAddIsLeft) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        recordNames({});
        addIn.finish(L"Mail", false);
        EXPECT_EQ(buttons(form), "A");
    });
}

// A removal is pending as long as its command is being processed: whatever ends that ends it, too, and a
// later command has none left.
struct EndOfRemoval {
    const char* name;
    void (*end)(KBTest& test);
    std::vector<std::string> messages;  ///< that the search window gets
};

TEST_F(KBLock, ARemovedKnowledgebaseIsReportedToTheSearchWindowByItsOwnEventOnce) {
    const EndOfRemoval ends[] = {
        {"its event", [](KBTest& test) { test.addIn.finish(L"Mail", false); }, {"message 4711 256 2 0"}},
        {"its event that keeps the list",
         [](KBTest& test) { test.addIn.finish(L"Mail", true); },
         {"message 4711 256 2 0"}},
        {"another's event", [](KBTest& test) { test.addIn.finish(L"News", false); }, {}},
        {"another's event that keeps the list", [](KBTest& test) { test.addIn.finish(L"News", true); }, {}},
        {"a tick", [](KBTest& test) { test.endByTick(); }, {}},
        {"its event without a search window",
         [](KBTest& test) {
             test.stage->setValue(ROOT, L"hWndSearchCtl", 0);
             test.addIn.finish(L"Mail", false);
             test.stage->setValue(ROOT, L"hWndSearchCtl", 4711);
         },
         {}},
        {"its event where no search window is known",
         [](KBTest& test) {
             test.application.deleteValue(ROOT, L"hWndSearchCtl");
             test.addIn.finish(L"Mail", false);
             test.stage->setValue(ROOT, L"hWndSearchCtl", 4711);
         },
         {}},
    };
    open([&](frmKBConfiguration& form) {
        for (const EndOfRemoval& end : ends)
            for (const bool editLater : {false, true}) {
                SCOPED_TRACE(end.name);
                removeMail(form);
                EXPECT_TRUE(form.locked());
                calls.clear();
                end.end(*this);
                EXPECT_FALSE(form.locked());
                EXPECT_EQ(calls.linesWith("message"), end.messages);
                if (editLater) expectEditOf(form, L"Mail");
                calls.clear();
                addIn.finish(L"Mail", false);
                EXPECT_THAT(calls.linesWith("message"), IsEmpty()) << "nothing is left of it " << editLater;
            }
    });
}

TEST_F(KBLock, AnEndOutsideAnyCommandReadsTheListAnew) {
    open([&](frmKBConfiguration& form) {
        recordNames({L"Post"});
        addIn.finish(L"Post", false);
        EXPECT_EQ(names(form), Names{L"Post"});
        expectUnlocked(form);
    });
}

TEST_F(KBLock, AnEndWhileANameIsEditedDropsTheEdit) {
    open([&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        addIn.finish(L"Mail", false);
        expectList(form, {L"Mail", L"News"});
        choose(form, L"News");
        EXPECT_EQ(buttons(form), ALL);
        rename(form, L"News", L"Post");
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRenamed(News, Post)"));
}

// --- Loading while the add-in works -----------------------------------------------------------------------

TEST_F(KBLock, TheDialogLocksItselfWhereTheAddInIsProcessingAtLoad) {
    addIn.processing = true;
    open([&](frmKBConfiguration& form) {
        expectLocked(form, 1);
        addIn.finish(L"Mail", false);
        expectUnlocked(form);
    });
}

TEST_F(KBLock, WithoutTheAddInsEventTheDialogWorksByItsTimer) {
    calls.failCallsWith("addin connect");
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        endByTick();
        expectUnlocked(form);
    });
}

// --- The fallback timer -----------------------------------------------------------------------------------

TEST_F(KBLock, TheValue3ConsumedByATickUnlocksTheDialog) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        user.wait(TICK);
        EXPECT_TRUE(form.locked()) << "2: still processing";
        endByTick();
        expectUnlocked(form);
        EXPECT_EQ(form.lblDebugInfo.text(), L"Status end.");
        EXPECT_EQ(application.settings.ProjectCount, 2);
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(2 * TICK);
        EXPECT_EQ(stored(L"KBProcessState"), 3) << "the timer has stopped";
    });
    EXPECT_THAT(log(), Contains("Status end."));
}

TEST_F(KBLock, AValue3LeftFromAnEarlierRunIsConsumedByTheFirstTick) {
    stage->setValue(KEY, L"KBProcessState", 3);
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(stored(L"KBProcessState"), 3);
        user.wait(TICK);
        expectUnlocked(form);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
    });
}

TEST_F(KBLock, ATickRefreshesTheRowOfTheLastEventOrTheWholeListWhereTheAddInAsksForIt) {
    const Row unknown{L"News", L"-", L"-", L"       9"};
    for (const bool wholeList : {false, true}) {
        record({{L"Mail", L"-1", -1, 9}, {L"News", L"-1", -1, 9}});
        open([&](frmKBConfiguration& form) {
            lockByUpdate(form);
            record({{L"Mail", L"43831.5", 2048, 9}, {L"News", L"43831.5", 4096, 9}});
            stage->setValue(KEY, L"ProjectEventName", L"MAIL");
            if (wholeList) stage->setValue(KEY, L"EditNoChange", 1);
            endByTick();
            EXPECT_EQ(cells(form, 0), (Row{L"Mail", L"01/01/2020 12:00:00 PM", L"2 KB", L"       9"}));
            EXPECT_EQ(cells(form, 1),
                      wholeList ? (Row{L"News", L"01/01/2020 12:00:00 PM", L"4 KB", L"       9"}) : unknown);
            EXPECT_EQ(current(form), L"Mail");
        });
    }
}

TEST_F(KBLock, ATickFindsTheRowOfTheLastEventWithoutRegardToCaseAlsoWhereKnowledgebasesCame) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        recordNames({L"Mail", L"News", L"Post"});
        stage->setValue(KEY, L"ProjectEventName", L"POST");
        endByTick();
        EXPECT_EQ(current(form), L"Post");
        EXPECT_EQ(buttons(form), ALL);
    });
}

// --- Events in the middle of a command --------------------------------------------------------------------

class KBReentrancy : public KBLock {
public:
    /// Plays `script` with each command in an opening of its own.
    void openOnceForEach(FunctionRef<void(frmKBConfiguration&, const Command&)> script) {
        for (const Command& command : COMMANDS) openForEach({&command, 1}, script);
    }
    /// Gives the command; `event` comes at the n-th point at which pending events run. Tells whether the
    /// command has that many.
    bool giveWithEventAt(int point, FunctionRef<void()> event, frmKBConfiguration& form,
                         const Command& command) {
        bool arrived = false;
        std::function<void(int)> plan = [&](int left) {
            calls.during("doevents", [&, left] {
                if (left > 0) return plan(left - 1);
                arrived = true;
                event();
            });
        };
        calls.clear();
        plan(point);
        choose(form, L"Mail");
        stage->answerMessages({MessageAnswer::yes});
        give(form, command);
        calls.forgetFaults();
        return arrived;
    }
    static constexpr int MOST_POINTS = 8;
};

TEST_F(KBReentrancy, AnEndInsideTheAddInsCallLeavesTheDialogUnlocked) {
    openForEach(COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        bool finished = false;
        calls.during(command.call, [&] {
            finished = true;
            addIn.finish(L"Mail", false);
        });
        give(form, command);
        EXPECT_TRUE(finished);
        EXPECT_THAT(sent(), Not(IsEmpty()));
        // Nor is the folders' choice for a new one, which the add-in has not recorded.
        expectUnlocked(form);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"})) << "as recorded";
    });
}

TEST_F(KBReentrancy, AnEndAtAnyPointWherePendingEventsRunLosesNoCommandAndLeavesNoLockBehind) {
    openForEach(COMMANDS, [&](frmKBConfiguration& form, const Command& command) {
        for (int point = 0; point < MOST_POINTS; ++point) {
            SCOPED_TRACE(point);
            const bool arrived = giveWithEventAt(
                point, [&] { addIn.finish(L"News", false); }, form, command);
            const bool adds = &command.button(form) == &form.cmdAdd;
            EXPECT_EQ(sent().size(), adds ? 2u : 1u) << "a new one, and the choice of its folders";
            // Locked or not, the buttons say the same; the command's own end unlocks.
            EXPECT_EQ(form.locked(), buttons(form).empty());
            EXPECT_EQ(form.locked(), anyRowGreyed(form));
            EXPECT_EQ(stored(L"KBProcessState"), form.locked() ? 2 : MISSING);
            addIn.finish(L"Mail", false);
            expectUnlocked(form);
            EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
            if (!arrived) return;
        }
        FAIL() << "a command has more points than were tried";
    });
}

TEST_F(KBReentrancy, TheDialogClosedAtAnyPointWherePendingEventsRunEndsQuietly) {
    for (const Command& command : COMMANDS) {
        bool arrived = true;
        for (int point = 0; arrived; ++point) {
            ASSERT_LT(point, MOST_POINTS) << "a command has more points than were tried";
            SCOPED_TRACE(point);
            openForEach({&command, 1}, [&](frmKBConfiguration& form, const Command&) {
                arrived = giveWithEventAt(
                    point, [&] { form.window().close(); }, form, command);
                addIn.finish(L"Mail", false);
            });
        }
    }
}

TEST_F(KBReentrancy, TheDialogClosedInsideTheAddInsCallEndsQuietly) {
    openOnceForEach([&](frmKBConfiguration& form, const Command& command) {
        calls.during(command.call, [&] { form.window().close(); });
        give(form, command);
        EXPECT_FALSE(form.window().isOpen());
        addIn.finish(L"Mail", false);
    });
}

TEST_F(KBReentrancy, AnotherCommandAtAPointWherePendingEventsRunIsNotTaken) {
    openOnceForEach([&](frmKBConfiguration& form, const Command& command) {
        calls.during("doevents", [&] {
            user.doubleClickRow(form.sftKBConfiguration, 1);
            user.click(form.cmdUpdate);
        });
        give(form, command);
        EXPECT_LE(sent().size(), &command.button(form) == &form.cmdAdd ? 2u : 1u);
    });
}

TEST_F(KBLock, AnEndWhileTheListIsFilledAtLoadLeavesEachKnowledgebaseOnce) {
    calls.during("doevents", [&] {
        recordNames({L"Mail", L"News", L"Post"});
        addIn.finish(L"Post", false);
    });
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(names(form), (Names{L"Mail", L"News", L"Post"}));
        expectUnlocked(form);
    });
}

TEST_F(KBLock, AnEndWhileTheDialogLocksItselfAtLoadLeavesNoLock) {
    addIn.processing = true;
    calls.during("doevents", [&] {                                        // the fill
        calls.during("doevents", [&] { addIn.finish(L"Mail", false); });  // the lock
    });
    open([&](frmKBConfiguration& form) { expectUnlocked(form); });
}

TEST_F(KBLock, AnEndWithinAnEndLeavesEachKnowledgebaseOnce) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        calls.during("doevents", [&] {
            recordNames({L"Mail", L"News", L"Post"});
            addIn.finish(L"Post", false);
        });
        addIn.finish(L"Mail", false);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News", L"Post"}));
        expectUnlocked(form);
    });
}

// --- Closing ----------------------------------------------------------------------------------------------

TEST_F(KBLock, AfterTheDialogHasClosedTheAddInsEventsReachNobody) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        user.closeWindow(form.window());
    });
    EXPECT_EQ(addIn.connections(), 0u);
    EXPECT_EQ(stored(L"KBProcessState"), 2) << "the add-in is still at it";
    addIn.finish(L"Mail", false);
}

TEST_F(KBLock, TheNextOpeningIsUnlockedWhereTheAddInNeverFinished) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        user.closeWindow(form.window());
    });
    open([&](frmKBConfiguration& form) {
        EXPECT_FALSE(form.locked());
        choose(form, L"Mail");
        EXPECT_EQ(buttons(form), ALL);
    });
}

}  // namespace
}  // namespace tests
