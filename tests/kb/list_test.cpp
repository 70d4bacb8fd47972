// The list of knowledgebases: loading, what it shows, sorting, the current row, closing.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

class KBList : public KBTest {
public:
    /// Values other than those that opening and closing write.
    [[nodiscard]] std::vector<std::string> writtenRecords() const {
        std::vector<std::string> lines = calls.linesWith("registry set");
        std::erase_if(lines, [](const std::string& line) {
            return line.find("KBConfig") != std::string::npos || line.find("hWndKBEdit") != std::string::npos;
        });
        return lines;
    }
};

// --- Records ----------------------------------------------------------------------------------------------

class KBEachLocale : public KBList, public testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        KBList::SetUp();
        if (GetParam()) stage->useDecimalComma();
    }
};

std::string localeName(const testing::TestParamInfo<bool>& locale) {
    return locale.param ? "DecimalComma" : "DecimalPoint";
}

INSTANTIATE_TEST_SUITE_P(Locales, KBEachLocale, testing::Bool(), localeName);

TEST_P(KBEachLocale, ShowsARowForEachKnowledgebase) {
    record({{L"Mail", L"43831.5", 1536, 5}, {L"News", {}, {}, {}}, {L"Post", L"43831,5", 1536, 1234}});
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(cells(form, 0), (Row{L"Mail", L"01/01/2020 12:00:00 PM", L"2 KB", L"       5"}));
        EXPECT_EQ(cells(form, 1), (Row{L"News", L"-", L"-", L"-"}));
        EXPECT_EQ(cells(form, 2), (Row{L"Post", L"01/01/2020 12:00:00 PM", L"2 KB", L"    1234"}));
        EXPECT_EQ(form.lblDebugInfo.text(), L"3");
        EXPECT_FALSE(anyRowGreyed(form));
        EXPECT_EQ(form.sftKBConfiguration.row(0).picture, form.sftKBConfiguration.row(1).picture);
    });
}

TEST_P(KBEachLocale, DatesSortByTheCalendarWhateverTheOrderOfDayAndMonth) {
    // As texts, and read with the day first, these would sort otherwise.
    record({{L"april3", L"43924", 1, 1},
            {L"march4", L"43894", 1, 1},
            {L"never", L"-1", 1, 1},
            {L"dec13", L"43812", 1, 1}});
    open([&](frmKBConfiguration& form) {
        user.clickHeader(form.sftKBConfiguration, 1);
        EXPECT_EQ(names(form), (Names{L"april3", L"march4", L"dec13", L"never"}));
        user.clickHeader(form.sftKBConfiguration, 1);
        EXPECT_EQ(names(form), (Names{L"never", L"dec13", L"march4", L"april3"}));
    });
}

TEST_F(KBList, CaptionsAreTheDialogsOwn) {
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(form.window().caption(), L"Knowledgebases");
        Names headers;
        for (const ui::GridColumn& column : form.sftKBConfiguration.columns())
            headers.push_back(column.caption);
        EXPECT_EQ(headers, declaredHeaders());
        const Names captions{form.cmdAdd.text(),        form.cmdEdit.text(),    form.cmdRename.text(),
                             form.cmdRemove.text(),     form.cmdRebuild.text(), form.cmdUpdate.text(),
                             form.cmdBaseFolder.text(), form.cmdApply.text(),   form.cmdCancel.text()};
        EXPECT_EQ(captions, (Names{L"&Add", L"&Edit", L"Re&name", L"Re&move", L"Re&build", L"&Update",
                                   L"&Folder...", L"Apply", L"Close"}));
    });
}

TEST_F(KBList, AMissingNameYieldsARowWithAnEmptyName) {
    recordNames({L"Mail"});
    stage->setValue(KEY, L"ProjectCount", 3);
    open([&](frmKBConfiguration& form) { EXPECT_EQ(names(form), (Names{L"", L"", L"Mail"})); });
}

TEST_F(KBList, DuplicateNamesAreShownAsOftenAsTheyAreRecorded) {
    recordNames({L"Mail", L"mail", L"Mail"});
    open([&](frmKBConfiguration& form) { EXPECT_EQ(form.sftKBConfiguration.rowCount(), 3); });
}

