// A list of rows in memory, with an in-place editor.
#pragma once

#include <algorithm>

#include "tests/headless/plain_controls.h"
#include "ui/grid.h"

namespace headless {

class Grid : public KeyTaking<ui::Grid> {
public:
    using KeyTaking::KeyTaking;
    void refresh() override {}
    void showSoFar() override { window().present(); }

    /// The editor takes every key; the list takes the arrows.
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override {
        return editedRow() != -1 || isArrow(event.key) || (event.key == tests::key::enter && wantsEnter);
    }
    void handleKey(const ui::KeyEvent& event) override {
        if (editedRow() != -1)
            editorKey(event);
        else
            listKey(event.key);
    }
    void handleCharacter(wchar_t character) override {
        if (editedRow() == -1) return;
        if (allSelected_) editor_.clear();
        if (character == tests::key::back) {
            if (!allSelected_ && !editor_.empty()) editor_.pop_back();
        } else if (character >= L' ') {
            editor_ += character;
        }
        allSelected_ = false;
    }
    /// Leaving the editor accepts its text.
    void focusGone() override { finishEdit(); }

    // The mouse. A row out of range is the empty area below the rows.
    void clickRow(int row) {
        finishEdit();
        if (row < 0 || row >= rowCount() || editedRow() != -1) return;
        userMovedTo(row);
        if (row < rowCount()) raise(onRowClick, row);
    }
    void doubleClickRow(int row) {
        if (row >= 0 && row < rowCount()) raise(onDoubleClick, row);
    }
    /// Types in place of the editor's text. Nothing happens where no editor is open.
    void rewrite(const std::wstring& text) {
        if (editedRow() == -1) return;
        editor_ = text;
        allSelected_ = false;
    }

protected:
    void showColumns() override {}
    void showSortArrow(int) override {}
    void showRows() noexcept override {}
    void showRow(int) override {}
    void showCurrentRow() override {}
    void showEditor(int row) override {
        if (!window().isOpen()) throw std::runtime_error("no window for an editor");
        editor_ = cellText(row, 0);
        allSelected_ = true;
        window().focus(*this, FocusBy::program);
    }
    EditorContent takeEditor() override { return {editor_, false}; }

private:
    void editorKey(const ui::KeyEvent& event) {
        switch (event.key) {
            case tests::key::enter: return editEnded({editor_, false});
            case tests::key::escape: return editEnded({editor_, true});
            case tests::key::back: return handleCharacter(tests::key::back);
            case tests::key::remove:
                if (allSelected_) editor_.clear();
                break;
            default: break;
        }
        allSelected_ = false;
    }
    void listKey(int key) {
        int row = currentRow();
        switch (key) {
            case tests::key::f2:
                if (row != -1) raise(onBeginEdit, row);
                return;
            case tests::key::up: row = std::max(row - 1, 0); break;
            case tests::key::down: row = std::min(row + 1, rowCount() - 1); break;
            case tests::key::home: row = 0; break;
            case tests::key::end: row = rowCount() - 1; break;
            default: return;
        }
        if (rowCount() > 0) userMovedTo(row);
    }

    std::wstring editor_;
    /// The editor's whole text is selected: the next character replaces it.
    bool allSelected_ = false;
};

}  // namespace headless
