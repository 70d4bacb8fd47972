// A list of rows: the system's list view in report form. The rows stay in the program; the list view asks for
// what it shows (LVS_OWNERDATA), so that filling and sorting cost it nothing.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <map>
#include <optional>

#include "ui/grid.h"
#include "windows/controls/control_base.h"

namespace win {

class Grid : public ControlOf<ui::Grid> {
public:
    Grid(Window& window, HWND handle);
    ~Grid() override;
    std::optional<LRESULT> onNotify(NMHDR& notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void refresh() override;
    void showSoFar() override;
    void coloursChanged() override { refresh(); }
    void rescaled() override;
    [[nodiscard]] std::wstring accessibleValue() const override;

protected:
    void showColumns() override;
    void showSortArrow(int column) override;
    void showRows() noexcept override;
    void showRow(int row) override { send(LVM_REDRAWITEMS, static_cast<WPARAM>(row), row); }
    void showCurrentRow() override;
    void showEditor(int row) override;
    EditorContent takeEditor() override;

private:
    [[nodiscard]] std::wstring sortText(int column) const;
    void nameHeader();
    void forgetHeader() noexcept;
    void makeImages();
    void fitColumns();
    void insertColumn(int index, const ui::GridColumn& column);
    void describe(LVITEMW& item);
    [[nodiscard]] int imageOf(int picture);
    [[nodiscard]] int addImage(int picture);
    [[nodiscard]] LRESULT findRow(const NMLVFINDITEMW& wanted) const;
    [[nodiscard]] LRESULT draw(NMLVCUSTOMDRAW& drawing) const;
    void openMenu(LPARAM pointer);
    [[nodiscard]] RECT menuPlace(LPARAM pointer) const;
    void stateChanged(const NMLISTVIEW& change);
    void clicked(int row);
    [[nodiscard]] LRESULT editorOpens(int row);
    static void showWholeText(HWND editor, const std::wstring& text);
    void editorCloses();
    static LRESULT CALLBACK editorProcedure(HWND editor, UINT message, WPARAM wParam, LPARAM lParam,
                                            UINT_PTR identifier, DWORD_PTR grid) noexcept;

    HWND header_;
    HIMAGELIST images_ = nullptr;      ///< the list view destroys it
    std::map<int, int> imageIndices_;  ///< by the icons' identifiers
    // What the list view shows: asking it would make it look through its rows.
    int shownRows_ = 0;
    int selected_ = -1;
    bool greyed_ = false;
    /// A screen reader has asked, and the system keeps names for the header's parts.
    bool headerNamed_ = false;
    int fittedWidth_ = 0;  ///< the inner width that the columns fill
    /// The list view is being told which row is current, and tells it back.
    bool telling_ = false;
    /// The program opens the editor; the list view alone may not.
    bool opening_ = false;
    /// The program takes the editor away.
    bool taking_ = false;
    HWND editor_ = nullptr;
    bool escaped_ = false;
    /// What the user left in the editor, until it is reported.
    std::optional<EditorContent> left_;
};

}  // namespace win