TEST_F(KBList, OnlyAPositiveProjectCountCountsAndWithNoneEveryRowBoundCommandIsDisabled) {
    const auto expectRows = [&](int rows) {
        open([&](frmKBConfiguration& form) {
            EXPECT_EQ(form.sftKBConfiguration.rowCount(), rows);
            EXPECT_EQ(buttons(form), rows == 0 ? "A" : ALL);
        });
    };
    expectRows(0);
    recordNames({L"Mail", L"News"});
    for (const auto& [count, rows] :
         std::initializer_list<std::pair<vexa::Value, int>>{{-5, 0}, {L"many", 0}, {L"2", 2}}) {
        stage->setValue(KEY, L"ProjectCount", count);
        expectRows(rows);
    }
    stage->setRawValue(KEY, L"ProjectCount", 3, {1, 2, 3});
    expectRows(0);
}

TEST_F(KBList, ADateThatIsNoDateIsLoggedAndHidesNothingElse) {
    record({{L"Mail", L"soon", 2048, 5}, {L"News", L"43831,5", 2048, 5}});
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(cells(form, 0), (Row{L"Mail", L"-", L"-", L"       5"}));
        EXPECT_EQ(cells(form, 1), (Row{L"News", L"01/01/2020 12:00:00 PM", L"2 KB", L"       5"}));
    });
    EXPECT_THAT(log(), Contains(StartsWith("frmKBConfiguration, Error UpdateListView: ")));
}

TEST_F(KBList, SizesAndCountsThatDoNotConvertCountAsUnknown) {
    recordNames({L"Mail"});
    const std::wstring key = std::wstring(KEY) + L"\\Mail";
    stage->setValue(key, L"KBLastUpdate", L"43831.5");
    stage->setValue(key, L"KBSize", L"big");
    stage->setValue(key, L"KBDocuments", L"many");
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(cells(form, 0), (Row{L"Mail", L"01/01/2020 12:00:00 PM", L"-1 Byte", L"-"}));
        EXPECT_EQ(form.sftKBConfiguration.cell(0, 2).number, 0);
    });
}

TEST_F(KBList, TheKeyOfTheFolderSizesIsOpenedForEachRow) {
    recordNames({L"Mail"});
    open([&](frmKBConfiguration&) {});
    EXPECT_THAT(calls.linesWith("registry open"),
                Contains("registry open Software\\Norvane\\Quillmark\\Alice\\Mail\\Foldersize"));
}

TEST_F(KBList, NothingOfTheRecordsIsChanged) {
    record({{L"Mail", L"43831.5", 1536, 5}, {L"News", L"-1", -1, 0}});
    open([&](frmKBConfiguration& form) {
        user.clickHeader(form.sftKBConfiguration, 1);
        choose(form, L"News");
    });
    EXPECT_THAT(writtenRecords(), IsEmpty());
    EXPECT_THAT(calls.linesWith("registry delete"), IsEmpty());
}

