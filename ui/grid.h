// A list of rows with cells under column headers. The rows live here, in memory; a back end shows them and
// reports what the user does with them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "ui/control.h"

namespace ui {

enum class SortArrow { none, up, down };

struct GridColumn {
    std::wstring caption;
    int share = 0;  ///< width in per cent of the list's
    bool rightAligned = false;
};

struct GridCell {
    std::wstring text;
    double number = 0;   ///< what the cell stands for, where its column is sorted by numbers
    std::wstring key{};  ///< what its column is sorted by in place of the text; empty is the text
};

struct GridRow {
    std::vector<GridCell> cells;
    int picture = 0;      ///< identifier of an icon; 0 is no picture
    int indent = 0;       ///< steps by which the row is moved to the right
    bool enabled = true;  ///< false shows it greyed
};

/// The end of an in-place edit. The cell still holds the text that it had before.
struct GridEdit {
    int row = -1;
    std::wstring text;
    bool cancelled = false;  ///< left by Esc
};

/// An entry of the menu that a list opens for its current row.
struct GridCommand {
    std::wstring text;
    std::function<void()> run;
};

/// Tells whether the first of two cells of a column comes before the second.
using CellOrder = std::function<bool(const GridCell& first, const GridCell& second)>;

/// Row and column numbers count from 0; one out of range throws std::out_of_range.
class Grid : public Control {
public:
    static constexpr Kind kind = Kind::grid;

    void setColumns(std::vector<GridColumn> columns);
    [[nodiscard]] const std::vector<GridColumn>& columns() const { return columns_; }
    [[nodiscard]] SortArrow sortArrow(int column) const {
        return arrows_.at(static_cast<std::size_t>(column));
    }
    void setSortArrow(int column, SortArrow arrow);

    [[nodiscard]] int rowCount() const { return static_cast<int>(rows_.size()); }
    [[nodiscard]] const GridRow& row(int row) const { return rows_[checked(row)]; }
    [[nodiscard]] const std::wstring& cellText(int row, int column) const { return cell(row, column).text; }
    /// An empty cell where the row has none there.
    [[nodiscard]] const GridCell& cell(int row, int column) const { return cellOf(this->row(row), column); }
    /// Adds at the end and returns the number of the new row.
    int addRow(GridRow row);
    void removeRow(int row);
    /// An open edit ends without notice; no row is current any more.
    void clear();
    void setCell(int row, int column, GridCell cell);
    void setAllRowsEnabled(bool enabled);
    /// Sorts the rows by a column. Rows that are equal keep their order, the current row stays current, an
    /// open edit ends without notice.
    void sort(int column, const CellOrder& before);

    /// The selected row; -1 where there is none.
    [[nodiscard]] int currentRow() const { return current_; }
    /// Selects the row and brings it into view; -1 selects none. Raises `onCaretChange` where it was not
    /// the current one.
    void setCurrentRow(int row);

    /// Opens the in-place editor on the row's first cell: the row is current, the editor has the focus and
    /// holds the cell's text, selected. Enter and leaving it accept the text, Esc does not. An edit that is
    /// open already is accepted first. Throws std::runtime_error where no editor can be shown.
    void openEditor(int row);
    /// The row that is being edited; -1 where none is.
    [[nodiscard]] int editedRow() const { return edited_; }
    /// Accepts the text of an open edit and raises `onEndEdit` before it returns.
    void finishEdit();
    /// Ends an open edit and raises nothing.
    void dropEdit();

    /// Shows everything anew.
    virtual void refresh() = 0;
    /// Draws the rows that are there, also during a bulk update and in a window that is still being loaded,
    /// which becomes visible by it. No events run.
    virtual void showSoFar() = 0;
    /// There are rows, and all of them are greyed.
    [[nodiscard]] bool allGreyed() const;

    /// The left button on a column header.
    std::function<void(int column)> onHeaderClick;
    /// The left button on a row, after it has become current.
    std::function<void(int row)> onRowClick;
    std::function<void(int row)> onDoubleClick;
    /// Another row has become current, by the user or by the program.
    std::function<void()> onCaretChange;
    /// The user asks to edit a row's first cell, by F2 or a second click on it. The program decides.
    std::function<void(int row)> onBeginEdit;
    /// An in-place edit has ended: the editor is gone, so that the handler may ask questions or open it
    /// again.
    std::function<void(const GridEdit&)> onEndEdit;
    /// The commands that the current row allows now, for the menu that the context-menu key, Shift+F10 and
    /// the right button open.
    std::function<std::vector<GridCommand>()> onMenu;
    /// Enter comes to `onKeyDown` and not to the dialog's default button.
    bool wantsEnter = false;
    /// What that menu offers: the commands, then the sort by each column, as by a click on its header, unless
    /// all rows are greyed.
    [[nodiscard]] std::vector<GridCommand> menu() const;

    /// While one lives, changes of the rows are not shown; its end shows them.
    class BulkUpdate {
    public:
        explicit BulkUpdate(Grid& grid) : grid_(grid) { ++grid_.bulkUpdates_; }
        ~BulkUpdate() {
            if (--grid_.bulkUpdates_ == 0) grid_.showRows();
        }
        BulkUpdate(const BulkUpdate&) = delete;
        BulkUpdate& operator=(const BulkUpdate&) = delete;

    private:
        Grid& grid_;
    };

protected:
    // What a back end shows.
    virtual void showColumns() = 0;
    virtual void showSortArrow(int column) = 0;
    /// The number, order or state of the rows has changed; also shows the current row. Throws nothing.
    virtual void showRows() noexcept = 0;
    virtual void showRow(int row) = 0;
    virtual void showCurrentRow() = 0;
    /// Throws std::runtime_error.
    virtual void showEditor(int row) = 0;
    struct EditorContent {
        std::wstring text;
        bool cancelled = false;
    };
    /// Takes the editor away and returns what was in it; also where the user has just left it and
    /// `editEnded` is still to come, which then does nothing.
    virtual EditorContent takeEditor() = 0;

    // What a back end reports.
    /// The user has moved to another row.
    void userMovedTo(int row);
    /// The editor is gone, by the user's doing.
    void editEnded(const EditorContent& content);

private:
    friend class BulkUpdate;
    void rowsChanged();
    [[nodiscard]] std::size_t checked(int row) const;
    [[nodiscard]] static const GridCell& cellOf(const GridRow& row, int column);

    std::vector<GridColumn> columns_;
    std::vector<SortArrow> arrows_;
    std::vector<GridRow> rows_;
    int current_ = -1;
    int edited_ = -1;
    int bulkUpdates_ = 0;
};

}  // namespace ui
