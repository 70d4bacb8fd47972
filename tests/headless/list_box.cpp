#include "tests/headless/list_box.h"

#include <algorithm>
#include <new>

#include "tests/headless/letters.h"
#include "tests/stage/user.h"

namespace headless {

int ListBox::add(const std::wstring& item) {
    if (count() >= room_) throw std::bad_alloc();
    rows_.push_back({item, false});
    return count() - 1;
}

void ListBox::remove(int index) {
    static_cast<void>(at(index));
    rows_.erase(rows_.begin() + index);
    anchor_ = caret_ = std::clamp(caret_, 0, std::max(0, count() - 1));
}

void ListBox::setSelected(int index, bool selected) {
    rows_.at(static_cast<std::size_t>(index)).selected = selected;
    if (selected) anchor_ = caret_ = index;
}

void ListBox::selectAll(bool selected) {
    for (Row& row : rows_) row.selected = selected;
}

bool ListBox::wantsKey(const ui::KeyEvent& event) const {
    return event.key >= tests::key::left && event.key <= tests::key::down;
}

void ListBox::handleKey(const ui::KeyEvent& event) {
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

void ListBox::typeAhead(const ui::KeyEvent& event) {
    if (event.key < '0' || event.key > 'Z') return;
    const bool control = (event.modifiers & ui::modifier::control) != 0;
    const auto typed =
        control ? static_cast<wchar_t>(event.key - 'A' + 1) : lower(static_cast<wchar_t>(event.key));
    for (int step = 1; step <= count(); ++step) {
        const int index = (caret_ + step) % count();
        const std::wstring& text = at(index).text;
        if (!text.empty() && lower(text.front()) == typed) return pick(index, 0);
    }
}

void ListBox::pick(int index, int modifiers) {
    caret_ = index;
    if ((modifiers & ui::modifier::shift) != 0) return selectRange(anchor_, index);
    anchor_ = index;
    Row& row = rows_.at(static_cast<std::size_t>(index));
    if ((modifiers & ui::modifier::control) != 0)
        row.selected = !row.selected;
    else
        selectRange(index, index);
}

void ListBox::selectRange(int from, int to) {
    selectAll(false);
    for (int index = std::min(from, to); index <= std::max(from, to); ++index)
        rows_.at(static_cast<std::size_t>(index)).selected = true;
}

}  // namespace headless