TEST_F(KBList, AProjectCountOfTwoThousandMillionsShowsAHundredThousandRowsAndHangsNothing) {
    recordNames({L"Mail", L"News"});
    stage->setValue(KEY, L"ProjectCount", 2'000'000'000);
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(form.sftKBConfiguration.rowCount(), 100'000);
        EXPECT_EQ(names(form).back(), L"News");
        user.click(form.cmdAdd);
        EXPECT_EQ(current(form), L"New[100000]");
        user.press(form.window(), key::escape);
    });
    EXPECT_EQ(stored(L"ProjectCount"), 2'000'000'000);
    EXPECT_THAT(writtenRecords(), IsEmpty());
}

// --- Load and unload --------------------------------------------------------------------------------------

TEST_F(KBList, TheWindowHandleIsWrittenAtLoad) {
    std::int32_t handle = 0;
    open([&](frmKBConfiguration& form) { handle = static_cast<std::int32_t>(form.window().handle()); });
    EXPECT_EQ(integer(ROOT, L"hWndKBEdit"), handle);
}

TEST_F(KBList, LoadingAndClosingLeaveTheirLines) {
    recordNames({L"Mail", L"News"});
    stage->setValue(KEY, L"Projectname", L"news");
    open([&](frmKBConfiguration&) {});
    std::vector<std::string> lines = log();
    const auto first = std::find(lines.begin(), lines.end(), "frmKBConfiguration, Loading...");
    ASSERT_NE(first, lines.end());
    lines.erase(lines.begin(), first);
    EXPECT_THAT(lines,
                ElementsAre("frmKBConfiguration, Loading...", "frmKBConfiguration, updating ListView...",
                            "frmKBConfiguration, Lookup: Projectname", "Projectname: news",
                            "UpdateListView, ProjectCount: 2", "frmKBConfiguration, ...update finished.",
                            "frmKBConfiguration, Item 1: news", "frmKBConfiguration, ...load finished.",
                            "frmKBConfiguration, form unload."));
}

TEST_F(KBList, TheCurrentKnowledgebaseIsSelectedAtLoadWithoutRegardToCaseAndDefaultWhereNoneIs) {
    openWith({L"Archive", L"default", L"News"},
             [&](frmKBConfiguration& form) { EXPECT_EQ(current(form), L"default"); });
    stage->setValue(KEY, L"Projectname", L"NEWS");
    open([&](frmKBConfiguration& form) { EXPECT_EQ(current(form), L"News"); });
}

TEST_F(KBList, ClosingSetsTheSharedNumberOfKnowledgebases) {
    recordNames({L"Mail", L"News"});
    application.settings.ProjectCount = 99;
    open([&](frmKBConfiguration&) {});
    EXPECT_EQ(application.settings.ProjectCount, 2);
}

TEST_F(KBList, ClosingWritesOrderColumnAndTypeInThisOrder) {
    open([&](frmKBConfiguration& form) {
        calls.clear();
        user.click(form.cmdCancel);
    });
    const auto writes = calls.linesWith("registry set");
    ASSERT_EQ(writes.size(), 3u);
    EXPECT_THAT(writes, ElementsAre(HasSubstr("KBConfigSortOrder"), HasSubstr("KBConfigColumn"),
                                    HasSubstr("KBConfigSortType")));
}

// --- Documents rule ---------------------------------------------------------------------------------------

TEST_F(KBList, RebuildAndUpdateAreEnabledOnlyForAKnowledgebaseWithDocuments) {
    record({{L"Empty", {}, {}, 0}, {L"Full", {}, {}, 3}, {L"Unknown", {}, {}, -1}, {L"Without", {}, {}, {}}});
    open([&](frmKBConfiguration& form) {
        // -1 is not 0; a missing number reads as 0.
        for (const auto& [name, enabled] : {std::pair{L"Full", "AENMBU"},
                                            {L"Empty", "AENM"},
                                            {L"Unknown", "AENMBU"},
                                            {L"Without", "AENM"}}) {
            choose(form, name);
            EXPECT_EQ(buttons(form), enabled) << narrow(name);
        }
    });
}

TEST_F(KBList, TheArrowKeysMoveTheCurrentRowAndTheButtonsFollow) {
    record({{L"Empty", {}, {}, 0}, {L"Full", {}, {}, 3}});
    open([&](frmKBConfiguration& form) {
        choose(form, L"Empty");
        user.press(form.window(), key::down);
        EXPECT_EQ(current(form), L"Full");
        EXPECT_EQ(buttons(form), ALL);
        user.press(form.window(), key::up);
        EXPECT_EQ(current(form), L"Empty");
        EXPECT_EQ(buttons(form), "AENM");
    });
}

// --- Sorting ----------------------------------------------------------------------------------------------
//
// The records, in this order:  b: updated at noon of 1/1/2020, 2048 bytes, 5 documents
//                              A: never updated,                500 bytes, 0 documents
//                              g: updated at noon of 1/1/2020, unknown size (0), unknown documents
//                              d: updated on 1/1/1900,         1 MB, 120 documents
// Up to the first click the list is sorted by name: A b d g. Rows that are equal keep the order that they
// had. A refill and an opening show the list as the user last left it.

struct SortCase {
    const char* name;
    int column;
    int clicks;
    const wchar_t* rows;
    std::int32_t savedType;
    /// The arrow tells what is true, whatever order is kept.
    bool arrowIsUp = false;
    /// 1 is ascending.
    [[nodiscard]] int order() const { return clicks == 1 ? 0 : 1; }
};

const SortCase SORTS[] = {
    {"NameOnce", 0, 1, L"gdbA", 1},      {"NameTwice", 0, 2, L"Abdg", 0},
    {"DateOnce", 1, 1, L"bgdA", 6},      {"DateTwice", 1, 2, L"Adbg", 6},
    {"SizeOnce", 2, 1, L"dbAg", 9},      {"SizeTwice", 2, 2, L"gAbd", 8},
    {"DocumentsOnce", 3, 1, L"gdbA", 1}, {"DocumentsTwice", 3, 2, L"Abdg", 0},
};

class KBSorting : public KBTest, public testing::WithParamInterface<SortCase> {
protected:
    void recordFour() {
        record({{L"b", L"43831.5", 2048, 5},
                {L"A", L"-1", 500, 0},
                {L"g", L"43831.5", -1, -1},
                {L"d", L"2.25", 1048576, 120}});
    }

    static std::wstring rows(const frmKBConfiguration& form) {
        std::wstring rows;
        for (const std::wstring& name : names(form)) rows += name;
        return rows;
    }
    static void expectState(const frmKBConfiguration& form, const SortCase& sort, std::int32_t nextOrder) {
        EXPECT_EQ(rows(form), sort.rows);
        for (int header = 0; header < 4; ++header) {
            const ui::SortArrow wanted = header != sort.column                 ? ui::SortArrow::none
                                         : sort.order() == 1 || sort.arrowIsUp ? ui::SortArrow::up
                                                                               : ui::SortArrow::down;
            EXPECT_EQ(form.sftKBConfiguration.sortArrow(header), wanted) << "header " << header;
            EXPECT_EQ(form.nextOrders()[static_cast<std::size_t>(header)],
                      header == sort.column ? nextOrder : 0)
                << "header " << header;
        }
    }
    static constexpr SortCase UNSAVED{"Unsaved", 0, 1, L"Abdg", 0, true};
};

TEST_P(KBSorting, ByEachColumnLastsThroughRefillsAndOpenings) {
    const SortCase& sort = GetParam();
    recordFour();
    open([&](frmKBConfiguration& form) {
        expectState(form, UNSAVED, 0);
        for (int click = 0; click < sort.clicks; ++click)
            user.clickHeader(form.sftKBConfiguration, sort.column);
        expectState(form, sort, 1 - sort.order());
        for (int refill = 0; refill < 2; ++refill) {
            addIn.finish(L"b", false);
            expectState(form, sort, 1 - sort.order());
        }
    });
    for (int opening = 0; opening < 2; ++opening) {
        EXPECT_EQ(stored(L"KBConfigColumn"), sort.column);
        EXPECT_EQ(stored(L"KBConfigSortOrder"), sort.order());
        EXPECT_EQ(stored(L"KBConfigSortType"), sort.savedType);
        open([&](frmKBConfiguration& form) { expectState(form, sort, sort.order()); });
    }
}

INSTANTIATE_TEST_SUITE_P(Columns, KBSorting, testing::ValuesIn(SORTS), namedRow);

class KBSortRules : public KBSorting {};

TEST_F(KBSortRules, WithNoSavedSortTheListOpensSortedByName) {
    recordFour();
    open([&](frmKBConfiguration& form) { expectState(form, UNSAVED, 0); });
    for (const wchar_t* saved : {L"KBConfigColumn", L"KBConfigSortOrder", L"KBConfigSortType"})
        EXPECT_EQ(stored(saved), 0) << narrow(saved);
}

TEST_F(KBSortRules, TwoClicksOnSizeSortByTheKeptNumberNeverByTheUnits) {
    record({{L"kilo", L"2", 900 * 1024, 1}, {L"mega", L"2", 2 * 1048576, 1}, {L"byte", L"2", 1000, 1}});
    open([&](frmKBConfiguration& form) {
        user.clickHeader(form.sftKBConfiguration, 2);
        EXPECT_EQ(names(form), (Names{L"mega", L"kilo", L"byte"}));
        user.clickHeader(form.sftKBConfiguration, 2);
        EXPECT_EQ(names(form), (Names{L"byte", L"kilo", L"mega"}));
    });
}

TEST_F(KBSortRules, ASortKeepsTheCurrentKnowledgebase) {
    recordFour();
    open([&](frmKBConfiguration& form) {
        choose(form, L"d");
        for (const int column : {2, 1, 0, 3, 2}) {
            user.clickHeader(form.sftKBConfiguration, column);
            EXPECT_EQ(current(form), L"d");
        }
    });
}

TEST_F(KBSortRules, SavedValuesOutOfRangeCountAsNone) {
    recordFour();
    struct Saved {
        std::int32_t order, column, type;
        const wchar_t* rows;
    };
    const auto columns = static_cast<std::int32_t>(vexa::listColumns().size());
    for (const Saved& saved :
         {Saved{0, columns, 0, L"Abdg"}, Saved{1, -7, 8, L"Abdg"}, Saved{77, 2, 9, L"dbAg"},
          Saved{1, 2, 77, L"gAbd"}, Saved{-1, -1, 9, L"Abdg"}, Saved{0, 3, 6, L"gdbA"}}) {
        stage->setValue(KEY, L"KBConfigSortOrder", saved.order);
        stage->setValue(KEY, L"KBConfigColumn", saved.column);
        stage->setValue(KEY, L"KBConfigSortType", saved.type);
        open([&](frmKBConfiguration& form) {
            EXPECT_EQ(rows(form), saved.rows) << saved.order << " " << saved.column << " " << saved.type;
        });
    }
}

// --- Refill -----------------------------------------------------------------------------------------------

TEST_F(KBList, ARefillSelectsTheKnowledgebaseOfTheLastEventAndLeavesItsLines) {
    recordNames({L"Mail", L"News"});
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->setValue(KEY, L"ProjectEventName", L"News");
        recordNames({L"Mail", L"News", L"Post"});
        addIn.finish(L"News", false);
        EXPECT_EQ(names(form), (Names{L"Mail", L"News", L"Post"}));
        EXPECT_EQ(current(form), L"News");
        EXPECT_EQ(form.lblDebugInfo.text(), L"3");
    });
    EXPECT_THAT(log(), Contains("frmKBConfiguration, Lookup: ProjectEventName"));
    EXPECT_THAT(log(), Contains("UpdateListView, ProjectCount: 3"));
}

