// Locking, the end of processing, the fallback timer, and events that arrive in the middle of a command.
#include "kb/frmSelectDefaultKB.h"
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using vexa::frmKBConfiguration;
using Names = std::vector<std::wstring>;
using ui::MessageAnswer;

class KBLock : public KBTest {
protected:
    void SetUp() override {
        KBTest::SetUp();
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        recordNames({L"Mail", L"News"});
    }
    void lockByUpdate(frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdUpdate);
        ASSERT_TRUE(form.locked());
    }
    void removeMail(frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->answerMessages({MessageAnswer::yes});
        user.click(form.cmdRemove);
        ASSERT_TRUE(form.locked());
        calls.clear();
    }
    void expectUnlocked(const frmKBConfiguration& form) {
        EXPECT_FALSE(form.locked());
        EXPECT_FALSE(anyRowGreyed(form));
        EXPECT_EQ(buttons(form).front(), 'A');
        EXPECT_EQ(stored(L"KBProcessState"), MISSING);
    }
    static constexpr int TICK = 500;
};

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

TEST_F(KBLock, ARemovedKnowledgebaseIsReportedToTheSearchWindow) {
    open([&](frmKBConfiguration& form) {
        removeMail(form);
        addIn.finish(L"Mail", false);
        EXPECT_THAT(calls.linesWith("message"), ElementsAre("message 4711 256 2 0"));
        calls.clear();
        addIn.finish(L"Mail", false);
        EXPECT_THAT(calls.linesWith("message"), IsEmpty()) << "once";
    });
}

TEST_F(KBLock, WithoutASearchWindowNothingIsSentAndTheRemovalIsOverAllTheSame) {
    stage->setValue(ROOT, L"hWndSearchCtl", 0);
    open([&](frmKBConfiguration& form) {
        removeMail(form);
        addIn.finish(L"Mail", false);
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        addIn.finish(L"Mail", false);
        EXPECT_THAT(calls.linesWith("message"), IsEmpty());
    });
}

TEST_F(KBLock, TheEndOfAnotherKnowledgebaseSendsNothingAndTheRemovalIsOverAllTheSame) {
    open([&](frmKBConfiguration& form) {
        removeMail(form);
        addIn.finish(L"News", false);
        addIn.finish(L"Mail", false);
        EXPECT_THAT(calls.linesWith("message"), IsEmpty());
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
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), -1);
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
        EXPECT_TRUE(form.locked());
        EXPECT_EQ(buttons(form), "");
        EXPECT_TRUE(anyRowGreyed(form));
        EXPECT_EQ(stored(L"KBProcessState"), 1);
        addIn.finish(L"Mail", false);
        expectUnlocked(form);
    });
}

TEST_F(KBLock, WithoutTheAddInsEventTheDialogWorksByItsTimer) {
    calls.failCallsWith("addin connect");
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(TICK);
        expectUnlocked(form);
    });
}

// --- The fallback timer -----------------------------------------------------------------------------------

TEST_F(KBLock, TheValue3ConsumedByATickUnlocksTheDialog) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        user.wait(TICK);
        EXPECT_TRUE(form.locked()) << "2: still processing";
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(TICK);
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

TEST_F(KBLock, ATickAfterARemovalSendsNoMessage) {
    open([&](frmKBConfiguration& form) {
        removeMail(form);
        recordNames({L"News"});
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(TICK);
        EXPECT_EQ(names(form), Names{L"News"});
        addIn.finish(L"Mail", false);
        EXPECT_THAT(calls.linesWith("message"), IsEmpty());
    });
}

TEST_F(KBLock, ATickRefreshesTheRowOfTheLastEvent) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        record({{L"Mail", L"43831.5", 2048, 9}, {L"News", L"43831.5", 4096, 9}});
        stage->setValue(KEY, L"ProjectEventName", L"MAIL");
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(TICK);
        EXPECT_EQ(cells(form, 0), (Row{L"Mail", L"01/01/2020 12:00:00 PM", L"2 KB", L"       9"}));
        EXPECT_EQ(form.sftKBConfiguration.cellText(1, 1), L"-") << "the other row is left as it is";
        EXPECT_EQ(current(form), L"Mail");
    });
}

TEST_F(KBLock, ATickFindsTheRowOfTheLastEventWithoutRegardToCaseAlsoWhereKnowledgebasesCame) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        recordNames({L"Mail", L"News", L"Post"});
        stage->setValue(KEY, L"ProjectEventName", L"POST");
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(TICK);
        EXPECT_EQ(current(form), L"Post");
        EXPECT_EQ(buttons(form), ALL);
    });
}

TEST_F(KBLock, ATickReadsTheWholeListWhereTheAddInAsksForIt) {
    open([&](frmKBConfiguration& form) {
        lockByUpdate(form);
        record({{L"Mail", L"43831.5", 2048, 9}, {L"News", L"43831.5", 4096, 9}});
        stage->setValue(KEY, L"EditNoChange", 1);
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(TICK);
        EXPECT_EQ(form.sftKBConfiguration.cellText(1, 2), L"4 KB");
    });
}

// --- Events in the middle of a command --------------------------------------------------------------------

