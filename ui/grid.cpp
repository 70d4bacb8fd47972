#include "ui/grid.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace ui {
namespace {

struct Place {
    const GridCell* cell;
    int row;
};

/// Turns an order round, but for rows that are equal.
void turnRound(std::vector<Place>& places, const auto& isBefore) {
    std::ranges::reverse(places);
    for (auto run = places.begin(); run != places.end();) {
        const auto end =
            std::find_if(run, places.end(), [&](const Place& place) { return isBefore(*run, place); });
        std::reverse(run, end);
        run = end;
    }
}

void sortPlaces(std::vector<Place>& places, const CellOrder& before) {
    const auto isBefore = [&](const Place& first, const Place& second) {
        return before(*first.cell, *second.cell);
    };
    // A second click on a header asks for the opposite order, which needs a look at each row only.
    const auto isAfter = [&](const Place& first, const Place& second) { return isBefore(second, first); };
    if (std::ranges::is_sorted(places, isAfter))
        turnRound(places, isBefore);
    else
        std::ranges::stable_sort(places, isBefore);
}

}  // namespace

// --- Columns ----------------------------------------------------------------------------------------------

void Grid::setColumns(std::vector<GridColumn> columns) {
    columns_ = std::move(columns);
    arrows_.assign(columns_.size(), SortArrow::none);
    showColumns();
}

void Grid::setSortArrow(int column, SortArrow arrow) {
    SortArrow& shown = arrows_.at(static_cast<std::size_t>(column));
    if (arrow == std::exchange(shown, arrow)) return;
    showSortArrow(column);
}

std::vector<GridCommand> Grid::menu() const {
    std::vector<GridCommand> entries;
    if (onMenu) entries = onMenu();
    if (!onHeaderClick || allGreyed()) return entries;
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column)
        entries.push_back({L"Sort by " + columns_[static_cast<std::size_t>(column)].caption,
                           [sort = onHeaderClick, column] { sort(column); }});
    return entries;
}

// --- Rows -------------------------------------------------------------------------------------------------

std::size_t Grid::checked(int row) const {
    if (row < 0 || row >= rowCount()) throw std::out_of_range("no such row");
    return static_cast<std::size_t>(row);
}

const GridCell& Grid::cellOf(const GridRow& row, int column) {
    static const GridCell none;
    const auto index = static_cast<std::size_t>(column);
    return index < row.cells.size() ? row.cells[index] : none;
}

int Grid::addRow(GridRow row) {
    rows_.push_back(std::move(row));
    rowsChanged();
    return rowCount() - 1;
}

void Grid::removeRow(int row) {
    const auto place = static_cast<std::ptrdiff_t>(checked(row));
    if (edited_ == row) dropEdit();
    rows_.erase(rows_.begin() + place);
    if (edited_ > row) --edited_;
    if (current_ > row)
        --current_;
    else if (current_ == row)
        current_ = -1;
    rowsChanged();
}

void Grid::clear() {
    dropEdit();
    rows_.clear();
    current_ = -1;
    rowsChanged();
}

void Grid::setCell(int row, int column, GridCell cell) {
    std::vector<GridCell>& cells = rows_[checked(row)].cells;
    const auto index = static_cast<std::size_t>(column);
    if (cells.size() <= index) cells.resize(index + 1);
    cells[index] = std::move(cell);
    if (bulkUpdates_ == 0) showRow(row);
}

void Grid::setAllRowsEnabled(bool enabled) {
    for (GridRow& row : rows_) row.enabled = enabled;
    rowsChanged();
}

bool Grid::allGreyed() const { return !rows_.empty() && std::ranges::none_of(rows_, &GridRow::enabled); }

void Grid::sort(int column, const CellOrder& before) {
    dropEdit();
    std::vector<Place> places;
    places.reserve(rows_.size());
    for (const GridRow& row : rows_)
        places.push_back({&cellOf(row, column), static_cast<int>(places.size())});
    sortPlaces(places, before);
    std::vector<GridRow> sorted;
    sorted.reserve(rows_.size());
    for (const Place& place : places) sorted.push_back(std::move(rows_[static_cast<std::size_t>(place.row)]));
    rows_ = std::move(sorted);
    if (current_ != -1)
        current_ = static_cast<int>(std::ranges::find(places, current_, &Place::row) - places.begin());
    rowsChanged();
}

void Grid::rowsChanged() {
    if (bulkUpdates_ == 0) showRows();
}

// --- Current row ------------------------------------------------------------------------------------------

void Grid::setCurrentRow(int row) {
    if (row != -1) static_cast<void>(checked(row));
    const bool another = row != current_;
    current_ = row;
    if (bulkUpdates_ == 0) showCurrentRow();
    if (another && onCaretChange) onCaretChange();
}

void Grid::userMovedTo(int row) {
    if (row == current_) return;
    current_ = row;
    if (onCaretChange) onCaretChange();
}

// --- In-place editor --------------------------------------------------------------------------------------

void Grid::openEditor(int row) {
    finishEdit();
    setCurrentRow(row);
    edited_ = row;
    try {
        showEditor(row);
    } catch (...) {
        edited_ = -1;
        throw;
    }
}

void Grid::finishEdit() {
    if (edited_ == -1) return;
    editEnded(takeEditor());
}

void Grid::dropEdit() {
    if (edited_ == -1) return;
    takeEditor();
    edited_ = -1;
}

void Grid::editEnded(const EditorContent& content) {
    if (edited_ == -1) return;
    const GridEdit edit{edited_, content.text, content.cancelled};
    edited_ = -1;
    if (onEndEdit) onEndEdit(edit);
}

}  // namespace ui