TEST_F(KBList, ARefillSelectsByTheExactNameAndOfSeveralTheLast) {
    openWith({L"Mail", L"Twin", L"Twin"}, [&](frmKBConfiguration& form) {
        stage->setValue(KEY, L"ProjectEventName", L"twin");
        addIn.finish(L"twin", false);
        EXPECT_EQ(current(form), L"Mail") << "the one that was current before";
        stage->setValue(KEY, L"ProjectEventName", L"Twin");
        addIn.finish(L"Twin", false);
        EXPECT_EQ(form.sftKBConfiguration.currentRow(), 2);
    });
}

TEST_F(KBList, TenThousandKnowledgebasesAreShownSortedAndSearched) {
    constexpr int COUNT = 10000;
    stage->setValue(KEY, L"ProjectCount", COUNT);
    for (int index = 1; index <= COUNT; ++index)
        stage->setValue(KEY, L"Project" + std::to_wstring(index),
                        L"KB" + std::to_wstring(COUNT + index * 7919 % COUNT));
    stage->setValue(KEY, L"Projectname", L"KB15000");
    open([&](frmKBConfiguration& form) {
        EXPECT_EQ(form.sftKBConfiguration.rowCount(), COUNT);
        EXPECT_EQ(form.sftKBConfiguration.cellText(0, 0), L"KB10000");
        EXPECT_EQ(form.sftKBConfiguration.cellText(COUNT - 1, 0), L"KB19999");
        EXPECT_EQ(current(form), L"KB15000");
        user.clickHeader(form.sftKBConfiguration, 0);
        EXPECT_EQ(form.sftKBConfiguration.currentRow(), 4999);
    });
}

}  // namespace
}  // namespace tests