class KBReentrancy : public KBLock, public testing::WithParamInterface<int> {
protected:
    /// Gives the command with this number.
    void give(frmKBConfiguration& form) {
        switch (GetParam()) {
            case ADD: user.click(form.cmdAdd); return enter(form, L"Post");
            case EDIT: return user.click(form.cmdEdit);
            case RENAME: return rename(form, L"Mail", L"Post");
            case REMOVE: return user.click(form.cmdRemove);
            case REBUILD: return user.click(form.cmdRebuild);
            default: return user.click(form.cmdUpdate);
        }
    }
    void open(const std::function<void(frmKBConfiguration&)>& script) {
        KBTest::open([&](frmKBConfiguration& form) {
            choose(form, L"Mail");
            stage->answerMessages(std::vector<MessageAnswer>(3, MessageAnswer::yes));
            script(form);
            calls.forgetFaults();
        });
    }
    /// What the add-in has recorded by the time the command has ended.
    void expectListEqualsRecords(const frmKBConfiguration& form) {
        EXPECT_EQ(names(form), (Names{L"Mail", L"News"}));
    }
    [[nodiscard]] bool notified() const { return !sent().empty(); }
    enum { ADD, EDIT, RENAME, REMOVE, REBUILD, UPDATE };
};

TEST_P(KBReentrancy, AnEndInsideTheAddInsCallLeavesTheDialogUnlocked) {
    open([&](frmKBConfiguration& form) {
        const char* call = GetParam() == EDIT ? "message 4711 1139" : "addin Notify";
        bool finished = false;
        calls.during(call, [&] {
            finished = true;
            addIn.finish(L"Mail", false);
        });
        give(form);
        EXPECT_TRUE(finished);
        if (GetParam() == ADD) {
            EXPECT_FALSE(form.locked())
                << "the add-in has not recorded the new one: there is nothing to edit";
        }
        expectUnlocked(form);
        expectListEqualsRecords(form);
    });
    EXPECT_TRUE(notified());
}

/// The n-th point at which pending events run, of all that the command has.
TEST_P(KBReentrancy, AnEndAtAnyPointWherePendingEventsRunLosesNoCommandAndLeavesNoLockBehind) {
    for (int point = 0; point < 8; ++point) {
        SCOPED_TRACE(point);
        recordNames({L"Mail", L"News"});
        bool arrived = false;
        open([&](frmKBConfiguration& form) {
            calls.clear();
            std::function<void(int)> plan = [&](int left) {
                calls.during("doevents", [&, left] {
                    if (left > 0) return plan(left - 1);
                    arrived = true;
                    addIn.finish(L"News", false);
                });
            };
            plan(point);
            give(form);
            calls.forgetFaults();
            EXPECT_EQ(sent().size(), GetParam() == ADD ? 2u : 1u)
                << "a new one, and the choice of its folders";
            // Locked or not, the buttons say the same; the command's own end unlocks.
            EXPECT_EQ(form.locked(), buttons(form).empty());
            EXPECT_EQ(form.locked(), anyRowGreyed(form));
            EXPECT_EQ(stored(L"KBProcessState"), form.locked() ? 2 : MISSING);
            addIn.finish(L"Mail", false);
            expectUnlocked(form);
            expectListEqualsRecords(form);
        });
        if (!arrived) return;
    }
    FAIL() << "a command has more points than were tried";
}

TEST_P(KBReentrancy, TheDialogClosedAtAnyPointWherePendingEventsRunEndsQuietly) {
    for (int point = 0; point < 8; ++point) {
        SCOPED_TRACE(point);
        recordNames({L"Mail", L"News"});
        bool arrived = false;
        open([&](frmKBConfiguration& form) {
            std::function<void(int)> plan = [&](int left) {
                calls.during("doevents", [&, left] {
                    if (left > 0) return plan(left - 1);
                    arrived = true;
                    form.window().close();
                });
            };
            plan(point);
            give(form);
            calls.forgetFaults();
            addIn.finish(L"Mail", false);
        });
        if (!arrived) return;
    }
    FAIL() << "a command has more points than were tried";
}

TEST_P(KBReentrancy, TheDialogClosedInsideTheAddInsCallEndsQuietly) {
    open([&](frmKBConfiguration& form) {
        calls.during(GetParam() == EDIT ? "message 4711 1139" : "addin Notify",
                     [&] { form.window().close(); });
        give(form);
        EXPECT_FALSE(form.window().isOpen());
        addIn.finish(L"Mail", false);
    });
}

TEST_P(KBReentrancy, AnotherCommandAtAPointWherePendingEventsRunIsNotTaken) {
    open([&](frmKBConfiguration& form) {
        calls.during("doevents", [&] {
            user.doubleClickRow(form.sftKBConfiguration, 1);
            user.click(form.cmdUpdate);
        });
        give(form);
    });
    EXPECT_LE(sent().size(), GetParam() == ADD ? 2u : 1u);
}

std::string commandName(const testing::TestParamInfo<int>& command) {
    constexpr const char* NAMES[] = {"Add", "Edit", "Rename", "Remove", "Rebuild", "Update"};
    return NAMES[command.param];
}

INSTANTIATE_TEST_SUITE_P(Commands, KBReentrancy, testing::Range(0, 6), commandName);

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
