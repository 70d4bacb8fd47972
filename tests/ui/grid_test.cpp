// The list of rows as it lives in memory: what it tells a back end to show, and when.
#include "ui/grid.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Shown = std::vector<std::string>;

/// A back end that notes what it is told to show.
class NotingGrid : public ui::Grid {
public:
    [[nodiscard]] bool enabled() const override { return true; }
    void setEnabled(bool) override {}
    [[nodiscard]] bool visible() const override { return true; }
    void setVisible(bool) override {}
    [[nodiscard]] std::wstring text() const override { return {}; }
    void setText(const std::wstring&) override {}
    [[nodiscard]] bool hasFocus() const override { return true; }
    void setFocus() override {}
    [[nodiscard]] ui::Rect bounds() const override { return {}; }
    void move(const ui::Rect&) override {}
    [[nodiscard]] std::wstring tooltip() const override { return {}; }
    void setTooltip(const std::wstring&) override {}
    [[nodiscard]] std::wstring description() const override { return {}; }
    void setDescription(const std::wstring&) override {}
    [[nodiscard]] std::intptr_t handle() const override { return 1; }
    void refresh() override {}
    void showSoFar() override {}

    using Grid::editEnded;
    using Grid::EditorContent;
    using Grid::userMovedTo;

    /// What was shown since the last time.
    Shown shown() { return std::exchange(shown_, {}); }
    bool canEdit = true;
    EditorContent editor;

protected:
    void showColumns() override { shown_.emplace_back("columns"); }
    void showSortArrow(int column) override { shown_.push_back("arrow " + std::to_string(column)); }
    void showRows() noexcept override { shown_.emplace_back("rows"); }
    void showRow(int row) override { shown_.push_back("row " + std::to_string(row)); }
    void showCurrentRow() override { shown_.emplace_back("current row"); }
    void showEditor(int row) override {
        if (!canEdit) throw std::runtime_error("no editor");
        shown_.push_back("editor " + std::to_string(row));
    }
    EditorContent takeEditor() override {
        shown_.emplace_back("no editor");
        return editor;
    }

private:
    Shown shown_;
};

class GridTest : public testing::Test {
protected:
    GridTest() {
        grid.setColumns({{L"Name", 60}, {L"Size", 40, true}});
        for (const wchar_t* name : {L"b", L"a", L"c"}) grid.addRow({{{name}}});
        grid.onCaretChange = [this] { ++caretChanges; };
        grid.onEndEdit = [this](const ui::GridEdit& edit) { ended.push_back(edit); };
        grid.shown();
    }
    std::wstring names() const {
        std::wstring all;
        for (int row = 0; row < grid.rowCount(); ++row) all += grid.cellText(row, 0);
        return all;
    }
    void sortByName() {
        grid.sort(0,
                  [](const ui::GridCell& one, const ui::GridCell& other) { return one.text < other.text; });
    }
    void sortByNameDescending() {
        grid.sort(0,
                  [](const ui::GridCell& one, const ui::GridCell& other) { return one.text > other.text; });
    }

    NotingGrid grid;
    int caretChanges = 0;
    std::vector<ui::GridEdit> ended;
};

// --- Columns ----------------------------------------------------------------------------------------------

TEST_F(GridTest, AnArrowIsShownWhereItIsAnotherOne) {
    grid.setSortArrow(1, ui::SortArrow::up);
    grid.setSortArrow(1, ui::SortArrow::up);
    grid.setSortArrow(0, ui::SortArrow::none);
    EXPECT_THAT(grid.shown(), ElementsAre("arrow 1"));
    EXPECT_EQ(grid.sortArrow(1), ui::SortArrow::up);
    EXPECT_THROW(grid.setSortArrow(2, ui::SortArrow::up), std::out_of_range);
    grid.setColumns({{L"Name"}, {L"Size"}});
    EXPECT_EQ(grid.sortArrow(1), ui::SortArrow::none) << "new columns bear none";
    EXPECT_THAT(grid.shown(), ElementsAre("columns"));
}

