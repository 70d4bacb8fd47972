// A list box of multiple selection in memory.
#pragma once

#include <algorithm>
#include <limits>
#include <new>
#include <vector>

#include "tests/headless/letters.h"
#include "tests/headless/plain_controls.h"
#include "ui/listbox.h"

namespace headless {

class ListBox : public KeyTaking<ui::ListBox> {
public:
    using KeyTaking::KeyTaking;
    int add(const std::wstring& item) override {
        if (count() >= room_) throw std::bad_alloc();
        rows_.push_back({item, false});
        return count() - 1;
    }
    void remove(int index) override {
        static_cast<void>(at(index));
        rows_.erase(rows_.begin() + index);
        anchor_ = caret_ = std::clamp(caret_, 0, std::max(0, count() - 1));
    }
    [[nodiscard]] int count() const override { return static_cast<int>(rows_.size()); }
    [[nodiscard]] std::wstring item(int index) const override { return at(index).text; }
    [[nodiscard]] bool selected(int index) const override { return at(index).selected; }
    void setSelected(int index, bool selected) override {
        at(index).selected = selected;
        if (selected) anchor_ = caret_ = index;
    }
    void selectAll(bool selected) override {
        for (Row& row : rows_) row.selected = selected;
    }
    void setRedraw(bool) override {}

    void handleKey(const ui::KeyEvent& event) override {
        if (rows_.empty()) return;
        int next = caret_;
        switch (event.key) {
            case tests::key::left:
            case tests::key::up: --next; break;
            case tests::key::right:
            case tests::key::down: ++next; break;
            case tests::key::home: next = 0; break;
            case tests::key::end: next = count() - 1; break;
            case tests::key::space: break;
            default: return typeAhead(event);
        }
        pick(std::clamp(next, 0, count() - 1), event.modifiers & ui::modifier::shift);
    }

    /// Adding more items than these fails.
    void setRoom(int items) { room_ = items; }

    /// A click on a row: alone it becomes the selection, with Ctrl it changes sides, with Shift everything
    /// from the row clicked last is selected.
    void pick(int index, int modifiers) {
        caret_ = index;
        if ((modifiers & ui::modifier::shift) != 0) return selectRange(anchor_, index);
        anchor_ = index;
        if ((modifiers & ui::modifier::control) != 0)
            at(index).selected = !at(index).selected;
        else
            selectRange(index, index);
    }

private:
    struct Row {
        std::wstring text;
        bool selected = false;
    };
    [[nodiscard]] Row& at(int index) { return rows_.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] const Row& at(int index) const { return rows_.at(static_cast<std::size_t>(index)); }
    void selectRange(int from, int to) {
        selectAll(false);
        for (int index = std::min(from, to); index <= std::max(from, to); ++index) at(index).selected = true;
    }
    /// A key that stands for a character: the next item that begins with it is picked.
    void typeAhead(const ui::KeyEvent& event) {
        if (event.key < '0' || event.key > 'Z') return;
        const bool control = (event.modifiers & ui::modifier::control) != 0;
        const auto typed = static_cast<wchar_t>(control ? event.key - 'A' + 1 : event.key);
        const int index = nextBeginningWith(*this, typed, caret_);
        if (index >= 0) pick(index, 0);
    }

    std::vector<Row> rows_;
    int room_ = std::numeric_limits<int>::max();
    int anchor_ = 0;
    int caret_ = 0;
};

}  // namespace headless
