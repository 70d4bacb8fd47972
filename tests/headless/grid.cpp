#include "tests/headless/grid.h"

#include <algorithm>

#include "tests/headless/window.h"

namespace headless {
bool Grid::wantsKey(const ui::KeyEvent& event) const {
    if (event.key == tests::key::enter && wantsEnter) return true;
    if (editedRow() != -1) return true;
    return event.key >= tests::key::left && event.key <= tests::key::down;
}

void Grid::handleKey(const ui::KeyEvent& event) {
    if (editedRow() != -1)
        editorKey(event);
    else
        listKey(event.key);
}

void Grid::editorKey(const ui::KeyEvent& event) {
    switch (event.key) {
        case tests::key::enter: return editEnded({editor_, false});
        case tests::key::escape: return editEnded({editor_, true});
        case BACKSPACE: return handleCharacter(BACKSPACE);
        case tests::key::remove:
            if (allSelected_) editor_.clear();
            break;
        default: break;
    }
    allSelected_ = false;
}

void Grid::listKey(int key) {
    if (key == tests::key::f2) {
        if (currentRow() != -1) raise(onBeginEdit, currentRow());
        return;
    }
    int row = currentRow();
    switch (key) {
        case tests::key::up: row = std::max(row - 1, 0); break;
        case tests::key::down: row = std::min(row + 1, rowCount() - 1); break;
        case tests::key::home: row = 0; break;
        case tests::key::end: row = rowCount() - 1; break;
        default: return;
    }
    if (rowCount() > 0) userMovedTo(row);
}

void Grid::handleCharacter(wchar_t character) {
    if (editedRow() == -1) return;
    if (allSelected_) editor_.clear();
    if (character == BACKSPACE) {
        if (!allSelected_ && !editor_.empty()) editor_.pop_back();
    } else if (character >= L' ') {
        editor_ += character;
    }
    allSelected_ = false;
}

void Grid::showSoFar() { window().present(); }

void Grid::clickRow(int row) {
    finishEdit();
    if (row < 0 || row >= rowCount() || editedRow() != -1) return;
    userMovedTo(row);
    if (row < rowCount()) raise(onRowClick, row);
}

void Grid::doubleClickRow(int row) {
    if (row >= 0 && row < rowCount()) raise(onDoubleClick, row);
}

void Grid::rewrite(const std::wstring& text) {
    if (editedRow() == -1) return;
    editor_ = text;
    allSelected_ = false;
}

void Grid::showEditor(int row) {
    if (!window().isOpen()) throw std::runtime_error("no window for an editor");
    editor_ = cellText(row, 0);
    allSelected_ = true;
    window().focus(*this, FocusBy::program);
}

}  // namespace headless
