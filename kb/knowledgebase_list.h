// The list of knowledgebases: filling it, its order, and finding a knowledgebase in it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "common/application.h"
#include "kb/list_columns.h"
#include "ui/grid.h"

namespace vexa {

/// A knowledgebase is known by its name: its row moves with every sort and every fill. Row numbers count from
/// 0; -1 is no row.
class KnowledgebaseList {
public:
    KnowledgebaseList(Application& application, ui::Grid& grid);

    // Rows.
    /// Empties the list and lets events run; afterwards the window may have closed. Returns the number of
    /// knowledgebases to fill it with.
    [[nodiscard]] std::int32_t beginFill();
    /// Shows the records of so many knowledgebases, as the add-in has stored them or as the list was sorted;
    /// `rowAdded` is called after each.
    void fill(std::int32_t count, bool sorted, const std::function<void()>& rowAdded);
    /// The list shows all knowledgebases: it does not from its emptying to the end of a fill.
    [[nodiscard]] bool isComplete() const { return complete_; }
    [[nodiscard]] bool isEmpty() const { return grid_.rowCount() == 0; }
    [[nodiscard]] int rowCount() const { return grid_.rowCount(); }
    /// A row of which nothing but the name is known, in its place where the list is sorted by name. Returns
    /// it.
    int add(const std::wstring& name);
    /// Takes its place where the list is sorted by name. Returns the row.
    int rename(int row, const std::wstring& name);
    void remove(int row) { grid_.removeRow(row); }
    /// Shows the row's record as it is now.
    void readAgain(int row);

    // Finding.
    [[nodiscard]] std::wstring nameOf(int row) const { return grid_.cellText(row, NAME_COLUMN); }
    [[nodiscard]] std::optional<std::wstring> currentName() const;
    /// The first row with exactly this name.
    [[nodiscard]] int find(const std::wstring& name) const;
    [[nodiscard]] int findIgnoringCase(const std::wstring& name, int exceptRow = -1) const;
    /// `row` where it still has this name, else the first one that has it.
    [[nodiscard]] int stillAt(int row, const std::wstring& name) const;
    /// Makes the last row with exactly this name the current one. Returns whether there is one.
    bool selectLast(const std::wstring& name);
    /// With rows one is current: where none is, the one that was current before the last fill or what has
    /// taken its place, else the first.
    void keepOneCurrent();

    // Order.
    void hideSortArrows();
    /// Sorts as the list was sorted when it was last closed.
    void restoreSort();
    /// Nothing where no sort has been restored: then there is none that the user has left.
    void storeSort();
    /// A click on the column's header.
    void sortBy(int column);
    /// What the next click on each header sorts by: 1 ascending, 0 descending.
    [[nodiscard]] const std::vector<std::int32_t>& nextOrders() const { return nNextOrder; }

private:
    void clear();
    [[nodiscard]] ui::GridRow rowOf(const std::wstring& name);
    [[nodiscard]] std::int32_t& nextOrder() { return nNextOrder.at(static_cast<std::size_t>(nSortColumn)); }
    [[nodiscard]] const SortRule& sortRule() const;
    [[nodiscard]] bool ascends() const;
    void sort();
    void sortWhereByName();
    void toggleNextOrder();
    void showSortArrow();

    Application& application_;
    ui::Grid& grid_;
    bool complete_ = false;
    /// The current knowledgebase and its row, when the list was last filled anew.
    std::wstring nameBefore_;
    int rowBefore_ = 0;
    bool sortRestored_ = false;
    int nSortColumn = NAME_COLUMN;
    std::int32_t nSortOrder = 0;
    std::int32_t nSortType = 0;
    std::vector<std::int32_t> nNextOrder;
};

}  // namespace vexa
