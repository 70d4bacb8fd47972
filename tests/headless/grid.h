// A list of rows in memory, with an in-place editor.
#pragma once

#include "tests/headless/plain_controls.h"
#include "ui/grid.h"

namespace headless {

class Grid : public Typed<ui::Grid> {
public:
    using Typed::Typed;
    void refresh() override {}
    void showSoFar() override;

    [[nodiscard]] bool focusable() const override { return true; }
    /// The editor takes every key; the list takes the arrows.
    [[nodiscard]] bool wantsKey(const ui::KeyEvent& event) const override;
    [[nodiscard]] bool wantsCharacters() const override { return true; }
    void press() override {}
    void handleKey(const ui::KeyEvent& event) override;
    void handleCharacter(wchar_t character) override;
    /// Leaving the editor accepts its text.
    void focusGone() override { finishEdit(); }

    // The mouse. A row out of range is the empty area below the rows.
    void clickRow(int row);
    void doubleClickRow(int row);
    /// Types in place of the editor's text. Nothing happens where no editor is open.
    void rewrite(const std::wstring& text);

protected:
    void showColumns() override {}
    void showSortArrow(int) override {}
    void showRows() noexcept override {}
    void showRow(int) override {}
    void showCurrentRow() override {}
    void showEditor(int row) override;
    EditorContent takeEditor() override { return {editor_, false}; }

private:
    void editorKey(const ui::KeyEvent& event);
    void listKey(int key);

    std::wstring editor_;
    /// The editor's whole text is selected: the next character replaces it.
    bool allSelected_ = false;
};

}  // namespace headless
