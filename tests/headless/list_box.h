// A list box of multiple selection in memory.
#pragma once

#include <limits>
#include <vector>

#include "tests/headless/item.h"
#include "ui/listbox.h"

namespace headless {

class ListBox : public Typed<ui::ListBox> {
public:
    using Typed::Typed;
    int add(const std::wstring& item) override;
    void remove(int index) override;
    [[nodiscard]] int count() const override { return static_cast<int>(rows_.size()); }
    [[nodiscard]] std::wstring item(int index) const override { return at(index).text; }
    [[nodiscard]] bool selected(int index) const override { return at(index).selected; }
    void setSelected(int index, bool selected) override;
    void selectAll(bool selected) override;
    void setRedraw(bool) override {}

    [[nodiscard]] bool focusable() const override { return true; }
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override;
    [[nodiscard]] bool wantsCharacters() const override { return true; }
    void press() override {}
    void handleKey(const ui::KeyEvent& event) override;

    /// Adding more items than these fails.
    void setRoom(int items) { room_ = items; }

    /// A click on a row: alone it becomes the selection, with Ctrl it changes sides, with Shift everything
    /// from the row clicked last is selected.
    void pick(int index, int modifiers);

private:
    struct Row {
        std::wstring text;
        bool selected = false;
    };
    [[nodiscard]] const Row& at(int index) const { return rows_.at(static_cast<std::size_t>(index)); }
    void selectRange(int from, int to);
    /// A key that stands for a character: the next item that begins with it is picked.
    void typeAhead(const ui::KeyEvent& event);

    std::vector<Row> rows_;
    int room_ = std::numeric_limits<int>::max();
    int anchor_ = 0;
    int caret_ = 0;
};

}  // namespace headless