TEST_F(GridTest, ItsMenuHoldsTheCommandsAndThenTheSortByEachColumn) {
    EXPECT_THAT(grid.menu(), IsEmpty()) << "nobody listens";
    std::wstring heard;
    grid.onMenu = [&] { return std::vector<ui::GridCommand>{{L"&Open", [&] { heard += L"open "; }}}; };
    ASSERT_EQ(grid.menu().size(), 1U);
    grid.onHeaderClick = [&](int column) { heard += L"sort " + std::to_wstring(column) + L" "; };
    const std::vector<ui::GridCommand> menu = grid.menu();
    ASSERT_EQ(menu.size(), 3U);
    EXPECT_EQ(menu[0].text, L"&Open");
    EXPECT_EQ(menu[1].text, L"Sort by Name");
    EXPECT_EQ(menu[2].text, L"Sort by Size");
    for (const ui::GridCommand& entry : menu) entry.run();
    EXPECT_EQ(heard, L"open sort 0 sort 1 ");
    grid.onMenu = nullptr;
    EXPECT_EQ(grid.menu().size(), 2U);
}

// --- Rows -------------------------------------------------------------------------------------------------

TEST_F(GridTest, ACellThatARowLacksIsEmptyAndARowThatIsNotThereAnError) {
    EXPECT_EQ(grid.cellText(0, 1), L"");
    EXPECT_EQ(grid.cell(0, 7).number, 0);
    for (const int row : {-1, 3}) {
        EXPECT_THROW(static_cast<void>(grid.row(row)), std::out_of_range);
        EXPECT_THROW(grid.removeRow(row), std::out_of_range);
        EXPECT_THROW(grid.setCell(row, 0, {L"x"}), std::out_of_range);
    }
    EXPECT_THROW(grid.setCurrentRow(3), std::out_of_range);
    EXPECT_THROW(grid.setCurrentRow(-2), std::out_of_range);
    EXPECT_THAT(grid.shown(), IsEmpty());
}

TEST_F(GridTest, AChangeOfOneCellShowsItsRowAndOneOfTheRowsAllOfThem) {
    EXPECT_EQ(grid.addRow({{{L"d"}}}), 3);
    grid.setCell(1, 1, {L"5", 5});
    grid.setCell(1, 0, {L"z"});
    EXPECT_EQ(grid.cell(1, 1).number, 5);
    EXPECT_EQ(names(), L"bzcd");
    grid.setAllRowsEnabled(false);
    EXPECT_THAT(grid.shown(), ElementsAre("rows", "row 1", "row 1", "rows"));
    for (int row = 0; row < 4; ++row) EXPECT_FALSE(grid.row(row).enabled) << row;
}

TEST_F(GridTest, ABulkUpdateShowsNothingUntilTheOutermostOneEnds) {
    {
        const ui::Grid::BulkUpdate outer(grid);
        {
            const ui::Grid::BulkUpdate inner(grid);
            grid.addRow({});
            grid.setCell(0, 0, {L"x"});
            grid.setCurrentRow(1);
            sortByName();
        }
        EXPECT_THAT(grid.shown(), IsEmpty());
    }
    EXPECT_THAT(grid.shown(), ElementsAre("rows"));
    EXPECT_EQ(caretChanges, 1) << "that is told at once";
}

/// A row that goes, and which one is current and which is edited before and afterwards.
struct Removal {
    int removed;
    int before;
    int after;
};

TEST_F(GridTest, TheCurrentRowAndTheEditedRowStayWhoTheyAre) {
    for (const Removal& removal : {Removal{0, 1, 0}, Removal{2, 1, 1}, Removal{1, 1, -1}}) {
        NotingGrid fresh;
        for (const wchar_t* name : {L"b", L"a", L"c"}) fresh.addRow({{{name}}});
        fresh.openEditor(removal.before);
        fresh.removeRow(removal.removed);
        EXPECT_EQ(fresh.currentRow(), removal.after) << removal.removed;
        EXPECT_EQ(fresh.editedRow(), removal.after) << removal.removed;
        EXPECT_EQ(fresh.rowCount(), 2);
    }
    grid.setCurrentRow(-1);
    grid.removeRow(0);
    EXPECT_EQ(grid.currentRow(), -1);
}

TEST_F(GridTest, ASortKeepsEqualRowsInTheirOrderAndTheCurrentRow) {
    grid.addRow({{{L"a", 1}}});
    grid.setCurrentRow(3);
    caretChanges = 0;
    sortByName();
    EXPECT_EQ(names(), L"aabc");
    EXPECT_EQ(grid.currentRow(), 1);
    EXPECT_EQ(grid.cell(1, 0).number, 1) << "the later one of the equal ones";
    EXPECT_EQ(caretChanges, 0);
    grid.setCurrentRow(-1);
    sortByName();
    EXPECT_EQ(grid.currentRow(), -1);
}

TEST_F(GridTest, TheOppositeOrderTurnsTheRowsRoundAndNotThoseThatAreEqual) {
    sortByName();
    grid.setCurrentRow(0);
    sortByNameDescending();
    EXPECT_EQ(names(), L"cba");
    EXPECT_EQ(grid.currentRow(), 2);
    grid.addRow({{{L"a", 1}}});
    sortByNameDescending();
    sortByName();
    EXPECT_EQ(names(), L"aabc");
    EXPECT_EQ(grid.cell(1, 0).number, 1) << "the later one of the equal ones";
    EXPECT_EQ(grid.currentRow(), 0);
}

TEST_F(GridTest, AClearedListHasNoRowAndNoCurrentOne) {
    grid.setCurrentRow(2);
    grid.openEditor(1);
    grid.shown();
    grid.clear();
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_EQ(grid.currentRow(), -1);
    EXPECT_EQ(grid.editedRow(), -1);
    EXPECT_THAT(grid.shown(), ElementsAre("no editor", "rows"));
    EXPECT_THAT(ended, IsEmpty());
}

// --- Current row ------------------------------------------------------------------------------------------

TEST_F(GridTest, AnotherCurrentRowIsToldOnceWhoeverMadeItSo) {
    grid.setCurrentRow(1);
    grid.setCurrentRow(1);
    EXPECT_EQ(caretChanges, 1);
    EXPECT_THAT(grid.shown(), ElementsAre("current row", "current row")) << "brought into view each time";
    grid.userMovedTo(2);
    grid.userMovedTo(2);
    EXPECT_EQ(caretChanges, 2);
    EXPECT_EQ(grid.currentRow(), 2);
    EXPECT_THAT(grid.shown(), IsEmpty()) << "the user sees it";
    grid.onCaretChange = nullptr;
    grid.userMovedTo(0);
    grid.setCurrentRow(1);
    EXPECT_EQ(grid.currentRow(), 1);
}

// --- In-place editor --------------------------------------------------------------------------------------

TEST_F(GridTest, AnEditEndsOnceWithItsText) {
    grid.openEditor(1);
    EXPECT_EQ(grid.currentRow(), 1);
    EXPECT_EQ(grid.editedRow(), 1);
    EXPECT_THAT(grid.shown(), ElementsAre("current row", "editor 1"));
    grid.editor = {L"new", false};
    grid.finishEdit();
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_EQ(ended[0].row, 1);
    EXPECT_EQ(ended[0].text, L"new");
    EXPECT_FALSE(ended[0].cancelled);
    EXPECT_EQ(grid.editedRow(), -1);
    EXPECT_EQ(grid.cellText(1, 0), L"a") << "the program decides";
    grid.finishEdit();
    grid.editEnded({L"late", false});
    EXPECT_EQ(ended.size(), 1U);
    EXPECT_THAT(grid.shown(), ElementsAre("no editor"));
}

TEST_F(GridTest, ASecondEditFirstAcceptsTheOneThatIsOpen) {
    grid.openEditor(1);
    grid.editor = {L"first", false};
    grid.openEditor(2);
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_EQ(ended[0].row, 1);
    EXPECT_EQ(grid.editedRow(), 2);
}

TEST_F(GridTest, AnEditThatIsDroppedOrSortedAwayIsNotTold) {
    grid.openEditor(1);
    grid.dropEdit();
    grid.dropEdit();
    EXPECT_EQ(grid.editedRow(), -1);
    grid.openEditor(1);
    grid.shown();
    sortByName();
    EXPECT_EQ(grid.editedRow(), -1);
    EXPECT_THAT(grid.shown(), ElementsAre("no editor", "rows"));
    EXPECT_THAT(ended, IsEmpty());
}

TEST_F(GridTest, ACancelledEditIsToldAsThatAndNobodyNeedsToListen) {
    grid.openEditor(0);
    grid.editEnded({L"half", true});
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_TRUE(ended[0].cancelled);
    grid.onEndEdit = nullptr;
    grid.openEditor(0);
    grid.editEnded({L"half", true});
    EXPECT_EQ(grid.editedRow(), -1);
}

TEST_F(GridTest, WhereNoEditorCanBeShownNothingIsEdited) {
    grid.canEdit = false;
    EXPECT_THROW(grid.openEditor(1), std::runtime_error);
    EXPECT_EQ(grid.editedRow(), -1);
    EXPECT_EQ(grid.currentRow(), 1);
    EXPECT_THROW(grid.openEditor(3), std::out_of_range);
}

}  // namespace
}  // namespace tests
